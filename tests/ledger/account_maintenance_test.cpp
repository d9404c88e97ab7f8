// "Cancella movimenti" and "Riordina archivio" on the working account.

#include "ledger/clear_movements.h"

#include "tests/ledger/movement_entry_fixture.h"

namespace contavia {
namespace {

using test::Bytes;
using test::MovementSpec;

class MaintenanceTest : public test::MovementEntryTest {};

const char* const kFirstQuestion =
    "\nQuesta azione elimina tutti i movimenti senza eliminare il conto, si raccomanda, pertanto "
    "\ndi eseguire prima la copia di Backup al fine \ndi evitare la perdita di dati importanti."
    "\n\n...ESEGUI PRIMA IL BACKUP DEI DATI...";

TEST_F(MaintenanceTest, ClearingAfterTwoOksLeavesTheAccountEmptyAndEverythingElseAlone) {
  // CC10 begins with CC1: its files must survive.
  test::writeMovements(folder, "CC10", {{.date = "01/01/2026", .amount = 5, .sign = "D"}});
  folder.write("CC1.RIP", test::carryForwardRecord("31/12/2025", 400));
  folder.write("CC1.chi", test::closingUndoRecord("31/12/2024", 100, "CC1"));
  openWith(test::fiveMovements());
  const auto before = test::snapshot(folder);

  prompter.answer({Answer::Ok, Answer::Ok});
  ASSERT_TRUE(clearAccountMovements(*session));
  EXPECT_EQ(prompter.messages,
            (std::vector<Message>{warningQuestion(kFirstQuestion),
                                  warningQuestion("SEI PROPRIO SICURO DI VOLER CONTINUARE?")}));

  const auto after = test::snapshot(folder);
  for (const auto& [name, bytes] : before) {
    if (!name.starts_with("CC1.")) {
      EXPECT_EQ(after.at(name), bytes) << name;
    }
  }
  EXPECT_TRUE(folder.read("CC1.chi").empty());
  EXPECT_TRUE(folder.read("CC1.MOC").empty());
  EXPECT_EQ(account().count(), 0U);
  EXPECT_EQ(account().balanceTotal(), 0);
  EXPECT_EQ(account().balanceToday(), 0);
  EXPECT_EQ(account().carryForward().carryAmount, 0);
  entry->refresh();
  EXPECT_EQ(entry->list().lines.back(), " Nr. Movimenti: 0");
  EXPECT_FALSE(entry->list().hasCarryForwardLine);
  EXPECT_EQ(entry->row().number, "1");
}

TEST_F(MaintenanceTest, CancelAtEitherQuestionChangesNothing) {
  for (const auto& answers :
       {std::vector<Answer>{Answer::Cancel}, std::vector<Answer>{Answer::Ok, Answer::Cancel}}) {
    openWith(test::fiveMovements());
    const auto before = test::snapshot(folder);
    prompter.queue.assign(answers.begin(), answers.end());
    EXPECT_FALSE(clearAccountMovements(*session));
    EXPECT_EQ(prompter.messages.size(), answers.size());
    EXPECT_EQ(test::snapshot(folder), before);
    EXPECT_EQ(account().count(), 5U);
  }
}

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

TEST_F(MaintenanceTest, ReorderRewritesOnlyTheShortDatesAndTwiceChangesNothing) {
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

TEST_F(MaintenanceTest, ReorderThatCannotWriteChangesNoDate) {
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
