#pragma once
// Form21, "Stampa Archivi": the listings of the four master tables and the chart of accounts,
// read when the window opens; each button shows one of them in the print preview.

#include <QDialog>
#include <memory>

#include "ui/print_preview.h"

namespace contavia {
class PrintArchives;
class Session;
}  // namespace contavia

namespace contavia::ui {

class PrintArchivesWindow : public QDialog {
  Q_OBJECT
 public:
  PrintArchivesWindow(Session& session, PrintHooks hooks, QWidget* parent = nullptr);
  ~PrintArchivesWindow() override;

 private:
  std::unique_ptr<PrintArchives> archives_;
  PrintHooks hooks_;
};

}  // namespace contavia::ui
