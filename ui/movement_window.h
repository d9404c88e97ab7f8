#pragma once
// Form9, "Immissione / Modifica Movimenti": the movement list of the working account with its
// filter, and the entry row. The window only binds widgets to MovementEntry.

#include <QWidget>
#include <memory>

#include "ui/print_preview.h"

class QComboBox;
class QDateEdit;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QStringListModel;

namespace contavia {
class MovementEntry;
class Session;
}  // namespace contavia

namespace contavia::ui {

class MovementWindow : public QWidget {
  Q_OBJECT
 public:
  MovementWindow(Session& session, PrintHooks hooks, QWidget* parent = nullptr);
  ~MovementWindow() override;

  // Rebuilds the list after a change made elsewhere (a menu command of the main window).
  void refresh();
  // "Stampa": the list as shown, with the filter that made it, in the print preview.
  void print();
  // "Esporta": the list as shown, as a table for a spreadsheet.
  void exportList();
  // "Grafico": the account's balance over time.
  void showChart();

 signals:
  // The balances or the movements changed: the main window refreshes its panels.
  void accountChanged();
  // "Esci": the user is done with the account.
  void leaving();

 private:
  void build();
  void showEntry();
  void showList();
  void readFields();
  void onLinePicked(int row);
  void onSave();
  void onAbandon();
  void onDelete();
  void onFilter();
  void onPickCausale();
  void onDateChanged();
  void lookupCausale();

  Session& session_;
  PrintHooks hooks_;
  std::unique_ptr<MovementEntry> entry_;
  bool filling_ = false;

  QStringListModel* model_ = nullptr;
  QListView* list_ = nullptr;
  QDateEdit* from_ = nullptr;
  QDateEdit* to_ = nullptr;
  QComboBox* causaleFilter_ = nullptr;
  QLabel* number_ = nullptr;
  QDateEdit* date_ = nullptr;
  QLineEdit* causale_ = nullptr;
  QLabel* causaleDescription_ = nullptr;
  QLabel* sign_ = nullptr;
  QLineEdit* amount_ = nullptr;
  QLineEdit* document_ = nullptr;
  QLineEdit* description_ = nullptr;
  QPushButton* ok_ = nullptr;
  QPushButton* clear_ = nullptr;
  QPushButton* delete_ = nullptr;
};

}  // namespace contavia::ui
