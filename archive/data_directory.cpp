#include "archive/data_directory.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "common/text.h"

namespace contavia {

bool isAccountFileExtension(std::string_view extension) {
  static constexpr std::array<std::string_view, 10> kExtensions = {
      ".MOC", ".MOR", ".TOC", ".RIP", ".CHI", ".ORD", ".FOG", ".NRC", ".CAR", ".NRF"};
  const std::string upper = foldCase(extension);
  for (std::string_view e : kExtensions) {
    if (upper == e) {
      return true;
    }
  }
  return false;
}

bool isSafeFileName(std::string_view name) {
  if (name.empty() || name == "." || name == "..") {
    return false;
  }
  for (char c : name) {
    if (c == '/' || c == '\\' || c == '\0' || c == '*' || c == '?') {
      return false;
    }
  }
  return true;
}

DataDirectory::DataDirectory(FileLayer& files, std::string folder) : files_(&files) {
  setFolder(std::move(folder));
}

void DataDirectory::setFolder(std::string folder) { folder_ = withSeparator(std::move(folder)); }

std::string DataDirectory::withSeparator(std::string folder) {
  if (folder.empty() || folder.back() != '/') {
    folder.push_back('/');
  }
  return folder;
}

std::string DataDirectory::path(std::string_view name) const {
  if (!isSafeFileName(name)) {
    return {};
  }
  std::string exact = folder_ + std::string(name);
  if (files_->exists(exact)) {
    return exact;
  }
  std::vector<std::string> names;
  if (files_->list(folder_, names) == diskerr::kOk) {
    for (const std::string& candidate : names) {
      if (equalsIgnoringCase(candidate, name)) {
        return folder_ + candidate;
      }
    }
  }
  return exact;
}

std::vector<std::string> DataDirectory::fileNames() const {
  std::vector<std::string> names;
  files_->list(folder_, names);
  return names;
}

int DataDirectory::ensureExists() const {
  if (files_->isDirectory(folder_)) {
    return diskerr::kOk;
  }
  std::string withoutSeparator = folder_;
  withoutSeparator.pop_back();
  return files_->makeDirectory(withoutSeparator);
}

std::string DataDirectory::defaultFolder() {
  std::array<char, PATH_MAX> buf{};
  const ssize_t n = ::readlink("/proc/self/exe", buf.data(), buf.size() - 1);
  std::string program = n > 0 ? std::string(buf.data(), static_cast<std::size_t>(n)) : "./";
  program = program.substr(0, program.find_last_of('/') + 1);
  const bool writable = ::access(program.c_str(), W_OK) == 0;
  std::string folder =
      defaultFolderFor(program, writable, std::getenv("XDG_DATA_HOME"), std::getenv("HOME"));
  if (!writable) {
    // The user's data folder may not be there yet: its parents are made here, "dati" itself by
    // the first start, as for any folder.
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(folder).parent_path().parent_path(),
                                        ignored);
  }
  return folder;
}

std::string DataDirectory::defaultFolderFor(const std::string& programFolder,
                                            bool programFolderWritable, const char* xdgDataHome,
                                            const char* home) {
  if (programFolderWritable) {
    return withSeparator(programFolder) + "dati/";
  }
  const std::string data = xdgDataHome != nullptr && *xdgDataHome == '/'
                               ? std::string(xdgDataHome)
                               : std::string(home != nullptr ? home : "") + "/.local/share";
  return withSeparator(data) + "Contavia/dati/";
}

}  // namespace contavia
