// contavia-cli's closing, its undo, the copies of the account files and their restore, end to
// end on the sample archive: a question not answered with --si changes nothing, and each undo or
// restore gives back the movement list exactly as it was.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/archive_bytes.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace contavia {
namespace {

class ClosingBackupCliTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(cli({"esempio"}).exitCode, 0);
    listed = cli({"movimenti", "BANCA"}).out;
  }

  test::ProgramResult cli(std::vector<std::string> args) {
    args.insert(args.begin(), {"--dati", data.path(), "--oggi", "15/03/2025"});
    return test::runProgram(CONTAVIA_CLI, args);
  }
  // Runs a command with and without --si: without, its question is cancelled and no file of
  // the archive changes.
  test::ProgramResult confirmed(std::vector<std::string> args) {
    const auto before = test::snapshot(data);
    EXPECT_EQ(cli(args).exitCode, 1);
    EXPECT_EQ(test::snapshot(data), before);
    args.insert(args.begin(), "--si");
    return cli(args);
  }

  test::TempFolder data;
  test::TempFolder elsewhere;
  std::string listed;  // BANCA's movement list as the sample archive has it
};

TEST_F(ClosingBackupCliTest, ClosingPrintsTheRemovedMovementsAndItsUndoGivesTheListBack) {
  const std::string report = elsewhere.file("eliminati.txt");
  const test::ProgramResult closed =
      confirmed({"chiusura", "BANCA", "31/12/2024", "--stampa", report});
  ASSERT_EQ(closed.exitCode, 0) << closed.err;
  EXPECT_NE(closed.err.find("Chiusura eseguita. L'elenco dei movimenti eliminati \xC3\xA8 "
                            "conservato in " +
                            data.file("chiusure/20250315-BANCA.pdf") + "."),
            std::string::npos)
      << closed.err;
  EXPECT_TRUE(data.exists("chiusure/20250315-BANCA.pdf"));
  const test::Bytes bytes = elsewhere.read("eliminati.txt");
  const std::string printed(bytes.begin(), bytes.end());
  EXPECT_NE(printed.find("Elenco Movimenti Eliminati"), std::string::npos);
  EXPECT_NE(printed.find("....fine stampa"), std::string::npos);
  EXPECT_EQ(cli({"movimenti", "BANCA"}).out.rfind("31/12/2024 ", 0), 0U);

  ASSERT_EQ(confirmed({"ripristina-chiusura", "BANCA"}).exitCode, 0);
  EXPECT_EQ(cli({"movimenti", "BANCA"}).out, listed);
}

TEST_F(ClosingBackupCliTest, BackupOfOneOrEveryAccountAndTheRestoreOfEvery) {
  const std::string folder = elsewhere.path() + "copie";
  std::filesystem::create_directory(folder);
  ASSERT_EQ(cli({"backup", folder, "--conto", "BANCA"}).exitCode, 0);
  EXPECT_EQ(elsewhere.names(), (std::vector<std::string>{"copie"}));
  std::vector<std::string> one;
  for (const auto& file : std::filesystem::directory_iterator(folder)) {
    one.push_back(file.path().filename().string());
  }
  std::sort(one.begin(), one.end());
  EXPECT_EQ(one, (std::vector<std::string>{"BANCA.MOC", "BANCA.MOR", "BANCA.RIP", "BANCA.TOC"}));

  const test::ProgramResult all = cli({"backup", folder});
  ASSERT_EQ(all.exitCode, 0);
  EXPECT_NE(all.err.find("Copie di sicurezza eseguite in " + folder + "/: 16 file."),
            std::string::npos)
      << all.err;

  ASSERT_EQ(cli({"--si", "movimenti-svuota", "BANCA"}).exitCode, 0);
  ASSERT_NE(cli({"movimenti", "BANCA"}).out, listed);
  const test::ProgramResult restored = confirmed({"ripristina-backup", folder});
  ASSERT_EQ(restored.exitCode, 0);
  EXPECT_NE(restored.err.find("Ripristino eseguito: 4 conti."), std::string::npos);
  EXPECT_EQ(cli({"movimenti", "BANCA"}).out, listed);
}

TEST_F(ClosingBackupCliTest, UsageErrorsChangeNothing) {
  const std::vector<std::vector<std::string>> cases = {
      {"--si", "chiusura", "BANCA", "15/3/2025"},
      {"--si", "chiusura", "BANCA", "15/03/____"},
      {"--si", "chiusura", "BANCA", "31/12/2024", "--stampa", data.file("manca/r.txt")},
      {"backup", ""},
  };
  const auto before = test::snapshot(data);
  for (const auto& args : cases) {
    SCOPED_TRACE(args[1] + " " + args.back());
    const test::ProgramResult r = cli(args);
    EXPECT_EQ(r.exitCode, 2) << r.err;
    EXPECT_EQ(test::snapshot(data), before);
  }
}

}  // namespace
}  // namespace contavia
