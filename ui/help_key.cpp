#include "ui/help_key.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace contavia::ui {

HelpKey::HelpKey(std::function<void(const std::vector<std::string>&)> pressed, QObject* parent)
    : QObject(parent), pressed_(std::move(pressed)) {
  QApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier) {
      const QWidget* focus = QApplication::focusWidget();
      pressed_(namesOutwards(focus != nullptr ? focus : QApplication::activeWindow()));
      return true;
    }
  }
  return QObject::eventFilter(watched, event);
}

std::vector<std::string> namesOutwards(const QWidget* w) {
  std::vector<std::string> names;
  for (; w != nullptr; w = w->parentWidget()) {
    names.push_back(w->objectName().toStdString());
  }
  return names;
}

}  // namespace contavia::ui
