#include "common/clock.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace contavia {

SystemClock::SystemClock() {
  if (const char* value = std::getenv(kTodayVariable); value != nullptr) {
    fixed_ = parseDate(value);
  }
}

std::string Clock::timeText() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  char buf[16];
  std::snprintf(buf, sizeof buf, "%02d%02d%02d", local.tm_hour, local.tm_min, local.tm_sec);
  return buf;
}

CalendarDate SystemClock::today() const {
  if (fixed_) {
    return *fixed_;
  }
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return CalendarDate{local.tm_mday, local.tm_mon + 1, local.tm_year + 1900};
}

}  // namespace contavia
