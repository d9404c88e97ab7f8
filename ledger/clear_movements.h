#pragma once
// "Cancella movimenti" of the Manutenzione menu: every movement of the working account goes.

#include "archive/session.h"

namespace contavia {

// "Cancella movimenti": after two confirmations deletes the working account's own files (code +
// ".*", account files only) and opens the account again, empty. True when done.
bool clearAccountMovements(Session& session);

}  // namespace contavia
