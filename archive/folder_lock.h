#pragma once
// One program at a time works on a DataDirectory: the desktop program while the folder is open,
// each run of the command line for its whole run. The lock is a file beside the data files that
// the operating system releases when the program ends, however it ends.

#include <string>

#include "archive/data_directory.h"

namespace contavia {

class FolderLock {
 public:
  FolderLock() = default;
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;
  FolderLock(FolderLock&& other) noexcept { *this = std::move(other); }
  FolderLock& operator=(FolderLock&& other) noexcept;
  ~FolderLock() { release(); }

  // Takes the lock of `dir`'s folder for `program` ("contavia", "contavia-cli"), releasing the
  // folder held before; nothing to do when this lock holds that folder already. Returns the
  // disk-error number: kFileAlreadyOpen when another program holds the folder.
  int take(const DataDirectory& dir, const std::string& program);
  // The message of a failed take().
  static std::string refusalText(const DataDirectory& dir, int error);
  void release();
  bool held() const { return handle_ >= 0; }

 private:
  FileLayer* files_ = nullptr;
  int handle_ = -1;
  std::string folder_;
};

}  // namespace contavia
