#pragma once
// The totals record of an account (code + ".TOC") and the balances across accounts. The totals
// are derived from the movements and the carry-forward: they are written without the journal (a
// record cut by a stop is recomputed at the next opening), and never for a damaged account.

#include <string>

#include "archive/data_directory.h"
#include "archive/running_balances.h"

namespace contavia {

// Writes the totals record at `path`.
void storeTotals(FileLayer& files, const std::string& path, const ExactBalances& balances,
                 const std::string& selectionFrom, const std::string& selectionTo);

// An account's balances recomputed from its files (movements read as raw records, as fast as the
// files can be read), stored in its totals record with the selection dates it had.
ExactBalances refreshTotals(const DataDirectory& dir, const std::string& code,
                            std::int32_t todayKey);

}  // namespace contavia
