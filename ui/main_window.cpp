#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>

#include "archive/session.h"
#include "frame/frame_commands.h"
#include "frame/two_digit_years.h"
#include "help/help_topics.h"
#include "ledger/clear_movements.h"
#include "ledger/closing_undo.h"
#include "masterdata/account_item.h"
#include "ui/account_panel.h"
#include "ui/backup_window.h"
#include "ui/chart_window.h"
#include "ui/closing_window.h"
#include "ui/help_key.h"
#include "ui/help_window.h"
#include "ui/master_windows.h"
#include "ui/movement_query_window.h"
#include "ui/movement_window.h"
#include "ui/print_archives_window.h"
#include "ui/summary_window.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

QString defaultFolderChooser(QWidget* parent, const QString& title) {
  return QFileDialog::getExistingDirectory(parent, title);
}

// The subwindows that are shown and not minimised, in creation order.
QList<QMdiSubWindow*> normalWindows(QMdiArea* area) {
  QList<QMdiSubWindow*> result;
  for (QMdiSubWindow* w : area->subWindowList(QMdiArea::CreationOrder)) {
    if (w->isVisible() && !w->isMinimized()) {
      result << w;
    }
  }
  return result;
}

// What each status panel holds, shown beside it and read aloud with its value.
const std::array<QString, 5>& statusCaptions() {
  static const std::array<QString, 5> captions = {
      "Saldo oggi:", "Conto:", "Cartella:", "Saldo totale:", "Disponibile:"};
  return captions;
}

}  // namespace

MainWindow::MainWindow(Session& session, QWidget* parent)
    : QMainWindow(parent),
      chooseFolder(defaultFolderChooser),
      printerSetup(runPrinterSetup),
      choosePdfFile(askPdfFile),
      chooseCsvFile(askCsvFile),
      session_(session),
      mdi_(named(new QMdiArea, "MDIArea")),
      panel_(new AccountPanel(session)) {
  named(this, "MDIForm1");
  setWindowTitle("Contavia");
  // A frame made smaller than its windows (by a window manager that ignores the minimum size)
  // scrolls them rather than squeezing them.
  mdi_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  mdi_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  auto* central = new QWidget;
  auto* layout = new QHBoxLayout(central);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(panel_);
  layout->addWidget(mdi_, 1);
  setCentralWidget(central);
  connect(panel_, &AccountPanel::accountChosen, this, &MainWindow::chooseAccount);
  preview = [this](QWidget* over, const Report& report) {
    runPrintPreview(over, report, choosePdfFile, session_.prompter());
  };

  buildMenus();
  buildToolBar();
  buildStatusBar();
  setMinimumSize(leastSize());
  resize(1180, 780);
  new HelpKey(
      [this](const std::vector<std::string>& windows) { openHelp(help::pageOfWindow(windows)); },
      this);
}

QAction* MainWindow::addEntry(QWidget* menuOrBar, const char* control, const char* caption,
                              std::function<void()> handler) {
  auto* a = new QAction(QString::fromUtf8(caption), menuOrBar);
  menuOrBar->addAction(a);
  a->setObjectName(control);
  if (handler) {
    connect(a, &QAction::triggered, this, [handler = std::move(handler)] { handler(); });
  } else {
    a->setEnabled(false);
  }
  actions_[control] = a;
  return a;
}

void MainWindow::buildMenus() {
  QMenuBar* bar = menuBar();
  auto menu = [&](const char* control, const char* caption) {
    QMenu* m = bar->addMenu(QString::fromUtf8(caption));
    m->setObjectName(control);
    m->menuAction()->setObjectName(control);
    actions_[control] = m->menuAction();
    return m;
  };
  auto nothing = [] {};

  QMenu* file = menu("File", "&File");
  addEntry(file, "parc", "Percorso archivi", [this] { changeFolder(); });
  addEntry(file, "Close", "Chiudi", [this] { closeAccountAndChoice(); });
  addEntry(file, "PRF", "Preferenze", nullptr);
  addEntry(file, "ImpStam", "Imposta Stampante", [this] { setUpPrinter(); });
  addEntry(file, "Causali", "Stampa Archivi", [this] { openPrintArchives(); });
  addEntry(file, "Stampe", "&Stampa Movimenti", [this] { printMovements(); });
  addEntry(file, "TM", "Totale Movimenti", [this] { openMovementQuery(); });
  addEntry(file, "TotConti", "Totale conti", [this] { openSummaries(); });
  addEntry(file, "Esporta", "Esporta...", [this] {
    if (MovementWindow* window = movementWindow()) {
      window->exportList();
    }
  });
  file->addSeparator()->setObjectName("A");
  addEntry(file, "Esci", "Esci", [this] { exitWithConfirmation(); });

  QMenu* archives = menu("Arch", "Archivi");
  addEntry(archives, "GestCau", "Gestione Causali", [this] { openCausali(); });
  addEntry(archives, "gr", "Gestione gruppi", [this] { showGroupsWindow(this, session_); });
  addEntry(archives, "GesTipi", "Gestione Categorie",
           [this] { showCategoriesWindow(this, session_); });
  addEntry(archives, "NuovoConto", "&Gestione Conto", [this] { openAccounts(); });

  QMenu* maintenance = menu("Manut", "&Manutenzione");
  addEntry(maintenance, "AnnualeSimulata", "Chiusura periodica", [this] { openClosing(); });
  addEntry(maintenance, "ra", "Riordina archivio", [this] { reorderYears(); });
  addEntry(maintenance, "riprchiu", "Ripristina chiusura preccedente", [this] { undoClosing(); });
  addEntry(maintenance, "Sicur", "Esegui copie di sicurezza",
           [this] { openBackup(BackupMode::Save); });
  addEntry(maintenance, "RiprCopie", "Ripristina copie",
           [this] { openBackup(BackupMode::Restore); });
  maintenance->addSeparator()->setObjectName("tt");
  addEntry(maintenance, "CancMov", "Cancella movimenti", [this] { clearMovements(); });

  QMenu* utility = menu("uty", "Utility");
  addEntry(utility, "dat", "date", nothing);
  utility->menuAction()->setEnabled(false);

  QMenu* windows = menu("FN", "Finestra");
  addEntry(windows, "SV", "Sovrapponi", [this] { mdi_->cascadeSubWindows(); });
  addEntry(windows, "Aor", "Affianca orizzontalmente", [this] { tileHorizontally(); });
  addEntry(windows, "AFFVer", "Affianca verticalmente", [this] { tileVertically(); });
  addEntry(windows, "rdico", "Disponi icone", [this] { arrangeIcons(); });

  QAction* help = bar->addAction("?");
  help->setObjectName("Help");
  help->setToolTip("Guida (F1)");
  connect(help, &QAction::triggered, this, [this] { openHelp(help::homePage()); });
  actions_["Help"] = help;
}

void MainWindow::buildToolBar() {
  QToolBar* tools = addToolBar("Strumenti");
  tools->setObjectName("ToolBar");
  tools->setMovable(false);
  auto button = [&](const char* control, const char* caption, std::function<void()> handler) {
    return addEntry(tools, control, caption, std::move(handler));
  };
  button("Command3D4", " Causali ", [this] { openCausali(); });
  button("PulStampe", " Stampe ", [this] { openPrintArchives(); });
  button("gruppi", "gruppi", [this] { showGroupsWindow(this, session_); });
  button("tipi", "categorie", [this] { showCategoriesWindow(this, session_); });
  button("totMov", "Totale movimenti", [this] { openMovementQuery(); });
  button("Vista", "conti", [this] { openAccounts(); });
  QAction* path = button("per", "percorso", [] {});
  path->setToolTip("cambia percorso archivi");
  button("Command3D8", "Esci", [this] { exitWithConfirmation(); });
}

void MainWindow::buildStatusBar() {
  QStatusBar* bar = statusBar();
  bar->setObjectName("StatusBar1");
  for (std::size_t i = 0; i < statusPanels_.size(); ++i) {
    auto* caption = new QLabel(statusCaptions()[i]);
    caption->setObjectName(QString("DidascaliaPannello(%1)").arg(i + 1));
    auto* label = named(new QLabel, QString("Pannello(%1)").arg(i + 1));
    label->setFrameShape(QFrame::Panel);
    label->setFrameShadow(QFrame::Sunken);
    label->setMinimumWidth(i == 2 ? 220 : 110);
    label->setAlignment(i == 1 || i == 2 ? Qt::AlignLeft | Qt::AlignVCenter
                                         : Qt::AlignRight | Qt::AlignVCenter);
    bar->addPermanentWidget(caption);
    bar->addPermanentWidget(label, i == 2 ? 1 : 0);
    statusPanels_[i] = label;
  }
  statusPanels_[4]->setToolTip("Saldo oggi più fido");
  showBalances();
}

QAction* MainWindow::action(const QString& controlName) const {
  const auto it = actions_.find(controlName);
  return it == actions_.end() ? nullptr : it->second;
}

MovementWindow* MainWindow::movementWindow() const {
  return movementFrame_ ? qobject_cast<MovementWindow*>(movementFrame_->widget()) : nullptr;
}

void MainWindow::showBalances() {
  const OpenAccount* account = session_.account();
  const StatusPanels panels = account != nullptr ? account->panels() : StatusPanels{};
  statusPanels_[0]->setText(qs(panels.balanceToday));
  statusPanels_[1]->setText(qs(session_.currentAccountCode()));
  statusPanels_[2]->setText(qs(session_.dir().folder()));
  statusPanels_[3]->setText(qs(panels.balanceTotal));
  statusPanels_[4]->setText(qs(panels.available));
  for (std::size_t i = 0; i < statusPanels_.size(); ++i) {
    statusPanels_[i]->setAccessibleName(statusCaptions()[i] + ' ' + statusPanels_[i]->text());
  }
  panel_->showAccount();
  enableAccountEntries();
}

void MainWindow::chooseAccount(const QString& item) {
  const auto index = findAccountByItem(session_.tables().accounts, ss(item));
  if (!index) {
    return;
  }
  closeMovementWindow();
  session_.openAccount(*index);
  openMovementWindow();
  showBalances();
}

void MainWindow::openMovementWindow() {
  auto* window = new MovementWindow(session_, printHooks());
  connect(window, &MovementWindow::accountChanged, this, &MainWindow::showBalances);
  connect(window, &MovementWindow::leaving, this, &MainWindow::leaveAccount);
  movementFrame_ = mdi_->addSubWindow(window);
  movementFrame_->setAttribute(Qt::WA_DeleteOnClose);
  // Queued: a window destroyed with the frame itself calls nothing.
  connect(movementFrame_, &QObject::destroyed, this, &MainWindow::enableAccountEntries,
          Qt::QueuedConnection);
  movementFrame_->setWindowTitle(window->windowTitle());
  movementFrame_->show();
  // The frame never gets so small that the account view's controls overlap.
  setMinimumSize(leastSize().expandedTo(movementFrame_->minimumSizeHint() +
                                        (size() - mdi_->contentsRect().size())));
  fitMovementWindow();
  window->setFocus();
}

QSize MainWindow::leastSize() const {
  // Menus, panel and a status bar with every caption and value in sight.
  return minimumSizeHint().expandedTo(QSize(statusBar()->sizeHint().width(), 0));
}

void MainWindow::fitMovementWindow() {
  // The account view fills the frame beside the panel while it is in its normal state.
  if (movementFrame_ && session_.account() != nullptr && !movementFrame_->isMinimized() &&
      !movementFrame_->isMaximized()) {
    // The room of the area without its scroll bars, less a bar where the other way needs one.
    const QSize least = movementFrame_->minimumSizeHint();
    QSize room = mdi_->contentsRect().size();
    const int bar = mdi_->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, mdi_);
    if (least.height() > room.height()) {
      room.rwidth() -= bar;
    }
    if (least.width() > room.width()) {
      room.rheight() -= bar;
    }
    movementFrame_->setGeometry(QRect(QPoint(0, 0), room.expandedTo(least)));
  }
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  fitMovementWindow();
}

void MainWindow::closeMovementWindow() {
  if (QMdiSubWindow* frame = movementFrame_) {
    movementFrame_ = nullptr;
    frame->close();
  }
}

void MainWindow::closeAccountView() {
  closeMovementWindow();
  session_.closeAccount();
  showBalances();
}

void MainWindow::closeAccountAndChoice() {
  closeMovementWindow();
  closeWorkingAccount(session_);
  panel_->selector()->setCurrentIndex(-1);
  showBalances();
}

void MainWindow::leaveAccount() {
  movementFrame_ = nullptr;  // it closes itself
  closeAccountAndChoice();
}

void MainWindow::openHelp(const help::HelpPage& page) {
  // Over a modal window the guide belongs to it, so that it can be used while that is open.
  QWidget* owner = QApplication::activeModalWidget();
  owner = owner != nullptr ? owner : this;
  if (helpWindow_ == nullptr || helpWindow_->parentWidget() != owner) {
    if (helpWindow_ != nullptr) {
      helpWindow_->close();
    }
    helpWindow_ = new HelpWindow(owner);
  }
  helpWindow_->showPage(page);
  helpWindow_->show();
  helpWindow_->raise();
  helpWindow_->activateWindow();
}

void MainWindow::exitWithConfirmation() {
  if (confirmExit(session_.prompter())) {
    close();
  }
}

void MainWindow::changeFolder() {
  closeAccountAndChoice();
  const QString folder = chooseFolder(this, kFolderBrowserTitle);
  if (folder.isEmpty()) {
    return;
  }
  QApplication::setOverrideCursor(Qt::WaitCursor);
  changeDataFolder(session_, ss(folder));
  panel_->fillAllAccounts();
  showBalances();
  QApplication::restoreOverrideCursor();
}

void MainWindow::openCausali() {
  showCausaliWindow(this, session_);
  // The movement list names the causali: build it again with the table as it is now.
  if (MovementWindow* window = movementWindow()) {
    window->refresh();
  }
}

void MainWindow::openAccounts() {
  // The working account is closed first; the account chosen in the selector still cannot be
  // deleted until "Chiudi".
  closeAccountView();
  showAccountsWindow(this, session_, [this] {
    panel_->fillAllAccounts();
    showBalances();
  });
  if (const QString chosen = panel_->selector()->currentText(); !chosen.isEmpty()) {
    chooseAccount(chosen);
  }
}

void MainWindow::setUpPrinter() { printerSetup(this); }

PrintHooks MainWindow::printHooks() {
  return {
      [this](QWidget* parent, const Report& report) { preview(parent, report); },
      [this](QWidget* parent) { printerSetup(parent); },
      [this](QWidget* parent, const QString& suggested, const std::function<std::string()>& table) {
        exportTable(parent, chooseCsvFile, session_.prompter(), suggested, table);
      },
      [this](QWidget* parent, ChartModel model) {
        ChartWindow(std::move(model), choosePdfFile, session_.prompter(), parent).exec();
      }};
}

void MainWindow::openPrintArchives() { PrintArchivesWindow(session_, printHooks(), this).exec(); }

void MainWindow::printMovements() {
  if (MovementWindow* window = movementWindow()) {
    window->print();
  }
}

void MainWindow::enableAccountEntries() {
  for (const char* entry : {"Stampe", "Esporta"}) {
    action(entry)->setEnabled(movementWindow() != nullptr);
  }
  for (const char* entry : {"AnnualeSimulata", "ra", "riprchiu", "CancMov"}) {
    action(entry)->setEnabled(session_.account() != nullptr);
  }
}

void MainWindow::showAccountAgain() {
  if (MovementWindow* window = movementWindow()) {
    window->refresh();
  }
  showBalances();
}

void MainWindow::openMovementQuery() { MovementQueryWindow(session_, printHooks(), this).exec(); }

void MainWindow::openSummaries() { SummaryWindow(session_, printHooks(), this).exec(); }

void MainWindow::reorderYears() {
  if (session_.account() != nullptr) {
    reorderTwoDigitYears(session_);
  }
}

void MainWindow::clearMovements() {
  if (session_.account() == nullptr) {
    return;
  }
  if (clearAccountMovements(session_)) {
    showAccountAgain();
  }
}

void MainWindow::openClosing() {
  if (session_.account() != nullptr) {
    ClosingWindow(
        session_, printHooks(), [this] { showAccountAgain(); }, this)
        .exec();
  }
}

void MainWindow::undoClosing() {
  if (session_.account() != nullptr && undoLastClosing(session_)) {
    showAccountAgain();
  }
}

void MainWindow::openBackup(BackupMode mode) {
  BackupWindow window(
      session_, mode, backupFolder, [this] { showAccountAgain(); }, this);
  window.exec();
  backupFolder = window.folder();
}

void MainWindow::tileHorizontally() {
  const QList<QMdiSubWindow*> windows = normalWindows(mdi_);
  if (windows.isEmpty()) {
    return;
  }
  const QSize area = mdi_->viewport()->size();
  const int height = area.height() / static_cast<int>(windows.size());
  for (int i = 0; i < windows.size(); ++i) {
    windows[i]->showNormal();
    windows[i]->setGeometry(0, i * height, area.width(), height);
  }
}

void MainWindow::tileVertically() {
  const QList<QMdiSubWindow*> windows = normalWindows(mdi_);
  if (windows.isEmpty()) {
    return;
  }
  const QSize area = mdi_->viewport()->size();
  const int width = area.width() / static_cast<int>(windows.size());
  for (int i = 0; i < windows.size(); ++i) {
    windows[i]->showNormal();
    windows[i]->setGeometry(i * width, 0, width, area.height());
  }
}

void MainWindow::arrangeIcons() {
  // Minimised windows line up along the bottom edge of the frame, left to right.
  const QSize area = mdi_->viewport()->size();
  int x = 0;
  for (QMdiSubWindow* w : mdi_->subWindowList(QMdiArea::CreationOrder)) {
    if (!w->isMinimized()) {
      continue;
    }
    const QSize size = w->size();
    w->move(x, area.height() - size.height());
    x += size.width();
  }
}

}  // namespace contavia::ui
