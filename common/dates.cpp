#include "common/dates.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "common/number_masks.h"
#include "common/prompter.h"
#include "common/text.h"

namespace contavia {
namespace {

constexpr std::array<int, 12> kDaysBeforeMonth = {0,   31,  59,  90,  120, 151,
                                                  181, 212, 243, 273, 304, 334};

// Val of a text, held to the range where a single-precision key stays meaningful.
double boundedVal(std::string_view text) {
  const double v = val(text);
  return std::isfinite(v) ? std::clamp(v, -1.0e6, 1.0e6) : 0.0;
}

// Day, month and year of a well-formed "dd/mm/yyyy", read digit by digit: the same values the
// general reading below gives, without building texts (dates are compared by the thousand).
bool readPlainDate(std::string_view text, int& day, int& month, int& year) {
  if (text.size() != 10 || text[2] != '/' || text[5] != '/') {
    return false;
  }
  int value[3] = {0, 0, 0};
  constexpr std::size_t kStart[3] = {0, 3, 6};
  constexpr std::size_t kLength[3] = {2, 2, 4};
  for (std::size_t part = 0; part < 3; ++part) {
    for (std::size_t i = kStart[part]; i < kStart[part] + kLength[part]; ++i) {
      if (text[i] < '0' || text[i] > '9') {
        return false;
      }
      value[part] = value[part] * 10 + (text[i] - '0');
    }
  }
  day = value[0];
  month = value[1];
  year = value[2];
  return true;
}

}  // namespace

bool isLeapYear(int year) {
  if (year % 4 != 0) {
    return false;
  }
  if (year % 100 == 0 && year % 400 != 0) {
    return false;
  }
  return true;
}

std::int32_t dateKey(std::string_view dateText) {
  double day = 0.0;
  double month = 0.0;
  double year = 0.0;
  if (int d = 0, m = 0, y = 0; readPlainDate(dateText, d, m, y)) {
    // Whole numbers below 2^24: the single-precision sum below is exact, so it is done in
    // integers.
    const int before =
        m >= 1 && m <= 12 ? kDaysBeforeMonth[m - 1] + (m >= 3 && isLeapYear(y) ? 1 : 0) : 0;
    return 366 * y + before + d;
  }
  day = boundedVal(leftChars(dateText, 2));
  const bool separated = midChars(dateText, 2, 1) == "/";
  month = boundedVal(midChars(dateText, separated ? 3 : 2, 2));
  year = boundedVal(rightChars(dateText, 4));

  float before = 0.0F;
  const int monthIndex = static_cast<int>(month);
  if (month == monthIndex && monthIndex >= 1 && monthIndex <= 12) {
    before = static_cast<float>(kDaysBeforeMonth[monthIndex - 1]);
    const int wholeYear = static_cast<int>(year);
    if (monthIndex >= 3 && isLeapYear(wholeYear)) {
      before += 1.0F;
    }
  }
  const float key = 366.0F * static_cast<float>(year) + before + static_cast<float>(day);
  return static_cast<std::int32_t>(std::nearbyint(key));
}

bool isValidDate(int day, int month, int year) {
  if (month < 1 || month > 12) {
    return false;
  }
  if (day > 30 && (month == 4 || month == 6 || month == 9 || month == 11)) {
    return false;
  }
  if (month == 2 && day > (isLeapYear(year) ? 29 : 28)) {
    return false;
  }
  return day <= 31;
}

Message wrongDateBox() {
  return Message{"Errore", kWrongDateText, Buttons::Ok, Icon::Exclamation, Answer::Ok};
}

void validateDate(int day, int month, int year, bool& ok, Prompter& prompter) {
  if (!isValidDate(day, month, year)) {
    prompter.show(wrongDateBox());
    ok = false;
  }
}

bool dateLeftEmpty(std::string_view text) {
  const std::string t = trim(text);
  return t.empty() || t == "__/__/____";
}

bool typedDateAccepted(std::string_view text, const std::string& requiredText, Prompter& prompter) {
  const std::string t = trim(text);
  if (dateLeftEmpty(t)) {
    prompter.show(errorBox(requiredText));
    return false;
  }
  // A date typed only in part ("15/03/____") is no date: it would be written as it stands.
  const bool complete = t.size() == 10 && t[2] == '/' && t[5] == '/' &&
                        std::all_of(t.begin(), t.end(),
                                    [](char ch) { return ch == '/' || (ch >= '0' && ch <= '9'); });
  if (!complete) {
    prompter.show(wrongDateBox());
    return false;
  }
  bool ok = true;
  validateDate(static_cast<int>(val(leftChars(t, 2))), static_cast<int>(val(midChars(t, 3, 2))),
               static_cast<int>(val(midChars(t, 6, 4))), ok, prompter);
  return ok;
}

std::string formatDateDmy(const CalendarDate& date) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%02d/%02d/%04d", date.day, date.month, date.year);
  return buf;
}

std::string formatDateDashed(const CalendarDate& date) {
  char buf[32];
  std::snprintf(buf, sizeof buf, "%02d-%02d-%04d", date.day, date.month, date.year);
  return buf;
}

std::optional<CalendarDate> parseDate(std::string_view text) {
  if (text.size() != 10 || text[2] != '/' || text[5] != '/') {
    return std::nullopt;
  }
  auto number = [&](std::size_t from, std::size_t len) {
    int value = 0;
    for (std::size_t i = from; i < from + len; ++i) {
      if (text[i] < '0' || text[i] > '9') {
        return -1;
      }
      value = value * 10 + (text[i] - '0');
    }
    return value;
  };
  const CalendarDate date{number(0, 2), number(3, 2), number(6, 4)};
  if (date.day < 1 || date.month < 1 || date.year < 1 ||
      !isValidDate(date.day, date.month, date.year)) {
    return std::nullopt;
  }
  return date;
}

}  // namespace contavia
