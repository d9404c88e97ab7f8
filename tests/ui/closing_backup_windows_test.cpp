// The closing window, its undo and the backup window used as a user uses them, from the
// "Manutenzione" menu: the date typed over its mask, the start button, the removed movements
// handed to the print preview (recorded here), the movement list and the balances as they are
// after each step; the backup folder chosen with a click in the folder tree.

#include <QDir>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QLabel>
#include <QListView>
#include <QRadioButton>
#include <QStorageInfo>
#include <QTreeView>

#include "printing/report_page.h"
#include "tests/support/archive_bytes.h"
#include "tests/ui/frame_fixture.h"
#include "tests/ui/user_actions.h"
#include "ui/movement_window.h"

using namespace contavia;
using namespace contavia::test;

class ClosingBackupWindowsTest : public QObject {
  Q_OBJECT

 private:
  // Account 100 with three movements in January, account 200 with one; the print preview is
  // recorded.
  struct Fixture : FrameFixture {
    std::vector<Report> previewed;

    Fixture() {
      writeTable(
          temp, "Causali.CAP", "RecCausa.CAP",
          {causaleRecord(1, "ST", "Stipendio", "A"), causaleRecord(2, "AF", "Affitto", "D")});
      writeTable(temp, "CONTI.CON", "RecConti.CON",
                 {accountRecord({1, "100", "Banche", "Banca"}),
                  accountRecord({2, "200", "Posta", "Posta"})});
      writeMovements(temp, "100",
                     {{.date = "10/01/2026", .causale = "AF", .amount = 100},
                      {.date = "15/01/2026", .causale = "ST", .amount = 50, .sign = "A"},
                      {.date = "20/01/2026", .causale = "AF", .amount = 30}});
      writeMovements(temp, "200", {{.date = "03/01/2026", .causale = "AF", .amount = 20}});
      startProgram("", [this](ui::MainWindow& f) {
        f.preview = [this](QWidget*, const Report& r) { previewed.push_back(r); };
      });
    }
    void choose(const QString& code) { pick(child<QComboBox>(frame.get(), "Combo1"), code + " "); }
    void maintenance(const QString& caption) { chooseMenu(frame.get(), "&Manutenzione", caption); }
    QStringList lines() const {
      return rowsOf(child<QListView>(frame->movementWindow(), "ElencoMovim"));
    }
    // The dates of the movements listed.
    QStringList dates() const {
      return lines()
          .filter(QRegularExpression("^\\d\\d/"))
          .replaceInStrings(QRegularExpression("^(.{10}).*"), "\\1");
    }
    // The balance today and the total balance of the status bar.
    QStringList balances() const {
      return {child<QLabel>(frame.get(), "Pannello(1)")->text(),
              child<QLabel>(frame.get(), "Pannello(4)")->text()};
    }
    QString path(const std::string& name = "") const {
      return QString::fromStdString(temp.file(name));
    }
  };

  static void press(QWidget* window, const char* button) {
    click(child<QPushButton>(window, button));
  }

 private slots:
  void closingListsTheRemovedMovementsAndItsUndoPutsThemBack() {
    Fixture f;
    QVERIFY(!f.frame->action("AnnualeSimulata")->isEnabled());
    QVERIFY(!f.frame->action("riprchiu")->isEnabled());
    f.choose("100");
    const QStringList before = f.balances();
    QCOMPARE(before, (QStringList{"-80,00", "-80,00"}));

    inModal([&] { f.maintenance("Chiusura periodica"); },
            [&](QWidget* w) {
              QCOMPARE(w->objectName(), QString("Form19"));
              QCOMPARE(w->windowTitle(), QString("Chiusura periodica"));
              auto* date = child<QLineEdit>(w, "DataChiusura");
              QCOMPARE(date->displayText(), QString("__/__/____"));
              press(w, "avvia");
              QCOMPARE(f.prompter.texts(), std::vector<std::string>{"Campo data obbligatorio"});
              // The date typed digit by digit; the mask puts the slashes.
              click(date);
              QTest::keyClick(date, Qt::Key_Home);
              QTest::keyClicks(date, "15012026");
              QCOMPARE(date->displayText(), QString("15/01/2026"));
              f.prompter.clear();
              f.prompter.answer({Answer::Ok});  // the warning
              press(w, "avvia");
            });
    // The warning, then where the list of removed movements is kept; the preview shows it.
    const std::string kept = f.temp.file("chiusure/20261121-100.pdf");
    QCOMPARE(f.prompter.texts().size(), std::size_t{2});
    QCOMPARE(f.prompter.texts()[1],
             "Chiusura eseguita. L'elenco dei movimenti eliminati \xC3\xA8 "
             "conservato in " +
                 kept + ".");
    QVERIFY(QFile::exists(QString::fromStdString(kept)));
    QCOMPARE(f.previewed.size(), std::size_t{1});
    QCOMPARE(QString::fromStdString(f.previewed[0].layout.header.title).trimmed(),
             QString("Elenco Movimenti Eliminati"));
    QStringList removed;
    for (const std::string& line : f.previewed[0].lines) {
      removed << QString::fromStdString(line).simplified();
    }
    QCOMPARE(removed.filter(QRegularExpression("^\\d\\d/")).size(), 2);
    QVERIFY(removed.filter("100,00").size() == 1 && removed.filter("50,00").size() == 1);
    // The list and the balances as the closing leaves them: the carried-forward amount counts
    // the removed debit-minus-credit sum (50) as a credit.
    // the removed movements gone, the carried-forward amount on the first line, at the date of the
    // closing.
    QCOMPARE(f.dates(), (QStringList{"15/01/2026", "20/01/2026"}));
    QVERIFY(f.lines().first().endsWith("50,00              Riporto Chiusura precedente"));
    QCOMPARE(f.balances(), (QStringList{"20,00", "20,00"}));

    // The undo: warning answered OK, the three movements and the balances back.
    f.prompter.clear();
    f.prompter.answer({Answer::Ok});
    f.maintenance("Ripristina chiusura preccedente");
    QCOMPARE(f.prompter.texts().size(), std::size_t{1});
    QCOMPARE(f.dates(), (QStringList{"20/01/2026", "15/01/2026", "10/01/2026"}));
    QCOMPARE(f.balances(), before);
  }

  void backupOfTheWorkingAccountAndItsRestore() {
    Fixture f;
    const QString start = f.path("utente");
    const QString stick = start + "/chiavetta";
    QVERIFY(QDir().mkpath(stick));
    f.frame->backupFolder = start;
    f.choose("100");

    // The copy of "conto attivo" into a folder chosen with a click in the tree.
    inModal(
        [&] { f.maintenance("Esegui copie di sicurezza"); },
        [&](QWidget* w) {
          QCOMPARE(w->windowTitle(), QString("Backup dati"));
          QCOMPARE(child<QGroupBox>(w, "Frame1")->title(), QString("Copie di sicurezza"));
          QCOMPARE(child<QComboBox>(w, "Drive1")->currentText(), QStorageInfo(start).rootPath());
          auto* folder = child<QLabel>(w, "NomeFile");
          QCOMPARE(folder->text(), start + "/");
          QVERIFY(child<QRadioButton>(w, "TuttiConti")->isChecked());
          auto* tree = child<QTreeView>(w, "Dir1");
          const QModelIndex there = static_cast<QFileSystemModel*>(tree->model())->index(stick);
          // The start folder is shown open, its subfolders in view.
          QTRY_VERIFY(tree->viewport()->rect().contains(tree->visualRect(there)));
          QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, tree->visualRect(there).center());
          QCOMPARE(folder->text(), stick + "/");
          click(child<QRadioButton>(w, "ContoAttivo"));
          QVERIFY(!child<QRadioButton>(w, "TuttiConti")->isChecked());
          press(w, "salva");
        });
    QCOMPARE(f.prompter.texts(), std::vector<std::string>{"Copie di sicurezza eseguite in " +
                                                          stick.toStdString() + "/: 4 file."});
    QCOMPARE(QDir(stick).entryList(QDir::Files),
             (QStringList{"100.MOC", "100.MOR", "100.RIP", "100.TOC"}));
    for (const QString& name : QDir(stick).entryList(QDir::Files)) {
      QFile copy(stick + "/" + name);
      QVERIFY(copy.open(QIODevice::ReadOnly));
      const Bytes original = f.temp.read(name.toStdString());
      QCOMPARE(copy.readAll(), QByteArray(reinterpret_cast<const char*>(original.data()),
                                          static_cast<qsizetype>(original.size())));
    }

    f.prompter.answer({Answer::Ok, Answer::Ok});
    f.maintenance("Cancella movimenti");
    QCOMPARE(f.dates(), QStringList{});
    const auto cleared = snapshot(f.temp);

    // Restore: Cancel at the question closes the window and changes nothing; OK puts the account
    // back from the folder chosen last, and the movement window shows it.
    for (const Answer answer : {Answer::Cancel, Answer::Ok}) {
      f.prompter.clear();
      f.prompter.answer({answer});
      inModal([&] { f.maintenance("Ripristina copie"); },
              [&](QWidget* w) {
                QCOMPARE(w->windowTitle(), QString("Ripristina Dati"));
                QCOMPARE(child<QLabel>(w, "NomeFile")->text(), stick + "/");
                QCOMPARE(child<QPushButton>(w, "salva")->text(), QString("Ripristina"));
                press(w, "salva");
              });
      if (answer == Answer::Cancel) {
        QCOMPARE(f.prompter.texts().size(), std::size_t{1});
        QCOMPARE(snapshot(f.temp), cleared);
        QCOMPARE(f.dates(), QStringList{});
      }
    }
    QCOMPARE(f.prompter.texts().back(), "Ripristino eseguito: 1 conto.");
    QCOMPARE(f.dates(), (QStringList{"20/01/2026", "15/01/2026", "10/01/2026"}));
  }
};

QTEST_MAIN(ClosingBackupWindowsTest)
#include "closing_backup_windows_test.moc"
