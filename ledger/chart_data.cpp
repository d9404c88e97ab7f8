#include "ledger/chart_data.h"

#include <algorithm>
#include <cmath>

#include "common/dates.h"
#include "common/number_masks.h"
#include "common/text.h"
#include "ledger/balance_history.h"

namespace contavia {

BalanceChart balanceChart(const OpenAccount& account, std::int32_t todayKey) {
  BalanceChart chart;
  const CarryForward& carry = account.carryForward();
  chart.startDate = trim(carry.carryDate);
  chart.start = carry.carryAmount;
  if (const double credit = val(account.creditLine()); credit > 0.0) {
    chart.creditFloor = -credit;
  }
  const MovementRecords& movements = account.movements();
  std::string scratch;
  for (const BalanceStep& step : balanceHistory(movements, carry.carryAmount)) {
    if (!chart.points.empty() && chart.points.back().dateKey == step.dateKey) {
      chart.points.back().balance = step.balance;  // the last movement of the date counts
      continue;
    }
    chart.points.push_back({trim(movements[step.movement].date(scratch)), step.dateKey,
                            step.balance, step.dateKey > todayKey});
  }
  return chart;
}

ChartAxis chartAxis(double min, double max, int wanted) {
  ChartAxis axis;
  min = std::min(min, 0.0);
  max = std::max(max, 0.0);
  if (max - min < 1e-9) {
    max = min + 1.0;
  }
  const double rough = (max - min) / std::max(wanted, 1);
  const double power = std::pow(10.0, std::floor(std::log10(rough)));
  double step = power;
  for (const double factor : {1.0, 2.0, 5.0, 10.0}) {
    step = factor * power;
    if (step >= rough) {
      break;
    }
  }
  axis.low = std::floor(min / step) * step;
  axis.high = std::ceil(max / step) * step;
  const bool whole = step >= 1.0;
  for (double tick = axis.low; tick <= axis.high + step / 2; tick += step) {
    const double value = std::abs(tick) < step / 2 ? 0.0 : tick;
    axis.ticks.push_back(value);
    axis.labels.push_back(formatNumber(value, whole ? "###,###,##0" : "###,###,##0.00"));
  }
  return axis;
}

}  // namespace contavia
