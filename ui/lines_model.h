#pragma once
// The rows of a long list as the core builds them (a million rows stay quick): the view asks for
// the rows it draws, nothing is copied per row.

#include <QAbstractListModel>
#include <functional>
#include <string>
#include <vector>

namespace contavia::ui {

class LinesModel final : public QAbstractListModel {
  Q_OBJECT
 public:
  // Shows `lines`, which outlive the model and change only inside `change`.
  LinesModel(const std::vector<std::string>& lines, QObject* parent);

  // Runs `apply`, which changes the lines, and shows them anew.
  void change(const std::function<void()>& apply);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  const std::vector<std::string>& lines_;
};

}  // namespace contavia::ui
