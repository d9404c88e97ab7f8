#pragma once
// The charts: the working account's balance over time (a line, the credit line beside it, the
// movements dated after today apart) and balances as bars (by account, category or group). The
// numbers come from the core (ledger/chart_data.h); here they are only drawn, on the screen, on
// the printer or in a PDF, by one painting routine.

#include <QDialog>
#include <QString>
#include <QWidget>
#include <string>
#include <utility>
#include <vector>

#include "ledger/chart_data.h"
#include "ui/print_preview.h"

class QLabel;
class QPainter;

namespace contavia {
class Prompter;
}

namespace contavia::ui {

struct ChartModel {
  QString title;
  bool line = true;  // the balance over time; otherwise bars
  BalanceChart balance;
  std::vector<std::pair<std::string, double>> bars;  // label, value
};

// Draws the chart into `area` (screen, printer or PDF alike).
void paintChart(QPainter& painter, const QRectF& area, const ChartModel& model);

// The chart drawn at the size of the widget; the value under the pointer goes to `pointed`.
class ChartView final : public QWidget {
  Q_OBJECT

 public:
  explicit ChartView(ChartModel model, QWidget* parent = nullptr);
  const ChartModel& model() const { return model_; }
  // What the chart shows at `x` (a date and its balance, or a bar and its value).
  QString valueAt(double x) const;

 signals:
  void pointed(const QString& text);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  ChartModel model_;
};

// The chart window (`Grafico`), with "Stampa..." and "Salva PDF...".
class ChartWindow final : public QDialog {
  Q_OBJECT

 public:
  ChartWindow(ChartModel model, PdfFileChooser choosePdfFile, Prompter& prompter,
              QWidget* parent = nullptr);
  ChartView* view() const { return view_; }

 private:
  void savePdf();
  void print();

  ChartView* view_;
  QLabel* value_;
  PdfFileChooser choosePdfFile_;
  Prompter& prompter_;
};

}  // namespace contavia::ui
