#include "ui/movement_query_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include "archive/session.h"
#include "archive/tables.h"
#include "common/dates.h"
#include "ledger/printed_lists.h"
#include "printing/movement_lists.h"
#include "ui/busy_work.h"
#include "ui/lines_model.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

// Fills a filter's combo box with `items`, choosing `keep` when it is one of them, else the
// first item (" Tutte").
void fill(QComboBox* box, const std::vector<std::string>& items, const QString& keep = {}) {
  box->blockSignals(true);
  box->clear();
  for (const std::string& item : items) {
    box->addItem(qs(item));
  }
  box->setCurrentIndex(std::max(0, box->findText(keep)));
  box->blockSignals(false);
}

QComboBox* filterBox(const char* name) {
  auto* box = named(new QComboBox, name);
  box->setMinimumContentsLength(22);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  return box;
}

}  // namespace

MovementQueryWindow::MovementQueryWindow(Session& session, PrintHooks hooks, QWidget* parent)
    : QDialog(parent), session_(session), hooks_(std::move(hooks)) {
  named(this, "Form3");
  setWindowTitle("Totale Movimenti");
  setModal(true);

  const QueryFilter opening = openingQueryFilter(session_.clock());
  from_ = maskedDateField("dal", qs(opening.from));
  to_ = maskedDateField("al", qs(opening.to));
  groups_ = filterBox("Combo1");
  categories_ = filterBox("Combo3");
  causali_ = filterBox("Combo2");
  const QueryChoices choices = queryChoices(session_);
  fill(groups_, choices.groups);
  fill(categories_, choices.categories);
  fill(causali_, choices.causali);
  connect(categories_, &QComboBox::currentIndexChanged, this, &MovementQueryWindow::fillGroups);

  // `dal` and `al` on the first line, the three filters under them.
  const auto caption = [](const char* name, const char* text, QWidget* field) {
    auto* label = named(new QLabel(text), name);
    label->setAccessibleName(text);
    label->setBuddy(field);
    return label;
  };
  auto* dates = new QHBoxLayout;
  dates->addWidget(from_);
  dates->addSpacing(12);
  dates->addWidget(caption("LabelAl", "al", to_));
  dates->addWidget(to_);
  dates->addStretch(1);
  auto* filters = new QGridLayout;
  filters->addWidget(caption("LabelDal", "dal", from_), 0, 0);
  filters->addLayout(dates, 0, 1);
  filters->addWidget(caption("LabelGruppo", "Gruppo", groups_), 1, 0);
  filters->addWidget(groups_, 1, 1, Qt::AlignLeft);
  filters->addWidget(caption("LabelCategoria", "Categoria", categories_), 2, 0);
  filters->addWidget(categories_, 2, 1, Qt::AlignLeft);
  filters->addWidget(caption("LabelCausale", "Causale", causali_), 3, 0);
  filters->addWidget(causali_, 3, 1, Qt::AlignLeft);
  filters->setColumnStretch(2, 1);

  // The heading of the printed list, behind the key each row begins with.
  const std::string heading = queryListHeading();
  auto* headingLabel = named(new QLabel(qs(heading)), "Intestazione");
  headingLabel->setFont(fixedPitchFont(9));
  model_ = new LinesModel(result_.rows, this);
  list_ = fixedPitchList("lista", model_);
  list_->setMinimumHeight(260);
  headingLabel->setIndent(list_->frameWidth() + 2);  // over the text of the rows

  QPushButton* run = pushButton("Mostra movimenti", "saldi");
  connect(run, &QPushButton::clicked, this, &MovementQueryWindow::runQuery);
  print_ = pushButton("Stampa", "Stampa");
  print_->setEnabled(false);  // until a list is shown
  connect(print_, &QPushButton::clicked, this, &MovementQueryWindow::print);
  export_ = pushButton("Esporta", "Esporta");
  export_->setEnabled(false);  // until a list is shown
  export_->setToolTip("Esporta i movimenti trovati in un file per un foglio di calcolo");
  connect(export_, &QPushButton::clicked, this, &MovementQueryWindow::exportRows);
  QPushButton* printer = pushButton("Stampante...", "PulStampe");
  connect(printer, &QPushButton::clicked, this, [this] { hooks_.printerSetup(this); });
  QPushButton* close = pushButton("Esci", "esci");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(run);
  buttons->addStretch(1);
  buttons->addWidget(print_);
  buttons->addWidget(export_);
  buttons->addWidget(printer);
  buttons->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(filters);
  layout->addWidget(headingLabel);
  layout->addWidget(list_, 1);
  layout->addLayout(buttons);

  setTabOrder(from_, to_);
  setTabOrder(to_, groups_);
  setTabOrder(groups_, categories_);
  setTabOrder(categories_, causali_);
  setTabOrder(causali_, run);
  from_->setFocus();
  const int columns = static_cast<int>(heading.size()) + 6;
  resize(QFontMetrics(list_->font()).horizontalAdvance(QString(columns, 'M')) + 60, 620);
}

void MovementQueryWindow::fillGroups() {
  fill(groups_, queryChoices(session_).groups, groups_->currentText());
}

void MovementQueryWindow::runQuery() {
  QueryFilter filter;
  filter.from = ss(from_->displayText());
  filter.to = ss(to_->displayText());
  filter.group = ss(groups_->currentText());
  filter.category = ss(categories_->currentText());
  filter.causale = ss(causali_->currentText());
  // The date that was wrong gets the focus after its message: `dal` is checked alone first.
  QueryFilter fromOnly = filter;
  fromOnly.to = filter.from;
  if (!queryDatesAccepted(fromOnly, session_.prompter())) {
    from_->setFocus();
    return;
  }
  if (!queryDatesAccepted(filter, session_.prompter())) {
    to_->setFocus();
    return;
  }
  QueryResult result;
  {
    BusyWork busy(this, "Ricerca dei movimenti in tutti i conti...");
    result = runMovementQuery(session_.dir(), session_.tables().accounts, session_.tables().causali,
                              filter, busy.progress());
  }
  model_->change([&] { result_ = std::move(result); });
  shownFilter_ = filter;
  list_->scrollToTop();
  print_->setEnabled(true);
  export_->setEnabled(true);
}

// The movements of the list shown, field by field: the query runs again for them (holding them
// beside every list would double the memory of a long one).
void MovementQueryWindow::exportRows() {
  hooks_.exportTable(this, "Totale movimenti.csv", [this] {
    BusyWork busy(this, "Esportazione dei movimenti...");
    return queryCsv(runMovementQuery(session_.dir(), session_.tables().accounts,
                                     session_.tables().causali, shownFilter_, busy.progress(),
                                     /*fields=*/true)
                        .movements);
  });
}

void MovementQueryWindow::print() {
  Report report;
  {
    const WaitCursor busy;  // a million rows take a second
    report = queryReport(shownFilter_, result_, session_.clock().todayText());
  }
  hooks_.preview(this, report);
}

}  // namespace contavia::ui
