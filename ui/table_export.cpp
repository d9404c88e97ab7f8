#include "ui/table_export.h"

#include <QFileDialog>

#include "archive/disk_errors.h"
#include "common/csv.h"
#include "common/prompter.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {

QString askCsvFile(QWidget* parent, const QString& suggested) {
  return QFileDialog::getSaveFileName(parent, "Esporta", suggested,
                                      "Tabelle per fogli di calcolo (*.csv)");
}

void exportTable(QWidget* parent, const CsvFileChooser& choose, Prompter& prompter,
                 const QString& suggested, const std::function<std::string()>& table) {
  QString path = choose(parent, suggested);
  if (path.isEmpty()) {
    return;
  }
  if (!path.endsWith(".csv", Qt::CaseInsensitive)) {
    path += ".csv";
  }
  if (!writeWholeFile(ss(path), table())) {
    prompter.show(fileNotWrittenBox(ss(path)));
  }
}

}  // namespace contavia::ui
