// "Esegui copie di sicurezza" and "Ripristina copie": which files go out and come back, the
// answers at the disk-error box, and that a restore that fails anywhere leaves every file as it
// was.

#include "backup/account_copies.h"

#include <filesystem>

#include "archive/disk_errors.h"
#include "tests/ledger/movement_entry_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

const std::vector<test::MovementSpec> kTwoMovements = {
    {.date = "10/01/2026", .causale = "AFF", .amount = 100, .sign = "D"},
    {.date = "15/01/2026", .causale = "STI", .amount = 30.5, .sign = "A"}};

class AccountCopiesTest : public test::MovementEntryTest {
 protected:
  void SetUp() override {
    MovementEntryTest::SetUp();
    openWith(kTwoMovements);  // CC1's four files made by the opening
    std::filesystem::create_directory(stick);
  }

  bool run(BackupMode mode, BackupScope scope, const std::string& where) {
    return runBackupWindow(*session, mode, where, scope);
  }
  bool save(BackupScope scope = BackupScope::ActiveAccount) {
    return run(BackupMode::Save, scope, stick);
  }
  bool restore(BackupScope scope = BackupScope::AllAccounts) {
    return run(BackupMode::Restore, scope, stick);
  }
  std::vector<std::string> copies() const {
    std::vector<std::string> names;
    for (const auto& file : std::filesystem::directory_iterator(stick)) {
      names.push_back(file.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  Bytes copyOf(const std::string& name) const { return folder.read("chiavetta/" + name); }

  const std::string stick = folder.path() + "chiavetta";
};

TEST(BackupFolderText, EndsWithOneSeparator) {
  EXPECT_EQ(backupFolderText("/media/chiavetta"), "/media/chiavetta/");
  EXPECT_EQ(backupFolderText("/media/chiavetta/"), "/media/chiavetta/");
  EXPECT_EQ(backupFolderText("/"), "/");
}

TEST_F(AccountCopiesTest, TheWorkingAccountCopiesExactlyItsFourFilesAsTheyAre) {
  ASSERT_TRUE(save());
  const std::vector<std::string> four = {"CC1.MOC", "CC1.MOR", "CC1.RIP", "CC1.TOC"};
  ASSERT_EQ(copies(), four);
  for (const std::string& name : four) {
    EXPECT_EQ(copyOf(name), folder.read(name)) << name;
  }
  EXPECT_EQ(prompter.texts(),
            std::vector<std::string>{"Copie di sicurezza eseguite in " + stick + "/: 4 file."});
  // A second copy writes over the first, under the names already there.
  ASSERT_TRUE(save());
  EXPECT_EQ(copies(), four);
}

TEST_F(AccountCopiesTest, RefusalsWriteNothing) {
  // The data folder itself, however it is spelled.
  EXPECT_FALSE(run(BackupMode::Save, BackupScope::AllAccounts, folder.path() + "chiavetta/.."));
  // "conto attivo" with no working account.
  session->closeAccount();
  EXPECT_FALSE(save());
  EXPECT_EQ(prompter.texts().size(), 2U);
  EXPECT_TRUE(copies().empty());
  // A restore from a folder with no copy of any account of today's table.
  folder.write("chiavetta/ZZ9.MOC", Bytes(10, 1));
  const auto before = test::snapshot(folder);
  prompter.answer({Answer::Ok});
  EXPECT_FALSE(restore());
  EXPECT_EQ(prompter.texts().back(),
            "Nella cartella " + stick + "/ non ci sono copie dei conti da ripristinare.");
  EXPECT_EQ(test::snapshot(folder), before);
}

TEST_F(AccountCopiesTest, TheAnswersAtTheDiskErrorBoxDoWhatTheySay) {
  struct Case {
    Answer answer;
    bool completed;
    std::size_t copied;
  };
  for (const Case c : {Case{Answer::Retry, true, 4}, Case{Answer::Ignore, true, 3},
                       Case{Answer::Abort, false, 1}}) {
    SCOPED_TRACE(static_cast<int>(c.answer));
    std::filesystem::remove_all(stick);
    std::filesystem::create_directory(stick);
    prompter.clear();
    prompter.answer({c.answer});
    files.failWrite(2, diskerr::kDiskFull);  // the second file, once
    EXPECT_EQ(save(), c.completed);
    files.heal();
    EXPECT_EQ(copies().size(), c.copied);
    EXPECT_EQ(prompter.messages[0],
              diskErrorBox("Disco pieno. Continuare?", Buttons::AbortRetryIgnore));
    if (!c.completed) {
      EXPECT_EQ(prompter.texts().back(), "Errore irrecuperabile");
    }
  }
}

TEST_F(AccountCopiesTest, RestoreWalksTodaysAccountsAndShowsTheWorkingOneAsRestored) {
  ASSERT_TRUE(save());
  const Bytes saved = folder.read("CC1.MOC");
  folder.write("chiavetta/ZZ9.MOC", Bytes(10, 1));  // an account no longer in the table
  openWith({{.date = "01/02/2026", .causale = "AFF", .amount = 5, .sign = "D"}});
  const auto changed = test::snapshot(folder);

  // Cancel at the question changes nothing.
  prompter.answer({Answer::Cancel});
  EXPECT_FALSE(restore());
  EXPECT_EQ(test::snapshot(folder), changed);
  EXPECT_EQ(prompter.messages[0].title, "AVVERTIMENTO!");
  EXPECT_EQ(prompter.messages[0].text, kRestoreWarning);
  EXPECT_EQ(prompter.messages[0].defaultButton, Answer::Cancel);

  // OK: CC1 comes back and is shown as it was; CC10 has no copy and ZZ9 no account.
  prompter.clear();
  prompter.answer({Answer::Ok});
  EXPECT_TRUE(restore());
  EXPECT_EQ(prompter.texts().back(), "Ripristino eseguito: 1 conto.");
  EXPECT_EQ(folder.read("CC1.MOC"), saved);
  EXPECT_EQ(account().count(), 2U);
  EXPECT_FALSE(folder.exists("ZZ9.MOC"));
  EXPECT_FALSE(folder.exists("CC10.MOC"));
}

TEST_F(AccountCopiesTest, MovementsWithoutTheirCountAreNotRestored) {
  ASSERT_TRUE(save());
  std::filesystem::remove(stick + "/CC1.MOR");
  openWith({{.date = "01/02/2026", .causale = "AFF", .amount = 5, .sign = "D"}});
  const auto before = test::snapshot(folder);
  prompter.answer({Answer::Ok});
  EXPECT_FALSE(restore());
  EXPECT_EQ(test::snapshot(folder), before);
  const std::vector<std::string> texts = prompter.texts();
  ASSERT_EQ(texts.size(), 4U);
  EXPECT_EQ(texts[1], "Il file non esiste.");
  EXPECT_EQ(texts[2], "Errore irrecuperabile");
  EXPECT_TRUE(texts[3].starts_with("Impossibile scrivere il file " + stick + "/CC1.MOR ("))
      << texts[3];
}

TEST_F(AccountCopiesTest, ARestoreThatFailsAnywhereLeavesEveryFileAsItWas) {
  ASSERT_TRUE(save());
  openWith({{.date = "01/02/2026", .causale = "AFF", .amount = 5, .sign = "D"}});
  for (int n = 1;; ++n) {
    SCOPED_TRACE(testing::Message() << "write " << n);
    const auto before = test::snapshot(folder);
    prompter.clear();
    prompter.answer({Answer::Ok, Answer::Abort});
    files.failWrite(n, diskerr::kDiskFull);
    const bool done = restore();
    files.heal();
    if (done) {
      EXPECT_GT(n, 4);  // past the safety copy and the account's own copies
      break;
    }
    EXPECT_EQ(test::snapshot(folder), before);
    EXPECT_EQ(account().count(), 1U);
  }
}

}  // namespace
}  // namespace contavia
