// The print windows used as a user uses them, opened from their menu entry or tool button:
// "Stampa Archivi", "Totale Movimenti", "Totale conti" and the print of the movement window. The
// print preview is replaced by a recorder that keeps each report it is handed (title, lines and
// pages are checked); one test opens the real preview and saves the PDF from its tool bar.

#include <QLabel>
#include <QListView>
#include <QPrintPreviewWidget>
#include <QToolButton>

#include "printing/report_page.h"
#include "tests/support/archive_bytes.h"
#include "tests/ui/frame_fixture.h"
#include "tests/ui/user_actions.h"
#include "ui/movement_window.h"
#include "ui/report_painter.h"
#include "ui/widget_helpers.h"

using namespace contavia;
using namespace contavia::test;

namespace {

// What a report prints: its title, its date block and its body lines with their blanks folded,
// and the pages it is drawn on.
struct Printed {
  QString title;
  QString dates;
  QStringList lines;
  std::size_t pages = 0;
};

QStringList simplified(QStringList rows) {
  for (QString& row : rows) {
    row = row.simplified();
  }
  return rows;
}

Printed printed(const Report& r) {
  Printed p{
      QString::fromStdString(r.layout.header.title).trimmed(), {}, {}, ui::paintedPages(r).size()};
  for (const std::string& line : r.layout.header.dateBlock) {
    p.dates += QString::fromStdString(line).simplified() + " ";
  }
  for (const std::string& line : r.lines) {
    p.lines << QString::fromStdString(line).simplified();
  }
  return p;
}

// The movements a query row lists: date, number and account.
QStringList queried(const QStringList& rows) {
  QStringList out;
  for (const QString& row : rows.filter(QRegularExpression("^.{7}\\d\\d/"))) {
    out << row.mid(7, 15) + " " + row.section(' ', -1);
  }
  return out;
}

// The values the chart window shows as the pointer crosses its chart from left to right, each
// once.
QStringList pointedAcross(QWidget* chartWindow) {
  auto* view = child<QWidget>(chartWindow, "AreaGrafico");
  auto* value = child<QLabel>(chartWindow, "ValoreSottoPuntatore");
  QStringList seen;
  for (int x = 0; x < view->width(); x += 4) {
    QTest::mouseMove(view, QPoint(x, view->height() / 2));
    if (seen.isEmpty() || seen.last() != value->text()) {
      seen << value->text();
    }
  }
  return seen;
}

void press(QWidget* window, const QString& button) {
  click(child<QAbstractButton>(window, button));
}

}  // namespace

class PrintWindowsTest : public QObject {
  Q_OBJECT

 private:
  // Two groups, two categories, a bank account with a credit line and a cash account, each with a
  // movement outside the year; `extraCausali` more causali. The print preview and the printer
  // dialog are recorded.
  struct Fixture : FrameFixture {
    std::function<void(QWidget*, const Report&)> realPreview;
    std::vector<Report> previewed;
    int printerDialogs = 0;

    explicit Fixture(int extraCausali = 0) {
      writeTable(temp, "Gruppi.con", "RecGruppi.con",
                 {groupRecord(1, "BAN", "Banche"), groupRecord(2, "LIQ", "Liquidit\xE0")});
      writeTable(temp, "Tipo.con", "RecTipo.con",
                 {categoryRecord(1, "CC", "Conti correnti", "Banche"),
                  categoryRecord(2, "CON", "Contanti", "Liquidit\xE0")});
      std::vector<Bytes> causali = {causaleRecord(1, "ST", "Stipendio", "A"),
                                    causaleRecord(2, "AF", "Affitto", "D"),
                                    causaleRecord(3, "SP", "Spesa", "D")};
      for (int i = 4; i < 4 + extraCausali; ++i) {
        causali.push_back(causaleRecord(i, "X" + std::to_string(i), "Varie", "D"));
      }
      writeTable(temp, "Causali.CAP", "RecCausa.CAP", causali);
      writeTable(temp, "CONTI.CON", "RecConti.CON",
                 {accountRecord({1, "100", "Conti correnti", "Banca Societ\xE0", "", "", "", "",
                                 "500", "Banche"}),
                  accountRecord({2, "200", "Contanti", "Cassa Per\xF9", "", "", "", "", "",
                                 "Liquidit\xE0"})});
      writeMovements(temp, "100",
                     {{.date = "01/11/2026", .causale = "ST", .amount = 1000, .sign = "A"},
                      {.date = "05/11/2026", .causale = "AF", .amount = 300},
                      {.date = "10/11/2026", .causale = "SP", .amount = 50},
                      {.date = "01/12/2026", .causale = "AF", .amount = 100}});
      writeMovements(temp, "200",
                     {{.date = "03/11/2026", .causale = "SP", .amount = 20},
                      {.date = "15/01/2025", .causale = "ST", .amount = 10, .sign = "A"}});
      startProgram("", [this](ui::MainWindow& f) {
        realPreview = f.preview;
        f.preview = [this](QWidget*, const Report& r) { previewed.push_back(r); };
        f.printerSetup = [this](QWidget*) { ++printerDialogs; };
        f.chooseCsvFile = [this](QWidget*, const QString&) {
          return QString::fromStdString(temp.file("esportato"));  // ".csv" added
        };
      });
    }
    // The rows of the last table exported, its byte-order mark dropped.
    QStringList exported() const {
      const Bytes bytes = temp.read("esportato.csv");
      return QString::fromUtf8(reinterpret_cast<const char*>(bytes.data()) + 3,
                               static_cast<qsizetype>(bytes.size()) - 3)
          .split("\r\n", Qt::SkipEmptyParts);
    }
    Printed last() const { return printed(previewed.at(previewed.size() - 1)); }
  };

 private slots:
  void initTestCase() { ui::loadItalianTranslations(*QCoreApplication::instance()); }

  void printArchivesPreviewsEachListingAndSavesThePdf() {
    Fixture f(57);
    const QString pdf = QString::fromStdString(f.temp.path()) + "causali.pdf";
    QStringList chosen = {pdf + "/no", pdf};  // first a file that cannot be written
    QString suggested;
    f.frame->choosePdfFile = [&](QWidget*, const QString& name) {
      suggested = name;
      return chosen.takeFirst();
    };
    inModal([&] { chooseMenu(f.frame.get(), "&File", "Stampa Archivi"); },
            [&](QWidget* form) {
              QCOMPARE(form->windowTitle(), QString("Stampa Archivi"));
              const std::vector<std::tuple<QString, QString, QString, std::size_t>> listings = {
                  {"Command3D5", "Elenco Causali", "ST - Stipendio A", 2},
                  {"conti", "Elenco Conti", "100 Banca Società Banche Conti correnti 500", 1},
                  {"tipi", "Elenco Categorie", "CON - Contanti", 1},
                  {"Gruppi", "Elenco gruppi", "LIQ - Liquidità", 1},
                  {"SSCommand1", "Piano dei conti", "200 Cassa Perù", 1}};
              for (const auto& [button, title, line, pages] : listings) {
                press(form, button);
                QCOMPARE(f.last().title, title);
                QVERIFY2(f.last().lines.contains(line), qPrintable(button));
                QCOMPARE(f.last().pages, pages);
              }
              press(form, "PulStampe");
              QCOMPARE(f.printerDialogs, 1);
              // The real preview: the pages drawn, Qt's tools in Italian, and "Salva PDF...".
              f.frame->preview = f.realPreview;
              inModal(
                  [&] { press(form, "Command3D5"); },
                  [&](QWidget* preview) {
                    QCOMPARE(preview->windowTitle(), QString("Anteprima di stampa"));
                    QTRY_COMPARE(preview->findChild<QPrintPreviewWidget*>()->pageCount(), 2);
                    auto* tools = preview->findChild<QToolBar*>();
                    QVERIFY(actionNamed(tools, "Stampa")->isEnabled());  // Qt's tools in Italian
                    for (int i = 0; i < 2; ++i) {
                      click(tools->widgetForAction(actionNamed(tools, "Salva PDF...")));
                    }
                    preview->close();
                  });
              press(form, "Esc");
            });
    QCOMPARE(suggested, QString("Elenco Causali.pdf"));
    QFile file(pdf);
    QVERIFY(file.open(QIODevice::ReadOnly) && file.read(5) == "%PDF-");
    QCOMPARE(f.prompter.texts(), std::vector<std::string>{"Impossibile scrivere il file " +
                                                          pdf.toStdString() + "/no."});
    inModal([&] { clickTool(f.frame.get(), " Stampe "); },
            [](QWidget* form) { press(form, "Esc"); });
  }

  void movementQueryListsFiltersAndPrints() {
    Fixture f;
    inModal(
        [&] { clickTool(f.frame.get(), "Totale movimenti"); },
        [&](QWidget* form) {
          auto* from = child<QLineEdit>(form, "dal");
          auto* to = child<QLineEdit>(form, "al");
          auto* list = child<QListView>(form, "lista");
          QCOMPARE(QApplication::focusWidget(), from);
          QCOMPARE(from->displayText() + " " + to->displayText(), QString("01/01/2026 21/11/2026"));
          QVERIFY(!child<QPushButton>(form, "Stampa")->isEnabled());

          // Every account from the first of the year to today, newest first, then the totals.
          press(form, "saldi");
          QCOMPARE(queried(rowsOf(list)),
                   (QStringList{"10/11/2026 0003 100", "05/11/2026 0002 100", "03/11/2026 0001 200",
                                "01/11/2026 0001 100"}));
          QCOMPARE(
              simplified(rowsOf(list).mid(5)).replaceInStrings(QRegularExpression("^\\d+ "), ""),
              (QStringList{"Totali 370,00 1.000,00", QString(94, '-'), "Saldo 630,00",
                           "Nr. Movimenti: 4"}));
          checkFixedPitch(list);
          // The heading's "Data" stands over the dates, which follow the 7-character key.
          auto* heading = child<QLabel>(form, "Intestazione");
          checkFixedPitch(heading);
          const int pitch = QFontMetrics(list->font()).horizontalAdvance(' ');
          const int row = inkStart(list->viewport(), list->visualRect(list->model()->index(0, 0)));
          QVERIFY(qAbs(inkStart(heading, heading->rect()) - (row + 11 * pitch)) <= 1);

          // Dates typed: both ends are included; `dal` after `al` lists nothing.
          for (const auto& [dal, al, movements] : std::vector<std::tuple<QString, QString, int>>{
                   {"05112026", "10112026", 2}, {"22112026", "21112026", 0}}) {
            retype(from, dal);
            retype(to, al);
            press(form, "saldi");
            QCOMPARE(queried(rowsOf(list)).size(), movements);
            QCOMPARE(rowsOf(list).last().mid(7), QString(" Nr. Movimenti: %1").arg(movements));
          }
          // An empty date stops the query with its message and gets the focus.
          const QStringList before = rowsOf(list);
          for (QLineEdit* field : {from, to}) {
            retype(field, "");
            press(form, "saldi");
            QCOMPARE(f.prompter.messages.back(), errorBox("Campo data operazione obbligatorio"));
            QCOMPARE(QApplication::focusWidget(), field);
            QCOMPARE(rowsOf(list), before);
            retype(field, field == from ? "01012026" : "21112026");
          }

          // Filters chosen in the popups: category, group, causale.
          const std::vector<std::tuple<QString, QString, QString, QStringList>> filters = {
              {"Contanti", " Tutte", " Tutte", {"03/11/2026 0001 200"}},
              {"Conti correnti", "Liquidità", " Tutte", {}},
              {" Tutte", "Banche", "Affitto", {"05/11/2026 0002 100"}}};
          for (const auto& [category, group, causale, movements] : filters) {
            pick(child<QComboBox>(form, "Combo3"), category);
            pick(child<QComboBox>(form, "Combo1"), group);
            pick(child<QComboBox>(form, "Combo2"), causale);
            press(form, "saldi");
            QCOMPARE(queried(rowsOf(list)), movements);
          }
          // A change of category reads the groups again and keeps the group chosen.
          writeTable(f.temp, "Gruppi.con", "RecGruppi.con",
                     {groupRecord(1, "BAN", "Banche"), groupRecord(2, "NUO", "Nuovo")});
          pick(child<QComboBox>(form, "Combo3"), "Contanti");
          QCOMPARE(rowsOf(child<QComboBox>(form, "Combo1")->view()).last(), QString("Nuovo"));
          QCOMPARE(child<QComboBox>(form, "Combo1")->currentText(), QString("Banche"));
          // Printed: the list shown and the filters that made it, not those changed since.
          press(form, "Stampa");
          QCOMPARE(f.last().title, QString("Elenco Movimenti"));
          QVERIFY2(f.last().dates.contains("dal 01/01/2026 al 21/11/2026 Gruppi: Banche Categoria: "
                                           "Tutte Causali: Affitto"),
                   qPrintable(f.last().dates));
          QCOMPARE(f.last().lines,
                   simplified(rowsOf(list).replaceInStrings(QRegularExpression("^.{7}"), "")));
          QCOMPARE(f.last().pages, std::size_t{1});
          // Exported: the same movements, field by field.
          press(form, "Esporta");
          QCOMPARE(f.exported(), (QStringList{"Data;Numero;Conto;Causale;Descrizione;Dare;Avere",
                                              "05/11/2026;2;100;Affitto;;300,00;"}));
        });
    QVERIFY(QApplication::overrideCursor() == nullptr);
    inModal(
        [&] { chooseMenu(f.frame.get(), "&File", "Totale Movimenti"); },
        [&](QWidget* form) { QCOMPARE(rowsOf(child<QListView>(form, "lista")), QStringList()); });
  }

  void summariesSwitchViewsAndPrintTheViewShown() {
    Fixture f;
    inModal(
        [&] { chooseMenu(f.frame.get(), "&File", "Totale conti"); },
        [&](QWidget* form) {
          QCOMPARE(child<QLabel>(form, "Data")->text(), QString("21-11-2026"));
          QVERIFY(!child<QToolButton>(form, "Valuta")->icon().isNull());
          auto* list = child<QListView>(form, "List1");
          auto* total = child<QLabel>(form, "Totali");
          checkFixedPitch(list);
          checkFixedPitch(total);
          // Each view after its button: its rows (the first one printed as shown in the last
          // column), the total, the view buttons enabled, the report printed.
          const QStringList buttons = {"Dettagli", "TotCategorie", "Gruppi"};
          const std::vector<std::tuple<QString, QStringList, QString, QString>> views = {
              {"TotCategorie",
               {"Conti correnti 550,00", "Contanti -10,00"},
               "Riepilogo per Categorie",
               "Conti correnti 550,00"},
              {"Gruppi",
               {"Banche 550,00", "Liquidità -10,00"},
               "Riepilogo per Gruppi",
               "Banche 550,00"},
              {"Dettagli",
               {"100 Banca Società 550,00 500,00 1.050,00", "200 Cassa Perù -10,00 0,00 -10,00"},
               "Riepilogo Conti",
               "100 Banca Società 550,00 500, 1.050,"}};
          for (const auto& [button, rows, title, line] : views) {
            press(form, button);
            QCOMPARE(simplified(rowsOf(list)), rows);
            QCOMPARE(total->text().simplified(), QString("Totali 540,00"));
            for (const QString& b : buttons) {
              QCOMPARE(child<QPushButton>(form, b)->isEnabled(), b != button);
            }
            press(form, "PulStampe");
            QCOMPARE(f.last().title, title);
            QVERIFY2(f.last().lines.contains(line), qPrintable(f.last().lines.join('\n')));
            QCOMPARE(f.last().pages, std::size_t{1});
          }
          // "Grafico": the view shown as bars, its values read under the pointer.
          inModal([&] { press(form, "Grafico"); },
                  [&](QWidget* chart) {
                    QCOMPARE(chart->windowTitle(), QString("Saldi dei conti"));
                    const QStringList seen = pointedAcross(chart);
                    QCOMPARE(seen, (QStringList{"100: 550,00", "200: -10,00"}));
                  });
          // A category chosen in the filter shows its accounts, from any view.
          press(form, "Gruppi");
          pick(child<QComboBox>(form, "Combo1"), "Contanti");
          QCOMPARE(simplified(rowsOf(list)), QStringList{"200 Cassa Perù -10,00 0,00 -10,00"});
          QCOMPARE(total->text().simplified(), QString("Totali -10,00"));
          QVERIFY(!child<QPushButton>(form, "Dettagli")->isEnabled());
          press(form, "PulStampe");
          QVERIFY(f.last().dates.contains("Tipo di Conto: Contanti"));
          QCOMPARE(f.last().lines.size(), 2);  // the account and the totals
          press(form, "Esporta");
          QCOMPARE(f.exported(), (QStringList{"Conto;Nome;Saldo;Fido;Disponibile",
                                              "200;Cassa Perù;-10,00;0,00;-10,00"}));
        });
    QVERIFY(f.prompter.messages.empty() && QApplication::overrideCursor() == nullptr);
  }

  void movementWindowPrintsAndExportsTheListAsShown() {
    Fixture f;
    QAction* entry = f.frame->action("Stampe");
    pick(child<QComboBox>(f.frame.get(), "Combo1"), "100 ");
    QWidget* form9 = f.frame->movementWindow();
    typeDate(child<QDateEdit>(form9, "DataInizSel"), "02112026");
    typeDate(child<QDateEdit>(form9, "Datafinesel"), "30112026");
    press(form9, "Command3");
    // The window's button and the menu entry print the same: the list as shown, its filter.
    press(form9, "PulStampe");
    chooseMenu(f.frame.get(), "&File", "&Stampa Movimenti");
    QCOMPARE(f.previewed.size(), std::size_t{2});
    for (const Report& r : f.previewed) {
      const Printed p = printed(r);
      QCOMPARE(p.title, QString("Elenco Movimenti"));
      QCOMPARE(p.lines, simplified(rowsOf(child<QListView>(form9, "ElencoMovim"))));
      QVERIFY2(p.dates.startsWith("100 Banca Società Stampato il 21/11/2026") &&
                   p.dates.contains("dal 02/11/2026 al 30/11/2026"),
               qPrintable(p.dates));
    }
    // "Grafico": the balance over time, read under the pointer from left to right, the future
    // movement apart; saved as a PDF.
    f.frame->choosePdfFile = [&](QWidget*, const QString&) {
      return QString::fromStdString(f.temp.file("grafico.pdf"));
    };
    inModal([&] { press(form9, "Grafico"); },
            [&](QWidget* chart) {
              QCOMPARE(chart->windowTitle(), QString("Saldo del conto 100"));
              QCOMPARE(
                  pointedAcross(chart),
                  (QStringList{"01/11/2026: 1.000,00", "05/11/2026: 700,00", "10/11/2026: 650,00",
                               "01/12/2026: 550,00 (movimenti futuri)"}));
              press(chart, "SalvaPdf");
              const Bytes pdf = f.temp.read("grafico.pdf");
              QVERIFY(pdf.size() > 1000 && std::string(pdf.begin(), pdf.begin() + 5) == "%PDF-");
            });
    // "Esporta" and "Esporta..." write the same list, as a table: the header and one row a
    // movement shown, in a file the user names (".csv" added when missing).
    QStringList suggested;
    f.frame->chooseCsvFile = [&](QWidget*, const QString& name) {
      suggested << name;
      return QString::fromStdString(f.temp.file(suggested.size() == 1 ? "elenco" : "menu.csv"));
    };
    press(form9, "Esporta");
    chooseMenu(f.frame.get(), "&File", "Esporta...");
    QCOMPARE(suggested, QStringList({"Movimenti 100.csv", "Movimenti 100.csv"}));
    const test::Bytes table = f.temp.read("elenco.csv");
    QCOMPARE(table, f.temp.read("menu.csv"));
    const QStringList rows = QString::fromUtf8(reinterpret_cast<const char*>(table.data()),
                                               static_cast<qsizetype>(table.size()))
                                 .split("\r\n", Qt::SkipEmptyParts);
    QCOMPARE(rows, (QStringList{"\uFEFFData;Numero;Causale;Descrizione causale;Documento;"
                                "Descrizione;Dare;Avere;Saldo",
                                "10/11/2026;3;SP;Spesa;;;50,00;;650,00",
                                "05/11/2026;2;AF;Affitto;;;300,00;;700,00"}));
    // Without the movement window there is nothing to print. Its "Esci" leaves the account:
    // the selector and the panel are empty, as after "Chiudi".
    press(form9, "Command3D8");
    QTRY_VERIFY(!entry->isEnabled());
    QCOMPARE(child<QComboBox>(f.frame.get(), "Combo1")->currentText(), QString());
    QCOMPARE(child<QLabel>(f.frame.get(), "Pannello(2)")->text(), QString());
    pick(child<QComboBox>(f.frame.get(), "Combo1"), "200 ");
    QVERIFY(entry->isEnabled());
    chooseMenu(f.frame.get(), "&File", "Chiudi");
    QVERIFY(!entry->isEnabled());
  }
};

QTEST_MAIN(PrintWindowsTest)
#include "print_windows_test.moc"
