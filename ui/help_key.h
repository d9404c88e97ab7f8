#pragma once
// F1 anywhere in the program, modal windows and messages included: the guide at the page that
// explains the window in use.

#include <QObject>
#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace contavia::ui {

class HelpKey final : public QObject {
 public:
  // `pressed` gets the control names from the widget with the focus outwards.
  HelpKey(std::function<void(const std::vector<std::string>&)> pressed, QObject* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void(const std::vector<std::string>&)> pressed_;
};

// The control names of `w` and of the widgets that hold it, innermost first.
std::vector<std::string> namesOutwards(const QWidget* w);

}  // namespace contavia::ui
