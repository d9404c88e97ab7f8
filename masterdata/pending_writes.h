#pragma once
// The writes of one master-data operation, all or nothing: each write goes at once, and when
// one fails the later ones are skipped, the earlier ones taken back, and the user told which
// file could not be written.

#include <cstdint>
#include <string>
#include <vector>

#include "archive/record_file.h"
#include "archive/session.h"

namespace contavia {

class PendingWrites {
 public:
  explicit PendingWrites(Session& session) : session_(&session), journal_(session.files()) {}

  template <class Record>
  void record(const char* file, std::size_t n, const Record& r) {
    if (error_ == diskerr::kOk) {
      note(file, writeRecord(journal_, session_->dir().path(file), n, r));
    }
  }
  // Records 1..size of `file`.
  template <class Record>
  void records(const char* file, const std::vector<Record>& rs) {
    if (error_ == diskerr::kOk && !rs.empty()) {
      note(file, writeRecords(journal_, session_->dir().path(file), 1, rs));
    }
  }
  void count(const char* file, std::size_t value);

  // True when every write went; otherwise takes them all back and tells the user.
  bool commit();

 private:
  void note(const char* file, int rc);

  Session* session_;
  WriteJournal journal_;
  int error_ = diskerr::kOk;
  std::string failedFile_;
};

}  // namespace contavia
