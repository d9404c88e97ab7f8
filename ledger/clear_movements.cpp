#include "ledger/clear_movements.h"

#include "archive/account_files.h"
#include "archive/disk_errors.h"
#include "common/text.h"
#include "common/number_masks.h"

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
  const std::string code = account->code();
  const int rc = deleteAccountFiles(session.dir(), code, CodeMatch::Exact);
  session.openAccount(*index);
  if (rc != diskerr::kOk) {
    prompter.show(Message{kDiskErrorTitle,
                          "Non è stato possibile eliminare tutti i file del conto " + code + " (" +
                              diskErrorMessage(rc) + ").",
                          Buttons::Ok, Icon::Exclamation, Answer::Ok});
    return false;
  }
  return true;
}

std::string fourDigitYearDate(const std::string& stored) {
  std::string date = trim(stored);
  const std::size_t length = charCount(date);
  if (length >= 10 || length < 5) {
    return date;
  }
  const std::string yy = rightChars(date, 2);
  const char* century = val(yy) <= 20 ? "20" : "19";
  return leftChars(date, 2) + "/" + midChars(date, 3, 2) + "/" + century + yy;
}

bool reorderTwoDigitYears(Session& session) {
  OpenAccount* account = session.account();
  if (account == nullptr) {
    return false;
  }
  // Only the movements whose date changes are written, all in one go.
  std::vector<Movement> changed;
  const std::vector<Movement>& movements = account->movements();
  for (std::size_t i = 0; i < movements.size(); ++i) {
    const std::string date = fourDigitYearDate(movements[i].operationDate);
    if (date != trim(movements[i].operationDate)) {
      Movement rewritten = movements[i];
      rewritten.movementNumber = static_cast<std::int16_t>(i + 1);  // its record
      rewritten.operationDate = date;
      changed.push_back(std::move(rewritten));
    }
  }
  if (changed.empty()) {
    return true;
  }
  const int rc = account->rewriteMovements(std::move(changed));
  if (rc != diskerr::kOk) {
    reportWriteFailure(session.prompter(), account->failedFile(), rc);
    return false;
  }
  return true;
}

}  // namespace contavia
