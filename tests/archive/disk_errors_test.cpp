// Disk errors: the routine's messages, buttons and verdicts, the guarded procedures, and faults
// injected under the writes of the archive, which must leave every file as it was.

#include "archive/disk_errors.h"

#include <filesystem>

#include "archive/open_account.h"
#include "archive/record_file.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

constexpr const char* kFullDisk = "Disco pieno. Continuare?";

struct RoutineCase {
  int number;
  const char* text;
  Buttons buttons;
  Answer pressed;
  int verdict;
};

TEST(DiskErrorRoutine, MessagesButtonsAndVerdicts) {
  const std::vector<RoutineCase> cases = {
      {52, "Nome o numero di file non valido", Buttons::Ok, Answer::Ok, kVerdictGiveUp},
      {64, "Nome o numero di file non valido", Buttons::Ok, Answer::Ok, kVerdictGiveUp},
      {53, "Il file non esiste.", Buttons::Ok, Answer::Ok, kVerdictGiveUp},
      {54, "Modalità di file non valida.", Buttons::AbortRetryIgnore, Answer::Retry, kVerdictRetry},
      {55, "File già aperto.", Buttons::Ok, Answer::Ok, kVerdictGiveUp},
      {57, "Errore di I/O di periferica", Buttons::RetryCancel, Answer::Retry, kVerdictRetry},
      {57, "Errore di I/O di periferica", Buttons::RetryCancel, Answer::Cancel, kVerdictGiveUp},
      {61, kFullDisk, Buttons::AbortRetryIgnore, Answer::Ignore, kVerdictIgnore},
      {61, kFullDisk, Buttons::AbortRetryIgnore, Answer::Abort, kVerdictGiveUp},
      {62,
       "Input oltre la fine del file; è stata raggiunta la fine del file e non si può continuare "
       "con la lettura.",
       Buttons::Ok, Answer::Ok, kVerdictGiveUp},
      {68, "Periferica non disponibile.", Buttons::RetryCancel, Answer::Cancel, kVerdictGiveUp},
      {71, "Disco non pronto. Inserire un dischetto", Buttons::RetryCancel, Answer::Retry,
       kVerdictRetry},
      {76, "Il percorso non esiste", Buttons::Ok, Answer::Ok, kVerdictGiveUp},
  };
  for (const RoutineCase& c : cases) {
    test::ScriptedPrompter prompter;
    prompter.answer({c.pressed});
    EXPECT_EQ(diskErrorRoutine(prompter, c.number), c.verdict) << c.number;
    ASSERT_EQ(prompter.messages.size(), 1U) << c.number;
    const Message& shown = prompter.messages[0];
    EXPECT_EQ(shown.title, "Errore Disco");
    EXPECT_EQ(shown.text, c.text);
    EXPECT_EQ(shown.buttons, c.buttons) << c.number;
    EXPECT_EQ(shown.icon, Icon::Exclamation);
  }
  for (int unknown : {0, 58, 70, 75, 999}) {
    test::ScriptedPrompter prompter;
    EXPECT_EQ(diskErrorRoutine(prompter, unknown), kVerdictUnknown) << unknown;
    EXPECT_TRUE(prompter.messages.empty()) << unknown;
  }
}

// A guarded procedure of three steps writing one file; the second step fails as scripted.
class GuardedProcedureTest : public test::ArchiveTest {
 protected:
  void SetUp() override { folder.write("A.dat", {1, 1, 1}); }

  bool run(const std::vector<int>& secondStepErrors) {
    std::size_t tries = 0;
    return runGuarded(prompter, &journal, [&](GuardedSteps& steps) {
      ++starts;
      steps.step([&] { return journal.write(folder.file("A.dat"), 0, {2, 2}); });
      const int rc = tries < secondStepErrors.size() ? secondStepErrors[tries++] : 0;
      secondStepDone = steps.step([&] { return rc; });
      steps.step([&] { return journal.write(folder.file("B.dat"), 0, {3}); });
    });
  }

  WriteJournal journal{dir};
  int starts = 0;
  bool secondStepDone = false;
};

TEST_F(GuardedProcedureTest, RetryTakesBackTheWritesAndStartsAgain) {
  prompter.answer({Answer::Retry, Answer::Retry});
  EXPECT_TRUE(run({61, 57}));
  EXPECT_EQ(starts, 3);
  EXPECT_TRUE(secondStepDone);
  EXPECT_EQ(prompter.texts(), (std::vector<std::string>{kFullDisk, "Errore di I/O di periferica"}));
  EXPECT_EQ(folder.read("A.dat"), (Bytes{2, 2, 1}));
  EXPECT_EQ(folder.read("B.dat"), (Bytes{3}));
}

TEST_F(GuardedProcedureTest, IgnoreSkipsTheFailingStepAndTheLaterStepsStillWrite) {
  prompter.answer({Answer::Ignore, Answer::Ignore});
  files.failWrite(1, diskerr::kDiskFull);  // the first step's write
  EXPECT_TRUE(run({61}));
  EXPECT_EQ(starts, 1);
  EXPECT_FALSE(secondStepDone);
  EXPECT_EQ(prompter.texts(), (std::vector<std::string>{kFullDisk, kFullDisk}));
  EXPECT_EQ(folder.read("A.dat"), (Bytes{1, 1, 1}));
  EXPECT_EQ(folder.read("B.dat"), (Bytes{3}));
}

TEST_F(GuardedProcedureTest, GivingUpLeavesTheFilesAsTheyWere) {
  struct Case {
    int error;
    Answer pressed;
    std::vector<std::string> texts;
  };
  for (const Case& c :
       {Case{61, Answer::Abort, {kFullDisk, "Errore irrecuperabile"}},
        Case{68, Answer::Cancel, {"Periferica non disponibile.", "Errore irrecuperabile"}},
        Case{53, Answer::Ok, {"Il file non esiste.", "Errore irrecuperabile"}},
        Case{70, Answer::Ok, {"Erore non riconosciuto"}}}) {
    prompter.clear();
    prompter.answer({c.pressed});
    EXPECT_FALSE(run({c.error})) << c.error;
    EXPECT_EQ(prompter.texts(), c.texts) << c.error;
    EXPECT_EQ(prompter.messages.back().title, "Errore Disco");
    EXPECT_EQ(prompter.messages.back().icon, Icon::Exclamation);
    EXPECT_EQ(folder.read("A.dat"), (Bytes{1, 1, 1})) << c.error;
    EXPECT_FALSE(folder.exists("B.dat")) << c.error;
  }
}

// Appending a movement writes ".MOC", ".MOR" and "records.rer": a fault at any of them leaves
// every file byte for byte as it was.
class AppendFaultTest : public test::ArchiveTest {
 protected:
  void SetUp() override {
    test::writeMovements(folder, "CC1",
                         {{.date = "01/01/2026", .amount = 10, .sign = "A"},
                          {.date = "02/01/2026", .amount = 4, .sign = "D"}});
    folder.write("records.rer", test::le16(7));
    opened();
    movement.operationDate = "03/01/2026";
    movement.amount = 1;
    movement.sign = "D";
  }

  void opened() {
    account.load();
    before = test::snapshot(folder);
  }

  void expectEveryFaultTakenBack() {
    for (int write = 1; write <= 3; ++write) {
      for (std::size_t partial : {std::size_t{0}, std::size_t{1}, std::size_t{50}}) {
        const std::string what =
            "write " + std::to_string(write) + ", " + std::to_string(partial) + " bytes written";
        files.failWrite(write, diskerr::kDiskFull, false, partial);
        EXPECT_EQ(account.appendMovement(movement).error, diskerr::kDiskFull) << what;
        expectNothingChanged(what);
      }
    }
    files.heal();
    EXPECT_EQ(account.appendMovement(movement).error, diskerr::kOk);
    EXPECT_EQ(folder.read("CC1.MOR"), test::le16(3));
  }

  void expectNothingChanged(const std::string& what) {
    EXPECT_EQ(account.count(), 2U) << what;
    EXPECT_EQ(test::snapshot(folder), before) << what;
  }

  OpenAccount account{dir, clock, "CC1", ""};
  std::map<std::string, Bytes> before;
  Movement movement;
};

TEST_F(AppendFaultTest, DiskFullAtAnyWrite) { expectEveryFaultTakenBack(); }

TEST_F(AppendFaultTest, DiskFullOverAStaleRecord) {
  // A third record past the count, as a deletion leaves it: the append overwrites it.
  const Bytes stale = test::movementRecord({.number = 3, .date = "09/09/2025", .amount = 99});
  Bytes moc = folder.read("CC1.MOC");
  moc.insert(moc.end(), stale.begin(), stale.end());
  folder.write("CC1.MOC", moc);
  opened();
  expectEveryFaultTakenBack();
}

TEST_F(AppendFaultTest, AFullAccountTakesNoMoreMovements) {
  test::writeMovements(folder, "FULL",
                       std::vector<test::MovementSpec>(10000, {.date = "03/01/2026", .amount = 1}));
  OpenAccount full(dir, clock, "FULL", "");
  full.load();
  EXPECT_EQ(full.count(), 10000U);
  before = test::snapshot(folder);
  EXPECT_EQ(full.appendMovement(movement).error, OpenAccount::kCapacityReached);
  EXPECT_EQ(full.count(), 10000U);
  EXPECT_EQ(test::snapshot(folder), before);
}

TEST_F(AppendFaultTest, ReadOnlyFile) {
  files.failPath("records.rer", diskerr::kPermissionDenied);
  EXPECT_EQ(account.appendMovement(movement).error, diskerr::kPermissionDenied);
  expectNothingChanged("records.rer refused");
}

TEST_F(AppendFaultTest, VanishedFolder) {
  std::filesystem::remove_all(folder.path());
  EXPECT_EQ(account.appendMovement(movement).error, diskerr::kPathNotFound);
  EXPECT_EQ(account.count(), 2U);
  EXPECT_FALSE(std::filesystem::exists(folder.path()));
}

}  // namespace
}  // namespace contavia
