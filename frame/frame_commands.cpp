#include "frame/frame_commands.h"

#include "archive/disk_errors.h"
#include "archive/record_file.h"
#include "archive/tables.h"
#include "archive/write_journal.h"
#include "common/prompter.h"

namespace contavia {

bool confirmExit(Prompter& prompter) { return confirm(prompter, warningQuestion(kExitQuestion)); }

void closeWorkingAccount(Session& session) {
  session.closeAccount();
  session.clearChosenAccount();
}

bool changeDataFolder(Session& session, const std::string& folder) {
  closeWorkingAccount(session);
  FileLayer& files = session.files();
  const DataDirectory candidate(files, folder);
  // The new folder is locked before anything is read from it; the old one stays locked until
  // the change is done.
  const bool sameFolder = candidate.folder() == session.dir().folder();
  FolderLock candidateLock;
  if (!sameFolder) {
    if (const int rc = candidateLock.take(candidate, session.program());
        rc == diskerr::kFileAlreadyOpen) {
      session.prompter().show(errorBox(FolderLock::refusalText(candidate, rc)));
      return false;
    }
  }
  LoadedTable<Account> loaded;
  std::string interrupted;
  const bool done = runGuarded(session.prompter(), nullptr, [&](GuardedSteps& steps) {
    if (!sameFolder) {
      steps.step([&] { return candidateLock.take(candidate, session.program()); });
      interrupted = takeBackInterruptedOperation(candidate);
    }
    std::int16_t count = 0;
    steps.step([&] { return readCount(files, candidate.path(filename::kAccountsCount), count); });
    steps.step([&] {
      // The table is opened (and created when missing) before it is read.
      std::vector<std::uint8_t> probe;
      const int rc = files.read(candidate.path(filename::kAccounts), 0, 0, probe, true);
      if (rc == diskerr::kOk) {
        loaded = loadTable<Account>(candidate, kAccountTable);
      }
      return rc;
    });
  });
  if (!done) {
    return false;
  }
  if (!sameFolder && !candidateLock.held()) {  // its step was skipped: no folder without a lock
    session.prompter().show(errorBox(FolderLock::refusalText(candidate, diskerr::kDeviceIo)));
    return false;
  }
  session.dir().setFolder(candidate.folder());
  if (!sameFolder) {
    session.lock() = std::move(candidateLock);
  }
  if (!interrupted.empty()) {
    session.prompter().show(plainBox(kProgramTitle, interrupted));
  }
  session.tables().accounts = std::move(loaded.records);
  session.showProblem(loaded.damage.problem);
  return true;
}

}  // namespace contavia
