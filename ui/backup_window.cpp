#include "ui/backup_window.h"

#include <QComboBox>
#include <QDir>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStorageInfo>
#include <QTreeView>
#include <QVBoxLayout>

#include "archive/session.h"
#include "ui/busy_work.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

// The volumes a user keeps files on: the system's own mounts (processes, devices, run-time
// state) are left out, the removable media mounted under /run/media are kept.
bool userVolume(const QStorageInfo& volume) {
  if (!volume.isValid() || !volume.isReady()) {
    return false;
  }
  const QString root = volume.rootPath();
  for (const char* system : {"/proc", "/sys", "/dev", "/snap", "/boot"}) {
    if (root.startsWith(system)) {
      return false;
    }
  }
  return !root.startsWith("/run") || root.startsWith("/run/media");
}

// The root of every volume to choose from, `also` among them.
QStringList driveRoots(const QString& also) {
  QStringList roots;
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    if (userVolume(volume) && !roots.contains(volume.rootPath())) {
      roots << volume.rootPath();
    }
  }
  if (!roots.contains(also)) {
    roots << also;
  }
  roots.sort();
  return roots;
}

}  // namespace

BackupWindow::BackupWindow(Session& session, BackupMode mode, const QString& startFolder,
                           std::function<void()> afterRestore, QWidget* parent)
    : QDialog(parent),
      session_(session),
      mode_(mode),
      afterRestore_(std::move(afterRestore)),
      drives_(named(new QComboBox, "Drive1")),
      model_(new QFileSystemModel(this)),
      tree_(named(new QTreeView, "Dir1")),
      folderText_(named(new QLabel, "NomeFile")),
      allAccounts_(named(new QRadioButton("tutti i conti"), "TuttiConti")),
      activeAccount_(named(new QRadioButton("conto attivo"), "ContoAttivo")) {
  named(this, "Form18");
  setWindowTitle(mode == BackupMode::Save ? kBackupCaption : kRestoreCaption);
  setModal(true);

  model_->setFilter(QDir::AllDirs | QDir::NoDotAndDotDot);
  model_->setReadOnly(true);
  tree_->setModel(model_);
  for (int column = 1; column < model_->columnCount(); ++column) {
    tree_->hideColumn(column);
  }
  tree_->header()->hide();
  tree_->setMinimumSize(360, 260);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &BackupWindow::showFolder);

  const bool known = !startFolder.isEmpty() && QDir(startFolder).exists();
  const QString start = known ? QDir(startFolder).absolutePath() : QDir::homePath();
  const QString startDrive = QStorageInfo(start).rootPath();
  drives_->addItems(driveRoots(startDrive));
  drives_->setCurrentIndex(drives_->findText(startDrive));
  chooseDrive(drives_->currentIndex());
  if (start != startDrive) {
    // The start folder open, its own subfolders in view.
    const QModelIndex at = model_->index(start);
    for (QModelIndex up = at; up.isValid(); up = up.parent()) {
      tree_->expand(up);
    }
    tree_->setCurrentIndex(at);
    keepPlacing();
  }
  connect(drives_, &QComboBox::currentIndexChanged, this, &BackupWindow::chooseDrive);

  allAccounts_->setChecked(true);
  activeAccount_->setEnabled(session_.account() != nullptr);
  folderText_->setTextInteractionFlags(Qt::TextSelectableByMouse);

  auto* panel = named(new QGroupBox(kBackupPanelCaption), "Frame1");
  auto* inPanel = new QVBoxLayout(panel);
  inPanel->addWidget(drives_);
  inPanel->addWidget(tree_, 1);
  inPanel->addWidget(folderText_);
  auto* scope = new QHBoxLayout;
  scope->addWidget(allAccounts_);
  scope->addWidget(activeAccount_);
  scope->addStretch(1);
  inPanel->addLayout(scope);

  QPushButton* run = pushButton(mode == BackupMode::Save ? "Salva" : "Ripristina", "salva");
  connect(run, &QPushButton::clicked, this, &BackupWindow::copy);
  QPushButton* close = pushButton("Esci", "esci");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(run);
  buttons->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(panel, 1);
  layout->addLayout(buttons);
  tree_->setFocus();
}

void BackupWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  placeCurrent();  // the tree has its size now
}

void BackupWindow::placeCurrent() {
  if (placing_ && tree_->currentIndex().isValid()) {
    tree_->scrollTo(tree_->currentIndex(), QAbstractItemView::PositionAtTop);
  }
}

void BackupWindow::keepPlacing() {
  // The folders are read and sorted in the background, and each read moves the rows: the tree
  // goes back to the current folder after each, until the user moves in it.
  placing_ = true;
  connect(model_, &QFileSystemModel::directoryLoaded, this, &BackupWindow::placeCurrent);
  connect(model_, &QAbstractItemModel::layoutChanged, this, &BackupWindow::placeCurrent);
  connect(model_, &QAbstractItemModel::rowsInserted, this, &BackupWindow::placeCurrent);
  const auto stop = [this] { placing_ = false; };
  connect(tree_, &QTreeView::pressed, this, stop);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, stop);
  connect(tree_->verticalScrollBar(), &QScrollBar::actionTriggered, this, stop);
}

QString BackupWindow::folder() const {
  const QModelIndex at = tree_->currentIndex();
  return at.isValid() ? model_->filePath(at) : drives_->currentText();
}

void BackupWindow::chooseDrive(int index) {
  const QString root = drives_->itemText(index);
  tree_->setRootIndex(model_->setRootPath(root));
  tree_->setCurrentIndex({});
  showFolder();
}

void BackupWindow::showFolder() { folderText_->setText(qs(backupFolderText(ss(folder())))); }

void BackupWindow::copy() {
  const BackupScope scope =
      activeAccount_->isChecked() ? BackupScope::ActiveAccount : BackupScope::AllAccounts;
  bool done = false;
  {
    BusyWork busy(this, mode_ == BackupMode::Save ? "Copia dei conti in corso..."
                                                  : "Ripristino dei conti in corso...");
    done = runBackupWindow(session_, mode_, ss(folder()), scope, busy.progress());
  }
  // A restore, whatever became of it, ends the window and shows the account as it now is; a
  // copy that stopped leaves the window open to choose another folder.
  if (mode_ == BackupMode::Restore) {
    afterRestore_();
    accept();
  } else if (done) {
    accept();
  }
}

}  // namespace contavia::ui
