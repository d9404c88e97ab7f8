#include "archive/write_journal.h"

namespace contavia {

int WriteJournal::write(const std::string& path, std::uint64_t offset,
                        const std::vector<std::uint8_t>& data) {
  if (failed()) {
    return outcome_.error;
  }
  if (data.empty()) {
    return diskerr::kOk;  // nothing to write: no file is created either
  }
  const int rc = path.empty() ? diskerr::kBadFileName : writeRemembering(path, offset, data);
  if (rc != diskerr::kOk) {
    outcome_ = {rc, path.substr(path.find_last_of('/') + 1)};
  }
  return rc;
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

WriteOutcome WriteJournal::finish() {
  WriteOutcome outcome = outcome_;
  if (failed()) {
    rollback();
  }
  entries_.clear();
  return outcome;
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
  outcome_ = {};
}

}  // namespace contavia
