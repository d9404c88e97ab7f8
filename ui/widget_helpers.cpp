#include "ui/widget_helpers.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QCoreApplication>
#include <QDir>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QListView>
#include <QMouseEvent>
#include <QPushButton>
#include <QTranslator>

#include "common/prompter.h"

namespace contavia::ui {
namespace {

// Moves the focus on (or back) as a Tab key would (the program sends a Tab for Enter). A date
// box takes a Tab to its next part, so there the Tab goes to the widget that holds it.
void moveFocusOn(QWidget* widget, bool forward = true) {
  QWidget* to = qobject_cast<QAbstractSpinBox*>(widget) != nullptr && widget->parentWidget()
                    ? widget->parentWidget()
                    : widget;
  QKeyEvent tab(QEvent::KeyPress, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                forward ? Qt::NoModifier : Qt::ShiftModifier);
  QCoreApplication::sendEvent(to, &tab);
}

bool isTab(const QKeyEvent* key) {
  return key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
}

bool isEnter(const QKeyEvent* key) {
  return key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
}

// Enter moves the focus on, to the next control or to a given one.
class EnterToTab : public QObject {
 public:
  explicit EnterToTab(QObject* parent, QWidget* target = nullptr)
      : QObject(parent), target_(target) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && isEnter(static_cast<QKeyEvent*>(event))) {
      if (target_ != nullptr) {
        target_->setFocus(Qt::TabFocusReason);
        return true;
      }
      if (auto* w = qobject_cast<QWidget*>(watched)) {
        moveFocusOn(w);
        return true;
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QWidget* target_;
};

// Tab and Shift+Tab leave a date box rather than step through its day, month and year.
class TabLeaves : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent*>(event) : nullptr;
    auto* w = qobject_cast<QWidget*>(watched);
    if (key == nullptr || w == nullptr || !isTab(key) || w->parentWidget() == nullptr) {
      return QObject::eventFilter(watched, event);
    }
    moveFocusOn(w, key->key() == Qt::Key_Tab);
    return true;
  }
};

// The character code a key press stands for, as the key rules see it (0 for keys that carry
// no character, such as the arrows, which are left alone).
char keyCode(const QKeyEvent* key) {
  if (isEnter(key)) {
    return kKeyEnter;
  }
  if (key->key() == Qt::Key_Backspace) {
    return kKeyBackspace;
  }
  const QString text = key->text();
  if (text.size() != 1 || key->modifiers().testFlag(Qt::ControlModifier)) {
    return 0;
  }
  const QChar c = text.front();
  if (c.unicode() > 0x7E) {
    return '\x7F';  // any other character: never one the rules let through
  }
  return static_cast<char>(c.unicode());
}

class KeyRuleFilter : public QObject {
 public:
  KeyRuleFilter(QWidget* field, KeyRule rule, Prompter& prompter)
      : QObject(field), field_(field), rule_(std::move(rule)), prompter_(&prompter) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) {
      return QObject::eventFilter(watched, event);
    }
    auto* key = static_cast<QKeyEvent*>(event);
    if (isTab(key)) {  // no character: Tab and Shift+Tab always leave the field
      if (movingOn_) {
        return false;  // the Tab sent by moveOn, on its way to the field
      }
      moveOn(key->key() == Qt::Key_Tab);
      return true;
    }
    const char code = keyCode(key);
    if (code == 0) {
      return false;
    }
    const KeyVerdict verdict = rule_(field_->property("text").toString(), code);
    switch (verdict.kind) {
      case KeyVerdict::Accept:
        return code == kKeyEnter;  // Enter itself never reaches the field
      case KeyVerdict::Replace:
        if (auto* edit = qobject_cast<QLineEdit*>(field_)) {
          edit->insert(QString(QChar(verdict.replacement)));
        }
        return true;
      case KeyVerdict::MoveFocus:
        moveOn(true);
        return true;
      case KeyVerdict::Refuse:
        prompter_->beep();
        return true;
    }
    return false;
  }

 private:
  void moveOn(bool forward) {
    movingOn_ = true;
    moveFocusOn(field_, forward);
    movingOn_ = false;
  }

  QWidget* field_;
  KeyRule rule_;
  Prompter* prompter_;
  bool movingOn_ = false;
};

// Text typed on a button goes to a field instead (the space among it, which would press it).
class TextGoesTo : public QObject {
 public:
  TextGoesTo(QObject* parent, QWidget* field) : QObject(parent), field_(field) {}

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease) {
      auto* key = static_cast<QKeyEvent*>(event);
      const bool text = !key->text().isEmpty() && key->text().front().isPrint() &&
                        !key->modifiers().testAnyFlags(Qt::ControlModifier | Qt::AltModifier);
      if (text) {
        if (event->type() == QEvent::KeyPress) {
          field_->setFocus(Qt::OtherFocusReason);
          QKeyEvent typed(QEvent::KeyPress, key->key(), key->modifiers(), key->text());
          QCoreApplication::sendEvent(field_, &typed);
        }
        return true;
      }
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  QWidget* field_;
};

class EnterClicks : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::KeyPress && isEnter(static_cast<QKeyEvent*>(event))) {
      if (auto* button = qobject_cast<QAbstractButton*>(watched)) {
        button->click();
        return true;
      }
    }
    return QObject::eventFilter(watched, event);
  }
};

}  // namespace

QFont fixedPitchFont(int pointSize) {
  QFont font("Courier New", pointSize);
  font.setFixedPitch(true);
  return font;
}

QPushButton* pushButton(const QString& caption, const QString& controlName) {
  auto* button = named(new QPushButton(caption), controlName);
  button->setAccessibleName(caption);
  enterClicks(button);
  return button;
}

QListView* fixedPitchList(const QString& controlName, QAbstractItemModel* model) {
  auto* list = named(new QListView, controlName);
  list->setModel(model);
  list->setFont(fixedPitchFont(9));
  list->setUniformItemSizes(true);
  list->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list->setTextElideMode(Qt::ElideNone);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  return list;
}

QString programFile(const QString& name) {
  const QDir program(QCoreApplication::applicationDirPath());
  for (const QString& at : {name, "../share/contavia/" + name}) {
    if (program.exists(at)) {
      return program.absoluteFilePath(at);
    }
  }
  return {};
}

// The few texts of Qt's own dialogs that its Italian catalogue lacks (the folder browser names
// the kind of each entry with them).
class MissingQtTexts final : public QTranslator {
 public:
  using QTranslator::QTranslator;
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* /*disambiguation*/,
                    int /*n*/) const override {
    if (qstrcmp(context, "QAbstractFileIconProvider") == 0) {
      if (qstrcmp(source, "Folder") == 0) {
        return "Cartella";
      }
      if (qstrcmp(source, "Drive") == 0) {
        return "Unità";
      }
    }
    return {};
  }
};

void loadItalianTranslations(QCoreApplication& app) {
  QLocale::setDefault(QLocale(QLocale::Italian, QLocale::Italy));
  QCoreApplication::installTranslator(new MissingQtTexts(&app));
  auto* qtTexts = new QTranslator(&app);
  if (qtTexts->load(QLocale(QLocale::Italian, QLocale::Italy), "qtbase", "_",
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(qtTexts);
  }
}

void enterMovesFocus(QWidget* field) { field->installEventFilter(new EnterToTab(field)); }

void tabLeavesDateBox(QAbstractSpinBox* box) { box->installEventFilter(new TabLeaves(box)); }

void enterMovesFocusTo(QWidget* field, QWidget* target) {
  field->installEventFilter(new EnterToTab(field, target));
}

QLineEdit* maskedDateField(const QString& controlName, const QString& date) {
  auto* field = named(new QLineEdit, controlName);
  field->setInputMask("99/99/9999;_");
  field->setText(date);
  field->setMaximumWidth(QFontMetrics(field->font()).horizontalAdvance("00/00/00000") + 16);
  enterMovesFocus(field);
  return field;
}

void applyKeyRule(QWidget* field, KeyRule rule, Prompter& prompter) {
  field->installEventFilter(new KeyRuleFilter(field, std::move(rule), prompter));
}

void enterClicks(QAbstractButton* button) { button->installEventFilter(new EnterClicks(button)); }

void textGoesTo(QAbstractButton* button, QWidget* field) {
  button->installEventFilter(new TextGoesTo(button, field));
}

void ClickableLabel::mousePressEvent(QMouseEvent* event) {
  event->accept();
  emit clicked();
}

}  // namespace contavia::ui
