#include "ui/message_box_prompter.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>

namespace contavia::ui {
namespace {

QMessageBox::StandardButton buttonOf(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return QMessageBox::Ok;
    case Answer::Cancel:
      return QMessageBox::Cancel;
    case Answer::Abort:
      return QMessageBox::Abort;
    case Answer::Retry:
      return QMessageBox::Retry;
    case Answer::Ignore:
      return QMessageBox::Ignore;
  }
  return QMessageBox::Ok;
}

QMessageBox::StandardButtons buttonsOf(Buttons buttons) {
  switch (buttons) {
    case Buttons::Ok:
      return QMessageBox::Ok;
    case Buttons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::RetryCancel:
      return QMessageBox::Retry | QMessageBox::Cancel;
    case Buttons::AbortRetryIgnore:
      return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
  }
  return QMessageBox::Ok;
}

Answer answerOf(int button) {
  switch (button) {
    case QMessageBox::Ok:
      return Answer::Ok;
    case QMessageBox::Abort:
      return Answer::Abort;
    case QMessageBox::Retry:
      return Answer::Retry;
    case QMessageBox::Ignore:
      return Answer::Ignore;
    default:
      return Answer::Cancel;
  }
}

}  // namespace

Answer MessageBoxPrompter::show(const Message& message) {
  QMessageBox box(message.icon == Icon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon,
                  QString::fromStdString(message.title), QString::fromStdString(message.text),
                  buttonsOf(message.buttons), parent_);
  box.setObjectName("MessageBox");
  box.setDefaultButton(buttonOf(message.defaultButton));
  box.setEscapeButton(message.buttons == Buttons::Ok                 ? QMessageBox::Ok
                      : message.buttons == Buttons::AbortRetryIgnore ? QMessageBox::Abort
                                                                     : QMessageBox::Cancel);
  // A question asked in the middle of long work is answered with the ordinary pointer.
  const bool busy = QApplication::overrideCursor() != nullptr;
  if (busy) {
    QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  const Answer answer = answerOf(box.exec());
  if (busy) {
    QApplication::restoreOverrideCursor();
  }
  return answer;
}

void MessageBoxPrompter::beep() { QApplication::beep(); }

}  // namespace contavia::ui
