#include "archive/account_files.h"

#include <algorithm>

#include "archive/disk_errors.h"
#include "common/text.h"

namespace contavia {

std::vector<std::string> accountFilesMatching(const DataDirectory& dir, std::string_view code,
                                              CodeMatch match) {
  std::vector<std::string> result;
  const std::string wanted = asciiUpper(trim(code));
  if (!isSafeFileName(wanted)) {
    return result;
  }
  for (const std::string& name : dir.fileNames()) {
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos || !isAccountFileExtension(name.substr(dot))) {
      continue;
    }
    const std::string base = asciiUpper(name.substr(0, dot));
    if (base == "BAK") {
      continue;  // the copies made by the closing belong to no account
    }
    const bool matches = match == CodeMatch::Exact ? base == wanted : base.starts_with(wanted);
    if (matches) {
      result.push_back(name);
    }
  }
  std::sort(result.begin(), result.end());
  return result;
}

Message undeletedFilesBox(std::string_view code, int errorNumber) {
  return diskErrorBox("Non è stato possibile eliminare tutti i file del conto " + trim(code) +
                      " (" + describeDiskError(errorNumber) + ").");
}

int deleteAccountFiles(const DataDirectory& dir, std::string_view code, CodeMatch match) {
  int first = diskerr::kOk;
  for (const std::string& name : accountFilesMatching(dir, code, match)) {
    const int rc = dir.files().remove(dir.folder() + name);
    if (first == diskerr::kOk) {
      first = rc;
    }
  }
  return first;
}

}  // namespace contavia
