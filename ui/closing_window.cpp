#include "ui/closing_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "archive/session.h"
#include "ledger/closing.h"
#include "ui/report_painter.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {

ClosingWindow::ClosingWindow(Session& session, PrintHooks hooks, std::function<void()> afterClosing,
                             QWidget* parent)
    : QDialog(parent),
      session_(session),
      hooks_(std::move(hooks)),
      afterClosing_(std::move(afterClosing)),
      date_(maskedDateField("DataChiusura")) {
  named(this, "Form19");
  setWindowTitle("Chiusura periodica");
  setModal(true);

  auto* caption = named(new QLabel("Data di chiusura"), "Label1");
  caption->setBuddy(date_);
  auto* explanation =
      named(new QLabel("Saranno eliminati i movimenti fino alla data indicata, compresa; il loro "
                       "saldo passa nel riporto."),
            "Label2");
  explanation->setWordWrap(true);

  QPushButton* start = pushButton("Esegui chiusura", "avvia");
  connect(start, &QPushButton::clicked, this, &ClosingWindow::startClosing);
  QPushButton* close = pushButton("Esci", "esci");
  connect(close, &QPushButton::clicked, this, &QDialog::reject);

  auto* field = new QHBoxLayout;
  field->addWidget(caption);
  field->addWidget(date_);
  field->addStretch(1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(start);
  buttons->addWidget(close);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(field);
  layout->addWidget(explanation);
  layout->addSpacing(12);
  layout->addLayout(buttons);
  setMinimumWidth(420);
  date_->setFocus();
}

void ClosingWindow::startClosing() {
  const ClosingResult result = closePeriod(session_, ss(date_->displayText()),
                                           [](const Report& report, const std::string& path) {
                                             return writeReportPdf(report, qs(path));
                                           });
  if (!result.closed) {
    date_->setFocus();
    return;
  }
  afterClosing_();
  hooks_.preview(this, result.report);
  accept();
}

}  // namespace contavia::ui
