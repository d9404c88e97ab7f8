#include "archive/account_files.h"

#include <algorithm>

#include "common/text.h"

namespace contavia {

std::vector<std::string> accountFilesMatching(const DataDirectory& dir, std::string_view code,
                                              CodeMatch match) {
  std::vector<std::string> result;
  const std::string wanted = foldCase(trim(code));
  if (!isSafeFileName(wanted)) {
    return result;
  }
  for (const std::string& name : dir.fileNames()) {
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos || !isAccountFileExtension(name.substr(dot))) {
      continue;
    }
    const std::string base = foldCase(name.substr(0, dot));
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

void removeAccountFiles(WriteJournal& journal, const DataDirectory& dir, std::string_view code,
                        CodeMatch match) {
  for (const std::string& name : accountFilesMatching(dir, code, match)) {
    journal.remove(dir.folder() + name);
  }
}

}  // namespace contavia
