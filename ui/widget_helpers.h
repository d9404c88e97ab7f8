#pragma once
// Small pieces every window shares: control names, the fixed-pitch font, Enter as Tab, and the
// key rules of the entry fields applied to a line edit.

#include <QFont>
#include <QLabel>
#include <QObject>
#include <functional>
#include <string>

#include "common/key_rules.h"

class QAbstractButton;
class QAbstractSpinBox;
class QAbstractItemModel;
class QCoreApplication;
class QLineEdit;
class QListView;
class QPushButton;
class QWidget;

namespace contavia {
class Prompter;
}

namespace contavia::ui {

// Text between the core (UTF-8) and Qt.
inline QString qs(const std::string& text) { return QString::fromStdString(text); }
inline std::string ss(const QString& text) { return text.toStdString(); }

// Gives a widget its control name (objectName). What a screen reader reads is the widget's
// visible text, or for a field the caption of its label (its buddy), never the control name.
template <class W>
W* named(W* widget, const QString& controlName) {
  widget->setObjectName(controlName);
  return widget;
}

// A button with its caption, its control name and the caption as its accessible name; Enter on
// it presses it.
QPushButton* pushButton(const QString& caption, const QString& controlName);

// The fixed-pitch font of lists and reports ("Courier New", or its metric twin).
QFont fixedPitchFont(int pointSize = 10);

// A read-only list of report-like rows in the fixed-pitch font: rows of one height (quick with a
// million rows), long rows scrolled sideways rather than cut.
QListView* fixedPitchList(const QString& controlName, QAbstractItemModel* model);

// A file that comes with the program (its pictures): beside the program when it runs from its
// build folder, in share/contavia when it is installed; empty when there is none.
QString programFile(const QString& name);

// Qt's own texts (dialog buttons, the print preview's tools) and the calendars of the date
// boxes (month and day names, Monday first) in Italian, whatever the system's language.
void loadItalianTranslations(QCoreApplication& app);

// Moves the focus to the next control when Enter is pressed in a line edit.
void enterMovesFocus(QWidget* field);
// Tab and Shift+Tab move from a date box to the next or previous control.
void tabLeavesDateBox(QAbstractSpinBox* box);
// Enter in `field` gives the focus to `target`, wherever it stands in the tab order.
void enterMovesFocusTo(QWidget* field, QWidget* target);

// A date typed over the mask "##/##/####" (a blank shows as "_"; an empty field reads
// "__/__/____"), as wide as its ten characters; Enter moves on.
QLineEdit* maskedDateField(const QString& controlName, const QString& date = {});

// Applies a key rule to a field (a line edit or a date box): keys are let through, changed,
// refused with the beep, or turned into a move to the next control, as the rule says.
using KeyRule = std::function<KeyVerdict(const QString& currentText, char key)>;
void applyKeyRule(QWidget* field, KeyRule rule, Prompter& prompter);

// Enter on a button presses it, as Space does.
void enterClicks(QAbstractButton* button);

// Text typed while `button` has the focus goes to `field`, the field it was meant for: a space
// among it never presses the button.
void textGoesTo(QAbstractButton* button, QWidget* field);

// A label that reports clicks and does not pass them to the widget below.
class ClickableLabel : public QLabel {
  Q_OBJECT
 public:
  using QLabel::QLabel;

 signals:
  void clicked();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
};

}  // namespace contavia::ui
