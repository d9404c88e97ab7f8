#include "masterdata/pending_writes.h"

#include "archive/disk_errors.h"

namespace contavia {

void PendingWrites::count(const char* file, std::size_t value) {
  if (error_ == diskerr::kOk) {
    note(file, writeCount(journal_, session_->dir().path(file), static_cast<std::int16_t>(value)));
  }
}

void PendingWrites::note(const char* file, int rc) {
  if (rc != diskerr::kOk) {
    error_ = rc;
    failedFile_ = file;
  }
}

bool PendingWrites::commit() {
  if (error_ == diskerr::kOk) {
    return true;
  }
  journal_.rollback();
  reportWriteFailure(session_->prompter(), failedFile_, error_);
  return false;
}

}  // namespace contavia
