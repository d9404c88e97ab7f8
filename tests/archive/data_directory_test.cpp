// The DataDirectory: names found in any letter case, new files in the canonical spelling, tables
// read and appended through their count files, and account codes that never reach other files.

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "archive/account_files.h"
#include "archive/open_account.h"
#include "archive/tables.h"
#include "archive/write_journal.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;
using Names = std::vector<std::string>;

class DataDirectoryTest : public test::ArchiveTest {};

TEST_F(DataDirectoryTest, FirstStartCreatesTheFolderAndEmptyFilesWithCanonicalNames) {
  const std::string data = folder.file("dati");
  Session session(files, prompter, clock, data);
  EXPECT_EQ(session.dir().folder(), data + "/");
  session.start();
  EXPECT_TRUE(session.tables().accounts.empty());
  EXPECT_TRUE(session.tables().causali.empty());
  EXPECT_TRUE(session.tables().categories.empty());
  EXPECT_TRUE(prompter.messages.empty());
  Names names;
  for (const auto& entry : std::filesystem::directory_iterator(data)) {
    if (entry.path().filename() == "contavia.lock") {
      continue;
    }
    names.push_back(entry.path().filename().string());
    EXPECT_EQ(entry.file_size(), 0U) << names.back();
  }
  std::sort(names.begin(), names.end());
  EXPECT_EQ(names, (Names{"CONTI.CON", "Causali.CAP", "RecCausa.CAP", "RecConti.CON", "RecTipo.con",
                          "Tipo.con", "records.rer"}));
}

TEST_F(DataDirectoryTest, AnArchiveSpelledInAnotherCaseOpens) {
  test::writeTable(folder, "conti.con", "recconti.con",
                   {test::accountRecord({.number = 1, .code = "cc1", .name = "Cassa"}),
                    test::accountRecord({.number = 2, .code = "Per\xF9", .name = "Banca"})});
  test::writeTable(folder, "CAUSALI.cap", "reccausa.cap",
                   {test::causaleRecord(1, "V", "Vers.", "A")});
  test::writeTable(folder, "TIPO.CON", "RECTIPO.CON", {test::categoryRecord(1, "B", "Banche", "")});
  folder.write("RECORDS.RER", test::le16(42));
  test::writeMovements(folder, "Cc1", {{.date = "01/02/2026", .amount = 7, .sign = "A"}});
  folder.write("cc1.rip", test::carryForwardRecord("31/12/2025", 100));
  // Every Windows-1252 letter has its two cases: "Ù" is "ù".
  test::writeMovements(folder, "PERÙ", {{.date = "01/02/2026", .amount = 3, .sign = "A"}});
  const auto before = folder.names();

  Session session = startedSession();
  ASSERT_EQ(session.tables().accounts.size(), 2U);
  EXPECT_EQ(session.tables().causali.size(), 1U);
  EXPECT_EQ(session.tables().categories.size(), 1U);
  EXPECT_EQ(session.tables().movementCounter, 42);
  session.openAccount(0);
  EXPECT_EQ(session.account()->count(), 1U);
  EXPECT_EQ(session.account()->balanceTotal(), 107);
  session.openAccount(1);
  EXPECT_EQ(session.account()->balanceTotal(), 3);
  EXPECT_EQ(session.account()->damage().problem, "");
  // Only the files that were missing appear, in the canonical spelling.
  Names added;
  std::ranges::set_difference(folder.names(), before, std::back_inserter(added));
  EXPECT_EQ(added, (Names{"Perù.RIP", "Perù.TOC", "cc1.TOC"}));
}

TEST_F(DataDirectoryTest, TablesAreReadAndAppendedThroughTheirCountFiles) {
  const Bytes first = test::accountRecord({.number = 1, .code = "A1", .creditLine = "100"});
  const Bytes second = test::accountRecord({.number = 2, .code = "A2", .name = "Societ\xE0"});
  const Bytes stale = test::accountRecord({.number = 3, .code = "OLD"});
  test::writeTable(folder, "CONTI.CON", "RecConti.CON", {first, second, stale}, 2);

  const auto loaded = loadTable<Account>(dir, kAccountTable);
  EXPECT_TRUE(loaded.damage.problem.empty());
  ASSERT_EQ(loaded.records.size(), 2U);  // the record past the count is not valid
  EXPECT_EQ(trim(loaded.records[1].accountName), "Società");

  Account third = loaded.records[1];
  third.recordNumber = 3;
  third.accountCode = "A3";
  third.accountName = "Perù";
  WriteJournal journal(dir);
  journal.record(dir.path("CONTI.CON"), 3, third);
  journal.count(dir.path("RecConti.CON"), 3);
  ASSERT_TRUE(journal.finish().ok());
  EXPECT_EQ(folder.read("CONTI.CON"),
            test::cat({first, second,
                       test::accountRecord({.number = 3, .code = "A3", .name = "Per\xF9"})}));
  EXPECT_EQ(folder.read("RecConti.CON"), test::le16(3));
}

TEST_F(DataDirectoryTest, FolderSeparatorIsNotDoubled) {
  EXPECT_EQ(DataDirectory::withSeparator("/archivio"), "/archivio/");
  EXPECT_EQ(DataDirectory::withSeparator("/archivio/"), "/archivio/");
  EXPECT_TRUE(DataDirectory::defaultFolder().ends_with("/dati/"));
}

TEST(DefaultFolder, BesideTheProgramOrInTheUsersDataFolder) {
  struct Case {
    bool writable;
    const char* xdgDataHome;
    std::string folder;
  };
  for (const Case& c : {Case{true, "/x", "/opt/contavia/bin/dati/"},
                        Case{false, "/home/anna/dati-xdg", "/home/anna/dati-xdg/Contavia/dati/"},
                        Case{false, nullptr, "/home/anna/.local/share/Contavia/dati/"},
                        Case{false, "relativa", "/home/anna/.local/share/Contavia/dati/"}}) {
    EXPECT_EQ(DataDirectory::defaultFolderFor("/opt/contavia/bin/", c.writable, c.xdgDataHome,
                                              "/home/anna"),
              c.folder);
  }
}

TEST_F(DataDirectoryTest, AccountCodesNeverReachOutsideTheFolder) {
  const std::string inner = folder.file("dati/");
  std::filesystem::create_directory(inner);
  DataDirectory data(files, inner);
  for (const char* code : {"../evil", "a/b", "*", "?", "..", ""}) {
    OpenAccount account(data, clock, code, "");
    account.load();
    Movement m;
    m.operationDate = "01/01/2026";
    EXPECT_FALSE(account.appendMovement(m).ok()) << code;
    EXPECT_TRUE(accountFilesMatching(data, code, CodeMatch::Prefix).empty()) << code;
  }
  EXPECT_EQ(folder.names(), Names{"dati"});
  EXPECT_TRUE(std::filesystem::is_empty(inner));
}

TEST_F(DataDirectoryTest, AccountFilesByPattern) {
  for (const char* name : {"CC1.MOC", "cc1.mor", "CC1.TOC", "CC1.chi", "CC10.MOC", "CC1.txt",
                           "Bak.moc", "CONTI.CON", "records.rer", "XCC1.MOC"}) {
    folder.write(name, {});
  }
  EXPECT_EQ(accountFilesMatching(dir, " cc1 ", CodeMatch::Exact),
            (Names{"CC1.MOC", "CC1.TOC", "CC1.chi", "cc1.mor"}));
  EXPECT_EQ(accountFilesMatching(dir, "CC1", CodeMatch::Prefix),
            (Names{"CC1.MOC", "CC1.TOC", "CC1.chi", "CC10.MOC", "cc1.mor"}));
  EXPECT_TRUE(accountFilesMatching(dir, "BAK", CodeMatch::Exact).empty());
  WriteJournal journal(dir);
  removeAccountFiles(journal, dir, "CC1", CodeMatch::Exact);
  ASSERT_TRUE(journal.finish().ok());
  EXPECT_EQ(folder.names(),
            (Names{"Bak.moc", "CC1.txt", "CC10.MOC", "CONTI.CON", "XCC1.MOC", "records.rer"}));
}

}  // namespace
}  // namespace contavia
