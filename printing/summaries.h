#pragma once
// The summaries: "Riepilogo per Categorie", "Riepilogo per Gruppi" (which after a page break
// prints the header of the categories' one) and "Riepilogo Conti". `date` is the summary window's
// date.

#include <string>
#include <vector>

#include "printing/report_page.h"

namespace contavia {

// A category or group with the sum of its accounts' balances.
struct SummaryLine {
  std::string description;
  double total = 0.0;
};

struct AccountSummaryLine {
  std::string code;
  std::string name;
  double balance = 0.0;
  double creditLine = 0.0;
};

Report categorySummaryReport(const std::vector<SummaryLine>& lines, const std::string& date);
Report groupSummaryReport(const std::vector<SummaryLine>& lines, const std::string& date);
// `category` is the category filter (" Tutte" for every account).
Report accountSummaryReport(const std::vector<AccountSummaryLine>& lines,
                            const std::string& category, const std::string& date);

}  // namespace contavia
