#include "frame/two_digit_years.h"

#include "archive/disk_errors.h"
#include "common/number_masks.h"
#include "common/text.h"

namespace contavia {

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
  const std::vector<Movement> movements = account->movements().decodedAll();
  for (std::size_t i = 0; i < movements.size(); ++i) {
    const std::string date = fourDigitYearDate(movements[i].operationDate);
    if (date != trim(movements[i].operationDate)) {
      Movement rewritten = movements[i];
      rewritten.movementNumber = static_cast<std::int16_t>(i + 1);  // its record
      rewritten.operationDate = date;
      changed.push_back(std::move(rewritten));
    }
  }
  return changed.empty() ||
         written(session.prompter(), account->rewriteMovements(std::move(changed)));
}

}  // namespace contavia
