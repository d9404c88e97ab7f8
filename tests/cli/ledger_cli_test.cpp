// contavia-cli end to end on the ledger commands: the sample archive, the movement list, saving,
// deleting, clearing and "Riordina archivio", with their exit statuses and messages.

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "archive/session.h"
#include "common/clock.h"
#include "tests/support/archive_bytes.h"
#include "tests/support/run_program.h"
#include "tests/support/scripted_prompter.h"
#include "tests/support/temp_folder.h"

namespace contavia {
namespace {

struct CliRun {
  int status = -1;
  std::vector<std::string> out;  // lines
  std::string err;
};

class LedgerCliTest : public ::testing::Test {
 protected:
  // Runs contavia-cli on the test's folder with today 15/03/2025 and no terminal.
  CliRun cli(std::vector<std::string> args) {
    args.insert(args.begin(), {"--dati", folder.path(), "--oggi", "15/03/2025"});
    const test::ProgramResult result = test::runProgram(CONTAVIA_CLI, args);
    CliRun run{result.exitCode, {}, result.err};
    std::istringstream lines(result.out);
    for (std::string line; std::getline(lines, line);) {
      run.out.push_back(line);
    }
    return run;
  }

  test::TempFolder folder;
};

TEST_F(LedgerCliTest, SampleArchiveIsMadeOnceAndItsListAddsUpToTheBalance) {
  const CliRun made = cli({"esempio"});
  ASSERT_EQ(made.status, 0) << made.err;
  ASSERT_EQ(made.out.size(), 1U);
  EXPECT_NE(made.out[0].find("4 conti"), std::string::npos) << made.out[0];

  const CliRun again = cli({"esempio"});
  EXPECT_EQ(again.status, 1);
  EXPECT_TRUE(again.out.empty());
  EXPECT_TRUE(again.err.starts_with("ERRORE: ")) << again.err;

  for (const char* account : {"BANCA", "POSTA", "CARTA", "CASSA"}) {
    SCOPED_TRACE(account);
    const CliRun list = cli({"movimenti", account});
    ASSERT_EQ(list.status, 0) << list.err;
    ASSERT_GT(list.out.size(), 20U);
    // Newest first, nothing after today, about a year back.
    EXPECT_LE(list.out.front().substr(6, 4) + list.out.front().substr(3, 2), "202503");
    EXPECT_GE(
        list.out[list.out.size() - 8].substr(6, 4) + list.out[list.out.size() - 8].substr(3, 2),
        "202404");
    const std::string balanceLine = list.out[list.out.size() - 2];
    ASSERT_TRUE(balanceLine.starts_with("    Saldo")) << balanceLine;
    const CliRun panels = cli({"saldi", account});
    ASSERT_EQ(panels.status, 0);
    EXPECT_EQ("4: " + balanceLine.substr(balanceLine.find_first_not_of(' ', 9)), panels.out[1]);
  }
}

TEST_F(LedgerCliTest, SaveChangeAndDeleteAMovement) {
  ASSERT_EQ(cli({"esempio"}).status, 0);
  const std::size_t count = cli({"movimenti", "CASSA"}).out.size() - 7;
  const std::string next = std::to_string(count + 1);
  const std::string number = std::string(4 - next.size(), '0') + next;

  ASSERT_EQ(cli({"movimento-salva", "CASSA", "15/03/2025", "ACQ", "1234.5", "--doc", "Società",
                 "--descrizione", "Gelato in Perù"})
                .status,
            0);
  CliRun list = cli({"movimenti", "CASSA"});
  EXPECT_EQ(list.out.front(), "15/03/2025 " + number + std::string(6, ' ') + "1.234,50" +
                                  std::string(14, ' ') + "Acquisti vari-Società-Gelato in Perù");
  EXPECT_EQ(list.out.back(), " Nr. Movimenti: " + next);

  ASSERT_EQ(cli({"movimento-salva", "CASSA", "--n", next, "14/03/2025", "VER", "7"}).status, 0);
  list = cli({"movimenti", "CASSA"});
  EXPECT_NE(list.out.front().substr(11, 4), number);  // no longer the newest
  bool found = false;
  for (const std::string& line : list.out) {
    if (line.starts_with("14/03/2025 " + number)) {
      EXPECT_EQ(line, "14/03/2025 " + number + std::string(23, ' ') +
                          "7,00 Versamento contant-Società-Gelato in Perù");
      found = true;
    }
  }
  EXPECT_TRUE(found);

  const CliRun refused = cli({"movimento-elimina", "CASSA", next});
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.err,
            "AVVERTIMENTO!: Attenzione il movimento selezionato verrà cancellato, ...Vuoi "
            "Continuare?\n");
  EXPECT_EQ(cli({"movimenti", "CASSA"}).out.back(), " Nr. Movimenti: " + next);

  EXPECT_EQ(cli({"--si", "movimento-elimina", "CASSA", next}).status, 0);
  EXPECT_EQ(cli({"movimenti", "CASSA"}).out.back(), " Nr. Movimenti: " + std::to_string(count));
}

TEST_F(LedgerCliTest, ExitStatusesOfRefusalsAndUsageErrors) {
  ASSERT_EQ(cli({"esempio"}).status, 0);
  struct Case {
    std::vector<std::string> args;
    int status;
    const char* err;  // the start of standard error
  };
  const std::vector<Case> cases = {
      {{"movimento-salva", "BANCA", "32/01/2025", "STI", "1"}, 2, "contavia-cli: data non valida"},
      {{"movimento-salva", "BANCA", "15/03/2025", "STI", "1.234,5"},
       2,
       "contavia-cli: importo non valido"},
      {{"movimenti", "BANCA", "--causale", "Nessuna"}, 2, "contavia-cli: causale sconosciuta"},
      {{"movimenti", "NESSUNO"}, 1, "ERRORE: Conto NESSUNO non presente"},
      {{"movimento-salva", "BANCA", "15/03/2025", "ZZ", "1"},
       1,
       "ERRORE: CODICE CAUSALE NON PRESENTE!"},
      {{"movimento-salva", "BANCA", "15/03/2025", "STI", ""},
       1,
       "ERRORE: Campo Importo obbligatorio"},
      {{"movimento-elimina", "BANCA", "9999"}, 1, "ERRORE: Movimento 9999 non presente"},
  };
  const auto before = test::snapshot(folder);
  for (const Case& c : cases) {
    SCOPED_TRACE(c.args[0] + " " + c.args.back());
    const CliRun run = cli(c.args);
    EXPECT_EQ(run.status, c.status);
    EXPECT_TRUE(run.err.starts_with(c.err)) << run.err;
  }
  // The stored totals are written again on every opening; nothing else may change.
  auto after = test::snapshot(folder);
  for (const auto& [name, bytes] : before) {
    if (!name.ends_with(".TOC")) {
      EXPECT_EQ(after.at(name), bytes) << name;
    }
  }
}

TEST_F(LedgerCliTest, ClearingAskTwiceAndNeedsBothAnswers) {
  ASSERT_EQ(cli({"esempio"}).status, 0);
  const CliRun refused = cli({"movimenti-svuota", "CARTA"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_TRUE(refused.err.starts_with("AVVERTIMENTO!:  Questa azione elimina tutti i movimenti"))
      << refused.err;
  EXPECT_NE(cli({"movimenti", "CARTA"}).out.back(), " Nr. Movimenti: 0");

  EXPECT_EQ(cli({"--si", "movimenti-svuota", "CARTA"}).status, 0);
  EXPECT_EQ(cli({"riordina", "CARTA"}).status, 0);
  EXPECT_EQ(cli({"movimenti", "CARTA"}).out.back(), " Nr. Movimenti: 0");
  EXPECT_NE(cli({"movimenti", "CASSA"}).out.back(), " Nr. Movimenti: 0");
}

TEST_F(LedgerCliTest, ASecondProgramOnTheFolderIsToldAndChangesNothing) {
  ASSERT_EQ(cli({"esempio"}).status, 0);
  const auto before = test::snapshot(folder);
  {
    // This test's own process works on the folder, as the desktop program would.
    OsFileLayer files;
    test::ScriptedPrompter prompter;
    FixedClock clock{CalendarDate{15, 3, 2025}};
    Session desktop(files, prompter, clock, folder.path());
    ASSERT_TRUE(desktop.start());
    const CliRun refused = cli({"movimento-salva", "BANCA", "15/03/2025", "STI", "10"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_TRUE(refused.err.starts_with("ERRORE: L'archivio in " + folder.path() +
                                        " è già in uso (contavia, processo "))
        << refused.err;
    EXPECT_EQ(test::snapshot(folder), before);
  }
  EXPECT_EQ(cli({"movimento-salva", "BANCA", "15/03/2025", "STI", "10"}).status, 0);
}

}  // namespace
}  // namespace contavia
