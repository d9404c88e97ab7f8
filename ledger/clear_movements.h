#pragma once
// The maintenance commands of the working account in the Manutenzione menu.

#include <string>

#include "archive/session.h"

namespace contavia {

// "Cancella movimenti": after two confirmations deletes the working account's own files (code +
// ".*", account files only) and opens the account again, empty. True when done.
bool clearAccountMovements(Session& session);

// "Riordina archivio": rewrites each movement whose date is shorter than 10 characters
// ("dd/mm/yy") with a four-digit year ("20" up to 20, "19" above). Nothing is shown, unless a
// record cannot be written (then it stops there and says so). True when every record went.
bool reorderTwoDigitYears(Session& session);

// The date "Riordina archivio" makes of a stored date: day + "/" + month + "/" + century + yy
// for a date of 5 to 9 characters, the date itself otherwise (10 characters, or too short to
// hold a day, a month and a year).
std::string fourDigitYearDate(const std::string& stored);

}  // namespace contavia
