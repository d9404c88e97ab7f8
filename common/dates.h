#pragma once
// Dates are kept as the text "dd/mm/yyyy" and compared only through their DateKey.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace contavia {

class Prompter;
struct Message;

struct CalendarDate {
  int day = 0;
  int month = 0;
  int year = 0;
  bool operator==(const CalendarDate&) const = default;
};

// The sortable key of a stored date: 366 × year + days before the month + day, computed in
// single precision. Consecutive years are 366 apart: differences are never a number of days.
std::int32_t dateKey(std::string_view dateText);

bool isLeapYear(int year);

// The message text shown when a date is refused.
inline constexpr const char* kWrongDateText =
    " Data Errata; Inserire la data nel formato GGMMAAAA immettendo lo zero davanti ai numeri "
    "con una sola cifra.";

// The box that refuses a date: "Errore", the text above, exclamation.
Message wrongDateBox();

// True when the triple passes the date rules (a day of 0 or less is not refused).
bool isValidDate(int day, int month, int year);
// Checks the triple; on failure shows the "Errore" box and sets `ok` to false, else leaves it.
void validateDate(int day, int month, int year, bool& ok, Prompter& prompter);
// A masked "##/##/####" date field left as it was: empty, or untouched ("__/__/____").
bool dateLeftEmpty(std::string_view text);

// A date typed in a masked "##/##/####" field: an empty or untouched field ("__/__/____") is
// refused with an error box saying `requiredText`, then the date rules. False after a message.
bool typedDateAccepted(std::string_view text, const std::string& requiredText, Prompter& prompter);

// "dd/mm/yyyy" of a date (the masks "dd/mm/yyyy" and "dd/mm/YYYY").
std::string formatDateDmy(const CalendarDate& date);
// "DD-MM-YYYY".
std::string formatDateDashed(const CalendarDate& date);
// Reads a strict "dd/mm/yyyy" text of a real calendar date.
std::optional<CalendarDate> parseDate(std::string_view text);

}  // namespace contavia
