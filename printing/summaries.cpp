#include "printing/summaries.h"

#include "common/number_masks.h"
#include "common/text.h"
#include "printing/movement_lists.h"

namespace contavia {
namespace {

constexpr const char* kTotalMask = "##,###,###.00";

std::string amount(double value, const char* mask, std::size_t width) {
  return padLeft(formatNumber(value, mask), width);
}

PageHeader summaryHeader(const std::string& title, const std::string& dateBlock) {
  PageHeader h;
  h.title = title;
  h.dateBlock = {dateBlock};
  h.columnHeading = "         Descrizione                           Saldo  ";
  return h;
}

PageHeader categoriesHeader(const std::string& date) {
  return summaryHeader(std::string(39, ' ') + "Riepilogo per Categorie ",
                       std::string(31, ' ') + "Valuta: " + kCurrency + "    al " + date);
}

// One line per entry, then the grand total formatted with `totalMask`.
std::vector<std::string> summaryLines(const std::vector<SummaryLine>& entries,
                                      const char* totalMask) {
  std::vector<std::string> lines;
  double total = 0.0;
  for (const SummaryLine& e : entries) {
    lines.push_back(std::string(10, ' ') + padRight(e.description, 25) + std::string(7, ' ') +
                    amount(e.total, kTotalMask, 13));
    total += e.total;
  }
  lines.push_back(std::string(35, ' ') + "Totali " + formatNumber(total, totalMask));
  return lines;
}

}  // namespace

Report categorySummaryReport(const std::vector<SummaryLine>& lines, const std::string& date) {
  ReportLayout layout;
  layout.header = categoriesHeader(date);
  layout.breakCount = 56;
  layout.padTarget = 49;
  return {layout, summaryLines(lines, kTotalMask)};
}

Report groupSummaryReport(const std::vector<SummaryLine>& lines, const std::string& date) {
  ReportLayout layout;
  layout.header = summaryHeader(std::string(40, ' ') + "Riepilogo per Gruppi ",
                                std::string(26, ' ') + "Valuta: " + kCurrency + "    al " + date);
  // From page 2 on it is headed as the categories' summary: kept as it always was.
  layout.headerAfterBreak = categoriesHeader(date);
  layout.breakCount = 55;
  layout.padTarget = 49;
  return {layout, summaryLines(lines, "###,###,###.00")};
}

Report accountSummaryReport(const std::vector<AccountSummaryLine>& lines,
                            const std::string& category, const std::string& date) {
  ReportLayout layout;
  layout.header.title = std::string(42, ' ') + "Riepilogo Conti ";
  layout.header.dateBlock = {std::string(16, ' ') + "Tipo di Conto: " + category +
                             std::string(5, ' ') + "Valuta: " + kCurrency + "    al " + date};
  layout.header.columnHeading =
      "        Conto   Descrizione                            Saldo           Fido      "
      "Disponibilità";
  layout.breakCount = 56;
  layout.padTarget = 53;
  Report r{layout, {}};
  // The amounts end under the last letter of their heading.
  double balances = 0.0;
  double credits = 0.0;
  for (const AccountSummaryLine& a : lines) {
    r.lines.push_back(padRight(a.code, 10) + " " + padRight(a.name, 32) +
                      amount(a.balance, kTotalMask, 17) +
                      amount(a.creditLine, "##,###,###.##", 15) +
                      amount(a.balance + a.creditLine, "##,###,###.##", 19));
    balances += a.balance;
    credits += a.creditLine;
  }
  r.lines.push_back(std::string(42, ' ') + "Totali " + amount(balances, kTotalMask, 11) +
                    amount(credits, kTotalMask, 15) + amount(balances + credits, kTotalMask, 19));
  return r;
}

}  // namespace contavia
