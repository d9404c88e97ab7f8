#pragma once
// Panel3D1: the account selector `Combo1`, the letter index and the summary of the working
// account, on the left of the main frame.

#include <QFrame>
#include <QStringList>
#include <array>

class QComboBox;
class QLabel;

namespace contavia {
class Session;
}

namespace contavia::ui {

class ClickableLabel;

class AccountPanel : public QFrame {
  Q_OBJECT
 public:
  explicit AccountPanel(Session& session, QWidget* parent = nullptr);

  QComboBox* selector() const { return combo_; }
  // Refills the selector with every account (as at start-up) and clears the highlight.
  void fillAllAccounts();
  // Shows the working account's data and figures, or clears them when none is open.
  void showAccount();
  void showToday();

 signals:
  // The user chose an item of the selector.
  void accountChosen(const QString& item);

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  // A click on index label `label` (0..23).
  void chooseLetter(int label);
  void setItems(const QStringList& items);
  void highlight(int label);
  void beep();

  Session& session_;
  QComboBox* combo_;
  std::array<ClickableLabel*, 24> letters_{};
  std::array<ClickableLabel*, 4> figures_{};
  QLabel* today_;
  QLabel* accountName_;
  QLabel* accountAddress_;
  QLabel* accountTown_;
  QLabel* group_;
  QLabel* category_;
  QLabel* latestDate_;
};

}  // namespace contavia::ui
