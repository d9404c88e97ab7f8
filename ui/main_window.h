#pragma once
// MDIForm1: the frame of the whole program, with its menus, tool buttons, the account panel on
// the left and the status bar of the working account's balances.

#include <QMainWindow>
#include <QPointer>
#include <array>
#include <functional>
#include <map>

#include "backup/account_copies.h"
#include "ui/help_window.h"
#include "ui/print_preview.h"
#include "ui/table_export.h"

class QAction;
class QLabel;
class QMdiArea;
class QMdiSubWindow;
class QToolButton;

namespace contavia {
class Session;
}

namespace contavia::ui {

class AccountPanel;
class MovementWindow;

class MainWindow : public QMainWindow {
  Q_OBJECT
 public:
  explicit MainWindow(Session& session, QWidget* parent = nullptr);

  QMdiArea* mdiArea() const { return mdi_; }
  AccountPanel* panel() const { return panel_; }
  // The movement window of the working account, or null when it is not open.
  MovementWindow* movementWindow() const;
  // A menu entry or tool button by its control name.
  QAction* action(const QString& controlName) const;

  // Dialogs of the platform, replaceable by tests: the folder browser (an empty text when
  // cancelled), the printer set-up, the print preview of a report and the file chooser of its
  // "Salva PDF...".
  std::function<QString(QWidget* parent, const QString& title)> chooseFolder;
  std::function<void(QWidget* parent)> printerSetup;
  std::function<void(QWidget* parent, const Report& report)> preview;
  PdfFileChooser choosePdfFile;
  CsvFileChooser chooseCsvFile;
  // The folder the backup window shows first: the last one chosen there in this run.
  QString backupFolder;

  // "Esci": the exit question; closes the frame on OK.
  void exitWithConfirmation();
  // The guide at `page`; F1 opens it at the page of the window in use.
  void openHelp(const help::HelpPage& page);
  HelpWindow* helpWindow() const { return helpWindow_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  // Choosing an item of the account selector.
  void chooseAccount(const QString& item);
  // Refreshes the account panel and the status panels from the working account.
  void showBalances();
  void buildMenus();
  void buildToolBar();
  void buildStatusBar();
  // A menu entry or tool button with its control name; without a handler it is disabled.
  QAction* addEntry(QWidget* menuOrBar, const char* control, const char* caption,
                    std::function<void()> handler);
  // Closes the account view and the working account (the account chosen in the selector stays
  // chosen, as before the accounts window).
  void closeAccountView();
  // "Chiudi": the same, and the selector forgets the chosen account.
  void closeAccountAndChoice();
  // The movement window's "Esci": as "Chiudi", the window closing itself.
  void leaveAccount();
  void changeFolder();
  void openCausali();
  // "&Gestione Conto": the accounts window, with the working account closed while it is open
  // and opened again after it, when it is still there.
  void openAccounts();
  void setUpPrinter();
  // The print dialogs as the windows opened from here see them: always the ones set above.
  PrintHooks printHooks();
  void openPrintArchives();
  void printMovements();
  void openMovementQuery();
  void openSummaries();
  // "&Stampa Movimenti" is offered while the movement window is open, the entries that change
  // the working account ("Chiusura periodica", "Riordina archivio", its undo, "Cancella
  // movimenti") while an account is.
  void enableAccountEntries();
  // After a bulk change to the working account: its list and balances shown again.
  void showAccountAgain();
  void reorderYears();
  void clearMovements();
  void openClosing();
  void undoClosing();
  void openBackup(BackupMode mode);
  void openMovementWindow();
  void closeMovementWindow();
  QSize leastSize() const;
  void fitMovementWindow();
  void tileHorizontally();
  void tileVertically();
  void arrangeIcons();

  Session& session_;
  QMdiArea* mdi_;
  AccountPanel* panel_;
  QPointer<QMdiSubWindow> movementFrame_;
  QPointer<HelpWindow> helpWindow_;
  std::map<QString, QAction*> actions_;
  std::array<QLabel*, 5> statusPanels_{};
};

}  // namespace contavia::ui
