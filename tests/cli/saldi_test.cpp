// contavia-cli saldi, end to end, on an archive written byte by byte.

#include <gtest/gtest.h>

#include "tests/support/archive_bytes.h"
#include "tests/support/run_program.h"

namespace contavia {
namespace {

using test::ProgramResult;

class SaldiTest : public ::testing::Test {
 protected:
  void SetUp() override {
    test::writeTable(
        folder, "CONTI.CON", "RecConti.CON",
        {test::accountRecord({.number = 1, .code = "CASSA", .name = "Cassa"}),
         test::accountRecord(
             {.number = 2, .code = "CC1", .name = "Banca Societ\xE0", .creditLine = "5000"})});
    test::writeMovements(folder, "CC1",
                         {{.date = "15/03/2026", .amount = 1234.5, .sign = "A"},
                          {.date = "20/11/2026", .amount = 2000, .sign = "D"},
                          {.date = "21/11/2026", .amount = 99.99, .sign = "D"},
                          {.date = "01/12/2026", .amount = 10000, .sign = "A"}});
    folder.write("CC1.RIP", test::carryForwardRecord("31/12/2025", -500));
  }

  ProgramResult saldi(std::vector<std::string> args,
                      const std::vector<std::string>& environment = {}) {
    args.insert(args.begin(), {"--dati", folder.path()});
    return test::runProgram(CONTAVIA_CLI, args, environment);
  }

  test::TempFolder folder;
};

TEST_F(SaldiTest, PrintsTheThreePanels) {
  struct Case {
    std::vector<std::string> args;
    std::vector<std::string> environment;
    std::string out;
  };
  const std::vector<Case> cases = {
      // Today: -500 + 1234,50 - 2000 - 99,99; the 10000 of 01/12/2026 only in the total.
      {{"--oggi", "21/11/2026", "saldi", "CC1"}, {}, "1: -1.365,49\n4: 8.634,51\n5: 3.634,51\n"},
      // Today from the environment when not given.
      {{"saldi", "CC1"}, {"CONTAVIA_OGGI=01/12/2026"}, "1: 8.634,51\n4: 8.634,51\n5: 13.634,51\n"},
      {{"--oggi", "21/11/2026", "saldi", "CASSA"}, {}, "1: 0,00\n4: 0,00\n5: 0,00\n"},
  };
  for (const Case& c : cases) {
    const ProgramResult r = saldi(c.args, c.environment);
    EXPECT_EQ(r.exitCode, 0) << c.out;
    EXPECT_EQ(r.out, c.out);
    EXPECT_EQ(r.err, "");
  }
}

TEST_F(SaldiTest, UnknownAccountStops) {
  const ProgramResult r = saldi({"--oggi", "21/11/2026", "saldi", "NESSUNO"});
  EXPECT_EQ(r.exitCode, 1);
  EXPECT_EQ(r.out, "");
  EXPECT_EQ(r.err, "ERRORE: Conto NESSUNO non presente in archivio.\n");
}

TEST_F(SaldiTest, UsageErrors) {
  const std::vector<std::vector<std::string>> cases = {
      {"--oggi", "31/02/2026", "saldi", "CC1"},
      {"--oggi", "2026-11-21", "saldi", "CC1"},
      {"--oggi", "1/1/2026", "saldi", "CC1"},
      {"saldi", "CC1", "--oggi"},
      {"saldi"},
      {"saldi", "CC1", "CASSA"},
      {"saldo", "CC1"},
      {"--sconosciuta", "saldi", "CC1"},
      {},
  };
  for (const auto& args : cases) {
    const ProgramResult r = saldi(args);
    std::string shown;
    for (const std::string& a : args) {
      shown += a + " ";
    }
    EXPECT_EQ(r.exitCode, 2) << shown;
    EXPECT_EQ(r.out, "") << shown;
    EXPECT_TRUE(r.err.starts_with("contavia-cli: ")) << shown << r.err;
    EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << shown << r.err;
  }
}

TEST_F(SaldiTest, Help) {
  const ProgramResult all = saldi({"--help"});
  EXPECT_EQ(all.exitCode, 0);
  EXPECT_TRUE(all.out.starts_with("Uso: contavia-cli [--dati CARTELLA]")) << all.out;
  EXPECT_NE(all.out.find("\n  saldi CONTO\n"), std::string::npos) << all.out;
  const ProgramResult one = saldi({"saldi", "--help"});
  EXPECT_EQ(one.exitCode, 0);
  EXPECT_TRUE(one.out.starts_with("Uso: contavia-cli saldi CONTO\n")) << one.out;
}

}  // namespace
}  // namespace contavia
