// "Chiusura periodica" and "Ripristina chiusura preccedente" on the working account: what is
// removed and carried forward, the bytes they leave, and that a refusal or a failure anywhere
// leaves every file as it was.

#include "ledger/closing.h"

#include <fstream>

#include "archive/disk_errors.h"
#include "archive/safety_copies.h"
#include "common/dates.h"
#include "ledger/closing_undo.h"
#include "tests/ledger/movement_entry_fixture.h"

namespace contavia {
namespace {

using test::Bytes;
using test::MovementSpec;

const std::vector<MovementSpec> kThreeMovements = {
    {.date = "10/01/2026", .causale = "AFF", .amount = 100, .sign = "D", .description = "Affitto"},
    {.date = "15/01/2026",
     .causale = "STI",
     .amount = 30.5,
     .sign = "A",
     .description = "Rimborso"},
    {.date = "20/01/2026", .causale = "CAF", .amount = 7, .sign = "D", .description = "Bar"}};

Movement movementOn(const std::string& date, double amount, const std::string& sign,
                    const std::string& flag = "N") {
  return Movement{.operationDate = date, .amount = amount, .sign = sign, .closedFlag = flag};
}

TEST(ClosingPlan, RemovesUpToTheDateIncludedAndWhateverIsMarked) {
  struct Case {
    const char* closingDate;
    std::vector<Movement> movements;
    std::size_t kept;
    double runningSum;
    std::size_t firstChanged;
  };
  const std::vector<Case> cases = {
      // The closing date itself is removed too; the third movement becomes number 1.
      {"15/01/2026",
       {movementOn("10/01/2026", 100, "D"), movementOn("15/01/2026", 30.5, "A"),
        movementOn("20/01/2026", 7, "D")},
       1,
       69.5,
       1},
      // Before every movement: nothing goes, nothing is rewritten.
      {"01/01/2026",
       {movementOn("10/01/2026", 100, "D"), movementOn("20/01/2026", 7, "A")},
       2,
       0,
       3},
      // A movement already marked "S" goes whatever its date; the file needs no rewrite, only
      // its count changes.
      {"01/01/2026",
       {movementOn("10/01/2026", 5, "D"), movementOn("20/01/2026", 2, "D", "S")},
       1,
       2,
       3},
  };
  for (Case c : cases) {
    SCOPED_TRACE(c.closingDate);
    for (std::size_t i = 0; i < c.movements.size(); ++i) {
      c.movements[i].movementNumber = static_cast<std::int16_t>(i + 1);
    }
    const ClosingPlan plan = planClosing(c.movements, c.closingDate);
    EXPECT_EQ(plan.keptCount, c.kept);
    EXPECT_EQ(plan.removed.size(), c.movements.size() - c.kept);
    EXPECT_DOUBLE_EQ(plan.runningSum, c.runningSum);
    EXPECT_EQ(plan.firstChanged, c.firstChanged);
    EXPECT_EQ(plan.rewritten.size(), c.movements.size() + 1 - c.firstChanged);
  }
}

TEST(ClosingPlan, CarriedAmountIsRoundedHalfToEvenAndBounded) {
  EXPECT_EQ(carriedForward(400, 69.5), 470);
  EXPECT_EQ(carriedForward(0, 100.5), 100);
  EXPECT_EQ(carriedForward(1, 0.5), 2);
  EXPECT_EQ(carriedForward(0, -2.5), -2);
  EXPECT_EQ(carriedForward(0, 100.49), 100);
  EXPECT_EQ(carriedForward(2147483600, 100), std::nullopt);
}

class ClosingTest : public test::MovementEntryTest {
 protected:
  void SetUp() override {
    MovementEntryTest::SetUp();
    folder.write("CC1.RIP", test::carryForwardRecord("31/12/2025", 400));
    folder.write("CC1.chi", test::closingUndoRecord("30/06/2025", 50, "CC1"));
    openWith(kThreeMovements);
  }

  // The report kept by a keeper that writes its lines as text; `keeps` false: it cannot.
  ClosingResult close(const std::string& date, bool keeps = true) {
    return closePeriod(*session, date, [&](const Report& report, const std::string& path) {
      std::ofstream out(path);
      for (const std::string& line : report.lines) {
        out << line << '\n';
      }
      return keeps && static_cast<bool>(out);
    });
  }

  std::vector<std::string> keptArchives() {
    std::vector<std::string> names;
    files.list(folder.path() + kClosingArchivesFolder, names);
    return names;
  }

  Bytes movementFile(const std::vector<MovementSpec>& specs) const {
    Bytes all;
    for (const MovementSpec& m : specs) {
      const Bytes r = test::movementRecord(m);
      all.insert(all.end(), r.begin(), r.end());
    }
    return all;
  }
};

TEST_F(ClosingTest, ClosingLeavesTheFilesTheUndoNeedsAndTheReport) {
  const auto before = test::snapshot(folder);
  prompter.answer({Answer::Ok});
  const ClosingResult result = close("15/01/2026");
  ASSERT_TRUE(result.closed);
  EXPECT_EQ(prompter.messages.front(), warningQuestion(kClosingWarning));
  EXPECT_EQ(result.archivePath, folder.path() + "chiusure/20261121-CC1.pdf");
  EXPECT_EQ(keptArchives(), std::vector<std::string>{"20261121-CC1.pdf"});
  EXPECT_EQ(prompter.texts().back(),
            "Chiusura eseguita. L'elenco dei movimenti eliminati è conservato in " +
                result.archivePath + ".");
  EXPECT_EQ(
      result.report.lines,
      (std::vector<std::string>{
          "10/01/2026" + std::string(11, ' ') + "100,00" + std::string(24, ' ') + "Affitto",
          "15/01/2026" + std::string(12, ' ') + "30,50" + std::string(24, ' ') + "Rimborso"}));

  // Slot 1 holds the kept movement renumbered; slot 2 the removed one marked; slot 3 as it was.
  MovementSpec kept = kThreeMovements[2];
  kept.number = 1;
  MovementSpec marked = kThreeMovements[1];
  marked.number = 2;
  marked.closed = "S";
  MovementSpec third = kThreeMovements[2];
  third.number = 3;
  EXPECT_EQ(folder.read("CC1.MOC"), movementFile({kept, marked, third}));
  EXPECT_EQ(folder.read("CC1.MOR"), test::le16(1));
  // 400 + 100 - 30,50 = 469,50, rounded to the even 470.
  EXPECT_EQ(folder.read("CC1.RIP"), test::carryForwardRecord("15/01/2026", 470));
  EXPECT_EQ(folder.read("CC1.chi"), test::closingUndoRecord("31/12/2025", 400, "CC1"));
  EXPECT_EQ(folder.read("Bak.chi"), test::closingUndoRecord("31/12/2025", 400, "CC1"));
  for (const auto& [bak, original] : {std::pair{"Bak.moc", "CC1.MOC"},
                                      {"Bak.MOR", "CC1.MOR"},
                                      {"Bak.TOC", "CC1.TOC"},
                                      {"Bak.RIP", "CC1.RIP"}}) {
    EXPECT_EQ(folder.read(bak), before.at(original)) << bak;
  }
  // The recompute counts credits up: -7 + 470.
  EXPECT_EQ(account().count(), 1U);
  EXPECT_EQ(account().balanceTotal(), 463);
  // The safety copy holds the account's files as they were.
  const std::vector<std::string> copies = safetyCopies(dir);
  ASSERT_EQ(copies.size(), 1U);
  EXPECT_TRUE(copies[0].ends_with("-chiusura")) << copies[0];
  EXPECT_EQ(folder.read("copie/" + copies[0] + "/CC1.MOC"), before.at("CC1.MOC"));
}

TEST_F(ClosingTest, UndoGivesBackTheAccountAsBeforeTheClosingAndAgain) {
  const auto before = test::snapshot(folder);
  const std::int32_t balanceBefore = account().balanceTotal();
  prompter.answer({Answer::Ok});
  ASSERT_TRUE(close("15/01/2026").closed);
  Movement later = movementOn("01/02/2026", 12, "D");
  later.causaleCode = "CAF";
  ASSERT_TRUE(account().appendMovement(later).ok());

  for (int undo = 1; undo <= 2; ++undo) {  // a second undo repeats the same restore
    SCOPED_TRACE(undo);
    prompter.clear();
    prompter.answer({Answer::Ok});
    ASSERT_TRUE(undoLastClosing(*session));
    EXPECT_EQ(prompter.messages, std::vector<Message>{warningQuestion(kUndoWarning)});
    for (const char* name : {"CC1.MOC", "CC1.MOR", "CC1.RIP", "CC1.TOC"}) {
      EXPECT_EQ(folder.read(name), before.at(name)) << name;
    }
    EXPECT_EQ(account().count(), 3U);
    EXPECT_EQ(account().balanceTotal(), balanceBefore);
  }
}

TEST_F(ClosingTest, RefusalsChangeNothing) {
  struct Case {
    const char* what;
    std::string date;
    std::vector<Answer> answers;
    std::string message;
  };
  const std::vector<Case> cases = {
      {"untouched field", "__/__/____", {}, "Campo data obbligatorio"},
      {"empty field", "", {}, "Campo data obbligatorio"},
      {"no such day", "31/02/2026", {}, wrongDateBox().text},
      {"year not typed", "15/01/____", {}, wrongDateBox().text},
      {"cancel at the warning", "15/01/2026", {Answer::Cancel}, kClosingWarning},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.what);
    const auto before = test::snapshot(folder);
    prompter.clear();
    prompter.queue.assign(c.answers.begin(), c.answers.end());
    EXPECT_FALSE(close(c.date).closed);
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{c.message});
    EXPECT_EQ(test::snapshot(folder), before);
    EXPECT_TRUE(keptArchives().empty());
  }
  // A report that cannot be kept stops the closing before anything is removed.
  const auto before = test::snapshot(folder);
  prompter.clear();
  prompter.answer({Answer::Ok});
  EXPECT_FALSE(close("15/01/2026", false).closed);
  EXPECT_EQ(prompter.messages.back(),
            fileNotWrittenBox(folder.path() + "chiusure/20261121-CC1.pdf"));
  EXPECT_EQ(test::snapshot(folder), before);
  EXPECT_TRUE(keptArchives().empty());
}

TEST_F(ClosingTest, UndoOfFilesSavedForAnotherAccountIsRefused) {
  const std::string otherAccount =
      " I dati che si tenta di recuperare appartengono ad un altro conto, operazione annullata";
  // The restore point names another account; then the "Bak." files do (CC10 was closed last).
  folder.write("CC1.chi", test::closingUndoRecord("30/06/2025", 50, "CC10"));
  for (int step = 0; step < 2; ++step) {
    SCOPED_TRACE(step);
    if (step == 1) {
      folder.write("CC1.chi", test::closingUndoRecord("30/06/2025", 50, "CC1"));
      folder.write("Bak.moc", {});
      folder.write("Bak.MOR", test::le16(0));
      folder.write("Bak.chi", test::closingUndoRecord("", 0, "CC10"));
    }
    const auto before = test::snapshot(folder);
    prompter.clear();
    prompter.answer({Answer::Ok});
    EXPECT_FALSE(undoLastClosing(*session));
    EXPECT_EQ(prompter.messages.back(),
              (Message{"Errore", otherAccount, Buttons::Ok, Icon::Exclamation}));
    EXPECT_EQ(test::snapshot(folder), before);
  }
}

// A failure at each write of the closing, then of its undo, each given up at the disk-error
// box: every file is as it was, and no report is left as if the closing had happened.
TEST_F(ClosingTest, AFailureAtAnyWriteLeavesEveryFileAsItWas) {
  for (const bool undo : {false, true}) {
    if (undo) {
      prompter.answer({Answer::Ok});
      ASSERT_TRUE(close("15/01/2026").closed);
    }
    for (int n = 1;; ++n) {
      SCOPED_TRACE(testing::Message() << (undo ? "undo" : "closing") << ", write " << n);
      const auto before = test::snapshot(folder);
      const auto archives = keptArchives();
      prompter.clear();
      prompter.answer({Answer::Ok, Answer::Abort});
      files.failWrite(n, diskerr::kDiskFull);
      const bool done = undo ? undoLastClosing(*session) : close("15/01/2026").closed;
      files.heal();
      if (done) {
        // The fault fell past the operation's last write (on the totals the reopening
        // recomputes), or nowhere.
        EXPECT_GT(n, 10);
        break;
      }
      EXPECT_EQ(test::snapshot(folder), before);
      EXPECT_EQ(keptArchives(), archives);
      const std::vector<std::string> texts = prompter.texts();
      ASSERT_GE(texts.size(), 2U);
      EXPECT_EQ(texts[texts.size() - 2], "Errore irrecuperabile");
      EXPECT_TRUE(texts.back().starts_with("Impossibile scrivere il file ")) << texts.back();
    }
  }
}

TEST_F(ClosingTest, RetryAtTheDiskErrorBoxCarriesTheClosingThrough) {
  prompter.answer({Answer::Ok, Answer::Retry});
  files.failWrite(7, diskerr::kDiskFull);  // after the five files of the safety copy
  EXPECT_TRUE(close("15/01/2026").closed);
  EXPECT_EQ(folder.read("CC1.RIP"), test::carryForwardRecord("15/01/2026", 470));
  EXPECT_EQ(prompter.messages[1],
            diskErrorBox("Disco pieno. Continuare?", Buttons::AbortRetryIgnore));
  EXPECT_EQ(account().count(), 1U);
}

}  // namespace
}  // namespace contavia
