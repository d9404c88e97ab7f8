#pragma once
// The reports drawn with QPainter: each printed line in its font ("Arial" 18 and 12, "Courier
// New" 9,75) at its real metrics, on A4 portrait with margins of 5 mm, the whole report scaled
// uniformly so that its widest line and its longest page fit. The same drawing goes to the print
// preview, to the system printer and to a PDF file, so what is printed is what the preview shows.

#include <QFont>
#include <QString>
#include <vector>

#include "printing/report_page.h"

class QPagedPaintDevice;
class QPrinter;

namespace contavia::ui {

// A report's pages as lines with their fonts.
struct PaintedLine {
  QFont font;
  QString text;
};
using PaintedPage = std::vector<PaintedLine>;
std::vector<PaintedPage> paintedPages(const Report& report);

// Draws the pages on a paged device (a printer, a PDF writer), starting a new device page for
// each page after the first.
void drawPages(const std::vector<PaintedPage>& pages, QPagedPaintDevice& device);

// Sets a printer or PDF writer to A4 portrait with the report margins.
void setReportPage(QPagedPaintDevice& device);

// Writes the report as a PDF file; false when the file cannot be written. Usable without a
// window: a program that has no application object yet gets one that draws offscreen.
bool writeReportPdf(const Report& report, const QString& path);

}  // namespace contavia::ui
