#pragma once
// Today's date. The environment variable CONTAVIA_OGGI ("dd/mm/yyyy") fixes it, so that tests and
// examples are reproducible.

#include <optional>
#include <string>

#include "common/dates.h"

namespace contavia {

class Clock {
 public:
  virtual ~Clock() = default;
  virtual CalendarDate today() const = 0;
  // Today as "dd/mm/yyyy".
  std::string todayText() const { return formatDateDmy(today()); }
  // The time of day as "HHMMSS" (the system's, whatever fixes the date).
  std::string timeText() const;
};

// The system date, unless CONTAVIA_OGGI holds a valid date (or one is given explicitly).
class SystemClock final : public Clock {
 public:
  SystemClock();
  explicit SystemClock(CalendarDate fixed) : fixed_(fixed) {}
  CalendarDate today() const override;

 private:
  std::optional<CalendarDate> fixed_;
};

class FixedClock final : public Clock {
 public:
  explicit FixedClock(CalendarDate date) : date_(date) {}
  CalendarDate today() const override { return date_; }
  void set(CalendarDate date) { date_ = date; }

 private:
  CalendarDate date_;
};

inline constexpr const char* kTodayVariable = "CONTAVIA_OGGI";

}  // namespace contavia
