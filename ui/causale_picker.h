#pragma once
// FORM12, "Seleziona causale": the list of the causali for the entry row of the movement window.

#include <QDialog>
#include <optional>

class QListWidget;

namespace contavia {
struct Causale;
}

namespace contavia::ui {

class CausalePicker : public QDialog {
  Q_OBJECT
 public:
  CausalePicker(const std::vector<Causale>& causali, QWidget* parent = nullptr);

  // The chosen row (0-based), once the picker was closed with a choice.
  std::optional<int> chosenRow() const { return chosen_; }
  QListWidget* list() const { return list_; }

 private:
  void choose();

  QListWidget* list_;
  std::optional<int> chosen_;
};

}  // namespace contavia::ui
