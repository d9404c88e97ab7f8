#pragma once
// The desktop program's prompter: every message of the core becomes a QMessageBox.

#include <QPointer>
#include <QWidget>

#include "common/prompter.h"

namespace contavia::ui {

class MessageBoxPrompter final : public Prompter {
 public:
  explicit MessageBoxPrompter(QWidget* parent = nullptr) : parent_(parent) {}
  void setParent(QWidget* parent) { parent_ = parent; }
  Answer show(const Message& message) override;
  void beep() override;

 private:
  QPointer<QWidget> parent_;
};

}  // namespace contavia::ui
