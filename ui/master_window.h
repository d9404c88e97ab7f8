#pragma once
// The window of the master-data screen pattern, configured once per table (causali, groups,
// categories, accounts): a list in a fixed-pitch font, the entry fields, and the buttons "ok",
// "pulisci" (or "clr"), "del" and "esci". The window only shows what its screen holds and passes
// every key, click and choice on; the rules and the messages are the screen's.

#include <QDialog>
#include <functional>
#include <memory>
#include <utility>
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

// What the screen does not say: the window's control names and caption.
struct WindowLook {
  const char* formName;   // "Form6"
  const char* caption;    // the window title
  const char* listName;   // "ElencoCausali"
  const char* clearName;  // "pulisci" or "clr"
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
  QWidget* buildField(const FieldDefinition& field);
  QWidget* buildTextField(const FieldDefinition& field);
  QWidget* buildSignOptions(const FieldDefinition& field);
  QWidget* buildChoice(const FieldDefinition& field);
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
