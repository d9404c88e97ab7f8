#include "frame/frame_commands.h"

#include "archive/disk_errors.h"
#include "archive/record_file.h"
#include "archive/tables.h"
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
  LoadedTable<Account> loaded;
  const bool done = runGuarded(session.prompter(), nullptr, [&](GuardedSteps& steps) {
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
  session.dir().setFolder(candidate.folder());
  session.tables().accounts = std::move(loaded.records);
  session.showProblem(loaded.problem);
  return true;
}

}  // namespace contavia
