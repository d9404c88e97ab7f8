#pragma once
// The maintenance commands of the working account in the Manutenzione menu.

#include "archive/session.h"

namespace contavia {

// "Cancella movimenti": after two confirmations deletes the working account's own files (code +
// ".*", account files only) and opens the account again, empty. True when done.
bool clearAccountMovements(Session& session);

// "Riordina archivio": rewrites each movement whose date is shorter than 10 characters
// ("dd/mm/yy") with a four-digit year ("20" up to 20, "19" above). Nothing is shown.
void reorderTwoDigitYears(Session& session);

}  // namespace contavia
