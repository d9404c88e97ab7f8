// contavia-cli on the master data, end to end: the lists, "ok" with and without a chosen row,
// "del" with its question (answered by --si, Cancel without a terminal), the exit statuses and
// the message lines on standard error.

#include <gtest/gtest.h>

#include "tests/support/archive_bytes.h"
#include "tests/support/run_program.h"
#include "tests/support/temp_folder.h"

namespace contavia {
namespace {

class AnagraficheCliTest : public ::testing::Test {
 protected:
  test::TempFolder data;

  test::ProgramResult cli(std::vector<std::string> args) {
    args.insert(args.begin(), {"--dati", data.path()});
    return test::runProgram(CONTAVIA_CLI, args);
  }
};

TEST_F(AnagraficheCliTest, CausaliAreAddedChangedListedAndDeleted) {
  EXPECT_EQ(cli({"causale-salva", "VER", "Versamento", "A"}).exitCode, 0);
  EXPECT_EQ(cli({"causale-salva", "PRE", "Prelievo", "D"}).exitCode, 0);
  const test::ProgramResult duplicate = cli({"causale-salva", "VER", "Altro", "A"});
  EXPECT_EQ(duplicate.exitCode, 1);
  EXPECT_EQ(duplicate.err, "ERRORE: Nr di causale già presente\n");
  EXPECT_EQ(cli({"causale-salva", "--n", "2", "PRE", "Prelievo bancomat", "D"}).exitCode, 0);
  EXPECT_EQ(cli({"causali"}).out,
            "VER   Versamento                A\nPRE   Prelievo bancomat         D\n");

  const test::ProgramResult cancelled = cli({"causale-elimina", "1"});
  EXPECT_EQ(cancelled.exitCode, 1);
  EXPECT_EQ(cancelled.err,
            "AVVERTIMENTO!: Attenzione la causale selezionata verrà cancellata il dato verrà "
            "irrimediabilmente perso. Vuoi continuare ?\n");
  EXPECT_FALSE(data.exists("causali.con"));

  EXPECT_EQ(cli({"--si", "causale-elimina", "1"}).exitCode, 0);
  EXPECT_EQ(data.read("causali.con"), test::causaleRecord(1, "PRE", "Prelievo bancomat", "D"));
  // The list is read from "Causali.CAP" again: the deleted causale is back.
  EXPECT_EQ(cli({"causali"}).out.substr(0, 3), "VER");
}

TEST_F(AnagraficheCliTest, GroupsCategoriesAndAccountsReferToEachOther) {
  EXPECT_EQ(cli({"gruppo-salva", "G1", "Privati"}).exitCode, 0);
  EXPECT_EQ(cli({"categoria-salva", "T1", "Banche", "Privati"}).exitCode, 0);
  EXPECT_EQ(
      cli({"conto-salva", "1", "--categoria", "Banche", "--nome", "Banca Uno", "--fido", "1000"})
          .exitCode,
      0);
  EXPECT_EQ(cli({"conto-salva", "10", "--categoria", "Banche", "--nome", "Banca Dieci"}).exitCode,
            0);
  EXPECT_EQ(cli({"gruppi"}).out, "G1    - Privati                  \n");
  EXPECT_EQ(cli({"categorie"}).out, "T1    - Banche                   \n");
  EXPECT_EQ(cli({"conti"}).out, "1          Banca Uno" + std::string(36, ' ') +
                                    "\n10         Banca Dieci" + std::string(34, ' ') + "\n");
  EXPECT_EQ(data.read("CONTI.CON").size(), 2U * 207);

  const test::ProgramResult used = cli({"--si", "categoria-elimina", "1"});
  EXPECT_EQ(used.exitCode, 1);
  EXPECT_EQ(used.err,
            "Contavia: La categoria che vuoi eliminare è presente in 2 conti, pertanto, non è "
            "possibile la sua eliminazione.\n");
  EXPECT_EQ(cli({"--si", "gruppo-elimina", "1"}).exitCode, 1);

  data.write("10.MOC", test::Bytes(87, ' '));
  data.write("10.MOR", test::le16(1));
  EXPECT_EQ(cli({"--si", "conto-elimina", "1"}).exitCode, 0);
  // Account 10 stays in the list, its files went with account 1's.
  EXPECT_EQ(cli({"conti"}).out, "10         Banca Dieci" + std::string(34, ' ') + "\n");
  EXPECT_FALSE(data.exists("10.MOC"));
  EXPECT_TRUE(data.exists("CONTI.CON"));
}

TEST_F(AnagraficheCliTest, RefusalsAndUsageErrors) {
  cli({"categoria-salva", "T1", "Banche"});
  const test::ProgramResult dangerous = cli({"conto-salva", "Tipo", "--categoria", "Banche"});
  EXPECT_EQ(dangerous.exitCode, 1);
  EXPECT_EQ(dangerous.err,
            "ERRORE: Il nr. di conto \"Tipo\" non si può usare: è il nome di un file "
            "dell'archivio. Cambiare il nr. di conto e riprovare.\n");
  const test::ProgramResult noCategory = cli({"conto-salva", "5"});
  EXPECT_EQ(noCategory.exitCode, 1);
  EXPECT_EQ(noCategory.err,
            "ERRORE: Campo Tipo conto obbligatorio, selezionare un tipo e riprovare.\n");

  EXPECT_EQ(cli({"causale-salva", "VER", "Versamento", "X"}).exitCode, 2);
  EXPECT_EQ(cli({"causale-salva", "VER", "Versamento"}).exitCode, 2);
  EXPECT_EQ(cli({"gruppo-elimina", "1"}).exitCode, 2);  // no such row
  EXPECT_EQ(cli({"categoria-salva", "T2", "Carte", "Nessuno"}).exitCode, 2);
  EXPECT_EQ(cli({"conto-salva", "5", "--categoria", "Banche", "--cap", "1O100"}).exitCode, 2);
  EXPECT_EQ(cli({"conto-salva", "5", "--categoria", "Banche"}).exitCode, 0);
  const test::ProgramResult otherCode =
      cli({"conto-salva", "--n", "1", "6", "--categoria", "Banche"});
  EXPECT_EQ(otherCode.exitCode, 2);
  EXPECT_NE(otherCode.err.find("CodConto"), std::string::npos);
  EXPECT_FALSE(data.exists("Tipo.MOC"));

  // A group coded with a leading blank is listed, but its row names no group.
  EXPECT_EQ(cli({"gruppo-salva", " G9", "Spazio"}).exitCode, 0);
  const auto before = data.read("Gruppi.con");
  const test::ProgramResult noRecord = cli({"--si", "gruppo-elimina", "1"});
  EXPECT_EQ(noRecord.exitCode, 2);
  EXPECT_EQ(noRecord.err, "contavia-cli: la riga 1 non corrisponde a nessun record\n");
  EXPECT_EQ(cli({"gruppo-salva", "--n", "1", "G9", "Altro"}).exitCode, 2);
  EXPECT_EQ(data.read("Gruppi.con"), before);
}

}  // namespace
}  // namespace contavia
