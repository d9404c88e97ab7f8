// The four master-data windows driven by their control names, as a user would: add, change, a
// refused add, a refused delete and a delete, with the files checked after each; the keys of the
// entry fields; every message answered by the scripted prompter of the session.

#include "ui/master_windows.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "common/clock.h"
#include "archive/file_layer.h"
#include "archive/session.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/scripted_prompter.h"
#include "tests/support/temp_folder.h"

namespace contavia::ui {
namespace {

using test::Bytes;

template <class W>
W* control(QWidget* window, const char* name) {
  W* w = window->findChild<W*>(name);
  if (w == nullptr) {
    qFatal("no control %s", name);
  }
  return w;
}

void type(QWidget* window, const char* name, const QString& text) {
  auto* edit = control<QLineEdit>(window, name);
  edit->clear();
  QTest::keyClicks(edit, text);
}

void click(QWidget* window, const char* name) { control<QAbstractButton>(window, name)->click(); }

// Types the fields, then presses "ok".
void okWith(QWidget* window, std::initializer_list<std::pair<const char*, QString>> fields) {
  for (const auto& [name, text] : fields) {
    type(window, name, text);
  }
  click(window, "ok");
}

// Picks an item of `Combo1` as a click on it does.
void pick(QWidget* window, int index) {
  auto* box = control<QComboBox>(window, "Combo1");
  box->setCurrentIndex(index);
  emit box->activated(index);
}

void choose(QWidget* window, const char* list, int row) {
  control<QListWidget>(window, list)->setCurrentRow(row);
}

QStringList rows(QWidget* window, const char* list) {
  QStringList out;
  auto* l = control<QListWidget>(window, list);
  for (int i = 0; i < l->count(); ++i) {
    out << l->item(i)->text();
  }
  return out;
}

}  // namespace

class MasterWindowsTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<test::TempFolder> folder_;
  OsFileLayer files_;
  test::ScriptedPrompter prompter_;
  FixedClock clock_{CalendarDate{21, 11, 2026}};
  std::unique_ptr<Session> session_;

  void start() {
    session_ = std::make_unique<Session>(files_, prompter_, clock_, folder_->path());
    session_->start();
    prompter_.clear();
  }

 private slots:
  void init() {
    folder_ = std::make_unique<test::TempFolder>();
    prompter_.clear();
  }

  void cleanup() {
    session_.reset();
    folder_.reset();
  }

  void everyControlHasItsNameAndAnAccessibleName() {
    start();
    const std::vector<std::pair<std::unique_ptr<MasterWindow>, QStringList>> windows = [&] {
      std::vector<std::pair<std::unique_ptr<MasterWindow>, QStringList>> w;
      w.emplace_back(makeCausaliWindow(nullptr, *session_),
                     QStringList{"ElencoCausali", "CodCausale", "DescCausale", "DarAver(0)",
                                 "DarAver(1)", "ok", "pulisci", "del", "esci"});
      w.emplace_back(makeGroupsWindow(nullptr, *session_),
                     QStringList{"ElencoMovimenti", "CodGruppi", "DescGruppi", "ok", "pulisci",
                                 "del", "esci"});
      w.emplace_back(makeCategoriesWindow(nullptr, *session_),
                     QStringList{"ElencoMovimenti", "CodCausale", "DescCausale", "Combo1", "ok",
                                 "pulisci", "del", "esci"});
      w.emplace_back(
          makeAccountsWindow(nullptr, *session_, {}),
          QStringList{"listaconti", "CodConto", "NomeConto", "IndBanca", "CapBanca", "LocBanca",
                      "ProvBanca", "Fido", "Combo1", "ok", "clr", "del", "esci"});
      return w;
    }();
    QStringList forms;
    for (const auto& [window, names] : windows) {
      forms << window->objectName();
      QVERIFY(window->isModal());
      for (const QString& name : names) {
        auto* w = window->findChild<QWidget*>(name);
        QVERIFY2(w != nullptr, qPrintable(name));
        QVERIFY2(!w->accessibleName().isEmpty(), qPrintable(name));
      }
      QVERIFY(!control<QPushButton>(window.get(), "del")->isEnabled());
    }
    QCOMPARE(forms, (QStringList{"Form6", "Form4", "Form1", "Form2"}));
  }

  void causaliWindow() {
    test::writeTable(*folder_, "CONTI.CON", "RecConti.CON",
                     {test::accountRecord({.number = 1, .code = "A"})});
    test::writeMovements(*folder_, "A", {{.causale = "PRE"}});
    start();
    auto w = makeCausaliWindow(nullptr, *session_);
    QCOMPARE(w->windowTitle(), QString("Gestione Causali"));

    type(w.get(), "CodCausale", "VER");
    type(w.get(), "DescCausale", "Versamento");
    click(w.get(), "DarAver(0)");
    click(w.get(), "ok");
    type(w.get(), "CodCausale", "PRE");
    type(w.get(), "DescCausale", "Prelievo");
    click(w.get(), "DarAver(1)");
    click(w.get(), "ok");
    QCOMPARE(folder_->read("Causali.CAP"),
             test::cat({test::causaleRecord(1, "VER", "Versamento", "A"),
                        test::causaleRecord(2, "PRE", "Prelievo", "D")}));
    QCOMPARE(rows(w.get(), "ElencoCausali"), (QStringList{"VER   Versamento                A",
                                                          "PRE   Prelievo                  D"}));
    QCOMPARE(control<QLineEdit>(w.get(), "CodCausale")->text(), QString());

    // Refused add: the code is present.
    okWith(w.get(), {{"CodCausale", "VER"}, {"DescCausale", "Altro"}});
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Nr di causale già presente"});
    QCOMPARE(control<QLineEdit>(w.get(), "DescCausale")->text(), QString());
    QCOMPARE(folder_->read("RecCausa.CAP"), test::le16(2));

    // Change: the row fills the fields and the options.
    choose(w.get(), "ElencoCausali", 0);
    QCOMPARE(control<QLineEdit>(w.get(), "DescCausale")->text(), QString("Versamento"));
    QVERIFY(control<QRadioButton>(w.get(), "DarAver(0)")->isChecked());
    QVERIFY(control<QPushButton>(w.get(), "del")->isEnabled());
    okWith(w.get(), {{"DescCausale", "Versamento assegni"}});
    QCOMPARE(Bytes(folder_->read("Causali.CAP")).size(), 2U * 46);
    QCOMPARE(folder_->read("Causali.CAP"),
             test::cat({test::causaleRecord(1, "VER", "Versamento assegni", "A"),
                        test::causaleRecord(2, "PRE", "Prelievo", "D")}));

    // Refused delete: account A's last movement carries PRE.
    prompter_.clear();
    choose(w.get(), "ElencoCausali", 1);
    click(w.get(), "del");
    QCOMPARE(prompter_.texts(),
             std::vector<std::string>{"La causale che vuoi eliminare è presente in 1 movimenti, "
                                      "pertanto, non è possibile la sua eliminazione."});
    QVERIFY(!folder_->exists("causali.con"));

    // Delete, confirmed.
    prompter_.clear();
    prompter_.answer({Answer::Ok});
    choose(w.get(), "ElencoCausali", 0);
    click(w.get(), "del");
    QCOMPARE(folder_->read("causali.con"), test::causaleRecord(1, "PRE", "Prelievo", "D"));
    QCOMPARE(folder_->read("Reccausali.con"), test::le16(1));
    QCOMPARE(rows(w.get(), "ElencoCausali").size(), 1);
    QVERIFY(!control<QPushButton>(w.get(), "del")->isEnabled());
  }

  void enterMovesToTheNextField() {
    start();
    auto w = makeCausaliWindow(nullptr, *session_);
    w->show();
    QVERIFY(QTest::qWaitForWindowActive(w.get()));
    auto* code = control<QLineEdit>(w.get(), "CodCausale");
    code->setFocus();
    QTest::keyClick(code, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), control<QLineEdit>(w.get(), "DescCausale"));
    QVERIFY(prompter_.messages.empty());
  }

  void groupsWindow() {
    test::writeTable(*folder_, "Tipo.con", "RecTipo.con",
                     {test::categoryRecord(1, "T1", "Conti", "Banche")});
    start();
    auto w = makeGroupsWindow(nullptr, *session_);
    okWith(w.get(), {{"CodGruppi", "G1"}, {"DescGruppi", "Banche"}});
    okWith(w.get(), {{"CodGruppi", "G2"}, {"DescGruppi", "Casa"}});
    okWith(w.get(), {{"CodGruppi", "G2"}, {"DescGruppi", "Doppio"}});
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Nr. codice già presente"});
    QCOMPARE(rows(w.get(), "ElencoMovimenti"), (QStringList{"G1    - Banche                   ",
                                                            "G2    - Casa                     "}));

    choose(w.get(), "ElencoMovimenti", 1);
    okWith(w.get(), {{"DescGruppi", "Abitazione"}});
    QCOMPARE(folder_->read("Gruppi.con"),
             test::cat({test::groupRecord(1, "G1", "Banche", " ", "N"),
                        test::groupRecord(2, "G2", "Abitazione", " ", "N")}));

    prompter_.clear();
    choose(w.get(), "ElencoMovimenti", 0);
    click(w.get(), "del");
    QCOMPARE(prompter_.texts(),
             std::vector<std::string>{"Il gruppo che vuoi eliminare è presente in 1 categorie, "
                                      "pertanto, non è possibile la sua eliminazione."});

    prompter_.answer({Answer::Ok});
    choose(w.get(), "ElencoMovimenti", 0);
    click(w.get(), "pulisci");
    QVERIFY(!control<QPushButton>(w.get(), "del")->isEnabled());
    choose(w.get(), "ElencoMovimenti", 1);
    click(w.get(), "del");
    QCOMPARE(folder_->read("Gruppi.con"),
             test::cat({test::groupRecord(1, "G1", "Banche", " ", "N"),
                        test::groupRecord(2, "G2", "Abitazione", " ", "N")}));
    QCOMPARE(folder_->read("RecGruppi.con"), test::le16(1));
    QCOMPARE(rows(w.get(), "ElencoMovimenti").size(), 1);
  }

  void categoriesWindow() {
    test::writeTable(*folder_, "Gruppi.con", "RecGruppi.con",
                     {test::groupRecord(1, "G1", "Banche"), test::groupRecord(2, "G2", "Casa")});
    test::writeTable(*folder_, "CONTI.CON", "RecConti.CON",
                     {test::accountRecord({.number = 1, .code = "1", .category = "Conti"})});
    start();
    auto w = makeCategoriesWindow(nullptr, *session_);
    auto* groups = control<QComboBox>(w.get(), "Combo1");
    QCOMPARE(groups->count(), 2);
    type(w.get(), "CodCausale", "T1");
    type(w.get(), "DescCausale", "Conti");
    pick(w.get(), 0);
    click(w.get(), "ok");
    okWith(w.get(), {{"CodCausale", "T2"}, {"DescCausale", "Mutui"}});
    okWith(w.get(), {{"CodCausale", "T2"}, {"DescCausale", ""}});
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Campo codice e descrizione obbligatori"});
    QCOMPARE(folder_->read("Tipo.con"), test::cat({test::categoryRecord(1, "T1", "Conti", "Banche"),
                                                   test::categoryRecord(2, "T2", "Mutui", "")}));

    choose(w.get(), "ElencoMovimenti", 1);
    pick(w.get(), 1);
    click(w.get(), "ok");
    QCOMPARE(session_->tables().categories.at(1).groupName,
             std::string("Casa") + std::string(21, ' '));

    prompter_.clear();
    choose(w.get(), "ElencoMovimenti", 0);
    QCOMPARE(groups->currentText(), QString("Banche"));
    click(w.get(), "del");
    QCOMPARE(prompter_.texts(),
             std::vector<std::string>{"La categoria che vuoi eliminare è presente in 1 conti, "
                                      "pertanto, non è possibile la sua eliminazione."});
    prompter_.answer({Answer::Ok});
    choose(w.get(), "ElencoMovimenti", 1);
    click(w.get(), "del");
    QCOMPARE(folder_->read("RecTipo.con"), test::le16(1));
    QCOMPARE(rows(w.get(), "ElencoMovimenti"), QStringList{"T1    - Conti                    "});
  }

  void accountsWindow() {
    test::writeTable(*folder_, "Tipo.con", "RecTipo.con",
                     {test::categoryRecord(1, "T1", "Banche", "Privati")});
    start();
    int changes = 0;
    auto w = makeAccountsWindow(nullptr, *session_, [&] { ++changes; });
    w->show();
    QVERIFY(QTest::qWaitForWindowActive(w.get()));
    auto* code = control<QLineEdit>(w.get(), "CodConto");
    code->setFocus();
    QTest::keyClick(code, Qt::Key_Return);
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Campo obbligatorio"});
    QCOMPARE(QApplication::focusWidget(), code);

    auto* postCode = control<QLineEdit>(w.get(), "CapBanca");
    QTest::keyClicks(postCode, "2a0");
    QTest::keyClick(postCode, Qt::Key_Backspace);
    QCOMPARE(postCode->text(), QString("2"));
    QCOMPARE(prompter_.beeps, 1);

    prompter_.clear();
    type(w.get(), "CodConto", "1");
    type(w.get(), "NomeConto", "Banca Uno");
    type(w.get(), "Fido", "1500");
    pick(w.get(), 0);
    click(w.get(), "ok");
    okWith(w.get(), {{"CodConto", "10"}, {"NomeConto", "Banca Dieci"}});  // no category chosen
    QCOMPARE(prompter_.texts(),
             std::vector<std::string>{
                 "Campo Tipo conto obbligatorio, selezionare un tipo e riprovare."});
    pick(w.get(), 0);
    click(w.get(), "ok");
    QCOMPARE(changes, 2);
    QCOMPARE(session_->tables().accounts.size(), 2U);
    QCOMPARE(folder_->read("CONTI.CON").size(), 2U * 207);
    QCOMPARE(Bytes(folder_->read("CONTI.CON")).front(), std::uint8_t{1});
    QCOMPARE(rows(w.get(), "listaconti").at(1),
             QString("10         Banca Dieci") + QString(34, ' '));

    // Change: the code stays, the rest is rewritten.
    choose(w.get(), "listaconti", 0);
    QVERIFY(!code->isEnabled());
    okWith(w.get(), {{"NomeConto", "Banca Uno Spa"}});
    QVERIFY(code->isEnabled());
    QCOMPARE(Bytes(folder_->read("CONTI.CON")).size(), 2U * 207);
    QCOMPARE(Bytes(folder_->read("CONTI.CON")).at(44), std::uint8_t{'B'});
    QCOMPARE(session_->tables().accounts.at(0).accountName.substr(0, 13), "Banca Uno Spa");

    // The working account cannot go.
    folder_->write("1.MOC", Bytes(87, ' '));
    folder_->write("10.MOR", test::le16(0));
    session_->openAccountByCode("10");
    prompter_.clear();
    prompter_.answer({Answer::Ok});
    choose(w.get(), "listaconti", 1);
    click(w.get(), "del");
    QCOMPARE(prompter_.messages.back().title, std::string("attenzione"));
    QCOMPARE(session_->tables().accounts.size(), 2U);

    // Account 1 goes, and the files of account 10 with it.
    session_->closeAccount();
    prompter_.answer({Answer::Ok});
    choose(w.get(), "listaconti", 0);
    click(w.get(), "del");
    QVERIFY(!folder_->exists("1.MOC"));
    QVERIFY(!folder_->exists("10.MOR"));
    QVERIFY(folder_->exists("CONTI.CON"));
    QCOMPARE(folder_->read("RecConti.CON"), test::le16(1));
    QCOMPARE(rows(w.get(), "listaconti"),
             QStringList{QString("10         Banca Dieci") + QString(34, ' ')});
    QCOMPARE(changes, 4);
  }
};

}  // namespace contavia::ui

QTEST_MAIN(contavia::ui::MasterWindowsTest)
#include "master_windows_test.moc"
