#include "printing/report_page.h"

namespace contavia {
namespace {

// The printer with its faults ignored: the report goes on to its last line.
class Unstoppable {
 public:
  explicit Unstoppable(Printer& printer) : printer_(&printer) {}
  template <class Call>
  void operator()(Call call) {
    try {
      call(*printer_);
    } catch (...) {  // NOLINT(bugprone-empty-catch): a printer fault stops nothing
    }
  }
  void line(const std::string& text) {
    (*this)([&](Printer& p) { p.printLine(text); });
  }

 private:
  Printer* printer_;
};

std::string rule(std::size_t dashes) { return " " + std::string(dashes, '-'); }

void printHeader(Unstoppable& out, const PageHeader& h) {
  out([](Printer& p) { p.setFont("Arial", "18"); });
  out.line("");
  out.line(h.title);
  if (h.titleSpacer) {
    out.line(std::string(37, ' '));
  }
  out([](Printer& p) { p.setFont("Arial", "12"); });
  for (const std::string& line : h.dateBlock) {
    out.line(line);
  }
  for (int i = 0; i < h.emptyLinesAfterDate; ++i) {
    out.line("");
  }
  out([](Printer& p) {
    p.setFont("Courier New", "9,75");
    p.setBold(true);  // and at once not: headings and body print in regular weight
    p.setBold(false);
  });
  out.line(rule(h.ruleDashes));
  out.line(h.columnHeading);
  out.line(rule(h.ruleDashes));
  out.line("");
}

}  // namespace

void printReport(Printer& printer, const Report& report) {
  const ReportLayout& layout = report.layout;
  Unstoppable out(printer);
  printHeader(out, layout.header);
  int page = 1;
  int lineCounter = 0;
  for (const std::string& line : report.lines) {
    if (++lineCounter == layout.breakCount) {
      out.line(rule(layout.breakRuleDashes));
      out.line("");
      out.line(std::string(42, ' ') + "Pagina " + std::to_string(page) +
               (layout.segue ? std::string(9, ' ') + "segue..." : std::string()));
      out([](Printer& p) { p.newPage(); });
      printHeader(out, layout.headerAfterBreak.value_or(layout.header));
      lineCounter = 1;
      ++page;
    }
    out.line(line);
  }
  for (int i = lineCounter; i < layout.padTarget; ++i) {
    out.line("");
  }
  out.line(rule(layout.endRuleDashes));
  out.line("");
  out.line(std::string(layout.endPageIndent, ' ') + "Pagina " + std::to_string(page) +
           layout.endMark);
  out([](Printer& p) { p.endDoc(); });
}

}  // namespace contavia
