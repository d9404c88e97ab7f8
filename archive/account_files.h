#pragma once
// Deleting an account's own files by pattern. Only account files are ever taken: names whose
// extension is one of the account-file extensions. The master tables, their count files,
// "records.rer", "causali.con"/"Reccausali.con" and the "Bak." copies are never touched, and a
// code is never read as a wildcard or a path.

#include <string>
#include <string_view>
#include <vector>

#include "archive/data_directory.h"
#include "archive/write_journal.h"

namespace contavia {

enum class CodeMatch {
  Exact,   // code + ".*": the files of this account only
  Prefix,  // code + "*.*": also the files of every account whose code begins with it
};

// The names of the files of the folder that the pattern takes (sorted).
std::vector<std::string> accountFilesMatching(const DataDirectory& dir, std::string_view code,
                                              CodeMatch match);

// Deletes them as part of the operation of `journal`.
void removeAccountFiles(WriteJournal& journal, const DataDirectory& dir, std::string_view code,
                        CodeMatch match);

}  // namespace contavia
