#include "ui/summary_window.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

#include "archive/session.h"
#include "ui/busy_work.h"
#include "ui/chart_window.h"
#include "ui/lines_model.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

// The currency button: the picture "Euro.ico" that comes with the program. A label only: the
// amounts are shown as stored, never converted.
QToolButton* currencyButton() {
  auto* button = named(new QToolButton, "Valuta");
  button->setAccessibleName("Euro");
  button->setToolTip("Valuta: Euro");
  button->setFocusPolicy(Qt::NoFocus);
  button->setIconSize(QSize(32, 32));
  const QString picture = programFile("Euro.ico");
  if (QPixmap(picture).isNull()) {
    button->setText("Euro");
  } else {
    button->setIcon(QIcon(picture));
  }
  return button;
}

}  // namespace

SummaryWindow::SummaryWindow(Session& session, PrintHooks hooks, QWidget* parent)
    : QDialog(parent), hooks_(std::move(hooks)) {
  named(this, "Form22");
  setWindowTitle("Totale conti");
  setModal(true);
  {
    BusyWork busy(parent, "Lettura dei saldi di tutti i conti...");
    summaries_ = std::make_unique<Summaries>(session, busy.progress());
  }

  auto* date = named(new QLabel(qs(summaries_->date())), "Data");
  auto* dateCaption = named(new QLabel("Saldi al"), "LabelData");
  dateCaption->setAccessibleName("Saldi al");
  category_ = named(new QComboBox, "Combo1");
  category_->setMinimumContentsLength(22);
  for (const std::string& item : summaries_->categoryItems()) {
    category_->addItem(qs(item));
  }
  auto* categoryCaption = named(new QLabel("Categoria"), "LabelCategoria");
  categoryCaption->setAccessibleName("Categoria");
  categoryCaption->setBuddy(category_);
  // A category chosen shows the accounts of that category.
  connect(category_, &QComboBox::currentIndexChanged, this,
          [this] { showView(SummaryKind::Accounts); });
  auto* top = new QHBoxLayout;
  top->addWidget(dateCaption);
  top->addWidget(date);
  top->addSpacing(24);
  top->addWidget(categoryCaption);
  top->addWidget(category_);
  top->addStretch(1);
  top->addWidget(currencyButton());

  model_ = new LinesModel(view_.rows, this);
  list_ = fixedPitchList("List1", model_);
  heading_ = named(new QLabel, "Intestazione");
  heading_->setFont(list_->font());
  heading_->setIndent(list_->frameWidth() + 2);  // over the text of the rows
  list_->setMinimumHeight(240);
  total_ = named(new QLabel, "Totali");
  total_->setFont(fixedPitchFont(9));
  total_->setFrameShape(QFrame::Panel);
  total_->setFrameShadow(QFrame::Sunken);
  total_->setTextInteractionFlags(Qt::TextSelectableByMouse);

  accounts_ = pushButton("Conti", "Dettagli");
  categories_ = pushButton("Categorie", "TotCategorie");
  groups_ = pushButton("Gruppi", "Gruppi");
  connect(accounts_, &QPushButton::clicked, this, [this] { showView(SummaryKind::Accounts); });
  connect(categories_, &QPushButton::clicked, this, [this] { showView(SummaryKind::Categories); });
  connect(groups_, &QPushButton::clicked, this, [this] { showView(SummaryKind::Groups); });
  QPushButton* print = pushButton("Stampa", "PulStampe");
  connect(print, &QPushButton::clicked, this,
          [this] { hooks_.preview(this, summaries_->report(kind_, category())); });
  QPushButton* exportButton = pushButton("Esporta", "Esporta");
  exportButton->setToolTip("Esporta la vista in un file per un foglio di calcolo");
  connect(exportButton, &QPushButton::clicked, this, [this] {
    hooks_.exportTable(this, "Totale conti.csv",
                       [this] { return summaries_->csv(kind_, category()); });
  });
  QPushButton* chart = pushButton("Grafico", "Grafico");
  chart->setToolTip("I saldi della vista come barre");
  connect(chart, &QPushButton::clicked, this, [this] {
    static const char* const kTitles[] = {"Saldi dei conti", "Saldi per categoria",
                                          "Saldi per gruppo"};
    ChartModel model;
    model.title = kTitles[static_cast<int>(kind_)];
    model.line = false;
    model.bars = summaries_->bars(kind_, category());
    hooks_.showChart(this, std::move(model));
  });
  QPushButton* close = pushButton("Esci", "esci");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  for (QPushButton* b : {accounts_, categories_, groups_}) {
    buttons->addWidget(b);
  }
  buttons->addStretch(1);
  buttons->addWidget(print);
  buttons->addWidget(exportButton);
  buttons->addWidget(chart);
  buttons->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(top);
  layout->addWidget(heading_);
  layout->addWidget(list_, 1);
  layout->addWidget(total_);
  layout->addLayout(buttons);

  showView(SummaryKind::Accounts);
  category_->setFocus();
  resize(QFontMetrics(list_->font()).horizontalAdvance(QString(92, 'M')) + 40, 520);
}

SummaryWindow::~SummaryWindow() = default;

std::string SummaryWindow::category() const { return ss(category_->currentText()); }

void SummaryWindow::showView(SummaryKind kind) {
  kind_ = kind;
  SummaryView view = summaries_->view(kind, category());
  model_->change([&] { view_ = std::move(view); });
  total_->setText(qs(view_.total));
  heading_->setText(qs(view_.heading));
  accounts_->setEnabled(kind != SummaryKind::Accounts);
  categories_->setEnabled(kind != SummaryKind::Categories);
  groups_->setEnabled(kind != SummaryKind::Groups);
}

}  // namespace contavia::ui
