#include "archive/running_balances.h"

#include <cstdint>
#include <limits>

#include "common/dates.h"
#include "common/number_masks.h"

namespace contavia {
namespace {

bool inRange(std::int64_t value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

bool incrementFits(const OpenAccount& account, const std::string& today, const std::string& date,
                   double amount, const std::string& sign, bool reverse) {
  const auto whole = roundHalfEven(amount);
  if (!whole) {
    return false;
  }
  // The incremental rule: "A" lowers the balances, any other sign raises them.
  std::int64_t delta = sign == "A" ? -static_cast<std::int64_t>(*whole) : *whole;
  if (reverse) {
    delta = -delta;
  }
  const bool upToToday = dateKey(date) <= dateKey(today);
  return inRange(account.balanceTotal() + delta) &&
         inRange(account.balanceToday() + (upToToday ? delta : 0));
}

bool recomputeFitsWith(const std::vector<Movement>& movements, std::size_t number,
                       const Movement& changed, const CarryForward& carry,
                       const std::string& today) {
  const std::int32_t todayKey = dateKey(today);
  double total = carry.carryAmount;
  double upToToday = carry.carryAmount;
  auto add = [&](const Movement& m) {
    const double signedAmount = m.sign == "A" ? m.amount : -m.amount;
    total += signedAmount;
    if (dateKey(m.operationDate) <= todayKey) {
      upToToday += signedAmount;
    }
  };
  for (std::size_t i = 0; i < movements.size(); ++i) {
    add(i + 1 == number ? changed : movements[i]);
  }
  if (number > movements.size()) {
    add(changed);
  }
  return roundHalfEven(total).has_value() && roundHalfEven(upToToday).has_value();
}

std::string balanceOverflowText() {
  return "Saldo fuori dai limiti: l'operazione porterebbe il saldo del conto oltre "
         "2.147.483.647 in valore assoluto. Nulla è stato registrato.";
}

}  // namespace contavia
