// "Percorso archivi": the DataDirectory changes for the rest of the run under the disk-error
// routine, or stays as it was.

#include "frame/frame_commands.h"

#include <filesystem>

#include "archive/folder_lock.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

class ChangeFolderTest : public test::ArchiveTest {
 protected:
  void SetUp() override {
    test::writeTable(folder, "CONTI.CON", "RecConti.CON",
                     {test::accountRecord({.number = 1, .code = "CC1"})});
  }
};

TEST_F(ChangeFolderTest, ToAVanishedFolderKeepsThePreviousOne) {
  Session session = startedSession();
  session.openAccount(0);
  const std::string gone = folder.file("sparita/");
  EXPECT_FALSE(changeDataFolder(session, gone));
  EXPECT_EQ(prompter.texts(),
            (std::vector<std::string>{"Il percorso non esiste", "Errore irrecuperabile"}));
  EXPECT_EQ(prompter.messages[0].buttons, Buttons::Ok);
  EXPECT_EQ(session.dir().folder(), folder.path());
  EXPECT_EQ(session.tables().accounts.size(), 1U);
  EXPECT_EQ(session.account(), nullptr);  // the open account was closed first
  EXPECT_FALSE(std::filesystem::exists(gone));
}

TEST_F(ChangeFolderTest, ToAnotherArchiveReloadsTheAccounts) {
  Session session = startedSession();
  const std::string other = folder.file("altro");
  std::filesystem::create_directory(other);
  test::writeTable(folder, "altro/Conti.con", "altro/RECCONTI.CON",
                   {test::accountRecord({.number = 1, .code = "X1"}),
                    test::accountRecord({.number = 2, .code = "X2"})});
  EXPECT_TRUE(changeDataFolder(session, other));
  EXPECT_TRUE(prompter.messages.empty());
  EXPECT_EQ(session.dir().folder(), other + "/");
  ASSERT_EQ(session.tables().accounts.size(), 2U);
  EXPECT_EQ(trim(session.tables().accounts[1].accountCode), "X2");
}

TEST_F(ChangeFolderTest, ADeviceErrorCanBeRetriedOrGivenUp) {
  Session session = startedSession();
  files.failPath("RecConti", diskerr::kDeviceIo);
  prompter.answer({Answer::Retry, Answer::Retry, Answer::Cancel});
  EXPECT_FALSE(changeDataFolder(session, folder.path()));
  EXPECT_EQ(prompter.texts(),
            (std::vector<std::string>{"Errore di I/O di periferica", "Errore di I/O di periferica",
                                      "Errore di I/O di periferica", "Errore irrecuperabile"}));
  EXPECT_EQ(session.tables().accounts.size(), 1U);
}

TEST_F(ChangeFolderTest, ToAFolderInUseKeepsThePreviousOneAndItsLock) {
  Session session = startedSession();
  const std::string other = folder.file("altro");
  std::filesystem::create_directory(other);
  const DataDirectory otherDir(files, other);
  FolderLock elsewhere;  // another program works there
  ASSERT_EQ(elsewhere.take(otherDir, "contavia-cli"), diskerr::kOk);
  EXPECT_FALSE(changeDataFolder(session, other));
  ASSERT_EQ(prompter.messages.size(), 1U);
  EXPECT_TRUE(prompter.messages[0].text.starts_with("L'archivio in " + other +
                                                    "/ è già in uso (contavia-cli, processo "))
      << prompter.messages[0].text;
  EXPECT_EQ(session.dir().folder(), folder.path());
  // Once it is free the change goes, and the first folder is free for others.
  elsewhere.release();
  EXPECT_TRUE(changeDataFolder(session, other));
  FolderLock first;
  EXPECT_EQ(first.take(DataDirectory(files, folder.path()), "contavia-cli"), diskerr::kOk);
}

}  // namespace
}  // namespace contavia
