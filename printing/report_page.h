#pragma once
// The page framework every report shares: the page header (title block, date block, column
// heading between two rules), the body loop that breaks pages after a fixed count of lines, the
// padding that keeps the end footer at one height, and the two footers, which differ on purpose
// by one blank and one dash.

#include <optional>
#include <string>
#include <vector>

#include "printing/printer.h"

namespace contavia {

struct PageHeader {
  std::string title;                   // the title line, centred by its leading blanks
  bool titleSpacer = false;            // a line of 37 blanks after the title
  std::vector<std::string> dateBlock;  // " Stampato il ..." and what the report adds to it
  int emptyLinesAfterDate = 2;
  std::size_t ruleDashes = 94;
  std::string columnHeading;
};

struct ReportLayout {
  PageHeader header;
  int breakCount = 57;  // T: a full page holds T - 1 body lines
  int padTarget = 57;   // P: the end footer stands after P body lines
  std::size_t breakRuleDashes = 95;
  std::size_t endRuleDashes = 94;
  // The end footer's page line: blanks before "Pagina", and what follows the number.
  std::size_t endPageIndent = 43;
  std::string endMark = std::string(17, ' ') + ".....fine stampa";
  bool segue = false;  // "segue..." after the page number of a break footer
  // The header printed after a break, when it is not the report's own.
  std::optional<PageHeader> headerAfterBreak;
};

// A report ready to print: its layout and its body lines (totals lines included).
struct Report {
  ReportLayout layout;
  std::vector<std::string> lines;
};

// Prints a report. A fault of the printer does not stop it: every line is still sent.
void printReport(Printer& printer, const Report& report);

}  // namespace contavia
