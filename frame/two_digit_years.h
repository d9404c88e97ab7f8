#pragma once
// "Riordina archivio" of the Manutenzione menu: the movements of the working account stored with a
// two-digit year ("dd/mm/yy") get a four-digit one.

#include <string>

#include "archive/session.h"

namespace contavia {

// "Riordina archivio": rewrites each movement whose date is shorter than 10 characters
// ("dd/mm/yy") with a four-digit year ("20" up to 20, "19" above). Nothing is shown, unless a
// record cannot be written (then it stops there and says so). True when every record went.
bool reorderTwoDigitYears(Session& session);

// The date "Riordina archivio" makes of a stored date: day + "/" + month + "/" + century + yy
// for a date of 5 to 9 characters, the date itself otherwise (10 characters, or too short to
// hold a day, a month and a year).
std::string fourDigitYearDate(const std::string& stored);

}  // namespace contavia
