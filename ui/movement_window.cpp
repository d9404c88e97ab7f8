#include "ui/movement_window.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

#include "archive/session.h"
#include "common/dates.h"
#include "common/key_rules.h"
#include "common/text.h"
#include "ledger/chart_data.h"
#include "ledger/movement_entry.h"
#include "ledger/movement_export.h"
#include "ledger/printed_lists.h"
#include "ui/causale_picker.h"
#include "ui/chart_window.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

constexpr const char* kDateFormat = "dd/MM/yyyy";

QDate toQDate(const std::string& text) {
  const auto date = parseDate(text);
  return date ? QDate(date->year, date->month, date->day) : QDate();
}

std::string fromQDate(const QDate& date) {
  return formatDateDmy(CalendarDate{date.day(), date.month(), date.year()});
}

QDateEdit* dateBox(const QString& name) {
  auto* box = named(new QDateEdit, name);
  box->setDisplayFormat(kDateFormat);
  box->setCalendarPopup(true);
  box->setMinimumDate(QDate(1900, 1, 1));
  tabLeavesDateBox(box);
  return box;
}

// The lines of the movement list; only those that stand for a movement can be highlighted.
class MovementLinesModel final : public QStringListModel {
 public:
  MovementLinesModel(const MovementEntry& entry, QObject* parent)
      : QStringListModel(parent), entry_(entry) {}
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    Qt::ItemFlags f = QStringListModel::flags(index) & ~Qt::ItemIsEditable;
    if (index.isValid() && !entry_.picksMovement(static_cast<std::size_t>(index.row()))) {
      f &= ~Qt::ItemIsSelectable;
    }
    return f;
  }

 private:
  const MovementEntry& entry_;
};

std::optional<int> runPickerDialog(const std::vector<Causale>& causali, QWidget* parent) {
  CausalePicker picker(causali, parent);
  if (picker.exec() != QDialog::Accepted) {
    return std::nullopt;
  }
  return picker.chosenRow();
}

}  // namespace

MovementWindow::MovementWindow(Session& session, PrintHooks hooks, QWidget* parent)
    : QWidget(parent),
      session_(session),
      hooks_(std::move(hooks)),
      entry_(std::make_unique<MovementEntry>(session)) {
  named(this, "Form9");
  setWindowTitle("Immissione / Modifica Movimenti");
  build();
  entry_->open();
  showList();
  showEntry();
}

MovementWindow::~MovementWindow() = default;

void MovementWindow::build() {
  Prompter& prompter = session_.prompter();

  from_ = dateBox("DataInizSel");
  to_ = dateBox("Datafinesel");
  applyKeyRule(
      from_, [](const QString&, char key) { return filterRangeDateKey(key); }, prompter);
  applyKeyRule(
      to_, [](const QString&, char key) { return filterRangeDateKey(key); }, prompter);
  causaleFilter_ = named(new QComboBox, "Combo1");
  causaleFilter_->setMinimumContentsLength(18);
  auto* filterButton = named(new QPushButton("Esegui filtro"), "Command3");
  connect(filterButton, &QPushButton::clicked, this, &MovementWindow::onFilter);
  enterClicks(filterButton);

  auto* filterRow = new QHBoxLayout;
  filterRow->addWidget(named(new QLabel("dal"), "LabelDal"));
  filterRow->addWidget(from_);
  filterRow->addWidget(named(new QLabel("al"), "LabelAl"));
  filterRow->addWidget(to_);
  filterRow->addWidget(named(new QLabel("Causale"), "LabelCausaleFiltro"));
  filterRow->addWidget(causaleFilter_, 1);
  filterRow->addWidget(filterButton);

  auto* heading = named(new QLabel(qs(movementListHeading())), "Intestazione");
  heading->setFont(fixedPitchFont(9));
  model_ = new MovementLinesModel(*entry_, this);
  list_ = fixedPitchList("ElencoMovim", model_);  // long lines scroll sideways, never cut
  list_->setMinimumHeight(220);
  heading->setIndent(list_->frameWidth() + 2);  // over the text of the rows
  connect(list_, &QListView::clicked, this,
          [this](const QModelIndex& i) { onLinePicked(i.row()); });
  connect(list_, &QListView::activated, this,
          [this](const QModelIndex& i) { onLinePicked(i.row()); });

  number_ = named(new QLabel, "nroper");
  number_->setMinimumWidth(40);
  date_ = dateBox("dataoper");
  connect(date_, &QDateEdit::dateChanged, this, &MovementWindow::onDateChanged);
  causale_ = named(new QLineEdit, "Causale");
  causale_->setMaxLength(5);
  causale_->setMaximumWidth(70);
  auto* pick = named(new QPushButton("Seleziona causale"), "command3d1");
  connect(pick, &QPushButton::clicked, this, &MovementWindow::onPickCausale);
  enterClicks(pick);
  causaleDescription_ = named(new QLabel, "DescrCausale");
  causaleDescription_->setMinimumWidth(180);
  sign_ = named(new QLabel, "D_A");
  sign_->setMinimumWidth(50);
  amount_ = named(new QLineEdit, "IMPORTO");
  amount_->setAlignment(Qt::AlignRight);
  document_ = named(new QLineEdit, "NrDoc");
  document_->setMaxLength(8);
  document_->setMaximumWidth(90);
  description_ = named(new QLineEdit, "DescMovim");
  description_->setMaxLength(30);

  enterMovesFocus(date_);
  enterMovesFocus(document_);
  enterMovesFocus(description_);
  // Enter in the causale code goes straight to the amount, past "Seleziona causale".
  enterMovesFocusTo(causale_, amount_);
  applyKeyRule(
      amount_, [](const QString& text, char key) { return filterAmountKey(ss(text), key); },
      prompter);
  connect(document_, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (text.size() >= 8) {
      description_->setFocus();
    }
  });
  connect(description_, &QLineEdit::textEdited, this, [this](const QString& text) {
    if (text.size() >= 30) {
      ok_->setFocus();
    }
  });

  auto* row = new QGridLayout;
  int c = 0;
  for (const auto& [name, text] : std::initializer_list<std::pair<const char*, const char*>>{
           {"LabelNroper", "N.O."}, {"LabelData", "Data"}, {"LabelCausale", "Causale"}}) {
    row->addWidget(named(new QLabel(text), name), 0, c++);
  }
  row->addWidget(number_, 1, 0);
  row->addWidget(date_, 1, 1);
  row->addWidget(causale_, 1, 2);
  row->addWidget(pick, 1, 3);
  row->addWidget(causaleDescription_, 1, 4);
  row->addWidget(sign_, 1, 5);
  row->addWidget(named(new QLabel("Importo"), "LabelImporto"), 2, 0, 1, 2);
  row->addWidget(named(new QLabel("Nr. Doc."), "LabelNrDoc"), 2, 2);
  row->addWidget(named(new QLabel("Descrizione"), "LabelDescMovim"), 2, 3, 1, 3);
  row->addWidget(amount_, 3, 0, 1, 2);
  row->addWidget(document_, 3, 2);
  row->addWidget(description_, 3, 3, 1, 3);
  row->setColumnStretch(6, 1);

  ok_ = named(new QPushButton("Conferma"), "ok");
  clear_ = named(new QPushButton("Annulla immissione"), "pulisci");
  delete_ = named(new QPushButton("Cancella"), "del");
  auto* print = named(new QPushButton("Stampa"), "PulStampe");
  connect(print, &QPushButton::clicked, this, &MovementWindow::print);
  auto* chart = named(new QPushButton("Grafico"), "Grafico");
  chart->setToolTip("Il saldo del conto nel tempo");
  connect(chart, &QPushButton::clicked, this, &MovementWindow::showChart);
  auto* exportButton = named(new QPushButton("Esporta"), "Esporta");
  exportButton->setToolTip("Esporta l'elenco in un file per un foglio di calcolo");
  connect(exportButton, &QPushButton::clicked, this, &MovementWindow::exportList);
  auto* close = named(new QPushButton("Esci"), "Command3D8");
  connect(ok_, &QPushButton::clicked, this, &MovementWindow::onSave);
  // After the jumps of the document number and the description, typing goes on in the
  // description: it never saves a movement half typed.
  textGoesTo(ok_, description_);
  connect(clear_, &QPushButton::clicked, this, &MovementWindow::onAbandon);
  connect(delete_, &QPushButton::clicked, this, &MovementWindow::onDelete);
  connect(close, &QPushButton::clicked, this, [this] {
    emit leaving();
    if (QWidget* frame = parentWidget()) {
      frame->close();  // the MDI sub-window that holds the window
    } else {
      this->close();
    }
  });
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {ok_, clear_, delete_, print, exportButton, chart, close}) {
    enterClicks(b);
    buttons->addWidget(b);
  }
  buttons->insertStretch(3, 1);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(filterRow);
  layout->addWidget(heading);
  layout->addWidget(list_, 1);
  layout->addLayout(row);
  layout->addLayout(buttons);

  // The tab order follows the screen; the window opens on the date of a new movement.
  const std::initializer_list<QWidget*> order = {
      from_,    to_,     causaleFilter_, filterButton, list_,        date_,
      causale_, pick,    amount_,        document_,    description_, ok_,
      clear_,   delete_, print,          exportButton, chart,        close};
  for (auto at = order.begin(); std::next(at) != order.end(); ++at) {
    setTabOrder(*at, *std::next(at));
  }
  setFocusProxy(date_);
  // The amount field looks the causale up when the user moves into it.
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* old, QWidget* now) {
    if (now == amount_ && old != amount_ && !filling_) {
      lookupCausale();
    }
  });
}

void MovementWindow::showList() {
  const MovementList& list = entry_->list();
  QStringList lines;
  lines.reserve(static_cast<qsizetype>(list.lines.size()));
  for (const std::string& line : list.lines) {
    lines << qs(line);
  }
  model_->setStringList(lines);

  filling_ = true;
  causaleFilter_->clear();
  for (const std::string& item : entry_->causaleSelector()) {
    causaleFilter_->addItem(qs(item));
  }
  const int keep = causaleFilter_->findText(qs(entry_->filter().causale));
  causaleFilter_->setCurrentIndex(keep >= 0 ? keep : 0);
  const QDate from = toQDate(entry_->filter().from);
  const QDate to = toQDate(entry_->filter().to);
  from_->setDate(from.isValid() ? from : from_->minimumDate());
  to_->setDate(to.isValid() ? to : QDate::currentDate());
  filling_ = false;
}

void MovementWindow::showEntry() {
  filling_ = true;
  const EntryRow& row = entry_->row();
  number_->setText(qs(row.number));
  const QDate date = toQDate(row.date);
  if (date.isValid()) {
    date_->setDate(date);
  }
  causale_->setText(qs(row.causale));
  causaleDescription_->setText(qs(trim(row.causaleDescription)));
  sign_->setText(qs(signCaption(row.sign)));
  amount_->setText(qs(row.amount));
  document_->setText(qs(trimRight(row.documentNumber)));
  description_->setText(qs(trimRight(row.description)));
  delete_->setEnabled(entry_->deleteEnabled());
  filling_ = false;
}

void MovementWindow::readFields() {
  EntryRow& row = entry_->row();
  row.causale = ss(causale_->text());
  row.amount = ss(amount_->text());
  row.documentNumber = ss(document_->text());
  row.description = ss(description_->text());
}

void MovementWindow::refresh() {
  entry_->refresh();
  showList();
  showEntry();
}

void MovementWindow::print() { hooks_.preview(this, workingAccountReport(session_, *entry_)); }

void MovementWindow::showChart() {
  const OpenAccount& account = *session_.account();
  ChartModel model;
  model.title = "Saldo del conto " + qs(account.code());
  model.balance = balanceChart(account, dateKey(session_.clock().todayText()));
  hooks_.showChart(this, std::move(model));
}

void MovementWindow::exportList() {
  hooks_.exportTable(this, "Movimenti " + qs(session_.currentAccountCode()) + ".csv", [this] {
    return movementListCsv(*session_.account(), entry_->list(), session_.tables().causali);
  });
}

void MovementWindow::onDateChanged() {
  if (filling_) {
    return;
  }
  entry_->setDate(fromQDate(date_->date()));
  number_->setText(qs(entry_->row().number));
}

void MovementWindow::lookupCausale() {
  readFields();
  if (entry_->lookupCausale()) {
    showEntry();
  } else {
    causale_->setFocus();
  }
}

void MovementWindow::onPickCausale() {
  const auto row = runPickerDialog(session_.tables().causali, this);
  if (!row) {
    return;
  }
  readFields();
  entry_->pickCausale(static_cast<std::size_t>(*row));
  showEntry();
  amount_->setFocus();
}

void MovementWindow::onLinePicked(int row) {
  if (row < 0 || !entry_->selectLine(static_cast<std::size_t>(row))) {
    return;
  }
  showEntry();
  emit accountChanged();
}

void MovementWindow::onSave() {
  readFields();
  if (!entry_->save()) {
    if (entry_->row().amount.empty()) {
      amount_->setFocus();
    }
    showEntry();
    return;
  }
  showList();
  showEntry();
  date_->setFocus();
  emit accountChanged();
}

void MovementWindow::onAbandon() {
  entry_->abandon();
  list_->clearSelection();  // the movement is no longer chosen
  showEntry();
  date_->setFocus();
  emit accountChanged();
}

void MovementWindow::onDelete() {
  readFields();
  if (!entry_->deleteSelected()) {
    return;
  }
  showList();
  showEntry();
  date_->setFocus();
  emit accountChanged();
}

void MovementWindow::onFilter() {
  ListFilter& filter = entry_->filter();
  filter.from = fromQDate(from_->date());
  filter.to = fromQDate(to_->date());
  filter.causale = ss(causaleFilter_->currentText());
  entry_->applyFilter();
  showList();
}

}  // namespace contavia::ui
