#pragma once
// The window of the master-data screen pattern, configured once per table (causali, groups,
// categories, accounts): a list in a fixed-pitch font, the entry fields, and the buttons "ok",
// "pulisci" (or "clr"), "del" and "esci". The window only shows what its screen holds and passes
// every key, click and choice on; the rules and the messages are the screen's.

#include <QDialog>
#include <functional>
#include <memory>
#include <vector>

#include "masterdata/master_screen.h"

class QButtonGroup;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace contavia {
class Session;
}

namespace contavia::ui {

struct FieldLook {
  enum Kind { Text, SignOptions, Choice };
  const char* name;   // the screen's field, and the control name
  const char* label;  // the caption beside it
  Kind kind = Text;
};

struct WindowLook {
  const char* formName;     // "Form6"
  const char* caption;      // the window title
  const char* listName;     // "ElencoCausali"
  const char* listHeading;  // column captions over the list, aligned with its rows
  int listColumns;          // characters of a row
  const char* clearName;    // "pulisci" or "clr"
  std::vector<FieldLook> fields;
};

class MasterWindow : public QDialog {
  Q_OBJECT
 public:
  // `changed` is called after every add, change or delete that was written.
  MasterWindow(Session& session, std::unique_ptr<MasterScreen> screen, const WindowLook& look,
               std::function<void()> changed, QWidget* parent = nullptr);
  ~MasterWindow() override;

  MasterScreen& screen() { return *screen_; }

 private:
  void buildList(const WindowLook& look);
  QWidget* buildField(const FieldLook& field);
  QWidget* buildTextField(const FieldLook& field);
  QWidget* buildSignOptions(const FieldLook& field);
  QWidget* buildChoice(const FieldLook& field);
  QPushButton* buildButton(const char* name, const QString& caption, void (MasterWindow::*act)());

  void fillList();
  void showFields();
  void choose(int row);
  void save();
  void clearFields();
  void remove();
  void afterCommand(bool written);
  void focusFirstField();

  Session& session_;
  std::unique_ptr<MasterScreen> screen_;
  std::function<void()> changed_;
  QListWidget* list_ = nullptr;
  std::vector<std::pair<const FieldDefinition*, QLineEdit*>> edits_;
  QButtonGroup* signs_ = nullptr;
  QComboBox* choice_ = nullptr;
  QPushButton* delete_ = nullptr;
  bool justChosen_ = false;
  bool filling_ = false;
};

}  // namespace contavia::ui
