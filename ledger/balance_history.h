#pragma once
// The account's balance movement by movement: from the carried-forward amount, each credit added
// and each debit taken away, in date order (then number order). The last step is the total
// balance of the status bar. The export of the list and the chart of the balance both read it.

#include <cstddef>
#include <cstdint>
#include <vector>

#include "archive/movement_records.h"

namespace contavia {

struct BalanceStep {
  std::size_t movement;  // 0-based, file order
  std::int32_t dateKey;
  double balance;  // after the movement
};

std::vector<BalanceStep> balanceHistory(const MovementRecords& movements, std::int32_t carry);

}  // namespace contavia
