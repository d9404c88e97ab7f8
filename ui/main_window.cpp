#include "ui/main_window.h"

#include <QMdiArea>

#include "archive/session.h"

namespace contavia::ui {

MainWindow::MainWindow(Session& session, QWidget* parent)
    : QMainWindow(parent), session_(session), mdi_(new QMdiArea(this)) {
  setObjectName("MDIForm1");
  setWindowTitle("Contavia");
  mdi_->setObjectName("MDIArea");
  setCentralWidget(mdi_);
  resize(1100, 760);
}

}  // namespace contavia::ui
