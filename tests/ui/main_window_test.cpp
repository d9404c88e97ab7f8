// The main frame and the movement window, driven by control name, offscreen.

#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QStringListModel>
#include <QTest>
#include <QTimer>

#include "common/clock.h"
#include "archive/file_layer.h"
#include "archive/records.h"
#include "archive/session.h"
#include "archive/write_journal.h"
#include "ledger/movement_entry.h"
#include "tests/support/scripted_prompter.h"
#include "tests/support/temp_folder.h"
#include "ui/account_panel.h"
#include "ui/causale_picker.h"
#include "ui/movement_window.h"

using namespace contavia;
using contavia::test::ScriptedPrompter;
using contavia::test::TempFolder;

namespace {

Account account(const std::string& code, const std::string& name, const std::string& credit = "") {
  Account a;
  a.accountCode = code;
  a.accountName = name;
  a.creditLine = credit;
  a.categoryName = "Banche";
  a.groupName = "Liquidità";
  return a;
}

Causale causale(const std::string& code, const std::string& description, const std::string& sign) {
  Causale c;
  c.causaleCode = code;
  c.causaleDescription = description;
  c.sign = sign;
  c.causaleFlag = "N";
  return c;
}

// An archive written through the table functions: the windows are under test here, the bytes
// are checked by the core's own tests.
void writeArchive(const std::string& folder, const std::vector<Account>& accounts,
                  const std::vector<Causale>& causali) {
  OsFileLayer files;
  DataDirectory dir(files, folder);
  WriteJournal journal(files);
  journal.records(dir.path("CONTI.CON"), 1, accounts);
  journal.count(dir.path("RecConti.CON"), static_cast<std::int16_t>(accounts.size()));
  journal.records(dir.path("Causali.CAP"), 1, causali);
  journal.count(dir.path("RecCausa.CAP"), static_cast<std::int16_t>(causali.size()));
  journal.finish();
}

QStringList lines(const ui::MainWindow& frame) {
  auto* list = frame.movementWindow()->findChild<QListView*>("ElencoMovim");
  return static_cast<QStringListModel*>(list->model())->stringList();
}

QString panelText(const ui::MainWindow& frame, int n) {
  return frame.findChild<QLabel*>(QString("Pannello(%1)").arg(n))->text();
}

template <class W>
W* child(const QWidget* parent, const char* name) {
  W* w = parent->findChild<W*>(name);
  if (w == nullptr) {
    qFatal("control %s not found", name);
  }
  return w;
}

}  // namespace

class MainWindowTest : public QObject {
  Q_OBJECT

 private:
  struct Fixture {
    TempFolder temp;
    OsFileLayer files;
    ScriptedPrompter prompter;
    FixedClock clock{CalendarDate{21, 11, 2026}};
    std::unique_ptr<Session> session;
    std::unique_ptr<ui::MainWindow> frame;

    explicit Fixture(const std::vector<Account>& accounts = {},
                     const std::vector<Causale>& causali = {}) {
      writeArchive(temp.path(), accounts, causali);
      session = std::make_unique<Session>(files, prompter, clock, temp.path());
      session->start();
      frame = std::make_unique<ui::MainWindow>(*session);
      frame->show();
      QApplication::setActiveWindow(frame.get());
      if (!QTest::qWaitForWindowActive(frame.get())) {
        qFatal("the frame did not become active");
      }
    }
    ui::MovementWindow& form9() const { return *frame->movementWindow(); }
    void choose(int item) {
      auto* combo = child<QComboBox>(frame.get(), "Combo1");
      combo->setCurrentIndex(item);
      emit combo->activated(item);
    }
  };

 private slots:
  void menusCarryTheirCaptionsInOrder() {
    Fixture f;
    struct Entry {
      const char* control;
      const char* caption;
      bool enabled;
    };
    const std::vector<std::pair<const char*, std::vector<Entry>>> menus = {
        {"File",
         {{"parc", "Percorso archivi", true},
          {"Close", "Chiudi", true},
          {"PRF", "Preferenze", false},
          {"ImpStam", "Imposta Stampante", true},
          {"Causali", "Stampa Archivi", false},
          {"Stampe", "&Stampa Movimenti", false},
          {"TM", "Totale Movimenti", false},
          {"TotConti", "Totale conti", false},
          {"A", "", true},
          {"Esci", "Esci", true}}},
        {"Manut",
         {{"AnnualeSimulata", "Chiusura periodica", false},
          {"ra", "Riordina archivio", true},
          {"riprchiu", "Ripristina chiusura preccedente", false},
          {"Sicur", "Esegui copie di sicurezza", false},
          {"RiprCopie", "Ripristina copie", false},
          {"tt", "", true},
          {"CancMov", "Cancella movimenti", true}}},
        {"FN",
         {{"SV", "Sovrapponi", true},
          {"Aor", "Affianca orizzontalmente", true},
          {"AFFVer", "Affianca verticalmente", true},
          {"rdico", "Disponi icone", true}}},
    };
    for (const auto& [menuName, entries] : menus) {
      auto* menu = child<QMenu>(f.frame.get(), menuName);
      const QList<QAction*> actions = menu->actions();
      QCOMPARE(actions.size(), static_cast<qsizetype>(entries.size()));
      for (std::size_t i = 0; i < entries.size(); ++i) {
        QAction* a = actions[static_cast<qsizetype>(i)];
        QCOMPARE(a->objectName(), QString(entries[i].control));
        QCOMPARE(a->text(), QString::fromUtf8(entries[i].caption));
        QCOMPARE(a->isEnabled(), entries[i].enabled);
      }
    }
    QStringList titles;
    for (QAction* a : f.frame->menuBar()->actions()) {
      titles << a->text();
    }
    QCOMPARE(titles,
             (QStringList{"&File", "Archivi", "&Manutenzione", "Utility", "Finestra", "?"}));
    QVERIFY(!f.frame->action("uty")->isEnabled());
    QCOMPARE(f.frame->action("per")->toolTip(), QString("cambia percorso archivi"));
    QCOMPARE(f.frame->action("Command3D4")->text(), QString(" Causali "));
    for (const char* control :
         {"GestCau", "gr", "GesTipi", "NuovoConto", "Command3D4", "gruppi", "tipi", "Vista"}) {
      QVERIFY2(f.frame->action(control)->isEnabled(), control);
    }
    QCOMPARE(f.frame->action("NuovoConto")->text(), QString("&Gestione Conto"));
  }

  void emptyFolderStartsWithNoAccounts() {
    TempFolder temp;
    OsFileLayer files;
    ScriptedPrompter prompter;
    FixedClock clock{CalendarDate{21, 11, 2026}};
    Session session(files, prompter, clock, temp.path() + "dati");
    session.start();
    ui::MainWindow frame(session);
    QVERIFY(temp.exists("dati/RecConti.CON"));
    auto* combo = child<QComboBox>(&frame, "Combo1");
    QCOMPARE(combo->count(), 0);
    frame.panel()->chooseLetter(23);
    QCOMPARE(combo->count(), 0);
    QCOMPARE(child<QLabel>(&frame, "DataOdierna")->text(), QString("21/11/2026"));
    QVERIFY(prompter.messages.empty());
  }

  void letterIndexFollowsTheFirstLetterOfTheName() {
    Fixture f({account("1", "Alfa banca"), account("2", "Kappa banca"), account("3", "Yogurt spa"),
               account("4", "alfa minuscola"), account("5", "Xilofono"),
               account("1234567890", "Jolly")});
    auto* combo = child<QComboBox>(f.frame.get(), "Combo1");
    auto items = [&] {
      QStringList out;
      for (int i = 0; i < combo->count(); ++i) {
        out << combo->itemText(i).left(10).trimmed();
      }
      return out;
    };
    QCOMPARE(items(), (QStringList{"1", "2", "3", "4", "5", "1234567890"}));
    QTest::mouseClick(child<QLabel>(f.frame.get(), "Label1(9)"), Qt::LeftButton);  // J
    QCOMPARE(items(), (QStringList{"2", "1234567890"}));
    QTest::mouseClick(child<QLabel>(f.frame.get(), "Label1(21)"), Qt::LeftButton);  // W
    QCOMPARE(items(), (QStringList{"3"}));
    QTest::mouseClick(child<QLabel>(f.frame.get(), "Label1(0)"), Qt::LeftButton);  // A
    QCOMPARE(items(), (QStringList{"1"}));
    auto* a = child<QLabel>(f.frame.get(), "Label1(0)");
    auto* b = child<QLabel>(f.frame.get(), "Label1(1)");
    QCOMPARE(a->palette().color(QPalette::Window), QColor(0, 0, 0x80));
    QCOMPARE(a->palette().color(QPalette::WindowText), QColor(0xFF, 0xFF, 0));
    QCOMPARE(b->palette().color(QPalette::Window), QColor(0xFF, 0xFF, 0xFF));
    QTest::mouseClick(child<QLabel>(f.frame.get(), "Label1(23)"), Qt::LeftButton);
    QCOMPARE(combo->count(), 6);
    // Items: the code padded to 10, a blank, the name in its 45 characters.
    QCOMPARE(combo->itemText(0), QString("1          Alfa banca") + QString(35, ' '));
    QCOMPARE(combo->itemText(5).left(12), QString("1234567890 J"));
  }

  void clicksOnTheBarePanelAndOnTheFiguresBeep() {
    Fixture f;
    QTest::mouseClick(f.frame->panel(), Qt::LeftButton, {}, QPoint(5, 400));
    QTest::mouseClick(child<QLabel>(f.frame.get(), "Saldi(2)"), Qt::LeftButton);
    QCOMPARE(f.prompter.beeps, 2);
    QTest::mouseClick(child<QLabel>(f.frame.get(), "Label7"), Qt::LeftButton);
    QCOMPARE(f.prompter.beeps, 2);
  }

  void exitAsksAndCancelKeepsTheFrame() {
    Fixture f;
    f.prompter.answer({Answer::Cancel});
    f.frame->action("Esci")->trigger();
    QVERIFY(f.frame->isVisible());
    QCOMPARE(f.prompter.messages.back(),
             (Message{"AVVERTIMENTO!", "Sei Sicuro di Voler Uscire?", Buttons::OkCancel,
                      Icon::Exclamation, Answer::Cancel}));
    f.prompter.answer({Answer::Ok});
    f.frame->action("Command3D8")->trigger();
    QVERIFY(!f.frame->isVisible());
  }

  void choosingAnAccountOpensItsMovementWindow() {
    Fixture f({account("100", "Banca Società", "500")}, {causale("ST", "Stipendio", "A")});
    f.choose(0);
    QVERIFY(f.frame->movementWindow() != nullptr);
    QCOMPARE(f.frame->movementWindow()->windowTitle(), QString("Immissione / Modifica Movimenti"));
    QCOMPARE(panelText(*f.frame, 1), QString("0,00"));
    QCOMPARE(panelText(*f.frame, 5), QString("500,00"));
    QCOMPARE(child<QLabel>(f.frame.get(), "Saldi(2)")->text(), QString("500,00"));
    QCOMPARE(lines(*f.frame).last(), QString(" Nr. Movimenti: 0"));
    f.frame->action("Close")->trigger();
    QVERIFY(f.frame->movementWindow() == nullptr);
    QCOMPARE(panelText(*f.frame, 1), QString());
    QVERIFY(f.session->account() == nullptr);
  }

  void theMovementWindowFillsTheFrameBesideThePanel() {
    Fixture f({account("100", "Banca")});
    f.choose(0);
    QMdiArea* area = f.frame->mdiArea();
    QMdiSubWindow* sub = area->subWindowList().front();
    f.frame->resize(1300, 900);
    QCOMPARE(sub->geometry(), QRect(QPoint(0, 0), area->viewport()->size()));
    // A minimised window stays an icon.
    sub->showMinimized();
    const QSize icon = sub->size();
    f.frame->resize(1000, 700);
    QCOMPARE(sub->size(), icon);
    f.frame->action("AFFVer")->trigger();  // tiling takes only the windows that are not icons
    QVERIFY(sub->isMinimized());
    QCOMPARE(sub->size(), icon);
    f.frame->action("rdico")->trigger();  // icons line up along the bottom edge
    QCOMPARE(sub->geometry().bottom(), area->viewport()->height() - 1);
    QCOMPARE(sub->geometry().left(), 0);
  }

  void keyboardEntryRecordsAMovement() {
    Fixture f({account("100", "Banca")},
              {causale("ST", "Stipendio", "A"), causale("AF", "Affitto", "D")});
    f.choose(0);
    QWidget* w = &f.form9();
    child<QDateEdit>(w, "dataoper")->setDate(QDate(2026, 11, 20));
    QCOMPARE(child<QLabel>(w, "nroper")->text(), QString("1"));
    auto* code = child<QLineEdit>(w, "Causale");
    code->setFocus();
    QTest::keyClicks(code, "ST");
    QTest::keyClick(code, Qt::Key_Return);
    auto* amount = child<QLineEdit>(w, "IMPORTO");
    QVERIFY(amount->hasFocus());
    QCOMPARE(child<QLabel>(w, "DescrCausale")->text(), QString("Stipendio"));
    QCOMPARE(child<QLabel>(w, "D_A")->text(), QString("Avere"));
    QTest::keyClicks(amount, "1234.5x,");
    QCOMPARE(amount->text(), QString("1234,5"));
    QCOMPARE(f.prompter.beeps, 2);
    QTest::keyClick(amount, Qt::Key_Return);
    QVERIFY(child<QLineEdit>(w, "NrDoc")->hasFocus());
    QTest::keyClicks(child<QLineEdit>(w, "NrDoc"), "12345678");  // eight characters move on
    QVERIFY(child<QLineEdit>(w, "DescMovim")->hasFocus());
    QTest::keyClicks(child<QLineEdit>(w, "DescMovim"), "Novembre");
    QTest::keyClick(child<QLineEdit>(w, "DescMovim"), Qt::Key_Return);
    QVERIFY(child<QPushButton>(w, "ok")->hasFocus());
    QTest::keyClick(child<QPushButton>(w, "ok"), Qt::Key_Return);

    QCOMPARE(f.session->account()->count(), std::size_t{1});
    QCOMPARE(f.temp.read("100.MOR"), (contavia::test::Bytes{1, 0}));
    QVERIFY(lines(*f.frame).first().startsWith("20/11/2026 0001"));
    QCOMPARE(panelText(*f.frame, 4), QString("1.234,50"));
    QCOMPARE(child<QLineEdit>(w, "IMPORTO")->text(), QString());
    QVERIFY(!child<QPushButton>(w, "del")->isEnabled());
    QVERIFY(f.prompter.messages.empty());
  }

  void thePickerListsTheCausaliAndFillsTheEntryRow() {
    const std::vector<Causale> causali = {causale("ST", "Stipendio", "A"),
                                          causale("AF", "Affitto di casa", "D")};
    ui::CausalePicker picker(causali);
    picker.show();
    QVERIFY(QTest::qWaitForWindowExposed(&picker));
    auto* list = picker.list();
    QCOMPARE(list->count(), 2);
    QCOMPARE(list->item(1)->text(), QString("AF    - Affitto di casa") + QString(10, ' '));
    list->setCurrentRow(1);
    QTest::mouseClick(child<QPushButton>(&picker, "ok"), Qt::LeftButton);
    QCOMPARE(picker.chosenRow(), std::optional<int>(1));
    QCOMPARE(picker.result(), int(QDialog::Accepted));

    Fixture f({account("100", "Banca")}, causali);
    f.choose(0);
    QWidget* w = &f.form9();
    f.form9().setPickerRunner([](const std::vector<Causale>& shown, QWidget*) {
      return shown.size() == 2 ? std::optional<int>(1) : std::nullopt;
    });
    QTest::mouseClick(child<QPushButton>(w, "command3d1"), Qt::LeftButton);
    QCOMPARE(child<QLineEdit>(w, "Causale")->text(), QString("AF"));
    QCOMPARE(child<QLabel>(w, "DescrCausale")->text(), QString("Affitto di casa"));
    QCOMPARE(child<QLabel>(w, "D_A")->text(), QString("Dare"));
    QVERIFY(child<QLineEdit>(w, "IMPORTO")->hasFocus());
  }

  void unknownCausaleIsRefusedWhenMovingToTheAmount() {
    Fixture f({account("100", "Banca")}, {causale("ST", "Stipendio", "A")});
    f.choose(0);
    QWidget* w = &f.form9();
    auto* code = child<QLineEdit>(w, "Causale");
    code->setFocus();
    QTest::keyClicks(code, "ZZ");
    QTest::keyClick(code, Qt::Key_Return);
    QCOMPARE(f.prompter.texts(), (std::vector<std::string>{"CODICE CAUSALE NON PRESENTE!"}));
    QCOMPARE(f.prompter.messages.front().title, std::string("ERRORE"));
    QVERIFY(code->hasFocus());
  }

  void selectChangeAbandonAndDeleteKeepTheBalancesInStep() {
    Fixture f({account("100", "Banca")},
              {causale("ST", "Stipendio", "A"), causale("AF", "Affitto", "D")});
    f.choose(0);
    MovementEntry& entry = f.form9().entry();
    for (const auto& [date, code, amount] :
         std::vector<std::tuple<std::string, std::string, std::string>>{
             {"01/11/2026", "ST", "1000"},
             {"05/11/2026", "AF", "300"},
             {"10/11/2026", "AF", "50"}}) {
      entry.setDate(date);
      entry.row().causale = code;
      QVERIFY(entry.lookupCausale());
      entry.row().amount = amount;
      QVERIFY(entry.save());
    }
    f.form9().refresh();
    f.frame->showBalances();
    QCOMPARE(panelText(*f.frame, 4), QString("650,00"));
    QWidget* w = &f.form9();
    auto* list = child<QListView>(w, "ElencoMovim");
    const QStringList shown = lines(*f.frame);
    const int row = static_cast<int>(shown.indexOf(QRegularExpression("^05/11/2026 0002.*")));
    QVERIFY(row >= 0);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualRect(list->model()->index(row, 0)).center());
    QCOMPARE(child<QLabel>(w, "nroper")->text(), QString("2"));
    QCOMPARE(child<QLineEdit>(w, "IMPORTO")->text(), QString("300,00"));
    QVERIFY(child<QPushButton>(w, "del")->isEnabled());
    // Abandon: the balances come back to what they were.
    QTest::mouseClick(child<QPushButton>(w, "pulisci"), Qt::LeftButton);
    QCOMPARE(f.session->account()->balanceTotal(), 650);
    // Change: the amount typed replaces the stored one, the panels follow the recompute.
    auto pick = [&] {
      const int at =
          static_cast<int>(lines(*f.frame).indexOf(QRegularExpression("^05/11/2026 0002.*")));
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                        list->visualRect(list->model()->index(at, 0)).center());
    };
    pick();
    auto* amount = child<QLineEdit>(w, "IMPORTO");
    amount->clear();
    QTest::keyClicks(amount, "250");
    QTest::mouseClick(child<QPushButton>(w, "ok"), Qt::LeftButton);
    QCOMPARE(panelText(*f.frame, 4), QString("700,00"));
    QCOMPARE(f.session->account()->movement(2).amount, 250.0);
    const contavia::test::Bytes stored = f.temp.read("100.MOC");
    QCOMPARE(stored.size(), std::size_t{3 * 87});
    QVERIFY(contavia::test::Bytes(stored.begin() + 87 + 17, stored.begin() + 87 + 25) ==
            contavia::test::f64(250.0));
    QVERIFY(lines(*f.frame).filter(QRegularExpression("^05/11/2026 0002 +250,00 ")).size() == 1);
    QVERIFY(!child<QPushButton>(w, "del")->isEnabled());
    // Delete with Cancel changes nothing; with OK the later movement is renumbered.
    pick();
    f.prompter.answer({Answer::Cancel});
    QTest::mouseClick(child<QPushButton>(w, "del"), Qt::LeftButton);
    QCOMPARE(f.session->account()->count(), std::size_t{3});
    f.prompter.answer({Answer::Ok});
    QTest::mouseClick(child<QPushButton>(w, "del"), Qt::LeftButton);
    QCOMPARE(f.session->account()->count(), std::size_t{2});
    QCOMPARE(f.temp.read("100.MOR"), (contavia::test::Bytes{2, 0}));
    QVERIFY(lines(*f.frame).first().startsWith("10/11/2026 0002"));
    QVERIFY(!child<QPushButton>(w, "del")->isEnabled());
  }

  void clearingMovementsAsksTwiceAndKeepsTheAccount() {
    Fixture f({account("100", "Banca")}, {causale("ST", "Stipendio", "A")});
    f.choose(0);
    MovementEntry& entry = f.form9().entry();
    entry.setDate("01/11/2026");
    entry.row().causale = "ST";
    QVERIFY(entry.lookupCausale());
    entry.row().amount = "10";
    QVERIFY(entry.save());
    f.prompter.answer({Answer::Ok, Answer::Cancel});
    f.frame->action("CancMov")->trigger();
    QCOMPARE(f.session->account()->count(), std::size_t{1});
    f.prompter.answer({Answer::Ok, Answer::Ok});
    f.frame->action("CancMov")->trigger();
    QCOMPARE(f.session->account()->count(), std::size_t{0});
    QCOMPARE(lines(*f.frame).last(), QString(" Nr. Movimenti: 0"));
    QVERIFY(f.temp.exists("CONTI.CON"));
  }

  void theAccountsWindowOpensWithTheWorkingAccountClosed() {
    Fixture f({account("100", "Banca")});
    f.choose(0);
    QString shown;
    bool accountOpen = true;
    QTimer::singleShot(0, [&] {
      QWidget* modal = QApplication::activeModalWidget();
      shown = modal != nullptr ? modal->objectName() : QString();
      accountOpen = f.session->account() != nullptr;
      if (modal != nullptr) {
        modal->close();
      }
    });
    f.frame->action("Vista")->trigger();
    QCOMPARE(shown, QString("Form2"));
    QVERIFY(!accountOpen);
    QVERIFY(f.frame->movementWindow() == nullptr);
  }

  void theChosenAccountCannotBeDeletedUntilChiudi() {
    Fixture f({account("100", "Banca"), account("200", "Posta")});
    f.choose(0);
    // In the accounts window: choose the first row and press "del", answering OK.
    auto deleteFirstRow = [&] {
      QTimer::singleShot(0, [&] {
        QWidget* form = QApplication::activeModalWidget();
        auto* list = child<QListWidget>(form, "listaconti");
        list->setCurrentRow(0);
        f.prompter.answer({Answer::Ok});
        QTest::mouseClick(child<QPushButton>(form, "del"), Qt::LeftButton);
        form->close();
      });
      f.frame->action("NuovoConto")->trigger();
    };
    deleteFirstRow();
    QCOMPARE(f.prompter.messages.back(),
             plainBox("attenzione",
                      "Non si può cancellare il conto sul quale si lavora, devi prima chiudere il "
                      "conto"));
    QCOMPARE(f.session->tables().accounts.size(), std::size_t{2});

    f.frame->action("Close")->trigger();
    f.prompter.clear();
    deleteFirstRow();
    QCOMPARE(f.session->tables().accounts.size(), std::size_t{1});
    QCOMPARE(child<QComboBox>(f.frame.get(), "Combo1")->count(), 1);
  }

  void changingTheFolderReloadsTheAccounts() {
    Fixture f({account("100", "Banca")});
    TempFolder other;
    writeArchive(other.path(), {account("200", "Altra"), account("300", "Terza")}, {});
    f.choose(0);
    QString title;
    f.frame->chooseFolder = [&](QWidget*, const QString& t) {
      title = t;
      return QString::fromStdString(other.path()).chopped(1);  // without the separator
    };
    f.frame->action("parc")->trigger();
    QCOMPARE(title, QString("archivio di lavoro"));
    QVERIFY(f.session->account() == nullptr);
    QCOMPARE(f.session->dir().folder(), other.path());
    QCOMPARE(child<QComboBox>(f.frame.get(), "Combo1")->count(), 2);
    f.frame->chooseFolder = [](QWidget*, const QString&) { return QString(); };
    f.frame->action("parc")->trigger();
    QCOMPARE(f.session->dir().folder(), other.path());
  }
};

QTEST_MAIN(MainWindowTest)
#include "main_window_test.moc"
