#include "tests/fuzz/memory_file_layer.h"

#include <algorithm>

namespace contavia::fuzz {

bool MemoryFileLayer::inFolder(const std::string& path) const {
  const std::size_t slash = path.find_last_of('/');
  return slash != std::string::npos && folders_.contains(path.substr(0, slash + 1));
}

int MemoryFileLayer::read(const std::string& path, std::uint64_t offset, std::size_t size,
                          std::vector<std::uint8_t>& out, bool createIfMissing) {
  out.clear();
  auto it = files_.find(path);
  if (it == files_.end()) {
    if (!inFolder(path)) {
      return diskerr::kPathNotFound;
    }
    if (!createIfMissing) {
      return diskerr::kFileNotFound;
    }
    it = files_.emplace(path, std::vector<std::uint8_t>{}).first;
  }
  const std::vector<std::uint8_t>& bytes = it->second;
  if (offset < bytes.size()) {
    const std::size_t n = std::min<std::uint64_t>(size, bytes.size() - offset);
    out.assign(bytes.begin() + static_cast<long>(offset),
               bytes.begin() + static_cast<long>(offset + n));
  }
  return diskerr::kOk;
}

int MemoryFileLayer::write(const std::string& path, std::uint64_t offset, const std::uint8_t* data,
                           std::size_t size) {
  if (!inFolder(path)) {
    return diskerr::kPathNotFound;
  }
  std::vector<std::uint8_t>& bytes = files_[path];
  if (bytes.size() < offset + size) {
    bytes.resize(offset + size, 0);
  }
  std::copy(data, data + size, bytes.begin() + static_cast<long>(offset));
  return diskerr::kOk;
}

int MemoryFileLayer::size(const std::string& path, std::uint64_t& out) {
  const auto it = files_.find(path);
  out = it == files_.end() ? 0 : it->second.size();
  return it == files_.end() ? diskerr::kFileNotFound : diskerr::kOk;
}

int MemoryFileLayer::truncate(const std::string& path, std::uint64_t size) {
  const auto it = files_.find(path);
  if (it == files_.end()) {
    return diskerr::kFileNotFound;
  }
  it->second.resize(size, 0);
  return diskerr::kOk;
}

int MemoryFileLayer::remove(const std::string& path) {
  return files_.erase(path) > 0 ? diskerr::kOk : diskerr::kFileNotFound;
}

int MemoryFileLayer::rename(const std::string& from, const std::string& to) {
  if (isDirectory(from)) {  // a folder and every file in it
    const std::string prefix = from.ends_with('/') ? from : from + "/";
    const std::string target = to.ends_with('/') ? to : to + "/";
    std::map<std::string, std::vector<std::uint8_t>> moved;
    for (auto f = files_.begin(); f != files_.end();) {
      if (f->first.starts_with(prefix)) {
        moved[target + f->first.substr(prefix.size())] = std::move(f->second);
        f = files_.erase(f);
      } else {
        ++f;
      }
    }
    files_.merge(moved);
    folders_.erase(prefix);
    folders_.insert(target);
    return diskerr::kOk;
  }
  const auto it = files_.find(from);
  if (it == files_.end()) {
    return diskerr::kFileNotFound;
  }
  std::vector<std::uint8_t> bytes = std::move(it->second);
  files_.erase(it);
  files_[to] = std::move(bytes);
  return diskerr::kOk;
}

int MemoryFileLayer::copy(const std::string& from, const std::string& to) {
  const auto it = files_.find(from);
  if (it == files_.end()) {
    return diskerr::kFileNotFound;
  }
  files_[to] = it->second;
  return diskerr::kOk;
}

int MemoryFileLayer::list(const std::string& folder, std::vector<std::string>& names) {
  names.clear();
  std::string prefix = folder;
  if (!prefix.ends_with('/')) {
    prefix += '/';
  }
  if (!folders_.contains(prefix)) {
    return diskerr::kPathNotFound;
  }
  for (const auto& [path, bytes] : files_) {
    if (path.starts_with(prefix) && path.find('/', prefix.size()) == std::string::npos) {
      names.push_back(path.substr(prefix.size()));
    }
  }
  return diskerr::kOk;
}

int MemoryFileLayer::listFolders(const std::string& folder, std::vector<std::string>& names) {
  names.clear();
  const std::string prefix = folder.ends_with('/') ? folder : folder + "/";
  for (const std::string& f : folders_) {
    if (f.size() > prefix.size() && f.starts_with(prefix) &&
        f.find('/', prefix.size()) == f.size() - 1) {
      names.push_back(f.substr(prefix.size(), f.size() - prefix.size() - 1));
    }
  }
  return diskerr::kOk;
}

int MemoryFileLayer::removeDirectory(const std::string& path) {
  folders_.erase(path.ends_with('/') ? path : path + "/");
  return diskerr::kOk;
}

int MemoryFileLayer::makeDirectory(const std::string& path) {
  folders_.insert(path + "/");
  return diskerr::kOk;
}

bool MemoryFileLayer::isDirectory(const std::string& path) {
  return folders_.contains(path.ends_with('/') ? path : path + "/");
}

bool MemoryFileLayer::exists(const std::string& path) {
  return files_.contains(path) || isDirectory(path);
}

int MemoryFileLayer::lock(const std::string& path, int& handle) {
  if (!inFolder(path)) {
    return diskerr::kPathNotFound;
  }
  files_.try_emplace(path);
  handle = 0;
  return diskerr::kOk;
}

}  // namespace contavia::fuzz
