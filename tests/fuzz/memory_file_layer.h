#pragma once
// Files held in memory, for the fuzzer: the same answers as the real file system gives (a missing
// file read is created empty when asked, a write past the end fills with zeros), thousands of
// times faster.

#include <map>
#include <set>
#include <string>
#include <vector>

#include "archive/file_layer.h"

namespace contavia::fuzz {

class MemoryFileLayer final : public FileLayer {
 public:
  explicit MemoryFileLayer(std::string folder) { folders_.insert(std::move(folder)); }
  std::map<std::string, std::vector<std::uint8_t>>& contents() { return files_; }

  int read(const std::string& path, std::uint64_t offset, std::size_t size,
           std::vector<std::uint8_t>& out, bool createIfMissing) override;
  int write(const std::string& path, std::uint64_t offset, const std::uint8_t* data,
            std::size_t size) override;
  int size(const std::string& path, std::uint64_t& out) override;
  int truncate(const std::string& path, std::uint64_t size) override;
  int remove(const std::string& path) override;
  int rename(const std::string& from, const std::string& to) override;
  int copy(const std::string& from, const std::string& to) override;
  int list(const std::string& folder, std::vector<std::string>& names) override;
  int listFolders(const std::string& folder, std::vector<std::string>& names) override;
  int makeDirectory(const std::string& path) override;
  int removeDirectory(const std::string& path) override;
  bool isDirectory(const std::string& path) override;
  bool exists(const std::string& path) override;
  int sync(const std::string&) override { return diskerr::kOk; }
  int lock(const std::string& path, int& handle) override;
  void unlock(int) override {}

 private:
  bool inFolder(const std::string& path) const;

  std::map<std::string, std::vector<std::uint8_t>> files_;
  std::set<std::string> folders_;
};

}  // namespace contavia::fuzz
