#pragma once
// What a user does to a window, for the window tests: clicks at the place of a control or a list
// row, items chosen in the popup of a combo box, fields typed over, modal windows used and left
// with "esci"; and what a user sees of a list: its rows and its face.

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyle>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <functional>

namespace contavia::test {

template <class W>
W* child(const QWidget* parent, const QString& name) {
  W* w = parent != nullptr ? parent->findChild<W*>(name) : nullptr;
  if (w == nullptr) {
    qFatal("control %s not found", qPrintable(name));
  }
  return w;
}

inline void click(QWidget* w) {
  QVERIFY2(w->isVisible() && w->isEnabled(), qPrintable(w->objectName()));
  QTest::mouseClick(w, Qt::LeftButton);
}

// The entry of a menu or tool bar that shows `text`.
inline QAction* actionNamed(const QWidget* w, const QString& text) {
  for (QAction* a : w->actions()) {
    if (a->text() == text) {
      return a;
    }
  }
  qFatal("no entry %s", qPrintable(text));
}

// Entry `caption` of menu `title`, opened with a click on the menu bar.
inline void chooseMenu(QMainWindow* frame, const QString& title, const QString& caption) {
  QMenuBar* bar = frame->menuBar();
  QMenu* m = actionNamed(bar, title)->menu();
  QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(m->menuAction()).center());
  QTRY_VERIFY(m->isVisible());
  QAction* entry = actionNamed(m, caption);
  QVERIFY2(entry->isVisible() && entry->isEnabled(), qPrintable(caption));
  QTest::mouseClick(m, Qt::LeftButton, {}, m->actionGeometry(entry).center());
}

// A click on the tool button `caption` of the frame's tool bar.
inline void clickTool(QMainWindow* frame, const QString& caption) {
  auto* bar = frame->findChild<QToolBar*>("ToolBar");
  QVERIFY(bar != nullptr);
  click(bar->widgetForAction(actionNamed(bar, caption)));
}

// What a screen reader reads for a control: its accessible name.
inline QString readAloud(QWidget* w) {
  QAccessibleInterface* face = QAccessible::queryAccessibleInterface(w);
  return face != nullptr ? face->text(QAccessible::Name) : QString();
}

// What a list shows, row by row.
inline QStringList rowsOf(const QAbstractItemView* view) {
  QStringList out;
  for (int i = 0; i < view->model()->rowCount(); ++i) {
    out << view->model()->index(i, 0).data().toString();
  }
  return out;
}

// A click on a row at its place, or on the first row that starts with `start`; the mouse moves
// there first, as a hand does.
inline void clickRow(QAbstractItemView* view, int row) {
  QVERIFY2(row >= 0 && row < view->model()->rowCount(), qPrintable(view->objectName()));
  const QPoint at = view->visualRect(view->model()->index(row, 0)).center();
  QTest::mouseMove(view->viewport(), at);
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
}
inline void clickRow(QAbstractItemView* view, const QString& start) {
  const auto pattern = QRegularExpression(QRegularExpression::escape(start) + ".*");
  clickRow(view, static_cast<int>(rowsOf(view).indexOf(pattern)));
}

// An item chosen in the popup of a combo box opened with a click.
inline void pick(QComboBox* box, const QString& start) {
  click(box);
  QTRY_VERIFY(box->view()->isVisible());
  clickRow(box->view(), start);
  QTRY_VERIFY(!box->view()->isVisible());
}

// A field typed over: a click in it, Ctrl+A, Backspace, then the text.
inline void retype(QLineEdit* edit, const QString& text) {
  click(edit);
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Backspace);
  QTest::keyClicks(edit, text);
}

// A date typed into a date box: a double click on the day selects it, then each full part moves
// on to the next one.
inline void typeDate(QDateEdit* box, const QString& ddmmyyyy) {
  QVERIFY(box->isVisible() && box->isEnabled());
  const QPoint day(box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth) + 4, box->height() / 2);
  QTest::mouseDClick(box, Qt::LeftButton, {}, day);
  QTest::keyClicks(box, ddmmyyyy);
}

// The face a list is drawn with: fixed-pitch ("Courier New" or its metric twin).
inline void checkFixedPitch(const QWidget* w) {
  const QFontInfo face = w->fontInfo();
  QVERIFY2(
      face.fixedPitch() && (face.family() == "Liberation Mono" || face.family() == "Courier New"),
      qPrintable(w->objectName() + ": " + face.family()));
}

// A heading over a list starts at the column of the list's text: the first dark pixels drawn by
// each, in the window's coordinates.
inline int inkStart(QWidget* w, const QRect& area) {
  const QImage image = w->grab(area).toImage();
  for (int x = 0; x < image.width(); ++x) {
    for (int y = 0; y < image.height(); ++y) {
      if (qGray(image.pixel(x, y)) < 64) {
        return w->mapTo(w->window(), area.topLeft()).x() + x;
      }
    }
  }
  return -1;
}
inline void checkHeadingOver(QWidget* heading, QAbstractItemView* list) {
  const int head = inkStart(heading, heading->rect());
  const int text = inkStart(list->viewport(), list->visualRect(list->model()->index(0, 0)));
  QVERIFY2(head >= 0 && qAbs(head - text) <= 1, qPrintable(QString("%1, %2").arg(head).arg(text)));
}

// Runs `open`, which shows a modal window; once the window is up `use` works in it, then its
// "esci" button closes it unless `use` closed it.
inline void inModal(const std::function<void()>& open, const std::function<void(QWidget*)>& use) {
  bool closed = false;
  QTimer poll;
  QObject::connect(&poll, &QTimer::timeout, [&] {
    if (QWidget* modal = QApplication::activeModalWidget(); modal && modal->isActiveWindow()) {
      poll.stop();
      use(modal);
      if (modal->isVisible()) {
        click(child<QPushButton>(modal, "esci"));
      }
      closed = !modal->isVisible();
      modal->close();  // never left waiting: the test fails below
    }
  });
  poll.start(10);
  open();
  QVERIFY2(closed, "no modal window, or one that esci did not close");
}

}  // namespace contavia::test
