#pragma once
// Work that may take a while (reading every account): the busy cursor at once, and a progress
// window fed by the core's progress reports, shown only when the work lasts longer than half a
// second.

#include <QProgressDialog>
#include <cstddef>
#include <functional>

namespace contavia::ui {

// The busy cursor while it lives.
class WaitCursor {
 public:
  WaitCursor();
  ~WaitCursor();
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

class BusyWork {
 public:
  BusyWork(QWidget* parent, const QString& label);
  BusyWork(const BusyWork&) = delete;
  BusyWork& operator=(const BusyWork&) = delete;

  // The progress report to hand to the core.
  std::function<void(std::size_t done, std::size_t total)> progress();

 private:
  WaitCursor cursor_;
  QProgressDialog dialog_;
};

}  // namespace contavia::ui
