#include "ledger/clear_movements.h"

#include "archive/account_files.h"
#include "archive/disk_errors.h"
#include "archive/safety_copies.h"
#include "common/text.h"

namespace contavia {
namespace {

constexpr const char* kClearQuestion =
    "\nQuesta azione elimina tutti i movimenti senza eliminare il conto, si raccomanda, pertanto "
    "\ndi eseguire prima la copia di Backup al fine \ndi evitare la perdita di dati importanti."
    "\n\n...ESEGUI PRIMA IL BACKUP DEI DATI...";
constexpr const char* kClearSecondQuestion = "SEI PROPRIO SICURO DI VOLER CONTINUARE?";

}  // namespace

bool clearAccountMovements(Session& session) {
  const OpenAccount* account = session.account();
  const auto index = session.accountIndex();
  if (account == nullptr || !index) {
    return false;
  }
  Prompter& prompter = session.prompter();
  if (!confirm(prompter, warningQuestion(kClearQuestion)) ||
      !confirm(prompter, warningQuestion(kClearSecondQuestion))) {
    return false;
  }
  const std::vector<std::string> names =
      accountFilesMatching(session.dir(), account->code(), CodeMatch::Exact);
  if (!written(prompter,
               makeSafetyCopy(session.dir(), session.clock(), "cancella-movimenti", names))) {
    return false;
  }
  WriteJournal journal(session.dir());
  removeAccountFiles(journal, session.dir(), account->code(), CodeMatch::Exact);
  const WriteOutcome outcome = journal.finish();
  session.openAccount(*index);
  return written(prompter, outcome);
}

}  // namespace contavia
