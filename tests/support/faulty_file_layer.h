#pragma once
// A file layer over the real one that fails on purpose: the Nth write, every write from the Nth
// on, or every operation on a file whose name contains a given text; or that stops the program
// dead after its Nth change to the disk, as a kill or a power cut would.

#include <optional>
#include <string>

#include "archive/file_layer.h"

namespace contavia::test {

class FaultyFileLayer final : public FileLayer {
 public:
  // The `n`-th write from now (1 = the next one) fails with `error`; with `sticky` every later
  // write fails too (a full disk stays full). With `partialBytes` the failing write still puts
  // that many bytes on disk first, as a disk that fills up in the middle of a record.
  void failWrite(int n, int error, bool sticky = false, std::size_t partialBytes = 0);
  // Every operation on a path containing `text` fails with `error`.
  void failPath(std::string text, int error);
  // The next write of the write journal fails with `error` after putting its first byte on disk
  // (the journal file exists then, as when a disk fills up).
  void failJournalWrite(int error) { journalError_ = error; }
  void heal();
  // The program ends (exit status kCrashed) right after its `n`-th change from now: a write, a
  // truncation, a removal or a renaming. With `partialBytes` a write puts only that many of its
  // bytes on disk before the end.
  void crashAfter(int n, std::size_t partialBytes = 0);
  static constexpr int kCrashed = 86;

  int writes = 0;   // writes to data files attempted so far (the write journal's own not counted)
  int changes = 0;  // every change to the disk so far

  int read(const std::string& path, std::uint64_t offset, std::size_t size,
           std::vector<std::uint8_t>& out, bool createIfMissing) override;
  int write(const std::string& path, std::uint64_t offset, const std::uint8_t* data,
            std::size_t size) override;
  int size(const std::string& path, std::uint64_t& out) override;
  int truncate(const std::string& path, std::uint64_t size) override;
  int remove(const std::string& path) override;
  int rename(const std::string& from, const std::string& to) override;
  int copy(const std::string& from, const std::string& to) override;
  int sync(const std::string& path) override;
  int lock(const std::string& path, int& handle) override;
  void unlock(int handle) override;
  int list(const std::string& folder, std::vector<std::string>& names) override;
  int listFolders(const std::string& folder, std::vector<std::string>& names) override;
  int makeDirectory(const std::string& path) override;
  int removeDirectory(const std::string& path) override;
  bool isDirectory(const std::string& path) override;
  bool exists(const std::string& path) override;

 private:
  int pathFault(const std::string& path) const;
  bool writeFails(const std::string& path);
  // Counts a change; true when the program is to end after it.
  bool lastChange();

  OsFileLayer real_;
  std::optional<int> failAt_;
  int writeError_ = 0;
  bool sticky_ = false;
  std::size_t partialBytes_ = 0;
  std::string failingPath_;
  int pathError_ = 0;
  std::optional<int> crashAt_;
  std::size_t crashPartialBytes_ = 0;
  std::optional<int> journalError_;
};

}  // namespace contavia::test
