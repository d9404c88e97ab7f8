#include "ui/print_preview.h"

#include <QAction>
#include <QFileDialog>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QToolBar>

#include "archive/disk_errors.h"
#include "common/prompter.h"
#include "common/text.h"
#include "printing/report_page.h"
#include "ui/busy_work.h"
#include "ui/report_painter.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {

QPrinter& programPrinter() {
  static QPrinter printer(QPrinter::HighResolution);
  return printer;
}

void runPrinterSetup(QWidget* parent) {
  QPrintDialog dialog(&programPrinter(), parent);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
  dialog.setMinMax(1, 1);
  dialog.exec();
}

QString askPdfFile(QWidget* parent, const QString& suggested) {
  QFileDialog dialog(parent, "Salva PDF");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter("Documenti PDF (*.pdf)");
  dialog.setDefaultSuffix("pdf");
  dialog.selectFile(suggested);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void runPrintPreview(QWidget* parent, const Report& report, const PdfFileChooser& choosePdfFile,
                     Prompter& prompter) {
  // A long report takes a while to lay out and to draw: the busy cursor meanwhile.
  const std::vector<PaintedPage> pages = [&] {
    const WaitCursor busy;
    return paintedPages(report);
  }();
  QPrinter& printer = programPrinter();
  setReportPage(printer);
  QPrintPreviewDialog dialog(&printer, parent);
  named(&dialog, "Anteprima");
  dialog.setWindowTitle("Anteprima di stampa");
  QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, [&pages](QPrinter* device) {
    const WaitCursor drawing;
    drawPages(pages, *device);
  });

  if (auto* tools = dialog.findChild<QToolBar*>()) {
    tools->addSeparator();
    QAction* save = tools->addAction("Salva PDF...");
    save->setObjectName("SalvaPdf");
    save->setToolTip("Salva la stampa in un file PDF");
    QObject::connect(save, &QAction::triggered, &dialog, [&] {
      const QString path = choosePdfFile(&dialog, qs(trim(report.layout.header.title)) + ".pdf");
      if (path.isEmpty()) {
        return;
      }
      bool written = false;
      {
        const WaitCursor busy;
        written = writeReportPdf(report, path);
      }
      if (!written) {
        prompter.show(fileNotWrittenBox(ss(path)));
      }
    });
  }
  dialog.resize(900, 760);
  dialog.exec();
}

}  // namespace contavia::ui
