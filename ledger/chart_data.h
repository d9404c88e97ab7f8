#pragma once
// The numbers of the charts, computed here and only drawn by the windows: the balance of the
// working account over time and the scale of an axis with its ticks and Italian labels.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/open_account.h"

namespace contavia {

struct BalancePoint {
  std::string date;  // "dd/mm/yyyy"
  std::int32_t dateKey;
  double balance;  // after the last movement of that date
  bool future;     // dated after today
};

struct BalanceChart {
  // Where the line starts: the carried-forward amount, at its date (empty before a closing).
  std::string startDate;
  double start = 0.0;
  std::vector<BalancePoint> points;  // one a movement date, in date order
  // The lowest balance the credit line allows (minus the credit line), when there is one.
  std::optional<double> creditFloor;
};

BalanceChart balanceChart(const OpenAccount& account, std::int32_t todayKey);

struct ChartAxis {
  double low = 0.0;
  double high = 0.0;
  std::vector<double> ticks;
  std::vector<std::string> labels;  // Italian: "1.500", "-250", "2,50"
};

// A scale that holds `min`..`max` and zero, with about `wanted` ticks at 1, 2 or 5 times a
// power of ten.
ChartAxis chartAxis(double min, double max, int wanted);

}  // namespace contavia
