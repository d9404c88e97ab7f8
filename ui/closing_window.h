#pragma once
// Form19, "Chiusura periodica": the closing date typed over its mask and the start button. A
// closing that is done shows its list of removed movements in the print preview, to print it or
// save it elsewhere (a copy is already kept in the data folder), and the window closes.

#include <QDialog>
#include <functional>

#include "ui/print_preview.h"

class QLineEdit;

namespace contavia {
class Session;
}

namespace contavia::ui {

class ClosingWindow : public QDialog {
  Q_OBJECT
 public:
  // `afterClosing` runs as soon as the account is closed, before the preview shows: the views of
  // the account are brought up to date behind it.
  ClosingWindow(Session& session, PrintHooks hooks, std::function<void()> afterClosing,
                QWidget* parent = nullptr);

 private:
  void startClosing();

  Session& session_;
  PrintHooks hooks_;
  std::function<void()> afterClosing_;
  QLineEdit* date_;
};

}  // namespace contavia::ui
