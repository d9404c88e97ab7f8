#pragma once
// Form3, "Totale Movimenti": the movements of every account chosen by group, category and
// causale between two dates, with their totals, in a list that stays quick with a million rows;
// the list is printed as the query built it.

#include <QDialog>

#include "ledger/movement_query.h"
#include "ui/print_preview.h"

class QComboBox;
class QLineEdit;
class QListView;
class QPushButton;

namespace contavia {
class Session;
}

namespace contavia::ui {

class LinesModel;

class MovementQueryWindow : public QDialog {
  Q_OBJECT
 public:
  MovementQueryWindow(Session& session, PrintHooks hooks, QWidget* parent = nullptr);

 private:
  // `Combo1`: the groups, read again from their table; the choice is kept when still there.
  void fillGroups();
  void runQuery();
  void print();
  void exportRows();

  Session& session_;
  PrintHooks hooks_;
  QueryResult result_;
  QueryFilter shownFilter_;  // the filter the list was built with
  LinesModel* model_ = nullptr;
  QLineEdit* from_ = nullptr;
  QLineEdit* to_ = nullptr;
  QComboBox* groups_ = nullptr;
  QComboBox* causali_ = nullptr;
  QComboBox* categories_ = nullptr;
  QListView* list_ = nullptr;
  QPushButton* print_ = nullptr;
  QPushButton* export_ = nullptr;
};

}  // namespace contavia::ui
