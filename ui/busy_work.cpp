#include "ui/busy_work.h"

#include <QApplication>

#include "ui/widget_helpers.h"

namespace contavia::ui {

WaitCursor::WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }

WaitCursor::~WaitCursor() { QApplication::restoreOverrideCursor(); }

BusyWork::BusyWork(QWidget* parent, const QString& label) : dialog_(parent) {
  named(&dialog_, "Avanzamento");
  dialog_.setWindowTitle("Contavia");
  dialog_.setLabelText(label);
  dialog_.setCancelButton(nullptr);  // the work cannot be stopped half way
  dialog_.setWindowModality(Qt::WindowModal);
  dialog_.setMinimumDuration(500);
  dialog_.setAutoClose(false);
  dialog_.setAutoReset(false);
}

std::function<void(std::size_t, std::size_t)> BusyWork::progress() {
  return [this](std::size_t done, std::size_t total) {
    dialog_.setMaximum(static_cast<int>(total));
    dialog_.setValue(static_cast<int>(done));
  };
}

}  // namespace contavia::ui
