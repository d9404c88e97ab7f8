#include "backup/account_copies.h"

#include <filesystem>
#include <map>
#include <vector>

#include "archive/disk_errors.h"
#include "archive/safety_copies.h"
#include "common/text.h"

namespace contavia {
namespace {

// The files of a folder by their names in any letter case, so that a copy made where the names
// are spelled otherwise is found, and written over rather than beside.
class FolderNames {
 public:
  FolderNames(FileLayer& files, const std::string& folder) : folder_(folder) {
    std::vector<std::string> names;
    files.list(folder, names);
    for (std::string& name : names) {
      byFoldedName_.emplace(foldCase(name), std::move(name));
    }
  }
  // The path of the file named `name` in any case; with `orAsGiven` the name as given when there
  // is none, else empty.
  std::string path(const std::string& name, bool orAsGiven) const {
    const auto found = byFoldedName_.find(foldCase(name));
    if (found != byFoldedName_.end()) {
      return folder_ + found->second;
    }
    return orAsGiven ? folder_ + name : std::string();
  }

 private:
  std::string folder_;
  std::map<std::string, std::string> byFoldedName_;
};

std::string fileNameOf(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

// The codes of the accounts the choice covers (at most the 1000 of the table); empty, after a
// message, when "conto attivo" is chosen with no account open.
std::vector<std::string> accountsInScope(Session& session, BackupScope scope) {
  std::vector<std::string> codes;
  if (scope == BackupScope::ActiveAccount) {
    if (session.account() == nullptr) {
      session.prompter().show(
          errorBox("Nessun conto attivo: aprire un conto o scegliere \"tutti i conti\"."));
    } else {
      codes.push_back(session.account()->code());
    }
    return codes;
  }
  for (const Account& a : session.tables().accounts) {
    if (const std::string code = trim(a.accountCode); isSafeFileName(code)) {
      codes.push_back(code);
    }
  }
  return codes;
}

// A copy that never leaves a file half written in the backup folder: written beside it, then
// renamed over it.
int copyOut(FileLayer& files, const std::string& from, const std::string& to) {
  const std::string partial = to + ".tmp";
  int rc = files.copy(from, partial);
  if (rc == diskerr::kOk) {
    rc = files.sync(partial);
  }
  if (rc == diskerr::kOk) {
    rc = files.rename(partial, to);
  }
  if (rc != diskerr::kOk) {
    files.remove(partial);
  }
  return rc;
}

bool isDataFolder(const DataDirectory& dir, const std::string& folder) {
  std::error_code ec;
  return std::filesystem::equivalent(folder, dir.folder(), ec);
}

bool saveCopies(Session& session, const std::string& folder, const std::vector<std::string>& codes,
                const BackupProgress& progress) {
  const DataDirectory& dir = session.dir();
  FileLayer& files = dir.files();
  const FolderNames there(files, folder);
  std::size_t copied = 0;
  for (std::size_t i = 0; i < codes.size(); ++i) {
    for (const char* extension : kBackupExtensions) {
      const std::string from = dir.path(codes[i] + extension);
      if (!files.exists(from)) {
        continue;  // an account never opened has not made all its files yet
      }
      const std::string to = there.path(fileNameOf(from), true);
      const int verdict =
          retryUnderRoutine(session.prompter(), [&] { return copyOut(files, from, to); });
      if (verdict == kDiskStepDone) {
        ++copied;
      } else if (verdict != kVerdictIgnore) {
        showAbandoned(session.prompter(), verdict);
        return false;
      }
    }
    if (progress) {
      progress(i + 1, codes.size());
    }
  }
  session.prompter().show(plainBox(kProgramTitle, "Copie di sicurezza eseguite in " + folder +
                                                      ": " + std::to_string(copied) + " file."));
  return true;
}

// Copies one account's files back from the backup folder, all or nothing. Its movements and
// their count go together: a copy that has one without the other is refused, naming the
// missing file, since restoring it would leave the account's count and movements at odds.
WriteOutcome restoreAccount(const DataDirectory& dir, const FolderNames& there,
                            const std::string& code) {
  FileLayer& files = dir.files();
  const std::string movements = there.path(code + filename::kMovements, true);
  const std::string count = there.path(code + filename::kMovementCount, true);
  if (files.exists(movements) != files.exists(count)) {
    return {diskerr::kFileNotFound, files.exists(movements) ? count : movements};
  }
  WriteJournal journal(dir);
  for (const char* extension : kBackupExtensions) {
    if (const std::string from = there.path(code + extension, true); files.exists(from)) {
      journal.copy(from, dir.path(code + extension));
    }
  }
  return journal.finish();
}

bool restoreCopies(Session& session, const std::string& folder,
                   const std::vector<std::string>& codes, const BackupProgress& progress) {
  Prompter& prompter = session.prompter();
  if (!confirm(prompter, warningQuestion(kRestoreWarning))) {
    return false;
  }
  const DataDirectory& dir = session.dir();
  const FolderNames there(dir.files(), folder);
  // The accounts the folder holds copies of, and the files they will replace.
  std::vector<std::string> found;
  std::vector<std::string> replaced;
  for (const std::string& code : codes) {
    bool any = false;
    for (const char* extension : kBackupExtensions) {
      if (!there.path(code + extension, false).empty()) {
        replaced.push_back(fileNameOf(dir.path(code + extension)));
        any = true;
      }
    }
    if (any) {
      found.push_back(code);
    }
  }
  if (found.empty()) {
    prompter.show(
        errorBox("Nella cartella " + folder + " non ci sono copie dei conti da ripristinare."));
    return false;
  }
  if (!stepUnderRoutine(prompter, [&] {
        return makeSafetyCopy(dir, session.clock(), "ripristino-copie", replaced);
      })) {
    return false;
  }
  std::size_t restored = 0;
  bool completed = true;
  for (std::size_t i = 0; i < found.size() && completed; ++i) {
    WriteOutcome outcome;
    const int verdict = retryUnderRoutine(prompter, [&] {
      outcome = restoreAccount(dir, there, found[i]);
      return outcome.error;
    });
    if (verdict == kDiskStepDone) {
      ++restored;
    } else if (verdict != kVerdictIgnore) {
      showGivenUp(prompter, verdict, outcome);
      completed = false;
    }
    if (progress) {
      progress(i + 1, found.size());
    }
  }
  if (const auto index = session.accountIndex()) {
    session.openAccount(*index);  // its totals recomputed, its list rebuilt
  }
  if (completed) {
    prompter.show(plainBox(kProgramTitle, "Ripristino eseguito: " + std::to_string(restored) +
                                              (restored == 1 ? " conto." : " conti.")));
  }
  return completed;
}

}  // namespace

std::string backupFolderText(const std::string& folder) {
  return DataDirectory::withSeparator(folder);
}

bool runBackupWindow(Session& session, BackupMode mode, const std::string& folder,
                     BackupScope scope, const BackupProgress& progress) {
  const std::string target = backupFolderText(folder);
  if (isDataFolder(session.dir(), target)) {
    session.prompter().show(errorBox(
        "La cartella scelta è quella dell'archivio: scegliere un'altra cartella per le copie."));
    return false;
  }
  const std::vector<std::string> codes = accountsInScope(session, scope);
  if (codes.empty()) {
    return false;
  }
  return mode == BackupMode::Save ? saveCopies(session, target, codes, progress)
                                  : restoreCopies(session, target, codes, progress);
}

}  // namespace contavia
