#include "tests/support/faulty_file_layer.h"

#include <algorithm>
#include <cstdlib>

#include "archive/data_directory.h"

namespace contavia::test {

void FaultyFileLayer::failWrite(int n, int error, bool sticky, std::size_t partialBytes) {
  failAt_ = writes + n;
  writeError_ = error;
  sticky_ = sticky;
  partialBytes_ = partialBytes;
}

void FaultyFileLayer::failPath(std::string text, int error) {
  failingPath_ = std::move(text);
  pathError_ = error;
}

void FaultyFileLayer::crashAfter(int n, std::size_t partialBytes) {
  crashAt_ = changes + n;
  crashPartialBytes_ = partialBytes;
}

bool FaultyFileLayer::lastChange() { return crashAt_ && ++changes == *crashAt_; }

void FaultyFileLayer::heal() {
  failAt_.reset();
  failingPath_.clear();
}

int FaultyFileLayer::pathFault(const std::string& path) const {
  if (!failingPath_.empty() && path.find(failingPath_) != std::string::npos) {
    return pathError_;
  }
  return 0;
}

bool FaultyFileLayer::writeFails(const std::string& path) {
  if (path.ends_with(filename::kJournal)) {
    return false;
  }
  ++writes;
  if (!failAt_) {
    return false;
  }
  if (writes == *failAt_) {
    if (!sticky_) {
      failAt_.reset();
    }
    return true;
  }
  return sticky_ && writes > *failAt_;
}

int FaultyFileLayer::read(const std::string& path, std::uint64_t offset, std::size_t size,
                          std::vector<std::uint8_t>& out, bool createIfMissing) {
  if (const int e = pathFault(path)) {
    out.clear();
    return e;
  }
  return real_.read(path, offset, size, out, createIfMissing);
}

int FaultyFileLayer::write(const std::string& path, std::uint64_t offset, const std::uint8_t* data,
                           std::size_t size) {
  if (const int e = pathFault(path)) {
    return e;
  }
  if (lastChange()) {
    real_.write(path, offset, data,
                crashPartialBytes_ > 0 ? std::min(crashPartialBytes_, size) : size);
    std::_Exit(kCrashed);
  }
  if (journalError_ && path.ends_with(filename::kJournal)) {
    const int error = *journalError_;
    journalError_.reset();
    real_.write(path, offset, data, std::min<std::size_t>(1, size));
    return error;
  }
  if (writeFails(path)) {
    const int error = writeError_;
    if (partialBytes_ > 0) {
      real_.write(path, offset, data, std::min(partialBytes_, size));
    }
    return error;
  }
  return real_.write(path, offset, data, size);
}

int FaultyFileLayer::size(const std::string& path, std::uint64_t& out) {
  if (const int e = pathFault(path)) {
    return e;
  }
  return real_.size(path, out);
}

int FaultyFileLayer::truncate(const std::string& path, std::uint64_t size) {
  const int rc = real_.truncate(path, size);
  if (lastChange()) {
    std::_Exit(kCrashed);
  }
  return rc;
}

int FaultyFileLayer::remove(const std::string& path) {
  if (const int e = pathFault(path)) {
    return e;
  }
  const int rc = real_.remove(path);
  if (lastChange()) {
    std::_Exit(kCrashed);
  }
  return rc;
}

int FaultyFileLayer::rename(const std::string& from, const std::string& to) {
  if (const int e = pathFault(from) ? pathFault(from) : pathFault(to)) {
    return e;
  }
  const int rc = real_.rename(from, to);
  if (lastChange()) {
    std::_Exit(kCrashed);
  }
  return rc;
}

int FaultyFileLayer::sync(const std::string& path) { return real_.sync(path); }

int FaultyFileLayer::lock(const std::string& path, int& handle) {
  if (const int e = pathFault(path)) {
    return e;
  }
  return real_.lock(path, handle);
}

void FaultyFileLayer::unlock(int handle) { real_.unlock(handle); }

int FaultyFileLayer::copy(const std::string& from, const std::string& to) {
  if (const int e = pathFault(from) ? pathFault(from) : pathFault(to)) {
    return e;
  }
  if (writeFails(to)) {
    return writeError_;
  }
  return real_.copy(from, to);
}

int FaultyFileLayer::list(const std::string& folder, std::vector<std::string>& names) {
  if (const int e = pathFault(folder)) {
    names.clear();
    return e;
  }
  return real_.list(folder, names);
}

int FaultyFileLayer::listFolders(const std::string& folder, std::vector<std::string>& names) {
  if (const int e = pathFault(folder)) {
    names.clear();
    return e;
  }
  return real_.listFolders(folder, names);
}

int FaultyFileLayer::removeDirectory(const std::string& path) {
  if (const int e = pathFault(path)) {
    return e;
  }
  return real_.removeDirectory(path);
}

int FaultyFileLayer::makeDirectory(const std::string& path) {
  if (const int e = pathFault(path)) {
    return e;
  }
  return real_.makeDirectory(path);
}

bool FaultyFileLayer::isDirectory(const std::string& path) { return real_.isDirectory(path); }

bool FaultyFileLayer::exists(const std::string& path) { return real_.exists(path); }

}  // namespace contavia::test
