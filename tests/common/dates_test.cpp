// DateKey, IsLeapYear, ValidateDate and the reading of a typed date.

#include "common/dates.h"

#include <gtest/gtest.h>

#include "tests/support/scripted_prompter.h"

namespace contavia {
namespace {

TEST(DateKey, SortsDatesWithoutCountingDays) {
  EXPECT_EQ(dateKey("01/01/2004"), 366 * 2004 + 1);
  EXPECT_EQ(dateKey("21/11/2026"), 366 * 2026 + 304 + 21);
  EXPECT_EQ(dateKey("01/03/2004") - dateKey("28/02/2004"), 2);  // 29 February exists
  EXPECT_EQ(dateKey("01/03/2003") - dateKey("28/02/2003"), 1);
  EXPECT_EQ(dateKey("01/01/2004") - dateKey("01/01/2003"), 366);  // although 2003 has 365 days
  EXPECT_LT(dateKey("31/12/2003"), dateKey("01/01/2004"));
  // Eight digits without separators, or blanks for the leading zeros, read the same.
  for (const char* same : {"21112026", "21/11/2026", "21/11/ 2026", "21/11 /2026"}) {
    EXPECT_EQ(dateKey(same), 366 * 2026 + 304 + 21) << same;
  }
  EXPECT_EQ(dateKey(" 1/ 3/2004"), dateKey("01/03/2004"));
  // A month outside 1..12 counts no days before it; a blank date is 0.
  EXPECT_EQ(dateKey("05/13/2026"), 366 * 2026 + 5);
  EXPECT_EQ(dateKey("          "), 0);
}

TEST(DateKey, OrdersEveryDayOfSeveralYears) {
  std::int32_t previous = 0;
  for (int year = 1999; year <= 2101; ++year) {
    for (int month = 1; month <= 12; ++month) {
      for (int day = 1; day <= 31; ++day) {
        if (!isValidDate(day, month, year)) {
          continue;
        }
        const std::string text = formatDateDmy({day, month, year});
        const std::int32_t key = dateKey(text);
        ASSERT_GT(key, previous) << text;
        previous = key;
      }
    }
  }
}

TEST(IsLeapYear, GregorianRule) {
  for (int year : {2000, 2004, 2024, 1600, 2400}) {
    EXPECT_TRUE(isLeapYear(year)) << year;
  }
  for (int year : {1900, 2100, 2003, 2026, 1800}) {
    EXPECT_FALSE(isLeapYear(year)) << year;
  }
}

TEST(ValidateDate, RulesAndMessage) {
  struct Case {
    int day, month, year;
    bool valid;
  };
  const std::vector<Case> cases = {
      {31, 4, 2004, false}, {30, 4, 2004, true},  {31, 11, 2004, false}, {29, 2, 2003, false},
      {29, 2, 2004, true},  {30, 2, 2004, false}, {29, 2, 1900, false},  {29, 2, 2000, true},
      {0, 5, 2004, true},   {-3, 5, 2004, true},  {15, 13, 2004, false}, {15, 0, 2004, false},
      {32, 1, 2004, false}, {31, 12, 2004, true},
  };
  for (const Case& c : cases) {
    test::ScriptedPrompter prompter;
    bool ok = true;
    validateDate(c.day, c.month, c.year, ok, prompter);
    EXPECT_EQ(ok, c.valid) << c.day << "/" << c.month << "/" << c.year;
    if (c.valid) {
      EXPECT_TRUE(prompter.messages.empty());
      bool untouched = false;  // success leaves the caller's flag as it was
      validateDate(c.day, c.month, c.year, untouched, prompter);
      EXPECT_FALSE(untouched);
    } else {
      ASSERT_EQ(prompter.messages.size(), 1U);
      EXPECT_EQ(prompter.messages[0],
                (Message{"Errore",
                         " Data Errata; Inserire la data nel formato GGMMAAAA immettendo lo zero "
                         "davanti ai numeri con una sola cifra.",
                         Buttons::Ok, Icon::Exclamation, Answer::Ok}));
    }
  }
}

TEST(Dates, FormatAndParse) {
  EXPECT_EQ(formatDateDmy({1, 2, 2026}), "01/02/2026");
  EXPECT_EQ(formatDateDashed({1, 2, 2026}), "01-02-2026");
  EXPECT_EQ(parseDate("29/02/2024"), (CalendarDate{29, 2, 2024}));
  for (const char* bad : {"29/02/2026", "00/01/2026", "1/1/2026", "01-01-2026", "01/01/20a6",
                          "31/04/2026", "", "01/01/2026 "}) {
    EXPECT_FALSE(parseDate(bad)) << bad;
  }
}

}  // namespace
}  // namespace contavia
