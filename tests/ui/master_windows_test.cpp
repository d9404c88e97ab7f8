// The four master-data windows used as a user uses them: an add, a change, a refused add, a
// refused delete and a delete, with the list and the files read after each.

#include "ui/master_windows.h"

#include <QListWidget>
#include <QRadioButton>

#include "archive/file_layer.h"
#include "archive/session.h"
#include "common/clock.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/scripted_prompter.h"
#include "tests/support/temp_folder.h"
#include "tests/ui/user_actions.h"

namespace contavia::ui {

using namespace test;

class MasterWindowsTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<TempFolder> folder_;
  OsFileLayer files_;
  ScriptedPrompter prompter_;
  FixedClock clock_{CalendarDate{21, 11, 2026}};
  std::unique_ptr<Session> session_;
  std::unique_ptr<MasterWindow> window_;

  void start() {
    session_ = std::make_unique<Session>(files_, prompter_, clock_, folder_->path());
    session_->start();
    prompter_.clear();
  }

  // The window on the screen and active, as its menu entry shows it.
  QWidget* show(std::unique_ptr<MasterWindow> window) {
    window_ = std::move(window);
    window_->show();
    if (!QTest::qWaitForWindowActive(window_.get())) {
      qFatal("%s did not become active", qPrintable(window_->objectName()));
    }
    return window_.get();
  }
  QLineEdit* field(const char* name) const { return child<QLineEdit>(window_.get(), name); }
  QString text(const char* name) const { return field(name)->text(); }
  void type(const char* name, const QString& text) const { retype(field(name), text); }
  void press(const char* name) const { click(child<QAbstractButton>(window_.get(), name)); }
  bool canDelete() const { return child<QPushButton>(window_.get(), "del")->isEnabled(); }
  // Types the fields, then presses "ok".
  void okWith(std::initializer_list<std::pair<const char*, QString>> fields) const {
    for (const auto& [name, text] : fields) {
      type(name, text);
    }
    press("ok");
  }
  void pick(const QString& item) const {
    test::pick(child<QComboBox>(window_.get(), "Combo1"), item);
  }
  QListWidget* list() const { return window_->findChild<QListWidget*>(); }
  QStringList rows() const { return rowsOf(list()); }
  void chooseRow(int row) const { clickRow(list(), row); }
  // "del" on row `row`, refused: "<what> che vuoi eliminare è presente in <where>, ...".
  void deleteRefused(int row, const std::string& what, const std::string& where) {
    prompter_.clear();
    chooseRow(row);
    press("del");
    QCOMPARE(prompter_.texts(), std::vector{what + " che vuoi eliminare è presente in " + where +
                                            ", pertanto, non è possibile la sua eliminazione."});
  }
  // "del" on row `row`, confirmed.
  void deleteRow(int row) {
    prompter_.answer({Answer::Ok});
    chooseRow(row);
    press("del");
  }

 private slots:
  void init() { folder_ = std::make_unique<TempFolder>(); }

  void cleanup() {
    window_.reset();
    session_.reset();
    folder_.reset();
  }

  void everyControlHasItsNameAndAnAccessibleName() {
    start();
    std::vector<std::unique_ptr<MasterWindow>> windows;
    windows.push_back(makeCausaliWindow(nullptr, *session_));
    windows.push_back(makeGroupsWindow(nullptr, *session_));
    windows.push_back(makeCategoriesWindow(nullptr, *session_));
    windows.push_back(makeAccountsWindow(nullptr, *session_, {}));
    const std::vector<std::pair<QString, QStringList>> controls = {
        {"Form6",
         {"ElencoCausali", "CodCausale", "DescCausale", "DarAver(0)", "DarAver(1)", "ok", "pulisci",
          "del", "esci"}},
        {"Form4", {"ElencoMovimenti", "CodGruppi", "DescGruppi", "ok", "pulisci", "del", "esci"}},
        {"Form1",
         {"ElencoMovimenti", "CodCausale", "DescCausale", "Combo1", "ok", "pulisci", "del",
          "esci"}},
        {"Form2",
         {"listaconti", "CodConto", "NomeConto", "IndBanca", "CapBanca", "LocBanca", "ProvBanca",
          "Fido", "Combo1", "ok", "clr", "del", "esci"}}};
    for (std::size_t i = 0; i < windows.size(); ++i) {
      MasterWindow* window = windows[i].get();
      QCOMPARE(window->objectName(), controls[i].first);
      QVERIFY(window->isModal());
      for (const QString& name : controls[i].second) {
        QVERIFY2(!readAloud(child<QWidget>(window, name)).isEmpty(), qPrintable(name));
      }
      QVERIFY(!child<QPushButton>(window, "del")->isEnabled());
      // The list, its heading and the choice of a group or category in the fixed-pitch face.
      checkFixedPitch(child<QWidget>(window, controls[i].second.front()));
      checkFixedPitch(child<QWidget>(window, "Intestazione"));
      if (auto* choice = window->findChild<QComboBox*>("Combo1")) {
        checkFixedPitch(choice);
      }
    }
  }

  void causaliWindow() {
    writeTable(*folder_, "CONTI.CON", "RecConti.CON", {accountRecord({.number = 1, .code = "A"})});
    writeMovements(*folder_, "A", {{.causale = "PRE"}});
    start();
    QWidget* w = show(makeCausaliWindow(nullptr, *session_));
    QCOMPARE(w->windowTitle(), QString("Gestione Causali"));
    // The code has the focus; Enter moves on to the description.
    QCOMPARE(QApplication::focusWidget(), field("CodCausale"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), field("DescCausale"));
    QVERIFY(prompter_.messages.empty());

    press("DarAver(0)");
    okWith({{"CodCausale", "VER"}, {"DescCausale", "Versamento"}});
    press("DarAver(1)");
    okWith({{"CodCausale", "PRE"}, {"DescCausale", "Prelievo"}});
    QCOMPARE(folder_->read("Causali.CAP"), cat({causaleRecord(1, "VER", "Versamento", "A"),
                                                causaleRecord(2, "PRE", "Prelievo", "D")}));
    QCOMPARE(rows(), (QStringList{"VER   Versamento                A",
                                  "PRE   Prelievo                  D"}));
    checkHeadingOver(child<QWidget>(w, "Intestazione"), list());
    QCOMPARE(text("CodCausale"), QString());

    // Refused add: the code is present.
    okWith({{"CodCausale", "VER"}, {"DescCausale", "Altro"}});
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Nr di causale già presente"});
    QCOMPARE(text("DescCausale"), QString());
    QCOMPARE(folder_->read("RecCausa.CAP"), le16(2));

    // Change: the row fills the fields and the options, which stay after "ok" with the row
    // current; a click on that row chooses it again, dropping what was typed since.
    chooseRow(0);
    QCOMPARE(text("DescCausale"), QString("Versamento"));
    QVERIFY(child<QRadioButton>(w, "DarAver(0)")->isChecked());
    QVERIFY(canDelete());
    okWith({{"DescCausale", "Versamento assegni"}});
    QCOMPARE(folder_->read("Causali.CAP"), cat({causaleRecord(1, "VER", "Versamento assegni", "A"),
                                                causaleRecord(2, "PRE", "Prelievo", "D")}));
    type("DescCausale", "Altro");
    chooseRow(0);
    QCOMPARE(text("DescCausale"), QString("Versamento assegni"));

    // Account A's last movement carries PRE.
    deleteRefused(1, "La causale", "1 movimenti");
    QVERIFY(!folder_->exists("causali.con"));
    deleteRow(0);
    QCOMPARE(folder_->read("causali.con"), causaleRecord(1, "PRE", "Prelievo", "D"));
    QCOMPARE(folder_->read("Reccausali.con"), le16(1));
    QCOMPARE(rows(), QStringList{"PRE   Prelievo                  D"});
    QVERIFY(!canDelete());
  }

  void groupsWindow() {
    writeTable(*folder_, "Tipo.con", "RecTipo.con", {categoryRecord(1, "T1", "Conti", "Banche")});
    start();
    show(makeGroupsWindow(nullptr, *session_));
    okWith({{"CodGruppi", "G1"}, {"DescGruppi", "Banche"}});
    okWith({{"CodGruppi", "G2"}, {"DescGruppi", "Casa"}});
    okWith({{"CodGruppi", "G2"}, {"DescGruppi", "Doppio"}});
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Nr. codice già presente"});
    QCOMPARE(rows(), (QStringList{"G1    - Banche                   ",
                                  "G2    - Casa                     "}));

    chooseRow(1);
    okWith({{"DescGruppi", "Abitazione"}});
    QCOMPARE(folder_->read("Gruppi.con"), cat({groupRecord(1, "G1", "Banche", " ", "N"),
                                               groupRecord(2, "G2", "Abitazione", " ", "N")}));

    deleteRefused(0, "Il gruppo", "1 categorie");
    chooseRow(0);
    press("pulisci");
    QCOMPARE(text("DescGruppi"), QString());
    QVERIFY(!canDelete());
    deleteRow(1);
    QCOMPARE(folder_->read("Gruppi.con"), cat({groupRecord(1, "G1", "Banche", " ", "N"),
                                               groupRecord(2, "G2", "Abitazione", " ", "N")}));
    QCOMPARE(folder_->read("RecGruppi.con"), le16(1));
    QCOMPARE(rows(), QStringList{"G1    - Banche                   "});
  }

  void categoriesWindow() {
    writeTable(*folder_, "Gruppi.con", "RecGruppi.con",
               {groupRecord(1, "G1", "Banche"), groupRecord(2, "G2", "Casa")});
    writeTable(*folder_, "CONTI.CON", "RecConti.CON",
               {accountRecord({.number = 1, .code = "1", .category = "Conti"})});
    start();
    QWidget* w = show(makeCategoriesWindow(nullptr, *session_));
    auto* groups = child<QComboBox>(w, "Combo1");
    QCOMPARE(rowsOf(groups->view()), (QStringList{"Banche", "Casa"}));
    pick("Banche");
    okWith({{"CodCausale", "T1"}, {"DescCausale", "Conti"}});
    okWith({{"CodCausale", "T2"}, {"DescCausale", "Mutui"}});
    okWith({{"CodCausale", "T2"}, {"DescCausale", ""}});
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Campo codice e descrizione obbligatori"});
    QCOMPARE(folder_->read("Tipo.con"), cat({categoryRecord(1, "T1", "Conti", "Banche"),
                                             categoryRecord(2, "T2", "Mutui", "")}));

    chooseRow(1);
    pick("Casa");
    press("ok");
    QCOMPARE(folder_->read("Tipo.con"), cat({categoryRecord(1, "T1", "Conti", "Banche"),
                                             categoryRecord(2, "T2", "Mutui", "Casa")}));

    deleteRefused(0, "La categoria", "1 conti");
    QCOMPARE(groups->currentText(), QString("Banche"));
    deleteRow(1);
    QCOMPARE(folder_->read("RecTipo.con"), le16(1));
    QCOMPARE(rows(), QStringList{"T1    - Conti                    "});
  }

  void accountsWindow() {
    writeTable(*folder_, "Tipo.con", "RecTipo.con", {categoryRecord(1, "T1", "Banche", "Privati")});
    start();
    int changes = 0;
    show(makeAccountsWindow(nullptr, *session_, [&] { ++changes; }));
    auto* code = field("CodConto");
    QCOMPARE(QApplication::focusWidget(), code);
    QTest::keyClick(code, Qt::Key_Return);
    QCOMPARE(prompter_.texts(), std::vector<std::string>{"Campo obbligatorio"});
    QCOMPARE(QApplication::focusWidget(), code);

    auto* postCode = field("CapBanca");
    click(postCode);
    QTest::keyClicks(postCode, "2a0");
    QTest::keyClick(postCode, Qt::Key_Backspace);
    QCOMPARE(postCode->text(), QString("2"));
    QCOMPARE(prompter_.beeps, 1);
    // Enter is refused in "CAP" and "Fido"; Tab leaves them, to the next field.
    QTest::keyClick(postCode, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), field("LocBanca"));
    click(field("Fido"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->objectName(), QString("Combo1"));
    QCOMPARE(prompter_.beeps, 1);

    prompter_.clear();
    pick("T1");
    okWith({{"CodConto", "1"}, {"NomeConto", "Banca Uno"}, {"Fido", "1500"}});
    okWith({{"CodConto", "10"}, {"NomeConto", "Banca Dieci"}});  // no category chosen
    QCOMPARE(prompter_.texts(),
             std::vector<std::string>{
                 "Campo Tipo conto obbligatorio, selezionare un tipo e riprovare."});
    pick("T1");
    press("ok");
    QCOMPARE(changes, 2);
    QCOMPARE(folder_->read("CONTI.CON").size(), 2U * 207);
    QCOMPARE(Bytes(folder_->read("CONTI.CON")).front(), std::uint8_t{1});
    QCOMPARE(rows(), (QStringList{QString("1          Banca Uno") + QString(36, ' '),
                                  QString("10         Banca Dieci") + QString(34, ' ')}));

    // Change: the code stays, the rest is rewritten.
    chooseRow(0);
    QVERIFY(!code->isEnabled());
    okWith({{"NomeConto", "Banca Uno Spa"}});
    QVERIFY(code->isEnabled());
    const Bytes stored = folder_->read("CONTI.CON");
    QCOMPARE(stored.size(), 2U * 207);
    QVERIFY(Bytes(stored.begin() + 44, stored.begin() + 89) == test::text("Banca Uno Spa", 45));
    QCOMPARE(rows().at(0), QString("1          Banca Uno Spa") + QString(32, ' '));

    // Account 1 goes, and the files of account 10 with it.
    folder_->write("1.MOC", Bytes(87, ' '));
    folder_->write("10.MOR", le16(0));
    deleteRow(0);
    QVERIFY(!folder_->exists("1.MOC"));
    QVERIFY(!folder_->exists("10.MOR"));
    QVERIFY(folder_->exists("CONTI.CON"));
    QCOMPARE(folder_->read("RecConti.CON"), le16(1));
    QCOMPARE(rows(), QStringList{QString("10         Banca Dieci") + QString(34, ' ')});
    QCOMPARE(changes, 4);
  }
};

}  // namespace contavia::ui

QTEST_MAIN(contavia::ui::MasterWindowsTest)
#include "master_windows_test.moc"
