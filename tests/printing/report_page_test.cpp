// The page framework over the constants of every report: an empty body, a page filled to T - 1
// lines, the T-th line that opens page 2, several pages, the footers at one height, the header
// printed again after each break (another report's for the groups' summary), and a printer
// fault that stops nothing.

#include "printing/report_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "printing/closing_archive.h"
#include "printing/master_listings.h"
#include "printing/movement_lists.h"
#include "printing/summaries.h"

namespace contavia {
namespace {

struct ReportCase {
  const char* name;
  std::function<Report()> make;
  int breakCount;  // as written for each report
  int padTarget;
  std::string titleAfterBreak;
};

const std::string kToday = "21/11/2026";

std::vector<ReportCase> reports() {
  return {
      {"Elenco Causali", [] { return causaliListing({}, kToday); }, 57, 57, "Elenco Causali"},
      {"Elenco Conti", [] { return accountsListing({}, kToday); }, 56, 54, "Elenco Conti"},
      {"Elenco Categorie", [] { return categoriesListing({}, kToday); }, 57, 57,
       "Elenco Categorie"},
      {"Elenco gruppi", [] { return groupsListing({}, kToday); }, 57, 57, "Elenco gruppi"},
      {"Piano dei conti", [] { return chartOfAccounts({}, {}, {}, kToday); }, 56, 54,
       "Piano dei conti"},
      {"Elenco Movimenti del conto",
       [] { return accountMovementsReport("CC1  Banca", {}, {}, kToday); }, 56, 56,
       "Elenco Movimenti"},
      {"Elenco Movimenti della ricerca", [] { return queryMovementsReport({}, {}, kToday); }, 56,
       55, "Elenco Movimenti"},
      {"Riepilogo per Categorie", [] { return categorySummaryReport({}, "21-11-2026"); }, 56, 49,
       "Riepilogo per Categorie"},
      {"Riepilogo per Gruppi", [] { return groupSummaryReport({}, "21-11-2026"); }, 55, 49,
       "Riepilogo per Categorie"},
      {"Riepilogo Conti", [] { return accountSummaryReport({}, " Tutte", "21-11-2026"); }, 56, 53,
       "Riepilogo Conti"},
      {"Elenco Movimenti Eliminati", [] { return closingArchiveReport({}, kToday, kToday); }, 57,
       57, "Elenco Movimenti Eliminati"},
  };
}

// The printed pages: the lines between form feeds.
std::vector<std::vector<std::string>> pagesOf(const Report& report) {
  TextPrinter printer;
  printReport(printer, report);
  EXPECT_TRUE(printer.ended());
  std::vector<std::vector<std::string>> pages(1);
  for (const std::string& line : printer.lines()) {
    if (line == "\f") {
      pages.emplace_back();
    } else {
      pages.back().push_back(line);
    }
  }
  return pages;
}

std::size_t indexOf(const std::vector<std::string>& page, const std::string& line) {
  return static_cast<std::size_t>(std::find(page.begin(), page.end(), line) - page.begin());
}

TEST(ReportPage, EveryReportBreaksPadsAndClosesItsPagesByItsOwnCounts) {
  for (const ReportCase& c : reports()) {
    SCOPED_TRACE(c.name);
    Report report = c.make();
    EXPECT_EQ(report.layout.breakCount, c.breakCount);
    EXPECT_EQ(report.layout.padTarget, c.padTarget);
    const std::string heading = report.layout.header.columnHeading;
    const auto T = static_cast<std::size_t>(c.breakCount);
    for (const std::size_t lines : {std::size_t{0}, T - 1, T, 3 * (T - 1) + 1}) {
      SCOPED_TRACE(lines);
      report.lines.clear();
      for (std::size_t i = 1; i <= lines; ++i) {
        report.lines.push_back("riga " + std::to_string(i));
      }
      const auto pages = pagesOf(report);
      const std::size_t expectedPages = lines < T ? 1 : 1 + (lines - 1) / (T - 1);
      ASSERT_EQ(pages.size(), expectedPages);
      std::size_t printed = 0;
      for (std::size_t p = 0; p < pages.size(); ++p) {
        const std::vector<std::string>& page = pages[p];
        const bool last = p + 1 == pages.size();
        const std::size_t bodyStart = indexOf(page, heading) + 3;  // rule, empty line
        ASSERT_LT(bodyStart, page.size());
        const std::string number = std::to_string(p + 1);
        // Break footer: 95 dashes (101 for the query), 42 blanks; end footer: one dash and one
        // blank less and more (but the closing's), at the height of P body lines.
        const std::string footer = last ? std::string(report.layout.endPageIndent, ' ') +
                                              "Pagina " + number + report.layout.endMark
                                        : std::string(42, ' ') + "Pagina " + number +
                                              (report.layout.segue ? "         segue..." : "");
        EXPECT_EQ(page.back(), footer);
        const std::size_t dashes =
            last ? report.layout.endRuleDashes : report.layout.breakRuleDashes;
        EXPECT_EQ(page[page.size() - 3], " " + std::string(dashes, '-'));
        const std::size_t body = page.size() - 3 - bodyStart;
        const std::size_t own = std::min(lines - printed, T - 1);
        EXPECT_EQ(body, last ? std::max<std::size_t>(own, c.padTarget) : T - 1);
        printed += own;
        if (p > 0) {
          EXPECT_NE(page[1].find(c.titleAfterBreak), std::string::npos) << page[1];
        }
      }
    }
  }
}

// A printer whose every other line fails.
class FaultyPrinter final : public Printer {
 public:
  void setFont(const std::string&, const std::string&) override { throw 1; }
  void setBold(bool) override {}
  void printLine(const std::string& text) override {
    if (++calls % 2 == 0) {
      throw 2;
    }
    printed.push_back(text);
  }
  void newPage() override {}
  void endDoc() override { ended = true; }
  int calls = 0;
  std::vector<std::string> printed;
  bool ended = false;
};

TEST(ReportPage, APrinterFaultStopsNothing) {
  Report report = causaliListing({}, kToday);
  report.lines = {"a", "b", "c"};
  FaultyPrinter faulty;
  printReport(faulty, report);
  TextPrinter sound;
  printReport(sound, report);
  EXPECT_EQ(faulty.calls, static_cast<int>(sound.lines().size()));
  EXPECT_TRUE(faulty.ended);
}

}  // namespace
}  // namespace contavia
