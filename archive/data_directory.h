#pragma once
// The DataDirectory: the one folder that holds every data file. File names are matched without
// regard to letter case; a new file gets the spelling given here.

#include <string>
#include <string_view>
#include <vector>

#include "archive/file_layer.h"

namespace contavia {

namespace filename {
inline constexpr const char* kAccounts = "CONTI.CON";
inline constexpr const char* kAccountsCount = "RecConti.CON";
inline constexpr const char* kCausali = "Causali.CAP";
inline constexpr const char* kCausaliCount = "RecCausa.CAP";
inline constexpr const char* kCategories = "Tipo.con";
inline constexpr const char* kCategoriesCount = "RecTipo.con";
inline constexpr const char* kGroups = "Gruppi.con";
inline constexpr const char* kGroupsCount = "RecGruppi.con";
inline constexpr const char* kMovementCounter = "records.rer";
// Where the deletion of a causale writes the compacted table.
inline constexpr const char* kCausaliAfterDelete = "causali.con";
inline constexpr const char* kCausaliAfterDeleteCount = "Reccausali.con";

// Beside the data files: the journal of the operation under way (before-images of what it
// writes; the files it deletes wait beside it as journal + "." + number until it ends) and the
// lock held by the program that works on the folder.
inline constexpr const char* kJournal = "contavia.journal";
inline constexpr const char* kLock = "contavia.lock";

// Extensions of an account's own files (code + extension).
inline constexpr const char* kMovements = ".MOC";
inline constexpr const char* kMovementCount = ".MOR";
inline constexpr const char* kTotals = ".TOC";
inline constexpr const char* kCarryForward = ".RIP";
inline constexpr const char* kClosingUndo = ".chi";
}  // namespace filename

// True for an extension (with its dot) that belongs to an account's own files, in any case.
bool isAccountFileExtension(std::string_view extension);

// True for a name that stays inside its folder: not empty, no path separator, no NUL, not a
// wildcard, not "." or "..".
bool isSafeFileName(std::string_view name);

class DataDirectory {
 public:
  DataDirectory(FileLayer& files, std::string folder);

  FileLayer& files() const { return *files_; }
  const std::string& folder() const { return folder_; }
  // Sets the folder, adding the separator when it does not end with one.
  void setFolder(std::string folder);

  // The full path of a file of the folder: an existing file whose name equals `name` in any
  // letter case, else `name` as given. Empty for a name that is not safe.
  std::string path(std::string_view name) const;
  // Names of the files of the folder (empty when it cannot be listed).
  std::vector<std::string> fileNames() const;
  // Creates the folder when missing (one level only).
  int ensureExists() const;

  // The default folder: the program's own folder followed by "dati/" when the user can write
  // there; for an installed program, the user's data folder ("$XDG_DATA_HOME" or
  // "~/.local/share") followed by "Contavia/dati/".
  static std::string defaultFolder();
  static std::string defaultFolderFor(const std::string& programFolder, bool programFolderWritable,
                                      const char* xdgDataHome, const char* home);
  static std::string withSeparator(std::string folder);

 private:
  FileLayer* files_;
  std::string folder_;
};

}  // namespace contavia
