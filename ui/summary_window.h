#pragma once
// Form22, "Totale conti": the balance of every account with its credit line and what is
// available, or the balances summed by category or by group; the view shown is printed. Every
// account is read when the window opens.

#include <QDialog>
#include <memory>

#include "ledger/summaries.h"
#include "ui/print_preview.h"

class QComboBox;
class QLabel;
class QListView;
class QPushButton;

namespace contavia {
class Session;
}

namespace contavia::ui {

class LinesModel;

class SummaryWindow : public QDialog {
  Q_OBJECT
 public:
  SummaryWindow(Session& session, PrintHooks hooks, QWidget* parent = nullptr);
  ~SummaryWindow() override;

 private:
  void showView(SummaryKind kind);
  std::string category() const;

  PrintHooks hooks_;
  std::unique_ptr<Summaries> summaries_;
  SummaryKind kind_ = SummaryKind::Accounts;
  SummaryView view_;
  LinesModel* model_ = nullptr;
  QListView* list_ = nullptr;
  QLabel* total_ = nullptr;
  QLabel* heading_ = nullptr;
  QComboBox* category_ = nullptr;
  QPushButton* accounts_ = nullptr;
  QPushButton* categories_ = nullptr;
  QPushButton* groups_ = nullptr;
};

}  // namespace contavia::ui
