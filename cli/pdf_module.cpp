// The PDF writer of contavia-cli, a module of its own: it brings Qt, which only the reports
// written as PDF need, so contavia-cli loads it when it writes one and starts without it.

#include "cli/report_pdf.h"
#include "ui/report_painter.h"

extern "C" __attribute__((visibility("default"))) bool contavia_write_report_pdf(
    const contavia::Report& report, const char* path) {
  return contavia::ui::writeReportPdf(report, QString::fromUtf8(path));
}
