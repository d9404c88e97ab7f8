#include "archive/running_balances.h"

#include <limits>

#include "common/dates.h"
#include "common/number_masks.h"

namespace contavia {
namespace {

constexpr const char* kPanelMask = "###,###,##0.00";

bool isCredit(std::string_view sign) { return sign == "A"; }

bool inRange(std::int64_t value) {
  return value >= std::numeric_limits<std::int32_t>::min() &&
         value <= std::numeric_limits<std::int32_t>::max();
}

}  // namespace

std::optional<WholeBalances> incremented(WholeBalances from, double amount, std::string_view sign,
                                         bool upToToday, bool reverse) {
  const auto whole = roundHalfEven(amount);
  if (!whole) {
    return std::nullopt;
  }
  std::int64_t delta = isCredit(sign) ? -static_cast<std::int64_t>(*whole) : *whole;
  if (reverse) {
    delta = -delta;
  }
  const std::int64_t total = from.total + delta;
  const std::int64_t today = from.today + (upToToday ? delta : 0);
  if (!inRange(total) || !inRange(today)) {
    return std::nullopt;
  }
  return WholeBalances{static_cast<std::int32_t>(today), static_cast<std::int32_t>(total)};
}

WholeBalances ExactBalances::wholeOrZero() const {
  return {roundHalfEven(today).value_or(0), roundHalfEven(total).value_or(0)};
}

bool ExactBalances::fitsWholeUnits() const {
  return roundHalfEven(today).has_value() && roundHalfEven(total).has_value();
}

void BalanceRecompute::add(bool credit, double amount, std::int32_t dateKey) {
  (credit ? creditsAll_ : debitsAll_) += amount;
  if (dateKey <= todayKey_) {
    (credit ? creditsToday_ : debitsToday_) += amount;
  }
}

ExactBalances BalanceRecompute::result(std::int32_t carryAmount) const {
  return {creditsToday_ - debitsToday_ + carryAmount, creditsAll_ - debitsAll_ + carryAmount};
}

ExactBalances recomputed(const MovementRecords& movements, std::int32_t carryAmount,
                         std::int32_t todayKey) {
  BalanceRecompute sums(todayKey);
  for (const MovementView m : movements) {
    sums.add(m);
  }
  return sums.result(carryAmount);
}

double availableOf(double today, std::string_view creditLine) { return today + val(creditLine); }

StatusPanels statusPanelsOf(double today, double total, std::string_view creditLine) {
  return StatusPanels{formatNumber(today, kPanelMask), formatNumber(total, kPanelMask),
                      formatNumber(availableOf(today, creditLine), kPanelMask)};
}

std::string balanceOverflowText() {
  return "Saldo fuori dai limiti: l'operazione porterebbe il saldo del conto oltre "
         "2.147.483.647 in valore assoluto. Nulla è stato registrato.";
}

}  // namespace contavia
