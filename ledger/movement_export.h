#pragma once
// The movement list of the working account as a table for a spreadsheet: the rows of the list as
// shown (filters included), each movement with its fields, its amount in the "Dare" or "Avere"
// column, and the account's balance after it.

#include <string>
#include <vector>

#include "archive/open_account.h"
#include "archive/records.h"
#include "ledger/movement_list.h"

namespace contavia {

// The CSV of `list`, built from `account`'s movements. The carried-forward amount, when the list
// shows it, comes first with the balance it starts from. The balance after a movement is the
// account's balance (carried-forward amount, plus credits, minus debits) over the movements in
// date order, then number order, up to that one.
std::string movementListCsv(const OpenAccount& account, const MovementList& list,
                            const std::vector<Causale>& causali);

}  // namespace contavia
