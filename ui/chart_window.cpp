#include "ui/chart_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "archive/disk_errors.h"
#include "common/dates.h"
#include "common/number_masks.h"
#include "common/prompter.h"
#include "ui/widget_helpers.h"

namespace contavia::ui {
namespace {

const QColor kNavy(0, 0, 0x80);
const QColor kFuture(0x80, 0x80, 0x80);
const QColor kCredit(0xC0, 0, 0);
const QColor kGrid(0xDD, 0xDD, 0xDD);

QString amount(double value) { return qs(formatNumber(value, "###,###,##0.00")); }

// Where everything goes in `area`: the plot, the vertical scale, and the horizontal place of
// each point (or the middle of each bar).
struct ChartLayout {
  QRectF plot;
  ChartAxis axis;
  std::vector<double> xs;
  double startX = 0.0;  // the line's start (the carried-forward amount)
  double barWidth = 0.0;

  double y(double value) const {
    const double span = axis.high - axis.low;
    return plot.bottom() - (value - axis.low) / span * plot.height();
  }
};

ChartLayout layoutOf(const QRectF& area, const ChartModel& model, const QFontMetricsF& metrics) {
  ChartLayout layout;
  std::vector<double> values;
  if (model.line) {
    values.push_back(model.balance.start);
    for (const BalancePoint& p : model.balance.points) {
      values.push_back(p.balance);
    }
    if (model.balance.creditFloor) {
      values.push_back(*model.balance.creditFloor);
    }
  } else {
    for (const auto& bar : model.bars) {
      values.push_back(bar.second);
    }
  }
  const auto [low, high] = values.empty()
                               ? std::pair(0.0, 0.0)
                               : std::pair(*std::min_element(values.begin(), values.end()),
                                           *std::max_element(values.begin(), values.end()));
  layout.axis = chartAxis(low, high, 6);
  double labelWidth = 0.0;
  for (const std::string& label : layout.axis.labels) {
    labelWidth = std::max(labelWidth, metrics.horizontalAdvance(qs(label)));
  }
  const double line = metrics.height();
  layout.plot = area.adjusted(labelWidth + 16, line * 2.5, -24, -line * 2.5);

  if (model.line) {
    const auto& points = model.balance.points;
    const std::int32_t startKey = !model.balance.startDate.empty()
                                      ? dateKey(model.balance.startDate)
                                      : (points.empty() ? 0 : points.front().dateKey);
    const std::int32_t endKey = points.empty() ? startKey + 1 : points.back().dateKey;
    const double span = std::max(1, endKey - startKey);
    const auto x = [&](std::int32_t key) {
      return layout.plot.left() + (key - startKey) / span * layout.plot.width();
    };
    layout.startX = x(startKey);
    for (const BalancePoint& p : points) {
      layout.xs.push_back(x(p.dateKey));
    }
  } else if (!model.bars.empty()) {
    const double slot = layout.plot.width() / static_cast<double>(model.bars.size());
    layout.barWidth = slot * 0.6;
    for (std::size_t i = 0; i < model.bars.size(); ++i) {
      layout.xs.push_back(layout.plot.left() + slot * (static_cast<double>(i) + 0.5));
    }
  }
  return layout;
}

void paintScale(QPainter& painter, const ChartLayout& layout) {
  const QFontMetricsF metrics(painter.font());
  for (std::size_t i = 0; i < layout.axis.ticks.size(); ++i) {
    const double y = layout.y(layout.axis.ticks[i]);
    painter.setPen(layout.axis.ticks[i] == 0.0 ? QPen(Qt::black) : QPen(kGrid));
    painter.drawLine(QPointF(layout.plot.left(), y), QPointF(layout.plot.right(), y));
    painter.setPen(Qt::black);
    const QString label = qs(layout.axis.labels[i]);
    painter.drawText(QPointF(layout.plot.left() - 8 - metrics.horizontalAdvance(label),
                             y + metrics.ascent() / 2 - 1),
                     label);
  }
  painter.drawLine(layout.plot.bottomLeft(), layout.plot.topLeft());
}

void paintLine(QPainter& painter, const ChartLayout& layout, const ChartModel& model) {
  const BalanceChart& chart = model.balance;
  const QFontMetricsF metrics(painter.font());
  if (chart.creditFloor) {
    const double y = layout.y(*chart.creditFloor);
    painter.setPen(QPen(kCredit, 1.5, Qt::DashLine));
    painter.drawLine(QPointF(layout.plot.left(), y), QPointF(layout.plot.right(), y));
    painter.drawText(QPointF(layout.plot.right() - metrics.horizontalAdvance("Fido"), y - 4),
                     "Fido");
  }
  QPointF previous(layout.startX, layout.y(chart.start));
  for (std::size_t i = 0; i < chart.points.size(); ++i) {
    const QPointF here(layout.xs[i], layout.y(chart.points[i].balance));
    const bool future = chart.points[i].future;
    painter.setPen(QPen(future ? kFuture : kNavy, 2, future ? Qt::DashLine : Qt::SolidLine));
    painter.drawLine(previous, QPointF(here.x(), previous.y()));  // the balance holds until then
    painter.drawLine(QPointF(here.x(), previous.y()), here);
    previous = here;
  }
  // Dates under the plot: the first, the last and a few between.
  painter.setPen(Qt::black);
  const std::size_t n = chart.points.size();
  const std::size_t shown = std::min<std::size_t>(n, 5);
  double lastRight = -1e9;
  for (std::size_t k = 0; k < shown; ++k) {
    const std::size_t i = shown == 1 ? 0 : k * (n - 1) / (shown - 1);
    const QString date = qs(chart.points[i].date);
    const double left =
        std::clamp(layout.xs[i] - metrics.horizontalAdvance(date) / 2, layout.plot.left(),
                   layout.plot.right() - metrics.horizontalAdvance(date));
    if (left > lastRight + 8) {
      painter.drawText(QPointF(left, layout.plot.bottom() + metrics.height() * 1.4), date);
      lastRight = left + metrics.horizontalAdvance(date);
    }
  }
}

void paintBars(QPainter& painter, const ChartLayout& layout, const ChartModel& model) {
  const QFontMetricsF metrics(painter.font());
  const double zero = layout.y(0.0);
  for (std::size_t i = 0; i < model.bars.size(); ++i) {
    const double value = model.bars[i].second;
    const double top = layout.y(value);
    const QRectF bar(layout.xs[i] - layout.barWidth / 2, std::min(top, zero), layout.barWidth,
                     std::abs(zero - top));
    painter.fillRect(bar, value < 0 ? kCredit : kNavy);
    painter.setPen(Qt::black);
    const QString label =
        metrics.elidedText(qs(model.bars[i].first), Qt::ElideRight, layout.barWidth / 0.6);
    painter.drawText(QPointF(layout.xs[i] - metrics.horizontalAdvance(label) / 2,
                             layout.plot.bottom() + metrics.height() * 1.4),
                     label);
    const QString text = amount(value);
    painter.drawText(QPointF(layout.xs[i] - metrics.horizontalAdvance(text) / 2,
                             value < 0 ? bar.bottom() + metrics.height() : bar.top() - 4),
                     text);
  }
}

}  // namespace

void paintChart(QPainter& painter, const QRectF& area, const ChartModel& model) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(area, Qt::white);
  const ChartLayout layout = layoutOf(area, model, QFontMetricsF(painter.font()));
  painter.setPen(Qt::black);
  QFont title = painter.font();
  title.setBold(true);
  painter.save();
  painter.setFont(title);
  painter.drawText(
      QRectF(area.left(), area.top() + 4, area.width(), layout.plot.top() - area.top()),
      Qt::AlignHCenter | Qt::AlignTop, model.title);
  painter.restore();
  paintScale(painter, layout);
  if (model.line) {
    paintLine(painter, layout, model);
  } else {
    paintBars(painter, layout, model);
  }
  painter.restore();
}

ChartView::ChartView(ChartModel model, QWidget* parent)
    : QWidget(parent), model_(std::move(model)) {
  named(this, "AreaGrafico");
  setMouseTracking(true);
  setMinimumSize(420, 280);
  setAttribute(Qt::WA_OpaquePaintEvent);
}

QString ChartView::valueAt(double x) const {
  const ChartLayout layout = layoutOf(rect(), model_, QFontMetricsF(font()));
  if (layout.xs.empty()) {
    return {};
  }
  std::size_t nearest = 0;
  for (std::size_t i = 1; i < layout.xs.size(); ++i) {
    if (std::abs(layout.xs[i] - x) < std::abs(layout.xs[nearest] - x)) {
      nearest = i;
    }
  }
  if (model_.line) {
    const BalancePoint& p = model_.balance.points[nearest];
    return qs(p.date) + ": " + amount(p.balance) + (p.future ? " (movimenti futuri)" : "");
  }
  return qs(model_.bars[nearest].first) + ": " + amount(model_.bars[nearest].second);
}

void ChartView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  paintChart(painter, rect(), model_);
}

void ChartView::mouseMoveEvent(QMouseEvent* event) { emit pointed(valueAt(event->position().x())); }

ChartWindow::ChartWindow(ChartModel model, PdfFileChooser choosePdfFile, Prompter& prompter,
                         QWidget* parent)
    : QDialog(parent),
      view_(new ChartView(std::move(model), this)),
      value_(named(new QLabel, "ValoreSottoPuntatore")),
      choosePdfFile_(std::move(choosePdfFile)),
      prompter_(prompter) {
  named(this, "FormGrafico");
  setWindowTitle(view_->model().title);
  setSizeGripEnabled(true);
  value_->setText("Passa con il puntatore sul grafico per leggerne i valori.");
  connect(view_, &ChartView::pointed, value_, &QLabel::setText);
  auto* print = named(new QPushButton("Stampa..."), "Stampa");
  auto* pdf = named(new QPushButton("Salva PDF..."), "SalvaPdf");
  auto* close = named(new QPushButton("Esci"), "esci");
  connect(print, &QPushButton::clicked, this, &ChartWindow::print);
  connect(pdf, &QPushButton::clicked, this, &ChartWindow::savePdf);
  connect(close, &QPushButton::clicked, this, &QDialog::accept);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(value_, 1);
  for (QPushButton* b : {print, pdf, close}) {
    buttons->addWidget(b);
  }
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(view_, 1);
  layout->addLayout(buttons);
  resize(900, 560);
  close->setFocus();
}

void ChartWindow::print() {
  QPrinter& printer = programPrinter();
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() != QDialog::Accepted) {
    return;
  }
  printer.setPageOrientation(QPageLayout::Landscape);
  QPainter painter(&printer);
  paintChart(painter, painter.viewport(), view_->model());
}

void ChartWindow::savePdf() {
  const QString path = choosePdfFile_(this, view_->model().title + ".pdf");
  if (path.isEmpty()) {
    return;
  }
  QPdfWriter writer(path);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageOrientation(QPageLayout::Landscape);
  writer.setResolution(96);
  QPainter painter;
  if (!painter.begin(&writer)) {
    prompter_.show(fileNotWrittenBox(ss(path)));
    return;
  }
  paintChart(painter, painter.viewport(), view_->model());
  painter.end();
}

}  // namespace contavia::ui
