#pragma once
// Every print button of the program goes through the print preview: the report's pages drawn once
// by the report painter, shown in the preview, sent from there to the printer chosen in the
// printer set-up, or saved as a PDF file ("Salva PDF..." in the preview's toolbar), which works
// also when no printer is installed.

#include <QString>
#include <functional>

class QPrinter;
class QWidget;

namespace contavia {
class Prompter;
struct Report;
}  // namespace contavia

namespace contavia::ui {

// What the print buttons of a window call: the preview of a report, and the platform's printer
// dialog (printer choice and settings; cancelling it is harmless). The main window hands them to
// the windows it opens.
struct ChartModel;

struct PrintHooks {
  std::function<void(QWidget* parent, const Report& report)> preview;
  std::function<void(QWidget* parent)> printerSetup;
  // "Esporta": the table that the function makes, to a file the user chooses (its name proposed).
  std::function<void(QWidget* parent, const QString& suggested,
                     const std::function<std::string()>& table)>
      exportTable;
  // "Grafico": the chart window over `parent`.
  std::function<void(QWidget* parent, ChartModel model)> showChart;
};

// The printer of the program: the system default until the printer set-up chooses another.
QPrinter& programPrinter();

// The platform's printer dialog on the program's printer.
void runPrinterSetup(QWidget* parent);

// The name of the PDF file to write, asked with the platform's file dialog that proposes
// `suggested`; empty when cancelled.
QString askPdfFile(QWidget* parent, const QString& suggested);
using PdfFileChooser = std::function<QString(QWidget* parent, const QString& suggested)>;

// Shows `report` in the print preview until the user closes it. "Salva PDF..." asks the file
// name with `choosePdfFile` (proposing the report's title) and writes the pages there; a file
// that cannot be written is said through `prompter`.
void runPrintPreview(QWidget* parent, const Report& report, const PdfFileChooser& choosePdfFile,
                     Prompter& prompter);

}  // namespace contavia::ui
