#include "archive/folder_lock.h"

#include <unistd.h>

#include <utility>

#include "archive/disk_errors.h"
#include "common/text.h"

namespace contavia {

FolderLock& FolderLock::operator=(FolderLock&& other) noexcept {
  if (this != &other) {
    release();
    files_ = other.files_;
    handle_ = std::exchange(other.handle_, -1);
    folder_ = std::move(other.folder_);
  }
  return *this;
}

int FolderLock::take(const DataDirectory& dir, const std::string& program) {
  if (held() && folder_ == dir.folder()) {
    return diskerr::kOk;
  }
  FileLayer& files = dir.files();
  const std::string path = dir.folder() + filename::kLock;
  int handle = -1;
  if (const int rc = files.lock(path, handle); rc != diskerr::kOk) {
    return rc;
  }
  release();
  files_ = &files;
  handle_ = handle;
  folder_ = dir.folder();
  // Who holds the folder, for the message of a program that finds it in use.
  const std::string holder = program + ", processo " + std::to_string(::getpid());
  files.write(path, 0, reinterpret_cast<const std::uint8_t*>(holder.data()), holder.size());
  files.truncate(path, holder.size());
  return diskerr::kOk;
}

std::string FolderLock::refusalText(const DataDirectory& dir, int error) {
  if (error != diskerr::kFileAlreadyOpen) {
    return "Non è possibile usare l'archivio in " + dir.folder() + " (" + describeDiskError(error) +
           ").";
  }
  std::vector<std::uint8_t> bytes;
  dir.files().read(dir.folder() + filename::kLock, 0, 200, bytes, false);
  const std::string holder = trim(std::string(bytes.begin(), bytes.end()));
  return "L'archivio in " + dir.folder() + " è già in uso" +
         (holder.empty() ? std::string() : " (" + holder + ")") +
         ": un solo programma alla volta può lavorare su una cartella di dati. Chiudere l'altro "
         "programma e riprovare.";
}

void FolderLock::release() {
  if (handle_ >= 0) {
    files_->unlock(handle_);
    handle_ = -1;
  }
}

}  // namespace contavia
