#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "archive/file_layer.h"

namespace contavia {
namespace {

std::string parentOf(const std::string& path) {
  const std::size_t slash = path.find_last_of('/');
  if (slash == std::string::npos) {
    return ".";
  }
  return slash == 0 ? "/" : path.substr(0, slash);
}

bool folderExists(const std::string& path) {
  struct stat st {};
  return ::stat(parentOf(path).c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

int lastError(const std::string& path) {
  const int err = errno;
  return diskErrorOfErrno(err, folderExists(path));
}

class Fd {
 public:
  explicit Fd(int fd) : fd_(fd) {}
  Fd(const Fd&) = delete;
  Fd& operator=(const Fd&) = delete;
  ~Fd() {
    if (fd_ >= 0) {
      ::close(fd_);
    }
  }
  int get() const { return fd_; }
  // Closes now, reporting a failed close (the last chance to see a delayed write error).
  int close() {
    const int rc = ::close(fd_);
    fd_ = -1;
    return rc;
  }

 private:
  int fd_;
};

int writeAll(int fd, const std::uint8_t* data, std::size_t size, off_t offset) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t n = ::pwrite(fd, data + done, size - done, offset + static_cast<off_t>(done));
    if (n < 0) {
      if (errno == EINTR) {
        continue;
      }
      return -1;
    }
    if (n == 0) {
      errno = ENOSPC;
      return -1;
    }
    done += static_cast<std::size_t>(n);
  }
  return 0;
}

}  // namespace

int diskErrorOfErrno(int err, bool pathExists) {
  switch (err) {
    case 0:
      return diskerr::kOk;
    case ENOENT:
    case ENOTDIR:
      return pathExists ? diskerr::kFileNotFound : diskerr::kPathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return diskerr::kDiskFull;
    case EIO:
      return diskerr::kDeviceIo;
    case ENXIO:
    case ENODEV:
      return diskerr::kDeviceUnavailable;
    case ENOMEDIUM:
    case EAGAIN:
      return diskerr::kDiskNotReady;
    case EACCES:
    case EPERM:
    case EROFS:
      return diskerr::kPermissionDenied;
    case EISDIR:
    case ETXTBSY:
    case EBUSY:
      return diskerr::kPathFileAccess;
    case ENAMETOOLONG:
    case EINVAL:
    case ELOOP:
      return diskerr::kBadFileName;
    case EMFILE:
    case ENFILE:
      return diskerr::kTooManyFiles;
    case EEXIST:
      return diskerr::kFileExists;
    default:
      return diskerr::kDeviceIo;
  }
}

int OsFileLayer::read(const std::string& path, std::uint64_t offset, std::size_t size,
                      std::vector<std::uint8_t>& out, bool createIfMissing) {
  out.clear();
  const int flags = createIfMissing ? (O_RDWR | O_CREAT) : O_RDONLY;
  int raw = ::open(path.c_str(), flags | O_CLOEXEC, 0644);
  if (raw < 0 && createIfMissing && (errno == EACCES || errno == EROFS)) {
    // A read-only file or folder can still be read.
    raw = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  }
  Fd fd(raw);
  if (fd.get() < 0) {
    return lastError(path);
  }
  out.resize(size);
  std::size_t done = 0;
  while (done < size) {
    const ssize_t n =
        ::pread(fd.get(), out.data() + done, size - done, static_cast<off_t>(offset + done));
    if (n < 0) {
      if (errno == EINTR) {
        continue;
      }
      out.clear();
      return lastError(path);
    }
    if (n == 0) {
      break;
    }
    done += static_cast<std::size_t>(n);
  }
  out.resize(done);
  return diskerr::kOk;
}

int OsFileLayer::write(const std::string& path, std::uint64_t offset, const std::uint8_t* data,
                       std::size_t size) {
  Fd fd(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644));
  if (fd.get() < 0) {
    return lastError(path);
  }
  if (writeAll(fd.get(), data, size, static_cast<off_t>(offset)) != 0) {
    return lastError(path);
  }
  if (fd.close() != 0) {
    return lastError(path);
  }
  return diskerr::kOk;
}

int OsFileLayer::size(const std::string& path, std::uint64_t& out) {
  struct stat st {};
  if (::stat(path.c_str(), &st) != 0) {
    out = 0;
    return lastError(path);
  }
  out = static_cast<std::uint64_t>(st.st_size);
  return diskerr::kOk;
}

int OsFileLayer::truncate(const std::string& path, std::uint64_t size) {
  if (::truncate(path.c_str(), static_cast<off_t>(size)) != 0) {
    return lastError(path);
  }
  return diskerr::kOk;
}

int OsFileLayer::remove(const std::string& path) {
  if (::unlink(path.c_str()) != 0) {
    return lastError(path);
  }
  return diskerr::kOk;
}

int OsFileLayer::rename(const std::string& from, const std::string& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) {
    return lastError(from);
  }
  return diskerr::kOk;
}

int OsFileLayer::sync(const std::string& path) {
  Fd fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (fd.get() < 0 || ::fsync(fd.get()) != 0) {
    return lastError(path);
  }
  return diskerr::kOk;
}

int OsFileLayer::lock(const std::string& path, int& handle) {
  const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
  if (fd < 0) {
    return lastError(path);
  }
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) {
    const int err = errno;
    ::close(fd);
    return err == EWOULDBLOCK ? diskerr::kFileAlreadyOpen : diskErrorOfErrno(err, true);
  }
  handle = fd;
  return diskerr::kOk;
}

void OsFileLayer::unlock(int handle) {
  if (handle >= 0) {
    ::close(handle);  // closing the descriptor releases the lock
  }
}

int OsFileLayer::copy(const std::string& from, const std::string& to) {
  std::vector<std::uint8_t> content;
  std::uint64_t total = 0;
  if (const int rc = size(from, total); rc != diskerr::kOk) {
    return rc;
  }
  if (const int rc = read(from, 0, static_cast<std::size_t>(total), content, false);
      rc != diskerr::kOk) {
    return rc;
  }
  Fd fd(::open(to.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644));
  if (fd.get() < 0) {
    return lastError(to);
  }
  if (writeAll(fd.get(), content.data(), content.size(), 0) != 0) {
    return lastError(to);
  }
  if (fd.close() != 0) {
    return lastError(to);
  }
  return diskerr::kOk;
}

namespace {

// The regular files, or the folders, of a folder (links followed).
int listWhere(const std::string& folder, std::vector<std::string>& names, bool regularFiles) {
  names.clear();
  std::unique_ptr<DIR, int (*)(DIR*)> dir(::opendir(folder.c_str()), ::closedir);
  if (!dir) {
    const int err = errno;
    return diskErrorOfErrno(err, false);
  }
  while (const dirent* entry = ::readdir(dir.get())) {
    const std::string name = entry->d_name;
    if (name == "." || name == "..") {
      continue;
    }
    if (entry->d_type == DT_REG || entry->d_type == DT_DIR) {
      if ((entry->d_type == DT_REG) == regularFiles) {
        names.push_back(name);
      }
      continue;
    }
    if (entry->d_type != DT_UNKNOWN && entry->d_type != DT_LNK) {
      continue;
    }
    struct stat st {};
    std::string full = folder;
    if (!full.ends_with('/')) {
      full += '/';
    }
    full += name;
    if (::stat(full.c_str(), &st) == 0 &&
        (regularFiles ? S_ISREG(st.st_mode) : S_ISDIR(st.st_mode))) {
      names.push_back(name);
    }
  }
  return diskerr::kOk;
}

}  // namespace

int OsFileLayer::list(const std::string& folder, std::vector<std::string>& names) {
  return listWhere(folder, names, true);
}

int OsFileLayer::listFolders(const std::string& folder, std::vector<std::string>& names) {
  return listWhere(folder, names, false);
}

int OsFileLayer::removeDirectory(const std::string& path) {
  if (::rmdir(path.c_str()) != 0) {
    return lastError(path);
  }
  return diskerr::kOk;
}

int OsFileLayer::makeDirectory(const std::string& path) {
  if (::mkdir(path.c_str(), 0755) != 0 && errno != EEXIST) {
    return lastError(path);
  }
  return diskerr::kOk;
}

bool OsFileLayer::isDirectory(const std::string& path) {
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
}

bool OsFileLayer::exists(const std::string& path) {
  struct stat st {};
  return ::stat(path.c_str(), &st) == 0;
}

}  // namespace contavia
