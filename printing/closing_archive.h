#pragma once
// "Elenco Movimenti Eliminati": the movements a closing removes, printed before they go. A line
// holds the date, the amount under "Mov. Dare" (any sign but "A") or "Mov. Avere", and the
// description; the report ends with the break rule, the page and "....fine stampa".

#include <string>
#include <vector>

#include "archive/records.h"
#include "printing/report_page.h"

namespace contavia {

std::string removedMovementLine(const Movement& movement);

Report closingArchiveReport(const std::vector<Movement>& removed, const std::string& today,
                            const std::string& closingDate);

}  // namespace contavia
