#pragma once
// Form18, "Backup dati" / "Ripristina Dati": the folder of the copies chosen by its drive
// (`Drive1`, the mounted volumes) and its place in the folder tree (`Dir1`), shown in `NomeFile`;
// every account or the working one; `salva` copies the account files there, or back from there.

#include <QDialog>
#include <functional>

#include "backup/account_copies.h"

class QComboBox;
class QFileSystemModel;
class QLabel;
class QRadioButton;
class QTreeView;

namespace contavia::ui {

class BackupWindow : public QDialog {
  Q_OBJECT
 public:
  // Opens on `startFolder` (its drive and its place in the tree); `afterRestore` runs after a
  // restore, to show the working account as it now is.
  BackupWindow(Session& session, BackupMode mode, const QString& startFolder,
               std::function<void()> afterRestore, QWidget* parent = nullptr);

  // The folder chosen in `Dir1`: the current folder of the tree, or the drive itself.
  QString folder() const;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  // Moves the tree to the drive of item `index` of `Drive1`.
  void chooseDrive(int index);
  void showFolder();
  // The current folder at the top of the tree, its subfolders below it, while placing.
  void placeCurrent();
  void keepPlacing();
  void copy();

  Session& session_;
  BackupMode mode_;
  std::function<void()> afterRestore_;
  QComboBox* drives_;
  QFileSystemModel* model_;
  QTreeView* tree_;
  QLabel* folderText_;
  QRadioButton* allAccounts_;
  QRadioButton* activeAccount_;
  bool placing_ = false;  // the tree is still being placed on the start folder
};

}  // namespace contavia::ui
