#include "ui/report_painter.h"

#include <QFile>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <algorithm>
#include <memory>

#include "printing/printer.h"

namespace contavia::ui {
namespace {

// Collects the printed lines with the font each is printed in.
class PageRecorder final : public Printer {
 public:
  PageRecorder() : pages_(1) {}
  void setFont(const std::string& name, const std::string& sizeText) override {
    font_.setFamily(QString::fromStdString(name));
    font_.setPointSizeF(fontPoints(sizeText));
  }
  void setBold(bool bold) override { font_.setBold(bold); }
  void printLine(const std::string& text) override {
    pages_.back().push_back({font_, QString::fromStdString(text)});
  }
  void newPage() override { pages_.emplace_back(); }
  void endDoc() override {}
  std::vector<PaintedPage> take() { return std::move(pages_); }

 private:
  QFont font_;
  std::vector<PaintedPage> pages_;
};

// The scale that fits the widest line and the longest page in the device's page.
double fitScale(const std::vector<PaintedPage>& pages, QPaintDevice& device, const QRectF& area) {
  double widest = 1.0;
  double tallest = 1.0;
  for (const PaintedPage& page : pages) {
    double height = 0.0;
    for (const PaintedLine& line : page) {
      const QFontMetricsF metrics(line.font, &device);
      widest = std::max(widest, metrics.horizontalAdvance(line.text));
      height += metrics.lineSpacing();
    }
    tallest = std::max(tallest, height);
  }
  return std::min({1.0, area.width() / widest, area.height() / tallest});
}

}  // namespace

std::vector<PaintedPage> paintedPages(const Report& report) {
  PageRecorder recorder;
  printReport(recorder, report);
  return recorder.take();
}

void setReportPage(QPagedPaintDevice& device) {
  device.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                   QMarginsF(5, 5, 5, 5), QPageLayout::Millimeter));
}

void drawPages(const std::vector<PaintedPage>& pages, QPagedPaintDevice& device) {
  QPainter painter(&device);
  const QRectF area = device.pageLayout().paintRectPixels(device.logicalDpiX());
  const double scale = fitScale(pages, device, QRectF(QPointF(0, 0), area.size()));
  for (std::size_t p = 0; p < pages.size(); ++p) {
    if (p > 0) {
      device.newPage();
    }
    painter.resetTransform();
    painter.scale(scale, scale);
    double y = 0.0;
    for (const PaintedLine& line : pages[p]) {
      painter.setFont(line.font);
      const QFontMetricsF metrics(line.font, &device);
      painter.drawText(QPointF(0.0, y + metrics.ascent()), line.text);
      y += metrics.lineSpacing();
    }
  }
}

bool writeReportPdf(const Report& report, const QString& path) {
  std::unique_ptr<QGuiApplication> offscreen;
  if (QCoreApplication::instance() == nullptr) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
      qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    static int argc = 1;
    static char name[] = "contavia";
    static char* argv[] = {name, nullptr};
    // Qt's own notes about the environment are no message of ours.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    offscreen = std::make_unique<QGuiApplication>(argc, argv);
  }
  QFile probe(path);
  if (!probe.open(QIODevice::WriteOnly)) {
    return false;
  }
  probe.close();
  {
    QPdfWriter writer(path);
    writer.setResolution(1152);  // whole-pixel font sizes give the metrics of the printed page
    writer.setTitle(QStringLiteral("Contavia"));
    setReportPage(writer);
    drawPages(paintedPages(report), writer);
  }
  // A disk that filled up while the pages were written leaves a file cut short.
  QFile written(path);
  return written.open(QIODevice::ReadOnly) && written.size() > 0 &&
         written.readAll().trimmed().endsWith("%%EOF");
}

}  // namespace contavia::ui
