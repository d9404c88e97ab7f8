#include "ui/print_archives_window.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "masterdata/print_archives.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {

PrintArchivesWindow::PrintArchivesWindow(Session& session, PrintHooks hooks, QWidget* parent)
    : QDialog(parent),
      archives_(std::make_unique<PrintArchives>(session)),
      hooks_(std::move(hooks)) {
  named(this, "Form21");
  setWindowTitle("Stampa Archivi");
  setModal(true);

  auto* box = named(new QGroupBox("Elenchi da stampare"), "Elenchi");
  auto* listings = new QGridLayout(box);
  const std::initializer_list<std::tuple<const char*, const char*, ArchiveListing>> buttons = {
      {"Command3D5", "Causali", ArchiveListing::Causali},
      {"conti", "Conti", ArchiveListing::Accounts},
      {"tipi", "Categorie", ArchiveListing::Categories},
      {"Gruppi", "Gruppi", ArchiveListing::Groups},
      {"SSCommand1", "Piano dei conti", ArchiveListing::Chart}};
  int at = 0;
  for (const auto& [name, caption, listing] : buttons) {
    QPushButton* button = pushButton(caption, name);
    button->setMinimumWidth(160);
    connect(button, &QPushButton::clicked, this,
            [this, listing = listing] { hooks_.preview(this, archives_->report(listing)); });
    listings->addWidget(button, at / 2, at % 2);
    ++at;
  }

  QPushButton* printer = pushButton("Stampante...", "PulStampe");
  connect(printer, &QPushButton::clicked, this, [this] { hooks_.printerSetup(this); });
  QPushButton* close = pushButton("Esci", "Esc");
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(printer);
  bottom->addStretch(1);
  bottom->addWidget(close);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(box);
  layout->addSpacing(12);
  layout->addLayout(bottom);
  setMinimumWidth(360);
}

PrintArchivesWindow::~PrintArchivesWindow() = default;

}  // namespace contavia::ui
