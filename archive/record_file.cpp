#include "archive/record_file.h"

#include <algorithm>

#include "archive/records.h"

namespace contavia {

int WriteJournal::write(const std::string& path, std::uint64_t offset,
                        const std::vector<std::uint8_t>& data) {
  if (path.empty()) {
    return diskerr::kBadFileName;
  }
  const int rc = writeRemembering(path, offset, data);
  if (rc != diskerr::kOk) {
    failedPath_ = path;
  }
  return rc;
}

std::string WriteJournal::failedFileName() const {
  return failedPath_.substr(failedPath_.find_last_of('/') + 1);
}

int WriteJournal::writeRemembering(const std::string& path, std::uint64_t offset,
                                   const std::vector<std::uint8_t>& data) {
  Entry entry;
  entry.path = path;
  entry.offset = offset;
  entry.existed = files_->exists(path);
  if (entry.existed) {
    if (const int rc = files_->size(path, entry.previousSize); rc != diskerr::kOk) {
      return rc;
    }
    if (const int rc = files_->read(path, offset, data.size(), entry.previous, false);
        rc != diskerr::kOk) {
      return rc;
    }
  }
  const int rc = files_->write(path, offset, data.data(), data.size());
  // Remembered even when the write failed: it may have changed part of the file.
  entries_.push_back(std::move(entry));
  return rc;
}

void WriteJournal::rollback() {
  for (auto it = entries_.rbegin(); it != entries_.rend(); ++it) {
    if (!it->existed) {
      files_->remove(it->path);
      continue;
    }
    if (!it->previous.empty()) {
      files_->write(it->path, it->offset, it->previous.data(), it->previous.size());
    }
    std::uint64_t size = 0;
    if (files_->size(it->path, size) == diskerr::kOk && size > it->previousSize) {
      files_->truncate(it->path, it->previousSize);
    }
  }
  entries_.clear();
}

int readRecordBytes(FileLayer& files, const std::string& path, std::size_t length,
                    std::size_t first, std::size_t count, std::vector<std::uint8_t>& out,
                    std::size_t* available) {
  out.assign(length * count, 0);
  if (available != nullptr) {
    *available = 0;
  }
  if (path.empty()) {
    return diskerr::kBadFileName;
  }
  // Read straight into `out` (a table of 10,000 movements is 870 KB), then zeros past the end.
  const int rc =
      files.read(path, (first - 1) * static_cast<std::uint64_t>(length), length * count, out, true);
  if (rc != diskerr::kOk) {
    out.assign(length * count, 0);
    return rc;
  }
  if (available != nullptr) {
    *available = out.size() / length;
  }
  out.resize(length * count, 0);
  return diskerr::kOk;
}

int writeRecordBytes(WriteJournal& journal, const std::string& path, std::size_t length,
                     std::size_t first, const std::vector<std::uint8_t>& bytes) {
  return journal.write(path, (first - 1) * static_cast<std::uint64_t>(length), bytes);
}

int readCount(FileLayer& files, const std::string& path, std::int16_t& out) {
  CountRecord record;
  const int rc = readRecord(files, path, 1, record);
  out = record.value;
  return rc;
}

int writeCount(WriteJournal& journal, const std::string& path, std::int16_t value) {
  return writeRecord(journal, path, 1, CountRecord{value});
}

}  // namespace contavia
