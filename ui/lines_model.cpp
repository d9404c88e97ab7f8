#include "ui/lines_model.h"

namespace contavia::ui {

LinesModel::LinesModel(const std::vector<std::string>& lines, QObject* parent)
    : QAbstractListModel(parent), lines_(lines) {}

void LinesModel::change(const std::function<void()>& apply) {
  beginResetModel();
  apply();
  endResetModel();
}

int LinesModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant LinesModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || static_cast<std::size_t>(index.row()) >= lines_.size() ||
      (role != Qt::DisplayRole && role != Qt::AccessibleTextRole)) {
    return {};
  }
  return QString::fromStdString(lines_[static_cast<std::size_t>(index.row())]);
}

}  // namespace contavia::ui
