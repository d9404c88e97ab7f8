// contavia-cli's tables for a spreadsheet: `movimenti --csv` on a small archive written here,
// compared whole (byte-order mark, separator, decimal comma, quoting, the formula guard,
// accented text, the running balance), filtered, and a file that cannot be written.

#include <gtest/gtest.h>

#include "tests/support/archive_bytes.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace contavia {
namespace {

std::string textOf(const test::Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

class ExportCliTest : public ::testing::Test {
 protected:
  void SetUp() override {
    test::writeTable(folder, "CONTI.CON", "RecConti.CON", {test::accountRecord({1, "100"})});
    test::writeTable(folder, "Causali.CAP", "RecCausa.CAP",
                     {test::causaleRecord(1, "ST", "Stipendio", "A"),
                      test::causaleRecord(2, "AF", "Affitto", "D")});
    test::writeMovements(folder, "100",
                         {{.date = "01/11/2026",
                           .causale = "ST",
                           .amount = 1000,
                           .sign = "A",
                           .description = "Societ\xE0 \"Alfa\"; novembre"},
                          {.date = "05/11/2026",
                           .causale = "AF",
                           .amount = 300.5,
                           .document = "=1+1",
                           .description = "-affitto"},
                          {.date = "10/11/2026", .causale = "AF", .amount = 50}});
    folder.write("100.RIP", test::carryForwardRecord("31/10/2026", 200));
  }

  test::ProgramResult cli(std::vector<std::string> args) {
    args.insert(args.begin(), {"--dati", folder.path(), "--oggi", "22/11/2026"});
    return test::runProgram(CONTAVIA_CLI, args);
  }

  test::TempFolder folder;
  test::TempFolder out;
};

TEST_F(ExportCliTest, TheMovementListAsASpreadsheetReadsIt) {
  const std::string header =
      "\xEF\xBB\xBF"
      "Data;Numero;Causale;Descrizione causale;Documento;Descrizione;Dare;Avere;"
      "Saldo\r\n31/10/2026;;;;;Riporto Chiusura precedente;;;200,00\r\n";
  const std::string second = "05/11/2026;2;AF;Affitto;'=1+1;'-affitto;300,50;;899,50\r\n";
  ASSERT_EQ(cli({"movimenti", "100", "--csv", out.path() + "tutti.csv"}).exitCode, 0);
  EXPECT_EQ(textOf(out.read("tutti.csv")),
            header + "10/11/2026;3;AF;Affitto;;;50,00;;849,50\r\n" + second +
                "01/11/2026;1;ST;Stipendio;;\"Societ\xC3\xA0 \"\"Alfa\"\"; novembre\";;1000,00;"
                "1200,00\r\n");
  // Filtered: the rows listed, each with the account's balance after it.
  ASSERT_EQ(cli({"movimenti", "100", "--dal", "05/11/2026", "--al", "05/11/2026", "--csv",
                 out.path() + "filtro.csv"})
                .exitCode,
            0);
  EXPECT_EQ(textOf(out.read("filtro.csv")), header + second);

  // A file that cannot be written: said, and nothing left behind; a missing folder is a usage
  // error found before anything runs.
  const test::ProgramResult denied = cli({"movimenti", "100", "--csv", out.path()});
  EXPECT_EQ(denied.exitCode, 1);
  EXPECT_NE(denied.err.find(out.path()), std::string::npos) << denied.err;
  EXPECT_EQ(out.names(), (std::vector<std::string>{"filtro.csv", "tutti.csv"}));
  EXPECT_EQ(cli({"movimenti", "100", "--csv", out.path() + "manca/x.csv"}).exitCode, 2);
}

TEST_F(ExportCliTest, TheQueryAndTheSummariesAsASpreadsheetReadsThem) {
  ASSERT_EQ(cli({"interroga", "--dal", "01/11/2026", "--al", "05/11/2026", "--csv",
                 out.path() + "interroga.csv"})
                .exitCode,
            0);
  EXPECT_EQ(textOf(out.read("interroga.csv")),
            "\xEF\xBB\xBF"
            "Data;Numero;Conto;Causale;Descrizione;Dare;Avere\r\n"
            "05/11/2026;2;100;Affitto;'-affitto;300,50;\r\n"
            "01/11/2026;1;100;Stipendio;\"Societ\xC3\xA0 \"\"Alfa\"\"; novembre\";;1000,00\r\n");
  ASSERT_EQ(cli({"riepilogo", "conti", "--csv", out.path() + "conti.csv"}).exitCode, 0);
  EXPECT_EQ(textOf(out.read("conti.csv")),
            "\xEF\xBB\xBF"
            "Conto;Nome;Saldo;Fido;Disponibile\r\n100;;849,50;0,00;849,50\r\n");
  ASSERT_EQ(cli({"riepilogo", "gruppi", "--csv", out.path() + "gruppi.csv"}).exitCode, 0);
  EXPECT_EQ(textOf(out.read("gruppi.csv")),
            "\xEF\xBB\xBF"
            "Gruppo;Saldo\r\n");
}

}  // namespace
}  // namespace contavia
