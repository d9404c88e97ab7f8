#pragma once
// "Esporta": a table for a spreadsheet written to a file the user chooses in the platform's save
// dialog.

#include <QString>
#include <functional>
#include <string>

class QWidget;

namespace contavia {
class Prompter;
}

namespace contavia::ui {

// The name of the file to write, asked with the platform's save dialog that proposes
// `suggested`; empty when cancelled.
QString askCsvFile(QWidget* parent, const QString& suggested);
using CsvFileChooser = std::function<QString(QWidget* parent, const QString& suggested)>;

// Asks where with `choose` (proposing `suggested`), then writes the table that `table` makes
// there whole, adding ".csv" to a name without it; a file that cannot be written is said through
// `prompter`. Nothing happens when the dialog is cancelled.
void exportTable(QWidget* parent, const CsvFileChooser& choose, Prompter& prompter,
                 const QString& suggested, const std::function<std::string()>& table);

}  // namespace contavia::ui
