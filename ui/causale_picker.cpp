#include "ui/causale_picker.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "archive/records.h"
#include "ledger/movement_entry.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {

CausalePicker::CausalePicker(const std::vector<Causale>& causali, QWidget* parent)
    : QDialog(parent), list_(named(new QListWidget, "List1")) {
  named(this, "FORM12");
  setWindowTitle("Seleziona causale");
  list_->setFont(fixedPitchFont(10));
  for (const std::string& row : causalePickerRows(causali)) {
    list_->addItem(QString::fromStdString(row));
  }
  if (list_->count() > 0) {
    list_->setCurrentRow(0);
  }
  auto* ok = named(new QPushButton("ok"), "ok");
  auto* esci = named(new QPushButton("esci"), "esci");
  ok->setDefault(true);
  connect(list_, &QListWidget::itemDoubleClicked, this, &CausalePicker::choose);
  connect(list_, &QListWidget::itemActivated, this, &CausalePicker::choose);
  connect(ok, &QPushButton::clicked, this, &CausalePicker::choose);
  connect(esci, &QPushButton::clicked, this, &QDialog::reject);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(ok);
  buttons->addWidget(esci);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(list_);
  layout->addLayout(buttons);
  resize(420, 360);
}

void CausalePicker::choose() {
  const int row = list_->currentRow();
  if (row < 0) {
    return;
  }
  chosen_ = row;
  accept();
}

}  // namespace contavia::ui
