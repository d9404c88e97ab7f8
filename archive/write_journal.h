#pragma once
// The writes of one operation, all or nothing. Each write remembers the bytes it replaces; once a
// write fails the later ones are skipped, and finishing the operation then puts every file back
// as it was. Every operation that writes more than one record writes through a journal.

#include <cstdint>
#include <string>
#include <vector>

#include "archive/file_layer.h"
#include "archive/record_codec.h"
#include "archive/records.h"

namespace contavia {

// How an operation's writes ended: the first disk-error number met (0 when every write went)
// and the name (without folder) of the file it was met on.
struct WriteOutcome {
  int error = diskerr::kOk;
  std::string failedFile;
  bool ok() const { return error == diskerr::kOk; }
};

class WriteJournal {
 public:
  explicit WriteJournal(FileLayer& files) : files_(&files) {}
  WriteJournal(const WriteJournal&) = delete;
  WriteJournal& operator=(const WriteJournal&) = delete;

  FileLayer& files() const { return *files_; }

  // Writes `data` at `offset` of `path`, creating the file when missing. Skipped once a write
  // has failed, and when there is nothing to write. Returns the error of this write (or of the
  // earlier failure).
  int write(const std::string& path, std::uint64_t offset, const std::vector<std::uint8_t>& data);
  // Record n (from 1) of a file of fixed-length records.
  template <class Record>
  int record(const std::string& path, std::size_t n, const Record& r) {
    return write(path, offsetOf(n, Record::kLength), encodeRecord(r));
  }
  // Records first..first+size-1, in one write.
  template <class Record>
  int records(const std::string& path, std::size_t first, const std::vector<Record>& rs) {
    std::vector<std::uint8_t> bytes(rs.size() * Record::kLength);
    for (std::size_t i = 0; i < rs.size(); ++i) {
      encodeRecord(rs[i], bytes.data() + i * Record::kLength);
    }
    return write(path, offsetOf(first, Record::kLength), bytes);
  }
  // Record 1 of a count file.
  int count(const std::string& path, std::int16_t value) {
    return record(path, 1, CountRecord{value});
  }

  bool failed() const { return outcome_.error != diskerr::kOk; }
  // The failure is left behind and later writes go ahead (a guarded procedure whose failing step
  // the user chose to skip); every write stays remembered for a rollback.
  void goOnAfterFailure() { outcome_ = {}; }
  // Ends the operation: after a failure every write is taken back.
  WriteOutcome finish();
  // Puts every file written back as it was, latest write first, and starts afresh.
  void rollback();

 private:
  struct Entry {
    std::string path;
    std::uint64_t offset = 0;
    std::vector<std::uint8_t> previous;  // the bytes the write covered that existed before
    std::uint64_t previousSize = 0;
    bool existed = false;
  };
  static std::uint64_t offsetOf(std::size_t n, std::size_t length) {
    return (n - 1) * static_cast<std::uint64_t>(length);
  }
  int writeRemembering(const std::string& path, std::uint64_t offset,
                       const std::vector<std::uint8_t>& data);

  FileLayer* files_;
  std::vector<Entry> entries_;
  WriteOutcome outcome_;
};

}  // namespace contavia
