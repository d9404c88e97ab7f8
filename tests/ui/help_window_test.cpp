// The guide, used as a reader uses it: "?" and F1, the list of topics, links clicked in the page,
// Back, Forward, Stop, Refresh, Home and the search through the topics.

#include "ui/help_window.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QSemaphore>
#include <QTextBlock>
#include <QTextBrowser>
#include <QThreadPool>

#include "tests/support/archive_bytes.h"
#include "tests/ui/frame_fixture.h"
#include "tests/ui/user_actions.h"
#include "ui/main_window.h"
#include "ui/widget_helpers.h"

using namespace contavia;
using namespace contavia::test;

class HelpWindowTest : public QObject {
  Q_OBJECT

 private:
  struct Fixture : FrameFixture {
    Fixture() {
      writeTable(temp, "CONTI.CON", "RecConti.CON", {accountRecord({1, "100", "", "Banca"})});
      startProgram();
    }
    ui::HelpWindow* help() const { return frame->helpWindow(); }
    QTextBrowser* page() const { return child<QTextBrowser>(help(), "Pagina"); }
    QPushButton* button(const char* name) const { return child<QPushButton>(help(), name); }
    QString heading() const { return page()->document()->firstBlock().text(); }
    QString selected() const { return page()->textCursor().selectedText(); }
    QStringList enabled() const {
      QStringList out;
      for (const char* name : {"Indietro", "Avanti", "Interrompi", "Aggiorna", "Inizio"}) {
        if (button(name)->isEnabled()) {
          out << name;
        }
      }
      return out;
    }
    void openGuide() const {
      QMenuBar* bar = frame->menuBar();
      QTest::mouseClick(bar, Qt::LeftButton, {},
                        bar->actionGeometry(frame->action("Help")).center());
      QTRY_VERIFY(help() != nullptr && help()->isVisible());
      settled();
    }
    void settled() const { QTRY_VERIFY(!button("Interrompi")->isEnabled()); }
    // A click on the link whose text is `text`, where the page shows it.
    void clickLink(const QString& text) const {
      const QTextCursor found = page()->document()->find(text);
      QVERIFY2(!found.isNull(), qPrintable(text));
      QTextCursor at(page()->document());
      at.setPosition((found.selectionStart() + found.selectionEnd()) / 2);
      QVERIFY(at.charFormat().isAnchor());
      page()->setTextCursor(at);
      page()->ensureCursorVisible();
      const QPoint point = page()->cursorRect(at).center();
      QTest::mouseClick(page()->viewport(), Qt::LeftButton, {}, point);
    }
  };

 private slots:
  void initTestCase() { ui::loadItalianTranslations(*QCoreApplication::instance()); }

  void cleanup() { QThreadPool::globalInstance()->waitForDone(); }

  void theTopicsTheButtonsAndTheLinks() {
    Fixture f;
    f.openGuide();
    QCOMPARE(f.help()->windowTitle(), QString("Guida di Contavia"));
    QCOMPARE(rowsOf(child<QListWidget>(f.help(), "Argomenti")),
             (QStringList{"Per cominciare", "Introduzione", "Le procedure", "Il piano dei conti",
                          "Stampe e carta"}));
    QCOMPARE(f.heading(), QString("Per cominciare"));
    QVERIFY(f.page()->toPlainText().contains("categorie"));
    QCOMPARE(f.enabled(), (QStringList{"Aggiorna", "Inizio"}));

    // A topic chosen in the list loads; while it does, only Stop can be pressed. Stopped, the
    // page stays as it was, and what the reading brings later is not shown.
    QSemaphore gate;
    const auto read = f.help()->readTopic;
    f.help()->readTopic = [&gate, read](const std::string& topic) {
      gate.acquire();
      return read(topic);
    };
    clickRow(child<QListWidget>(f.help(), "Argomenti"), "Le procedure");
    QCOMPARE(f.enabled(), (QStringList{"Interrompi", "Inizio"}));
    QCOMPARE(child<QLabel>(f.help(), "Stato")->text(),
             QString("Caricamento di «le procedure.rtf»..."));
    click(f.button("Interrompi"));
    QCOMPARE(f.enabled(), (QStringList{"Aggiorna", "Inizio"}));
    gate.release();
    QThreadPool::globalInstance()->waitForDone();
    QTest::qWait(20);
    QCOMPARE(f.heading(), QString("Per cominciare"));
    gate.release(10);  // from now on topics load at once
    clickRow(child<QListWidget>(f.help(), "Argomenti"), "Le procedure");
    QTRY_COMPARE(f.heading(), QString("Le procedure"));
    QCOMPARE(f.enabled(), (QStringList{"Indietro", "Aggiorna", "Inizio"}));

    click(f.button("Indietro"));
    QTRY_COMPARE(f.heading(), QString("Per cominciare"));
    QCOMPARE(f.enabled(), (QStringList{"Avanti", "Aggiorna", "Inizio"}));
    click(f.button("Avanti"));
    QTRY_COMPARE(f.heading(), QString("Le procedure"));
    click(f.button("Aggiorna"));
    f.settled();
    QCOMPARE(f.heading(), QString("Le procedure"));
    QCOMPARE(f.enabled(), (QStringList{"Indietro", "Aggiorna", "Inizio"}));

    // A link to another topic, then Home.
    click(f.button("Inizio"));
    QTRY_COMPARE(f.heading(), QString("Per cominciare"));
    f.clickLink("Introduzione");
    QTRY_COMPARE(f.help()->shownPage(), (help::HelpPage{"introduzione.rtf", ""}));
    QCOMPARE(f.heading(), QString("Introduzione a Contavia"));
    QCOMPARE(f.enabled(), (QStringList{"Indietro", "Aggiorna", "Inizio"}));
  }

  void searchFindsTheNextPlaceThroughTheTopics() {
    Fixture f;
    f.openGuide();
    auto* field = child<QLineEdit>(f.help(), "TestoCerca");
    retype(field, "causale");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(f.selected().toLower(), QString("causale"));
    const int first = f.page()->textCursor().position();
    click(f.button("Cerca"));
    QVERIFY(f.page()->textCursor().position() > first);  // the next one

    // Found only in another topic: that topic opens at the place.
    retype(field, "Disponi icone");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(f.help()->shownPage().topic, std::string("le procedure.rtf"));
    QCOMPARE(f.selected(), QString("Disponi icone"));
    QVERIFY(f.button("Indietro")->isEnabled());

    retype(field, "zzzz");
    QTest::keyClick(field, Qt::Key_Return);
    QCOMPARE(child<QLabel>(f.help(), "Stato")->text(), QString("Nessun risultato per «zzzz»."));
    QCOMPARE(f.help()->shownPage().topic, std::string("le procedure.rtf"));
  }

  void f1OpensThePageOfTheWindowInUse() {
    Fixture f;
    pick(child<QComboBox>(f.frame.get(), "Combo1"), "100 ");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);  // in the movement window
    QTRY_COMPARE(f.help()->shownPage(), (help::HelpPage{"le procedure.rtf", "movimenti"}));
    QVERIFY(f.help()->isVisible());

    // In a modal window the guide opens over it, and can be used while it stays open.
    inModal([&] { chooseMenu(f.frame.get(), "Archivi", "Gestione Causali"); },
            [&](QWidget* causali) {
              QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
              QTRY_COMPARE(f.help()->shownPage(), (help::HelpPage{"le procedure.rtf", "causali"}));
              QCOMPARE(f.help()->parentWidget(), causali);
              click(f.button("Inizio"));
              QTRY_COMPARE(f.heading(), QString("Per cominciare"));
            });
  }
};

QTEST_MAIN(HelpWindowTest)
#include "help_window_test.moc"
