#include "ledger/balance_history.h"

#include <algorithm>

namespace contavia {

std::vector<BalanceStep> balanceHistory(const MovementRecords& movements, std::int32_t carry) {
  std::vector<BalanceStep> steps;
  steps.reserve(movements.size());
  for (std::size_t i = 0; i < movements.size(); ++i) {
    steps.push_back({i, movements[i].dateKey(), 0.0});
  }
  std::stable_sort(steps.begin(), steps.end(), [](const BalanceStep& a, const BalanceStep& b) {
    return a.dateKey < b.dateKey;
  });
  double balance = carry;
  for (BalanceStep& step : steps) {
    const MovementView m = movements[step.movement];
    balance += m.isCredit() ? m.amount() : -m.amount();
    step.balance = balance;
  }
  return steps;
}

}  // namespace contavia
