#pragma once
// The one small layer through which every file of the archive is read and written. Errors come
// back as the disk-error numbers the rest of the system knows (0 = success); tests replace the
// layer with one that fails on purpose.

#include <cstdint>
#include <string>
#include <vector>

namespace contavia {

namespace diskerr {
inline constexpr int kOk = 0;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kBadFileMode = 54;
inline constexpr int kFileAlreadyOpen = 55;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kBadFileNameOrNumber = 64;
inline constexpr int kTooManyFiles = 67;
inline constexpr int kDeviceUnavailable = 68;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kDiskNotReady = 71;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
}  // namespace diskerr

class FileLayer {
 public:
  virtual ~FileLayer() = default;
  // Reads up to `size` bytes at `offset`; fewer when the file ends first. With
  // `createIfMissing` a missing file is created empty, as opening a record file does.
  virtual int read(const std::string& path, std::uint64_t offset, std::size_t size,
                   std::vector<std::uint8_t>& out, bool createIfMissing) = 0;
  // Writes all bytes at `offset`, creating the file when missing; a file is never shortened.
  virtual int write(const std::string& path, std::uint64_t offset, const std::uint8_t* data,
                    std::size_t size) = 0;
  virtual int size(const std::string& path, std::uint64_t& out) = 0;
  // Only used to take back writes (the write journal).
  virtual int truncate(const std::string& path, std::uint64_t size) = 0;
  virtual int remove(const std::string& path) = 0;
  virtual int rename(const std::string& from, const std::string& to) = 0;
  virtual int copy(const std::string& from, const std::string& to) = 0;
  // Puts what was written to a file, or the names of a folder, on the disk itself.
  virtual int sync(const std::string& path) = 0;
  // Takes the exclusive lock of a file (created when missing) without waiting: kFileAlreadyOpen
  // when another program holds it. The lock lasts until unlock() or the end of the program.
  virtual int lock(const std::string& path, int& handle) = 0;
  virtual void unlock(int handle) = 0;
  // Names of the regular files of a folder, and of the folders in it.
  virtual int list(const std::string& folder, std::vector<std::string>& names) = 0;
  virtual int listFolders(const std::string& folder, std::vector<std::string>& names) = 0;
  virtual int makeDirectory(const std::string& path) = 0;
  // Removes an empty folder.
  virtual int removeDirectory(const std::string& path) = 0;
  virtual bool isDirectory(const std::string& path) = 0;
  virtual bool exists(const std::string& path) = 0;
};

// The real file system.
class OsFileLayer final : public FileLayer {
 public:
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
};

// The disk-error number of an operating-system error code (errno).
int diskErrorOfErrno(int err, bool pathExists);

}  // namespace contavia
