#pragma once
// The running balances are 32-bit whole units. Before an operation writes anything it asks here
// whether the balances it will produce stay in range, so that an overflow stops it untouched.

#include <string>
#include <vector>

#include "archive/open_account.h"
#include "archive/records.h"

namespace contavia {

// True when the incremental update of `account` by one movement (or its reverse) keeps both
// running balances in the 32-bit range. `today` is "dd/mm/yyyy".
bool incrementFits(const OpenAccount& account, const std::string& today, const std::string& date,
                   double amount, const std::string& sign, bool reverse = false);

// True when the full recompute over `movements`, with movement `number` replaced by `changed`
// (number count+1: `changed` appended), and the carried-forward amount gives both balances (all
// movements, and those up to `today`) in the 32-bit range.
bool recomputeFitsWith(const std::vector<Movement>& movements, std::size_t number,
                       const Movement& changed, const CarryForward& carry,
                       const std::string& today);

// The message that stops an operation whose balance would leave the range.
std::string balanceOverflowText();

}  // namespace contavia
