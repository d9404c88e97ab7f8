// "Riordina archivio" on the working account: two-digit years get their century.

#include "frame/two_digit_years.h"

#include "tests/ledger/movement_entry_fixture.h"

namespace contavia {
namespace {

using test::Bytes;
using test::MovementSpec;

class TwoDigitYearsTest : public test::MovementEntryTest {};

TEST(FourDigitYearTest, ShortYearsGetTheirCentury) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"05/03/98", "05/03/1998"},
      {"05/03/20", "05/03/2020"},
      {"05/03/21", "05/03/1921"},
      {"05/03/00", "05/03/2000"},
      {"05/03/98  ", "05/03/1998"},
      {"05/03/1998", "05/03/1998"},
      {"5/3/98", "5///9/1998"},  // rebuilt from the positions all the same
      {"", ""},
      {"1/98", "1/98"},
  };
  for (const auto& [stored, expected] : cases) {
    EXPECT_EQ(fourDigitYearDate(stored), expected) << stored;
    EXPECT_EQ(fourDigitYearDate(expected), expected) << "twice: " << stored;
  }
}

TEST_F(TwoDigitYearsTest, ReorderRewritesOnlyTheShortDatesAndTwiceChangesNothing) {
  const std::vector<MovementSpec> movements = {
      {.number = 1, .date = "05/03/98", .causale = "AFF", .amount = 10, .sign = "D"},
      {.number = 2, .date = "05/03/1998", .causale = "STI", .amount = 20, .sign = "A"},
      {.number = 3, .date = "06/03/21", .causale = "STI", .amount = 30, .sign = "A"},
  };
  std::vector<Bytes> records;
  for (const MovementSpec& m : movements) {
    records.push_back(test::movementRecord(m));
  }
  // Zero bytes in the linked fields: a record that is rewritten would get blanks there.
  std::fill(records[1].begin() + 65, records[1].end(), 0);
  test::writeTable(folder, "CC1.MOC", "CC1.MOR", records);
  reopen();

  ASSERT_TRUE(reorderTwoDigitYears(*session));
  EXPECT_TRUE(prompter.messages.empty());
  MovementSpec first = movements[0];
  first.date = "05/03/1998";
  MovementSpec third = movements[2];
  third.date = "06/03/1921";
  EXPECT_EQ(folder.read("CC1.MOC"),
            test::cat({test::movementRecord(first), records[1], test::movementRecord(third)}));
  EXPECT_EQ(account().movement(3).operationDate, "06/03/1921");

  const auto once = test::snapshot(folder);
  ASSERT_TRUE(reorderTwoDigitYears(*session));
  EXPECT_EQ(test::snapshot(folder), once);
}

TEST_F(TwoDigitYearsTest, ReorderThatCannotWriteChangesNoDate) {
  // Records 1 and 3 change: two writes, the second of which fails.
  test::writeMovements(folder, "CC1",
                       {{.number = 1, .date = "05/03/98", .amount = 10, .sign = "D"},
                        {.number = 2, .date = "05/03/1998", .amount = 20, .sign = "A"},
                        {.number = 3, .date = "06/03/21", .amount = 30, .sign = "A"}});
  reopen();
  const auto before = test::snapshot(folder);
  files.failWrite(2, diskerr::kDiskFull);
  EXPECT_FALSE(reorderTwoDigitYears(*session));
  files.heal();
  EXPECT_EQ(test::snapshot(folder), before);
  EXPECT_EQ(account().movement(1).operationDate, "05/03/98  ");
  ASSERT_EQ(prompter.messages.size(), 1U);
  EXPECT_EQ(prompter.messages[0].title, "Errore Disco");
}

}  // namespace
}  // namespace contavia
