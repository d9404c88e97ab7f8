// "Cancella movimenti" on the working account.

#include "ledger/clear_movements.h"

#include "tests/ledger/movement_entry_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

class ClearMovementsTest : public test::MovementEntryTest {};

const char* const kFirstQuestion =
    "\nQuesta azione elimina tutti i movimenti senza eliminare il conto, si raccomanda, pertanto "
    "\ndi eseguire prima la copia di Backup al fine \ndi evitare la perdita di dati importanti."
    "\n\n...ESEGUI PRIMA IL BACKUP DEI DATI...";

TEST_F(ClearMovementsTest, ClearingAfterTwoOksLeavesTheAccountEmptyAndEverythingElseAlone) {
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

TEST_F(ClearMovementsTest, CancelAtEitherQuestionChangesNothing) {
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

}  // namespace
}  // namespace contavia
