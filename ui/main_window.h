#pragma once
// MDIForm1: the frame of the whole program.

#include <QMainWindow>

class QMdiArea;

namespace contavia {
class Session;
}

namespace contavia::ui {

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(Session& session, QWidget* parent = nullptr);

  QMdiArea* mdiArea() const { return mdi_; }

 private:
  Session& session_;
  QMdiArea* mdi_;
};

}  // namespace contavia::ui
