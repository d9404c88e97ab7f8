// The main frame, its account panel and the movement window, used as a user uses them; after each
// command the test reads what the user reads (the account panel, the status bar, the list).

#include "ui/main_window.h"

#include <QCalendarWidget>
#include <QFileIconProvider>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>

#include "tests/support/archive_bytes.h"
#include "tests/ui/frame_fixture.h"
#include "tests/ui/user_actions.h"
#include "ui/account_panel.h"
#include "ui/movement_window.h"
#include "ui/widget_helpers.h"

using namespace contavia;
using namespace contavia::test;

namespace {

Bytes account(int number, const char* code, const char* name) {
  return accountRecord({number, code, "", name});
}

// A bank account with a credit line and movements (the last one dated after today) and a post
// office account without movements.
const std::vector<Bytes> kAccounts = {
    accountRecord({1, "100", "Banche", "Banca Societ\xE0", "Via Roma 1", "20100", "Milano", "MI",
                   "500", "Liquidit\xE0"}),
    accountRecord({2, "200", "Posta", "Posta"})};

// The entries as the user sees them: "[...]" is greyed out, "-" a separator.
QStringList seen(const QList<QAction*>& actions) {
  QStringList out;
  for (QAction* a : actions) {
    if (a->isVisible()) {
      const QString text = a->isSeparator() ? "-" : a->text();
      out << (a->isEnabled() ? text : "[" + text + "]");
    }
  }
  return out;
}

}  // namespace

class MainWindowTest : public QObject {
  Q_OBJECT

 private:
  struct Fixture : FrameFixture {
    // The archive in the temporary folder, or `sub` in it (not there yet).
    explicit Fixture(const std::vector<Bytes>& accounts = kAccounts, const std::string& sub = "") {
      writeTable(temp, "CONTI.CON", "RecConti.CON", accounts);
      writeTable(
          temp, "Causali.CAP", "RecCausa.CAP",
          {causaleRecord(1, "ST", "Stipendio", "A"), causaleRecord(2, "AF", "Affitto", "D")});
      writeMovements(temp, "100",
                     {{.date = "01/11/2026", .causale = "ST", .amount = 1000, .sign = "A"},
                      {.date = "05/11/2026", .causale = "AF", .amount = 300},
                      {.date = "10/11/2026", .causale = "AF", .amount = 50},
                      {.date = "01/12/2026", .causale = "AF", .amount = 100}});
      startProgram(sub);
    }
    QComboBox* selector() const { return child<QComboBox>(frame.get(), "Combo1"); }
    QLabel* label(const QString& name) const { return child<QLabel>(frame.get(), name); }
    QWidget* form9() const { return frame->movementWindow(); }
    void choose(const QString& code) { pick(selector(), code + " "); }
    void menu(const QString& title, const QString& item) { chooseMenu(frame.get(), title, item); }
    void tool(const QString& caption) { clickTool(frame.get(), caption); }
    QStringList texts(const QStringList& labels) const {
      QStringList out;
      for (const QString& name : labels) {
        out << label(name)->text();
      }
      return out;
    }
    // The account panel: the data of the account, `UltimaData`, then `Saldi(0)`..`Saldi(3)`.
    QStringList panel() const {
      return texts({"NomeContoAttivo", "IndirizzoContoAttivo", "LocalitaContoAttivo", "GruppoConto",
                    "TipoConto", "UltimaData", "Saldi(0)", "Saldi(1)", "Saldi(2)", "Saldi(3)"});
    }
    QStringList figures() const { return panel().mid(5); }
    QStringList status() const {
      return texts({"Pannello(1)", "Pannello(2)", "Pannello(3)", "Pannello(4)", "Pannello(5)"});
    }
    QString folder() const { return QString::fromStdString(temp.path()); }
    QListView* list() const { return child<QListView>(form9(), "ElencoMovim"); }
    QStringList lines() const { return rowsOf(list()); }
    QString count() const { return lines().last(); }  // " Nr. Movimenti: N"
    // The date and number of each movement listed.
    QStringList movements() const {
      return lines()
          .filter(QRegularExpression("^\\d\\d/"))
          .replaceInStrings(QRegularExpression("^(.{15}).*"), "\\1");
    }
    QString field(const char* name) const {
      return child<QWidget>(form9(), name)->property("text").toString();
    }
    void press(const char* button) const { click(child<QPushButton>(form9(), button)); }
    bool canDelete() const { return child<QPushButton>(form9(), "del")->isEnabled(); }
  };

 private slots:
  void initTestCase() { ui::loadItalianTranslations(*QCoreApplication::instance()); }

  void menusAndToolsAsTheUserSeesThemAndExit() {
    Fixture f;
    // The titles of the menu bar, then each menu as a click on its title opens it.
    QMenuBar* bar = f.frame->menuBar();
    QCOMPARE(seen(bar->actions()),
             (QStringList{"&File", "Archivi", "&Manutenzione", "[Utility]", "Finestra", "?"}));
    const std::vector<QStringList> menus = {
        {"Percorso archivi", "Chiudi", "[Preferenze]", "Imposta Stampante", "Stampa Archivi",
         "[&Stampa Movimenti]", "Totale Movimenti", "Totale conti", "[Esporta...]", "-", "Esci"},
        {"Gestione Causali", "Gestione gruppi", "Gestione Categorie", "&Gestione Conto"},
        {"[Chiusura periodica]", "[Riordina archivio]", "[Ripristina chiusura preccedente]",
         "Esegui copie di sicurezza", "Ripristina copie", "-", "[Cancella movimenti]"},
        {"Sovrapponi", "Affianca orizzontalmente", "Affianca verticalmente", "Disponi icone"}};
    std::size_t m = 0;
    for (QAction* title : bar->actions()) {
      if (title->menu() == nullptr) {
        continue;  // "?" opens the guide (its own test)
      }
      QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(title).center());
      if (title->isEnabled()) {
        QTRY_COMPARE(QApplication::activePopupWidget(), title->menu());
        QCOMPARE(seen(title->menu()->actions()), menus.at(m++));
        QTest::keyClick(title->menu(), Qt::Key_Escape);
        QTest::keyClick(bar, Qt::Key_Escape);
      }
      QVERIFY(QApplication::activePopupWidget() == nullptr);
    }
    QCOMPARE(m, menus.size());
    // The access keys open their menus.
    for (const auto& [key, title] : {std::pair{Qt::Key_F, "&File"}, {Qt::Key_M, "&Manutenzione"}}) {
      QTest::keyClick(f.frame.get(), key, Qt::AltModifier);
      QTRY_COMPARE(QApplication::activePopupWidget(), actionNamed(bar, title)->menu());
      QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
      QTest::keyClick(bar, Qt::Key_Escape);
    }
    auto* tools = child<QToolBar>(f.frame.get(), "ToolBar");
    QCOMPARE(seen(tools->actions()),
             (QStringList{" Causali ", " Stampe ", "gruppi", "categorie", "Totale movimenti",
                          "conti", "percorso", "Esci"}));
    QCOMPARE(actionNamed(tools, "percorso")->toolTip(), QString("cambia percorso archivi"));

    // "Esci" asks first: Cancel keeps the frame, OK closes it.
    f.prompter.answer({Answer::Cancel});
    f.menu("&File", "Esci");
    QVERIFY(f.frame->isVisible());
    QCOMPARE(f.prompter.messages.back(),
             (Message{"AVVERTIMENTO!", "Sei Sicuro di Voler Uscire?", Buttons::OkCancel,
                      Icon::Exclamation, Answer::Cancel}));
    f.prompter.answer({Answer::Ok});
    f.tool("Esci");
    QVERIFY(!f.frame->isVisible());
  }

  void anEmptyFolderShowsAnEmptyPanel() {
    Fixture f({}, "dati");
    QVERIFY(f.temp.exists("dati/RecConti.CON"));
    QCOMPARE(f.selector()->count(), 0);
    click(f.label("Label1(23)"));
    QCOMPARE(f.selector()->count(), 0);
    QCOMPARE(f.label("DataOdierna")->text(), QString("21/11/2026"));
    QVERIFY(f.prompter.messages.empty());
    // Clicks on the bare panel and on the figures beep, those on the captions do not.
    QTest::mouseClick(f.frame->panel(), Qt::LeftButton, {}, QPoint(5, 400));
    click(f.label("Saldi(2)"));
    QCOMPARE(f.prompter.beeps, 2);
    click(f.label("Label7"));
    QCOMPARE(f.prompter.beeps, 2);
  }

  void letterIndexFollowsTheFirstLetterOfTheName() {
    Fixture f({account(1, "1", "Alfa banca"), account(2, "2", "Kappa banca"),
               account(3, "3", "Yogurt spa"), account(4, "4", "alfa minuscola"),
               account(5, "5", "Xilofono"), account(6, "1234567890", "Jolly")});
    auto items = [&] {  // the codes
      return rowsOf(f.selector()->view()).replaceInStrings(QRegularExpression(" .*"), "");
    };
    QCOMPARE(items(), (QStringList{"1", "2", "3", "4", "5", "1234567890"}));
    // A screen reader reads what the user sees, not the control name.
    QCOMPARE(readAloud(child<QWidget>(f.frame.get(), "Label1(0)")), QString("A"));
    QCOMPARE(readAloud(child<QWidget>(f.frame.get(), "Label2")), QString("Saldo oggi:"));
    for (const auto& [label, shown] : std::vector<std::pair<int, QStringList>>{
             {9, {"2", "1234567890"}}, {21, {"3"}}, {0, {"1"}}}) {  // J, W, A
      click(f.label(QString("Label1(%1)").arg(label)));
      QCOMPARE(items(), shown);
    }
    const QPalette a = f.label("Label1(0)")->palette();
    QCOMPARE(a.color(QPalette::Window), QColor(0, 0, 0x80));
    QCOMPARE(a.color(QPalette::WindowText), QColor(0xFF, 0xFF, 0));
    QCOMPARE(f.label("Label1(1)")->palette().color(QPalette::Window), QColor(0xFF, 0xFF, 0xFF));
    click(f.label("Label1(23)"));
    // Items: the code padded to 10, a blank, the name in its 45 characters.
    QCOMPARE(f.selector()->itemText(0), QString("1          Alfa banca") + QString(35, ' '));
    QCOMPARE(f.selector()->itemText(5).left(12), QString("1234567890 J"));
    checkFixedPitch(f.selector());
    checkFixedPitch(f.selector()->view());
  }

  void choosingAnAccountShowsItsPanelAndMovements() {
    Fixture f;
    QCOMPARE(f.status(), (QStringList{"", "", f.folder(), "", ""}));
    const int valuesAt = child<QLabel>(f.frame.get(), "GruppoConto")->x();
    f.choose("100");
    QCOMPARE(f.form9()->windowTitle(), QString("Immissione / Modifica Movimenti"));
    QCOMPARE(child<QLabel>(f.frame.get(), "GruppoConto")->x(), valuesAt);  // the values stay put
    QCOMPARE(f.panel(),
             (QStringList{"100  Banca Società", "Via Roma 1", "20100 Milano (MI)", "Liquidità",
                          "Banche", "01/12/2026", "650,00", "550,00", "500,00", "1.150,00"}));
    QCOMPARE(f.status(), (QStringList{"650,00", "100", f.folder(), "550,00", "1.150,00"}));
    // Each panel has its caption in sight and is read aloud with it.
    QCOMPARE(f.label("DidascaliaPannello(5)")->text(), QString("Disponibile:"));
    QCOMPARE(readAloud(f.label("Pannello(1)")), QString("Saldo oggi: 650,00"));
    QCOMPARE(f.movements(), (QStringList{"01/12/2026 0004", "10/11/2026 0003", "05/11/2026 0002",
                                         "01/11/2026 0001"}));
    QVERIFY(f.lines().at(3).contains("1.000,00 Stipendio"));
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 4"));
    checkFixedPitch(f.list());
    checkFixedPitch(child<QLabel>(f.form9(), "Intestazione"));
    checkHeadingOver(child<QLabel>(f.form9(), "Intestazione"), f.list());

    // The window fills the frame beside the panel; minimised it stays an icon, which tiling
    // leaves alone and "Disponi icone" puts along the bottom edge.
    QMdiArea* area = f.frame->mdiArea();
    QMdiSubWindow* sub = area->subWindowList().front();
    f.frame->resize(1300, 900);
    QCOMPARE(sub->geometry(), QRect(QPoint(0, 0), area->viewport()->size()));
    sub->showMinimized();
    const QSize icon = sub->size();
    f.frame->resize(1000, 700);
    QCOMPARE(sub->size(), icon);
    f.menu("Finestra", "Affianca verticalmente");
    QVERIFY(sub->isMinimized());
    QCOMPARE(sub->size(), icon);
    f.menu("Finestra", "Disponi icone");
    QCOMPARE(sub->geometry().bottom(), area->viewport()->height() - 1);
    QCOMPARE(sub->geometry().left(), 0);

    // Another account replaces the first one.
    f.choose("200");
    QCOMPARE(area->subWindowList().size(), 1);
    QCOMPARE(area->subWindowList().front()->geometry(),
             QRect(QPoint(0, 0), area->viewport()->size()));
    QCOMPARE(f.panel(),
             (QStringList{"200  Posta", "", "", "", "Posta", "", ",00", ",00", ",00", ",00"}));
    QCOMPARE(f.status(), (QStringList{"0,00", "200", f.folder(), "0,00", "0,00"}));
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 0"));

    f.menu("&File", "Chiudi");
    QVERIFY(f.form9() == nullptr);
    QCOMPARE(f.panel(), QStringList(10, QString()));
    QCOMPARE(f.status(), (QStringList{"", "", f.folder(), "", ""}));
    QCOMPARE(f.selector()->currentText(), QString());
  }

  void keyboardEntryRecordsAMovement() {
    Fixture f;
    f.choose("200");
    QWidget* w = f.form9();
    typeDate(child<QDateEdit>(w, "dataoper"), "20");  // the day only: Enter leaves the date
    // Each run of keys, then the control that has the focus and what a field shows.
    const std::vector<std::tuple<QString, QString, const char*, QString>> steps = {
        {"\r", "Causale", "nroper", "1"},
        {"ZZ\r", "Causale", "Causale", "ZZ"},  // an unknown code is refused, and keeps the focus
        {"\b\bST\r", "IMPORTO", "DescrCausale", "Stipendio"},
        {"1234.5x,", "IMPORTO", "IMPORTO", "1234,5"},  // "x" and a second comma beep
        {"\r", "NrDoc", "D_A", "Avere"},
        {"12345678", "DescMovim", "NrDoc", "12345678"},  // eight characters move on
        {"Novembre\r", "ok", "DescMovim", "Novembre"},
        {"\r", "dataoper", "nroper", "2"}};
    for (const auto& [keys, focus, name, shown] : steps) {
      QTest::keyClicks(QApplication::focusWidget(), keys);
      QCOMPARE(QApplication::focusWidget()->objectName(), focus);
      QCOMPARE(f.field(name), shown);
    }
    QCOMPARE(f.prompter.messages, std::vector{errorBox("CODICE CAUSALE NON PRESENTE!")});
    QCOMPARE(f.prompter.beeps, 2);
    QCOMPARE(f.temp.read("200.MOR"), (Bytes{1, 0}));
    QCOMPARE(f.movements(), QStringList{"20/11/2026 0001"});
    QCOMPARE(f.figures(), (QStringList{"20/11/2026", "1.234,50", "1.234,50", ",00", "1.234,50"}));
    QCOMPARE(f.status(), (QStringList{"1.234,50", "200", f.folder(), "1.234,50", "1.234,50"}));
    QCOMPARE(f.field("IMPORTO"), QString());
    QVERIFY(!f.canDelete());

    // The causale picker fills the row with the causale clicked.
    inModal([&] { f.press("command3d1"); },
            [&](QWidget* picker) {
              QCOMPARE(picker->objectName(), QString("FORM12"));
              auto* list = child<QListWidget>(picker, "List1");
              QCOMPARE(rowsOf(list), (QStringList{"ST    - Stipendio                ",
                                                  "AF    - Affitto                  "}));
              checkFixedPitch(list);
              clickRow(list, 1);
              click(child<QPushButton>(picker, "ok"));
            });
    QCOMPARE(f.field("Causale") + " " + f.field("DescrCausale") + " " + f.field("D_A"),
             QString("AF Affitto Dare"));
    QCOMPARE(f.frame->focusWidget(), child<QLineEdit>(w, "IMPORTO"));  // once active again
  }

  void tabAndShiftTabLeaveEveryField() {
    Fixture f;
    f.choose("100");
    QWidget* w = f.form9();
    // The window opens on the date of a new movement; Tab goes through the row as it is shown,
    // and from the last button round to the date again.
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("dataoper"));
    for (const char* next :
         {"Causale", "command3d1", "IMPORTO", "NrDoc", "DescMovim", "ok", "pulisci", "PulStampe",
          "Esporta", "Grafico", "Command3D8", "dataoper"}) {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget()->objectName(), QString(next));
    }
    // Tab and Shift+Tab are no characters: the fields with key rules let them move on, as every
    // other field does, and nothing beeps.
    const std::vector<std::tuple<const char*, const char*, const char*>> moves = {
        {"IMPORTO", "NrDoc", "IMPORTO"},
        {"DataInizSel", "Datafinesel", "DataInizSel"},
        {"Datafinesel", "Combo1", "Datafinesel"}};
    for (const auto& [from, next, back] : moves) {
      click(child<QWidget>(w, from));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      QCOMPARE(QApplication::focusWidget()->objectName(), QString(next));
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
      QCOMPARE(QApplication::focusWidget()->objectName(), QString(back));
    }
    QCOMPARE(f.prompter.beeps, 0);
    // A date reached with Tab is typed over whole, day first.
    click(child<QWidget>(w, "DataInizSel"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), "12112025");
    QCOMPARE(child<QDateEdit>(w, "Datafinesel")->text(), QString("12/11/2025"));
    // Its calendar speaks Italian.
    const QCalendarWidget* calendar = child<QDateEdit>(w, "Datafinesel")->calendarWidget();
    QCOMPARE(calendar->locale().monthName(11), QString("novembre"));
    QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
    // So does the folder browser, in the column that names each entry's kind.
    QCOMPARE(QFileIconProvider().type(QFileInfo(f.folder())), QString("Cartella"));
  }

  void textTypedOnConfermaGoesOnInTheDescription() {
    Fixture f;
    f.choose("200");
    for (const char* keys : {"\r", "AF\r", "12\r", "12345678"}) {
      QTest::keyClicks(QApplication::focusWidget(), keys);
    }
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("DescMovim"));
    // Enter, as if still in the document number: "Conferma" has the focus, and what is typed
    // next, its space included, goes on in the description instead of saving.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("ok"));
    QTest::keyClicks(QApplication::focusWidget(), "Affitto casa");
    QCOMPARE(f.field("DescMovim"), QString("Affitto casa"));
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 0"));
    // Enter in the description, then on "Conferma": saved whole.
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 1"));
    QVERIFY(f.lines().first().contains("Affitto-12345678-Affitto casa"));
  }

  void atItsSmallestTheFrameStillHoldsTheMovementWindow() {
    Fixture f;
    f.choose("100");
    for (const QSize size : {QSize(800, 560), QSize(600, 400)}) {
      f.frame->resize(size);
      QWidget* sub = f.form9()->parentWidget();
      QTRY_VERIFY(f.frame->mdiArea()->viewport()->rect().contains(sub->geometry()));
      QVERIFY(sub->width() >= sub->minimumSizeHint().width() &&
              sub->height() >= sub->minimumSizeHint().height());
      // The status bar's captions and values stay side by side.
      QWidget* previous = nullptr;
      for (const char* name :
           {"DidascaliaPannello(1)", "Pannello(1)", "DidascaliaPannello(2)", "Pannello(2)",
            "DidascaliaPannello(3)", "Pannello(3)", "DidascaliaPannello(4)", "Pannello(4)",
            "DidascaliaPannello(5)", "Pannello(5)"}) {
        QWidget* next = f.label(name);
        QVERIFY(previous == nullptr || previous->geometry().right() < next->geometry().left());
        previous = next;
      }
    }
    // Made smaller still (a desktop without a window manager ignores the minimum), then grown
    // again, it fills the frame to the edge: no room is left for the scroll bars gone.
    f.frame->setMinimumSize(0, 0);
    f.frame->resize(500, 350);
    QApplication::processEvents();
    f.frame->resize(1400, 1000);
    QMdiArea* area = f.frame->mdiArea();
    QTRY_COMPARE(f.form9()->parentWidget()->geometry(),
                 QRect(QPoint(0, 0), area->contentsRect().size()));
  }

  void selectChangeAbandonAndDeleteKeepTheBalancesInStep() {
    Fixture f;
    f.choose("100");
    const QStringList before = f.figures();
    // Selecting and abandoning leave the panels as they were.
    clickRow(f.list(), "05/11/2026 0002");
    QCOMPARE(f.field("nroper") + " " + f.field("IMPORTO"), QString("2 300,00"));
    QVERIFY(f.canDelete());
    QCOMPARE(f.list()->selectionModel()->selectedIndexes().size(), 1);
    f.press("pulisci");
    QCOMPARE(f.field("IMPORTO"), QString());
    QCOMPARE(f.figures(), before);
    QVERIFY(f.list()->selectionModel()->selectedIndexes().isEmpty());
    // A separator or a totals line cannot be highlighted.
    for (const QString& line : {QString("  ---"), QString(" Totali")}) {
      clickRow(f.list(), line);
      QVERIFY(f.list()->selectionModel()->selectedIndexes().isEmpty());
    }
    // Change: the amount typed replaces the stored one, the panels follow the recompute.
    clickRow(f.list(), "05/11/2026 0002");
    retype(child<QLineEdit>(f.form9(), "IMPORTO"), "250");
    f.press("ok");
    QCOMPARE(f.figures(), (QStringList{"01/12/2026", "700,00", "600,00", "500,00", "1.200,00"}));
    QCOMPARE(f.status(), (QStringList{"700,00", "100", f.folder(), "600,00", "1.200,00"}));
    const Bytes stored = f.temp.read("100.MOC");
    QCOMPARE(stored.size(), std::size_t{4 * 87});
    QVERIFY(Bytes(stored.begin() + 87 + 17, stored.begin() + 87 + 25) == f64(250.0));
    QCOMPARE(f.lines().filter(QRegularExpression("^05/11/2026 0002 +250,00 ")).size(), 1);
    QVERIFY(!f.canDelete());
    // Delete with Cancel changes nothing; with OK the later movements are renumbered and the
    // panels keep the balances the selection left (the movement taken out by the rule of the
    // single-movement update).
    clickRow(f.list(), "05/11/2026 0002");
    f.prompter.answer({Answer::Cancel});
    f.press("del");
    QCOMPARE(f.temp.read("100.MOR"), (Bytes{4, 0}));
    f.prompter.answer({Answer::Ok});
    f.press("del");
    QCOMPARE(f.temp.read("100.MOR"), (Bytes{3, 0}));
    QCOMPARE(f.movements(), (QStringList{"01/12/2026 0003", "10/11/2026 0002", "01/11/2026 0001"}));
    QCOMPARE(f.figures(), (QStringList{"01/12/2026", "450,00", "350,00", "500,00", "950,00"}));
    QCOMPARE(f.status(), (QStringList{"450,00", "100", f.folder(), "350,00", "950,00"}));
    QVERIFY(!f.canDelete());
  }

  void theFilterHoldsUntilTheCausaliChange() {
    Fixture f;
    f.choose("100");
    QWidget* w = f.form9();
    typeDate(child<QDateEdit>(w, "DataInizSel"), "02112026");
    typeDate(child<QDateEdit>(w, "Datafinesel"), "30112026");
    f.press("Command3");
    QCOMPARE(f.movements(), (QStringList{"10/11/2026 0003", "05/11/2026 0002"}));
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 2"));
    pick(child<QComboBox>(w, "Combo1"), "Stipendio");
    f.press("Command3");
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 0"));
    // A causale renamed in the causali window: the list names it anew, with every movement.
    inModal([&] { f.tool(" Causali "); },
            [](QWidget* causali) {
              clickRow(child<QListWidget>(causali, "ElencoCausali"), 1);
              retype(child<QLineEdit>(causali, "DescCausale"), "Affitto casa");
              click(child<QPushButton>(causali, "ok"));
            });
    QCOMPARE(f.lines().filter("Affitto casa").size(), 3);
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 4"));
    QVERIFY(rowsOf(child<QComboBox>(w, "Combo1")->view()).contains("Affitto casa"));

    // "Cancella movimenti" asks twice and keeps the account.
    f.prompter.answer({Answer::Ok, Answer::Cancel});
    f.menu("&Manutenzione", "Cancella movimenti");
    QCOMPARE(f.temp.read("100.MOR"), (Bytes{4, 0}));
    QCOMPARE(f.prompter.messages.size(), std::size_t{2});
    f.prompter.answer({Answer::Ok, Answer::Ok});
    f.menu("&Manutenzione", "Cancella movimenti");
    QCOMPARE(f.count(), QString(" Nr. Movimenti: 0"));
    QCOMPARE(f.figures(), (QStringList{"", ",00", ",00", "500,00", "500,00"}));
    QCOMPARE(f.status(), (QStringList{"0,00", "100", f.folder(), "0,00", "500,00"}));
    QVERIFY(f.temp.exists("CONTI.CON"));
  }

  void theChosenAccountCannotBeDeletedUntilChiudi() {
    Fixture f;
    f.choose("100");
    // The accounts window opens with the working account closed; deleting the chosen account is
    // refused all the same.
    const auto deleteFirstRow = [&](QWidget* form) {
      QCOMPARE(form->objectName(), QString("Form2"));
      QVERIFY(f.form9() == nullptr);
      QCOMPARE(f.status(), (QStringList{"", "", f.folder(), "", ""}));
      QCOMPARE(f.panel().first(), QString());
      clickRow(child<QListWidget>(form, "listaconti"), 0);
      f.prompter.answer({Answer::Ok});
      click(child<QPushButton>(form, "del"));
    };
    inModal([&] { f.tool("conti"); }, deleteFirstRow);
    QCOMPARE(f.prompter.messages.back(),
             plainBox("attenzione",
                      "Non si può cancellare il conto sul quale si lavora, devi prima chiudere il "
                      "conto"));
    QCOMPARE(rowsOf(f.selector()->view()).size(), 2);
    // The account is open again once the window is closed.
    QVERIFY(f.form9() != nullptr);
    QCOMPARE(f.status()[1], QString("100"));

    f.menu("&File", "Chiudi");
    f.prompter.clear();
    inModal([&] { f.menu("Archivi", "&Gestione Conto"); }, deleteFirstRow);
    QCOMPARE(f.prompter.messages.size(), std::size_t{1});
    QCOMPARE(rowsOf(f.selector()->view()).size(), 1);
    QVERIFY(!f.temp.exists("100.MOC"));
  }

  void changingTheFolderReloadsTheAccounts() {
    Fixture f;
    TempFolder other;
    writeTable(
        other, "CONTI.CON", "RecConti.CON",
        {account(1, "300", "Altra"), account(2, "400", "Terza"), account(3, "500", "Quinta")});
    f.choose("100");
    QString title;
    f.frame->chooseFolder = [&](QWidget*, const QString& t) {
      title = t;
      return QString::fromStdString(other.path()).chopped(1);  // without the separator
    };
    f.menu("&File", "Percorso archivi");
    QCOMPARE(title, QString("archivio di lavoro"));
    QVERIFY(f.form9() == nullptr);
    const QStringList otherStatus{"", "", QString::fromStdString(other.path()), "", ""};
    QCOMPARE(f.status(), otherStatus);
    QCOMPARE(f.panel(), QStringList(10, QString()));
    QCOMPARE(rowsOf(f.selector()->view()).size(), 3);
    // Cancelled, the folder stays; the account was closed first, and the selector says so.
    f.choose("300");
    f.frame->chooseFolder = [](QWidget*, const QString&) { return QString(); };
    f.menu("&File", "Percorso archivi");
    QCOMPARE(f.status(), otherStatus);
    QCOMPARE(f.selector()->currentText(), QString());
  }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
