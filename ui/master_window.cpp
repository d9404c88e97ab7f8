#include "ui/master_window.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QVBoxLayout>
#include <utility>

#include "archive/session.h"
#include "common/key_rules.h"
#include "masterdata/causali_screen.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {

MasterWindow::MasterWindow(Session& session, std::unique_ptr<MasterScreen> screen,
                           const WindowLook& look, std::function<void()> changed, QWidget* parent)
    : QDialog(parent), session_(session), screen_(std::move(screen)), changed_(std::move(changed)) {
  named(this, look.formName);
  setWindowTitle(look.caption);
  setModal(true);
  auto* layout = new QVBoxLayout(this);
  buildList(look);
  auto* heading = named(new QLabel(qs(screen_->heading())), "Intestazione");
  heading->setFont(fixedPitchFont());
  heading->setIndent(list_->frameWidth() + 2);
  layout->addWidget(heading);
  layout->addWidget(list_);

  auto* form = new QGridLayout;
  form->setColumnStretch(1, 1);
  int row = 0;
  for (const FieldDefinition& field : screen_->fields()) {
    QWidget* control = buildField(field);
    auto* label =
        named(new QLabel(QString::fromUtf8(field.label)), QString("Etichetta") + field.name);
    label->setBuddy(control);
    form->addWidget(label, row, 0);
    form->addWidget(control, row, 1, Qt::AlignLeft);
    ++row;
  }
  layout->addLayout(form);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(buildButton("ok", "ok", &MasterWindow::save));
  buttons->addWidget(buildButton(look.clearName, "pulisci", &MasterWindow::clearFields));
  delete_ = buildButton("del", "cancella", &MasterWindow::remove);
  buttons->addWidget(delete_);
  buttons->addStretch();
  buttons->addWidget(buildButton("esci", "esci", &MasterWindow::accept));
  layout->addLayout(buttons);

  fillList();
  showFields();
  focusFirstField();
}

MasterWindow::~MasterWindow() = default;

void MasterWindow::buildList(const WindowLook& look) {
  list_ = named(new QListWidget, look.listName);
  list_->setAccessibleName(look.caption);  // the list is what the window is about
  list_->setFont(fixedPitchFont());
  const QFontMetrics metrics(list_->font());
  const auto columns = static_cast<qsizetype>(screen_->rowWidth());
  list_->setMinimumWidth(metrics.horizontalAdvance(QString(columns + 1, QChar('M'))) +
                         2 * list_->frameWidth() + list_->verticalScrollBar()->sizeHint().width());
  list_->setMinimumHeight(metrics.lineSpacing() * 20);
  // A click on a new row moves the current row first: that choice is enough. A click on the row
  // that is already current chooses it again (after "pulisci" or a save).
  connect(list_, &QListWidget::currentRowChanged, this, [this](int row) {
    choose(row);
    justChosen_ = !filling_ && row >= 0;
  });
  connect(list_, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    if (!std::exchange(justChosen_, false)) {
      choose(list_->row(item));
    }
  });
}

QWidget* MasterWindow::buildField(const FieldDefinition& field) {
  switch (field.kind) {
    case FieldDefinition::SignOptions:
      return buildSignOptions(field);
    case FieldDefinition::Choice:
      return buildChoice(field);
    case FieldDefinition::Text:
      break;
  }
  return buildTextField(field);
}

// Every key goes through the screen: digits-only fields refuse other keys (and Enter) with the
// beep, Enter moves on when the screen lets it, and each edit is typed into the screen's field.
QWidget* MasterWindow::buildTextField(const FieldDefinition& field) {
  const FieldDefinition* definition = &field;
  auto* edit = named(new QLineEdit, field.name);
  edit->setMaxLength(static_cast<int>(definition->width));
  const int characters = static_cast<int>(std::min<std::size_t>(definition->width, 45)) + 2;
  edit->setFixedWidth(QFontMetrics(edit->font()).averageCharWidth() * characters + 12);
  applyKeyRule(
      edit,
      [this, definition](const QString&, char key) {
        if (definition->digitsOnly()) {
          if (const KeyVerdict v = filterDigitKey(key); v.kind != KeyVerdict::Accept) {
            return v;
          }
        }
        if (key != kKeyEnter) {
          return KeyVerdict{};
        }
        const bool movesOn = screen_->enter(definition->name);
        showFields();
        return KeyVerdict{movesOn ? KeyVerdict::MoveFocus : KeyVerdict::Accept};
      },
      session_.prompter());
  connect(edit, &QLineEdit::textEdited, this, [this, definition, edit](const QString& text) {
    screen_->setField(definition->name, text.toStdString());
    const QString held = qs(screen_->field(definition->name));
    if (held != text) {
      edit->setText(held);
    }
  });
  edits_.emplace_back(definition, edit);
  return edit;
}

QWidget* MasterWindow::buildSignOptions(const FieldDefinition& field) {
  auto* box = new QWidget;
  auto* row = new QHBoxLayout(box);
  row->setContentsMargins(0, 0, 0, 0);
  signs_ = new QButtonGroup(this);
  signs_->setObjectName(field.name);
  const char* captions[] = {"Avere (A)", "Dare (D)"};
  for (int option = 0; option < 2; ++option) {
    auto* button =
        named(new QRadioButton(captions[option]), QString("%1(%2)").arg(field.name).arg(option));
    enterMovesFocus(button);
    signs_->addButton(button, option);
    row->addWidget(button);
  }
  connect(signs_, &QButtonGroup::idClicked, this, [this, name = field.name](int option) {
    screen_->setField(name, kSignOfOption[option]);
  });
  return box;
}

QWidget* MasterWindow::buildChoice(const FieldDefinition& field) {
  choice_ = named(new QComboBox, field.name);
  choice_->setFont(fixedPitchFont());
  choice_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  for (const std::string& item : screen_->choices()) {
    choice_->addItem(qs(item));
  }
  enterMovesFocus(choice_);
  connect(choice_, &QComboBox::activated, this, [this, name = field.name](int index) {
    screen_->setField(name, choice_->itemText(index).toStdString());
  });
  return choice_;
}

QPushButton* MasterWindow::buildButton(const char* name, const QString& caption,
                                       void (MasterWindow::*act)()) {
  auto* button = named(new QPushButton(caption), name);
  button->setAutoDefault(false);
  enterClicks(button);
  connect(button, &QPushButton::clicked, this, act);
  return button;
}

void MasterWindow::fillList() {
  filling_ = true;
  list_->clear();
  for (const std::string& row : screen_->rows()) {
    list_->addItem(qs(row));
  }
  list_->setCurrentRow(static_cast<int>(screen_->selected()) - 1);
  filling_ = false;
}

void MasterWindow::showFields() {
  filling_ = true;
  for (const auto& [definition, edit] : edits_) {
    const QString value = qs(screen_->field(definition->name));
    if (edit->text() != value) {
      edit->setText(value);
    }
    edit->setEnabled(screen_->editable(definition->name));
  }
  if (signs_ != nullptr) {
    const std::string sign = screen_->field(signs_->objectName().toStdString());
    signs_->setExclusive(false);
    for (int option = 0; option < 2; ++option) {
      signs_->button(option)->setChecked(sign == kSignOfOption[option]);
    }
    signs_->setExclusive(true);
  }
  if (choice_ != nullptr) {
    // A name no longer among the items (a renamed group, a deleted category) is shown as an
    // extra item after them.
    const auto items = static_cast<int>(screen_->choices().size());
    while (choice_->count() > items) {
      choice_->removeItem(items);
    }
    const QString value = qs(screen_->field(choice_->objectName().toStdString()));
    int index = value.isEmpty() ? -1 : choice_->findText(value, Qt::MatchExactly);
    if (!value.isEmpty() && index < 0) {
      choice_->addItem(value);
      index = items;
    }
    choice_->setCurrentIndex(index);
  }
  delete_->setEnabled(screen_->canRemove());
  filling_ = false;
}

void MasterWindow::choose(int row) {
  if (filling_ || row < 0) {
    return;
  }
  screen_->chooseRow(static_cast<std::size_t>(row));
  showFields();
}

void MasterWindow::save() { afterCommand(screen_->save()); }

void MasterWindow::clearFields() {
  screen_->clear();
  filling_ = true;
  list_->setCurrentRow(-1);
  filling_ = false;
  showFields();
  focusFirstField();
}

void MasterWindow::remove() { afterCommand(screen_->remove()); }

void MasterWindow::afterCommand(bool written) {
  if (written) {
    fillList();
    if (changed_) {
      changed_();
    }
  }
  showFields();
  focusFirstField();
}

void MasterWindow::focusFirstField() {
  for (const auto& [definition, edit] : edits_) {
    if (edit->isEnabled()) {
      edit->setFocus();
      return;
    }
  }
}

}  // namespace contavia::ui
