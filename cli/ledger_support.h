#pragma once
// What the ledger commands share: choosing the working account, typing into the amount field,
// choosing a movement by its number, printing the lines of a list.

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "cli/command.h"
#include "ledger/movement_entry.h"

namespace contavia::cli {

// Starts the session and chooses account `code` in the account selector; false (after the
// message) when there is none.
bool openWorkingAccount(Context& c, const std::string& code);

// The commands of the Manutenzione menu: the account given as the only argument is chosen, then
// `action` runs on it. Exit status 0 when the action reports it was carried out, 1 otherwise.
int runOnAccount(Context& c, bool (*action)(Session&));

// The text the amount field holds after `keys` are typed into it, key by key, under its key
// rules ("." becomes ","). Throws UsageError when the field would refuse a key (a second
// decimal separator, a letter, a sign), so that nothing is typed differently from what was meant.
std::string typedAmount(std::string_view keys);

// Selects movement `number` as a click on its line; false (after a message) when there is none.
bool selectMovementOrStop(Context& c, MovementEntry& entry, int number);

// A change that stopped after its movement was selected: the selection is abandoned and the
// balances recomputed from the files, as choosing the account again would. Returns the exit
// status of a stopped action.
int abandonChange(Context& c, MovementEntry& entry);

// The movement list of account CONTO (the first argument), as `movimenti` and `stampa movimenti`
// take it: with a filter option (--dal, --al, --causale) the filtered list. Null (after the
// message) when the account is not there; a usage error for an unknown causale.
std::unique_ptr<MovementEntry> listedMovements(Context& c, const Arguments& args);

// One line each, trailing blanks dropped.
void printLines(std::ostream& out, const std::vector<std::string>& lines);

}  // namespace contavia::cli
