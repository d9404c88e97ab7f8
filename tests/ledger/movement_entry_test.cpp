// The movement window without widgets: saving new and changed movements, the running balances
// through selection, abandon and deletion, renumbering, and what stops an operation untouched.

#include "ledger/movement_entry.h"

#include "tests/ledger/movement_entry_fixture.h"

namespace contavia {
namespace {

using test::Bytes;
using test::MovementEntryTest;
using test::MovementSpec;

using Balances = std::pair<std::int32_t, std::int32_t>;  // total, today

class EntryTest : public MovementEntryTest {
 protected:
  Balances balances() { return {account().balanceTotal(), account().balanceToday()}; }

  // The save is refused with `message` alone, and no file changes.
  void expectRefused(const Message& message) {
    const auto before = test::snapshot(folder);
    prompter.clear();
    EXPECT_FALSE(entry->save());
    EXPECT_EQ(prompter.messages, std::vector<Message>{message});
    EXPECT_EQ(test::snapshot(folder), before);
  }
};

TEST_F(EntryTest, NewMovementIsWrittenAfterTheLastWithItsCountsAndTheRowStartsAgain) {
  openWith({{.date = "01/11/2026", .causale = "STI", .amount = 10, .sign = "A"},
            {.date = "02/11/2026", .causale = "AFF", .amount = 20, .sign = "D"},
            {.date = "03/11/2026", .causale = "AFF", .amount = 30, .sign = "D"}});
  EXPECT_EQ(entry->row().number, "4");
  type("20/11/2026", "CAF", "12,5", "SCONTRINO1", "Caffè al bar Perù");
  ASSERT_TRUE(entry->save());
  EXPECT_TRUE(prompter.messages.empty());

  EXPECT_EQ(folder.read("CC1.MOC").size(), 4 * Movement::kLength);
  EXPECT_EQ(movementBytes(4), test::movementRecord({4, "20/11/2026", "CAF", 12.5, "D", "SCONTRIN",
                                                    "Caff\xE8 al bar Per\xF9"}));
  EXPECT_EQ(folder.read("CC1.MOR"), test::le16(4));
  EXPECT_EQ(folder.read("records.rer"), test::le16(8));
  EXPECT_EQ(session->tables().movementCounter, 8);

  EXPECT_EQ(entry->row(), (EntryRow{.number = "5", .date = "21/11/2026"}));
  EXPECT_EQ(entry->selectedIndex(), 0U);
  EXPECT_EQ(entry->list().lines.front().substr(0, 15), "20/11/2026 0004");
  EXPECT_EQ(entry->list().lines.back(), " Nr. Movimenti: 4");
}

TEST_F(EntryTest, SavedBalancesFollowTheRecomputeWhateverTheIncrementalRuleSays) {
  struct Case {
    const char* date;
    const char* causale;
    Balances after;  // opened at {41, 71}
    const char* panel;
  };
  for (const Case& c : {Case{"21/11/2026", "STI", {141, 171}, "141,01"},
                        Case{"22/11/2026", "STI", {141, 71}, "141,01"},  // tomorrow: total only
                        Case{"21/11/2026", "AFF", {-59, -29}, "-58,99"}}) {
    SCOPED_TRACE(std::string(c.date) + " " + c.causale);
    openWith(test::fiveMovements());
    type(c.date, c.causale, "100");
    ASSERT_TRUE(entry->save());
    EXPECT_EQ(balances(), c.after);
    EXPECT_EQ(account().panels().balanceTotal, c.panel);
  }
}

TEST_F(EntryTest, SelectionTakesTheMovementOutOfTheBalancesAndAbandonPutsItBack) {
  // Selected: the reverse of the incremental rule, in whole units.
  const std::vector<std::pair<std::size_t, Balances>> cases = {
      {1, {141, 171}},  // credit 100
      {2, {-9, 21}},    // debit 50
      {3, {11, 71}},    // debit 30 dated tomorrow
      {4, {51, 81}},    // 10,50 counts as 10
      {5, {52, 82}},    // 10,51 counts as 11
  };
  openWith(test::fiveMovements());
  ASSERT_EQ(balances(), (Balances{41, 71}));
  for (const auto& [number, selected] : cases) {
    SCOPED_TRACE(number);
    ASSERT_TRUE(entry->selectMovement(number));
    EXPECT_TRUE(entry->deleteEnabled());
    EXPECT_EQ(balances(), selected);
    entry->abandon();
    EXPECT_EQ(balances(), (Balances{41, 71}));
    EXPECT_FALSE(entry->deleteEnabled());
    EXPECT_EQ(entry->row(), (EntryRow{.number = "6", .date = "21/11/2026"}));
  }

  // The row is filled, and choosing another movement puts the first back.
  EXPECT_FALSE(entry->selectMovement(6));
  ASSERT_TRUE(entry->selectMovement(2));
  EXPECT_EQ(entry->row(), (EntryRow{.number = "2",
                                    .date = "02/11/2026",
                                    .causale = "AFF",
                                    .causaleDescription = "Affitto",
                                    .sign = "D",
                                    .amount = "50,00",
                                    .documentNumber = "F1"}));
  ASSERT_TRUE(entry->selectMovement(1));
  EXPECT_EQ(balances(), (Balances{141, 171}));  // only movement 1 is out
  EXPECT_EQ(entry->row().amount, "100,00");
  entry->abandon();
  EXPECT_EQ(balances(), (Balances{41, 71}));
}

TEST_F(EntryTest, ChangedMovementIsRewrittenInPlaceKeepingItsLink) {
  std::vector<MovementSpec> movements = test::fiveMovements();
  movements[1].closed = "S";
  movements[1].linkedAccount = "CC2";
  movements[1].linkedNumber = "7";
  openWith(movements);
  ASSERT_TRUE(entry->selectMovement(2));
  EntryRow& row = entry->row();
  row.causale = "STI";
  row.amount = "1.080,456";
  row.description = "Rimborso Società";
  ASSERT_TRUE(entry->save());

  EXPECT_EQ(movementBytes(2), test::movementRecord({2, "02/11/2026", "STI", 1080.46, "A", "F1",
                                                    "Rimborso Societ\xE0", "N", "CC2", "7"}));
  EXPECT_EQ(folder.read("CC1.MOR"), test::le16(5));
  EXPECT_EQ(folder.read("records.rer"), test::le16(7));
  // 100 + 1080,46 - 30 + 10,50 + 10,51, and without the movement of tomorrow.
  EXPECT_EQ(balances(), (Balances{1171, 1201}));
  EXPECT_EQ(account().panels().balanceTotal, "1.171,47");
  EXPECT_EQ(entry->selectedIndex(), 0U);
  EXPECT_EQ(entry->row(), (EntryRow{.number = "6", .date = "21/11/2026"}));
}

TEST_F(EntryTest, DeletionAsksThenRenumbersAndLeavesTheLastRecordInTheFile) {
  openWith(test::fiveMovements());
  const Bytes fifth = movementBytes(5);
  ASSERT_TRUE(entry->selectMovement(2));  // the debit of 50
  const auto before = test::snapshot(folder);
  const EntryRow row = entry->row();
  prompter.answer({Answer::Cancel, Answer::Ok});
  EXPECT_FALSE(entry->deleteSelected());
  EXPECT_EQ(test::snapshot(folder), before);
  EXPECT_EQ(entry->row(), row);
  EXPECT_EQ(entry->selectedIndex(), 2U);
  ASSERT_TRUE(entry->deleteSelected());

  EXPECT_EQ(
      prompter.messages,
      std::vector<Message>(
          2, Message{"AVVERTIMENTO!",
                     "Attenzione il movimento selezionato verrà cancellato, ...Vuoi Continuare?",
                     Buttons::OkCancel, Icon::Exclamation, Answer::Cancel}));
  std::vector<MovementSpec> kept = test::fiveMovements();
  kept.erase(kept.begin() + 1);
  for (std::size_t i = 0; i < kept.size(); ++i) {
    kept[i].number = static_cast<int>(i + 1);
    EXPECT_EQ(movementBytes(i + 1), test::movementRecord(kept[i])) << i + 1;
  }
  EXPECT_EQ(movementBytes(5), fifth);
  EXPECT_EQ(folder.read("CC1.MOR"), test::le16(4));
  EXPECT_EQ(folder.read("records.rer"), test::le16(7));
  // Both balances lower by 50 (the removal at selection) until the next recompute.
  EXPECT_EQ(balances(), (Balances{-9, 21}));
  EXPECT_EQ(account().panels().balanceTotal, "-9,00");
  EXPECT_FALSE(entry->deleteEnabled());
  EXPECT_EQ(entry->row().number, "5");
  EXPECT_EQ(entry->list().lines.back(), " Nr. Movimenti: 4");

  reopen();
  EXPECT_EQ(balances(), (Balances{91, 121}));
}

TEST_F(EntryTest, RefusedSavesShowTheirMessageAndWriteNothing) {
  const Message outOfRange = errorBox(
      "Saldo fuori dai limiti: l'operazione porterebbe il saldo del conto oltre 2.147.483.647 in "
      "valore assoluto. Nulla è stato registrato.");
  struct Case {
    std::vector<MovementSpec> movements;
    const char* causale;
    const char* amount;
    Message message;
  };
  const std::vector<Case> cases = {
      {test::fiveMovements(), "STI", "", errorBox("Campo Importo obbligatorio")},
      {test::fiveMovements(), "ZZZ", "10", errorBox("CODICE CAUSALE NON PRESENTE!")},
      {test::fiveMovements(), "", "10", errorBox("CODICE CAUSALE NON PRESENTE!")},
      {test::fiveMovements(), "STI", "99999999999", outOfRange},
      {std::vector<MovementSpec>(
           Movement::kCapacity, {.date = "01/11/2026", .causale = "AFF", .amount = 1, .sign = "D"}),
       "STI", "1",
       errorBox("Archivio pieno: non si possono registrare più di 10000 movimenti in un conto.")},
      // Last: a credit taking the saved balance past the 32-bit range.
      {{{.date = "01/11/2026", .causale = "STI", .amount = 2147483000, .sign = "A"}},
       "STI",
       "1000",
       outOfRange},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.causale + std::string(" ") + c.amount);
    openWith(c.movements);
    type("21/11/2026", c.causale, c.amount);
    expectRefused(c.message);
    EXPECT_EQ(entry->row().amount, c.amount);
  }
  // A debit brings the saved balance down, although the incremental step alone would overflow.
  type("21/11/2026", "AFF", "1000");
  EXPECT_TRUE(entry->save());
  EXPECT_EQ(account().balanceTotal(), 2147482000);
}

TEST_F(EntryTest, NextNumberIsReadFromTheCountFileWhenTheDateChanges) {
  openWith(test::fiveMovements());
  folder.write("CC1.MOR", test::le16(8));
  entry->setDate("01/01/2027");
  EXPECT_EQ(entry->row().number, "9");
  ASSERT_TRUE(entry->selectMovement(2));
  entry->setDate("03/11/2026");
  EXPECT_EQ(entry->row().number, "2");  // a movement being changed keeps its number
}

TEST_F(EntryTest, NewMovementTakesNothingFromWhatLiesPastTheCount) {
  // Record 3 is past the count: left there by an earlier deletion or closing. A closing would
  // remove a new movement that took its "S".
  test::writeTable(folder, "CC1.MOC", "CC1.MOR",
                   {test::movementRecord({.number = 1, .date = "01/11/2026"}),
                    test::movementRecord({.number = 2, .date = "02/11/2026"}),
                    test::movementRecord({3, "01/01/2020", "", 0, "A", "", "", "S", "CC2", "12"})},
                   2);
  reopen();
  type("21/11/2026", "AFF", "5");
  ASSERT_TRUE(entry->save());
  EXPECT_EQ(movementBytes(3),
            test::movementRecord({3, "21/11/2026", "AFF", 5, "D", "", "", "N", "", ""}));
}

TEST_F(EntryTest, FailedWriteLeavesEveryFileAsItWas) {
  enum class Op { New, Change, Delete };
  struct Case {
    const char* name;
    Op op;
    int failingWrite;
    std::size_t partialBytes;
    const char* failingFile;  // named in the message
  };
  const std::vector<Case> cases = {
      {"new: record", Op::New, 1, 0, "CC1.MOC"},
      {"new: record half written", Op::New, 1, 40, "CC1.MOC"},
      {"new: count", Op::New, 2, 0, "CC1.MOR"},
      {"new: movement counter", Op::New, 3, 1, "records.rer"},
      {"change", Op::Change, 1, 20, "CC1.MOC"},
      {"delete: records", Op::Delete, 1, 100, "CC1.MOC"},
      {"delete: count", Op::Delete, 2, 0, "CC1.MOR"},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.name);
    openWith(test::fiveMovements());
    if (c.op != Op::New) {
      ASSERT_TRUE(entry->selectMovement(2));
    }
    type("21/11/2026", "STI", "75");
    const auto before = test::snapshot(folder);
    const Balances balancesBefore = balances();
    prompter.clear();
    prompter.answer({Answer::Ok});
    files.failWrite(c.failingWrite, 61, false, c.partialBytes);
    EXPECT_FALSE(c.op == Op::Delete ? entry->deleteSelected() : entry->save());
    files.heal();
    EXPECT_EQ(test::snapshot(folder), before);
    EXPECT_EQ(balances(), balancesBefore);
    ASSERT_FALSE(prompter.messages.empty());
    EXPECT_EQ(prompter.messages.back().title, "Errore Disco");
    EXPECT_EQ(prompter.messages.back().text,
              std::string("Impossibile scrivere il file ") + c.failingFile +
                  " (disco pieno). L'operazione è stata annullata e i dati non sono stati "
                  "modificati.");
    EXPECT_EQ(entry->selectedIndex(), c.op == Op::New ? 0U : 2U);
    EXPECT_EQ(account().count(), 5U);
  }
}

TEST_F(EntryTest, OpeningSetsTheFilterDatesAndTheFilterStaysAfterASave) {
  test::writeMovements(folder, "CC1", test::fiveMovements());
  folder.write("CC1.TOC", test::totalsRecord(0, 0, "", ""));
  reopen();
  EXPECT_EQ(entry->filter().from, "01/11/2026");  // the earliest movement, when none was stored
  EXPECT_EQ(entry->filter().to, "22/11/2026");    // the latest movement
  EXPECT_EQ(entry->view(), ListBuilder::Main);

  entry->filter().from = "02/11/2026";
  entry->filter().to = "03/11/2026";
  entry->applyFilter();
  type("21/11/2026", "STI", "1");
  ASSERT_TRUE(entry->save());
  EXPECT_EQ(entry->view(), ListBuilder::Filtered);
  EXPECT_EQ(entry->list().lines.back(), " Nr. Movimenti: 2");

  entry->refresh();
  EXPECT_EQ(entry->view(), ListBuilder::Main);
  EXPECT_EQ(entry->list().lines.back(), " Nr. Movimenti: 6");
}

TEST_F(EntryTest, RewrittenMovementsKeepTheBytesNoOperationAssigns) {
  // Zero bytes in the document and the linked fields, as a record the program never completed.
  std::vector<Bytes> records;
  for (int n = 1; n <= 3; ++n) {
    Bytes r = test::movementRecord(
        {n, "0" + std::to_string(n) + "/11/2026", "STI", 10.0 * n, "A", "", "", "N", "", ""});
    std::fill(r.begin() + 25, r.begin() + 33, 0);
    std::fill(r.begin() + 65, r.end(), 0);
    records.push_back(r);
  }
  test::writeTable(folder, "CC1.MOC", "CC1.MOR", records);
  reopen();
  ASSERT_TRUE(entry->selectMovement(1));
  entry->row().amount = "15";
  ASSERT_TRUE(entry->save());
  ASSERT_TRUE(entry->selectMovement(2));
  prompter.answer({Answer::Ok});
  ASSERT_TRUE(entry->deleteSelected());
  // Movement 1: only its amount; the former movement 3: only its number.
  Bytes first = records[0];
  const Bytes amount = test::f64(15);
  std::copy(amount.begin(), amount.end(), first.begin() + 17);
  Bytes third = records[2];
  third[0] = 2;
  EXPECT_EQ(movementBytes(1), first);
  EXPECT_EQ(movementBytes(2), third);
}

}  // namespace
}  // namespace contavia
