// backup CARTELLA [--conto CODICE]: "Esegui copie di sicurezza"; ripristina-backup CARTELLA
// [--conto CODICE]: "Ripristina copie", with its confirmation.

#include "backup/account_copies.h"
#include "cli/command.h"

namespace contavia::cli {
namespace {

int runCopies(Context& c, BackupMode mode) {
  const Arguments args = c.arguments({"conto"});
  args.expectAtMost(1);
  const std::string& folder = args.positional(0, "CARTELLA");
  if (folder.empty()) {
    throw UsageError("CARTELLA vuota");
  }
  if (!c.session.start()) {
    return kExitStopped;
  }
  const auto code = args.option("conto");
  if (code && !c.session.openAccountByCode(*code)) {
    return kExitStopped;
  }
  const BackupScope scope = code ? BackupScope::ActiveAccount : BackupScope::AllAccounts;
  return runBackupWindow(c.session, mode, folder, scope) ? kExitDone : kExitStopped;
}

int backup(Context& c) { return runCopies(c, BackupMode::Save); }
int ripristinaBackup(Context& c) { return runCopies(c, BackupMode::Restore); }

}  // namespace

CONTAVIA_COMMAND("backup", "CARTELLA [--conto CODICE]",
                 "copie di sicurezza dei file dei conti (tutti, o il solo CODICE) in CARTELLA",
                 backup);
CONTAVIA_COMMAND("ripristina-backup", "CARTELLA [--conto CODICE]",
                 "ripristina dalla CARTELLA le copie dei file dei conti (chiede conferma)",
                 ripristinaBackup);

}  // namespace contavia::cli
