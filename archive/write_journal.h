#pragma once
// The writes of one operation, all or nothing, also against a crash. Before each write the bytes
// it will replace are added to a journal file in the DataDirectory and put on the disk; a file the
// operation deletes is first moved aside beside the journal. Once a write fails the later ones are
// skipped, and finishing the operation then puts every file back as it was; when every write
// went, finishing removes the journal. A program that finds a journal left behind (the previous
// one was killed in the middle of an operation) takes the operation back before anything else.

#include <cstdint>
#include <string>
#include <vector>

#include "archive/data_directory.h"
#include "archive/record_codec.h"
#include "archive/records.h"

namespace contavia {

// How an operation's writes ended: the first disk-error number met (0 when every write went)
// and the name of the file it was met on.
struct WriteOutcome {
  int error = diskerr::kOk;
  std::string failedFile;
  bool removing = false;  // the file was to be deleted, not written
  bool ok() const { return error == diskerr::kOk; }
  // Not a disk error: the file is damaged and is not written until it is repaired.
  static constexpr int kDamaged = -2;
};

// One change the journal can take back.
struct JournalEntry {
  enum Kind : std::uint8_t { Write = 'W', Remove = 'R' };
  Kind kind = Write;
  std::string name{};  // the file, in the DataDirectory
  // Write: whether the file existed, its size and the bytes the write covered before it.
  bool existed = false;
  std::uint64_t previousSize = 0;
  std::uint64_t offset = 0;
  std::vector<std::uint8_t> previous{};
  // Remove: where the file waits until the operation ends.
  std::string parkedName{};
  bool operator==(const JournalEntry&) const = default;
};

class WriteJournal {
 public:
  explicit WriteJournal(const DataDirectory& dir) : dir_(&dir) {}
  WriteJournal(const WriteJournal&) = delete;
  WriteJournal& operator=(const WriteJournal&) = delete;
  // An operation left unfinished is finished.
  ~WriteJournal();

  // Writes `data` at `offset` of `path` (a file of the DataDirectory), creating the file when
  // missing. Skipped once a write has failed, and when there is nothing to write. Returns the
  // error of this write (or of the earlier failure).
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
  // Deletes a whole file of the DataDirectory (nothing happens to a file that is not there).
  int remove(const std::string& path);
  // Replaces `to` (a file of the DataDirectory) by a copy of `from` (any file). Taking it back
  // deletes the copy and puts the replaced file back.
  int copy(const std::string& from, const std::string& to);

  bool failed() const { return outcome_.error != diskerr::kOk; }
  // The failure is left behind and later writes go ahead (a guarded procedure whose failing step
  // the user chose to skip); every write stays in the journal for a rollback.
  void goOnAfterFailure() { outcome_ = {}; }
  // Ends the operation: after a failure every change is taken back; otherwise the changes are
  // put on the disk and the journal removed.
  WriteOutcome finish();
  // Puts every file changed back as it was, latest change first, and starts afresh.
  void rollback();

 private:
  static std::uint64_t offsetOf(std::size_t n, std::size_t length) {
    return (n - 1) * static_cast<std::uint64_t>(length);
  }
  // Adds an entry to the journal file and puts it on the disk before the change it describes.
  int note(JournalEntry entry);
  int fail(int error, const std::string& name, bool removing = false);
  void close();

  const DataDirectory* dir_;
  std::vector<JournalEntry> entries_;
  std::uint64_t journalSize_ = 0;
  std::vector<std::string> written_;  // the data files written, to be put on the disk at the end
  WriteOutcome outcome_;
};

// The journal file's bytes and back: the entries complete in `bytes` (an entry cut short by a
// crash, and whatever follows it, is left out).
std::vector<std::uint8_t> journalHeader();
std::vector<std::uint8_t> encodeJournalEntry(const JournalEntry& entry);
std::vector<JournalEntry> decodeJournal(const std::vector<std::uint8_t>& bytes);

// When the DataDirectory holds the journal of an operation that did not end (the program was
// killed or the machine stopped in the middle of it), takes that operation back and removes the
// journal. Returns the message to show, empty when there was nothing to take back.
std::string takeBackInterruptedOperation(const DataDirectory& dir);

}  // namespace contavia
