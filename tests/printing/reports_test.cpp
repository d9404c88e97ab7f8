// One expected text per family of reports, written from what each report is to print: the page
// header, the body lines with their columns, and the totals.

#include <gtest/gtest.h>

#include "printing/closing_archive.h"
#include "printing/master_listings.h"
#include "printing/movement_lists.h"
#include "printing/summaries.h"

namespace contavia {
namespace {

std::string sp(std::size_t n) { return std::string(n, ' '); }
std::string rule(std::size_t n) { return " " + std::string(n, '-'); }

std::vector<std::string> printed(const Report& report, std::size_t first, std::size_t count) {
  TextPrinter printer;
  printReport(printer, report);
  const auto& lines = printer.lines();
  return {lines.begin() + static_cast<long>(first),
          lines.begin() + static_cast<long>(std::min(lines.size(), first + count))};
}

TEST(Reports, MasterListingsWithTheirHeader) {
  Causale versamento;
  versamento.causaleCode = "VER  ";
  versamento.causaleDescription = "Versamento Società";
  versamento.sign = "A";
  EXPECT_EQ(printed(causaliListing({versamento}, "21/11/2026"), 0, 11),
            (std::vector<std::string>{"", sp(41) + "Elenco Causali", sp(37),
                                      " Stampato il 21/11/2026", "", "", rule(94),
                                      " Cod.    Descrizione                    D/A ", rule(94), "",
                                      " VER   - Versamento Società" + sp(7) + sp(7) + "A"}));
  Account a;
  a.accountCode = "CC1";
  a.accountName = "Conto corrente della Banca Popolare di Milano";
  a.groupName = "Liquidità immediata";
  a.categoryName = "Banche";
  a.creditLine = "150000";
  const Report accounts = accountsListing({a}, "21/11/2026");
  EXPECT_EQ(accounts.layout.header.ruleDashes, 97U);
  EXPECT_EQ(accounts.lines,
            std::vector<std::string>{" CC1        Conto corrente della Banca Popolare di M "
                                     "Liquidità immed Banche          150.000"});
  Group g;
  g.groupCode = " G1";
  g.groupName = "Casa";
  EXPECT_EQ(groupsListing({g}, "21/11/2026").lines,
            std::vector<std::string>{"G1    - Casa                     "});
}

TEST(Reports, ChartOfAccountsNestsCategoriesAndAccountsByDescription) {
  Group g1{.groupCode = "G1", .groupName = "Privati"};
  Group g2{.groupCode = "G2", .groupName = "Vuoto"};
  Category banche{.categoryCode = "BA", .categoryName = "Banche", .groupName = "Privati"};
  Category carte{.categoryCode = "CA", .categoryName = "Carte", .groupName = "Altro"};
  Account a{.accountCode = "CC1", .categoryName = "Banche", .accountName = "Banca"};
  const Report chart = chartOfAccounts({g1, g2}, {banche, carte}, {a}, "21/11/2026");
  EXPECT_TRUE(chart.layout.segue);
  EXPECT_EQ(chart.lines, (std::vector<std::string>{
                             "  G1   Privati                  ",
                             sp(25) + "BA    Banche                   ",
                             " CC1       Banca" + sp(40),
                             "  G2   Vuoto                    ",
                         }));
}

TEST(Reports, MovementListsPrintTheirRows) {
  const ListChoice choice{"01/11/2026", "30/11/2026", " TUTTE", " Tutte", "Banche"};
  const Report account =
      accountMovementsReport("CC1  Banca", choice, {"21/11/2026 0001 riga"}, "21/11/2026");
  EXPECT_EQ(account.layout.header.dateBlock,
            (std::vector<std::string>{
                "CC1  Banca  " + sp(21) + "Stampato il 21/11/2026" + sp(9) + "Valuta: Euro",
                "    dal 01/11/2026   al 30/11/2026" + sp(8) + "Causali selezionate: TUTTE"}));
  EXPECT_EQ(account.lines, std::vector<std::string>{"21/11/2026 0001 riga"});
  // The query's rows lose the 7 characters of their key; its page is wider.
  const Report query = queryMovementsReport(choice, {"259675 21/11/2026 0001 Società"}, "x");
  EXPECT_EQ(query.lines, std::vector<std::string>{"21/11/2026 0001 Società"});
  EXPECT_EQ(query.layout.header.dateBlock[1],
            "    dal 01/11/2026   al 30/11/2026    Gruppi: Tutte   Categoria: Banche   Causali: "
            "TUTTE");
  EXPECT_EQ(query.layout.breakRuleDashes, 101U);
  EXPECT_EQ(query.layout.endRuleDashes, 100U);
}

TEST(Reports, SummariesWithTheirTotals) {
  const std::vector<SummaryLine> lines = {{"Banche", 1234.5}, {"Carte", -1000000}};
  EXPECT_EQ(categorySummaryReport(lines, "21-11-2026").lines,
            (std::vector<std::string>{sp(10) + "Banche" + sp(19) + sp(7) + "     1.234,50",
                                      sp(10) + "Carte" + sp(20) + sp(7) + "-1.000.000,00",
                                      sp(35) + "Totali -998.765,50"}));
  const Report groups = groupSummaryReport({{"Casa", 1000000000}}, "21-11-2026");
  EXPECT_EQ(groups.lines.back(), sp(35) + "Totali 1.000.000.000,00");
  const Report accounts = accountSummaryReport(
      {{"CC1", "Conto corrente della Banca Popolare", 100.5, 1500}}, " Tutte", "21-11-2026");
  EXPECT_EQ(accounts.layout.header.dateBlock,
            std::vector<std::string>{sp(16) + "Tipo di Conto:  Tutte     Valuta: Euro    al "
                                              "21-11-2026"});
  EXPECT_EQ(accounts.lines,
            (std::vector<std::string>{
                "CC1        Conto corrente della Banca Popol" + sp(11) + "100,50" + sp(9) +
                    "1.500," + sp(12) + "1.600,5",
                sp(42) + "Totali " + sp(5) + "100,50" + sp(7) + "1.500,00" + sp(11) + "1.600,50"}));
}

TEST(Reports, ClosingArchiveEndsWithTheBreakFooterAndItsOwnMark) {
  Movement debit;
  debit.operationDate = "10/01/2026";
  debit.amount = 1234567.5;
  debit.sign = "D";
  debit.description = "Affitto                       ";
  Movement credit = debit;
  credit.sign = "A";
  credit.amount = 0.5;
  TextPrinter printer;
  printReport(printer, closingArchiveReport({debit, credit}, "21/11/2026", "15/01/2026"));
  const std::vector<std::string>& lines = printer.lines();
  EXPECT_EQ(std::vector<std::string>(lines.begin(), lines.begin() + 11),
            (std::vector<std::string>{
                "", sp(34) + "Elenco Movimenti Eliminati",
                sp(23) + "Stampato il 21/11/2026  al 15/01/2026", "", "", rule(95),
                "    Data       Mov. Dare  Mov. Avere       Saldo   Descr. Movimento", rule(95), "",
                "10/01/2026" + sp(11) + "1.234.567,50" + sp(18) + "Affitto",
                "10/01/2026" + sp(12) + "0,50" + sp(25) + "Affitto"}));
  EXPECT_EQ(
      std::vector<std::string>(lines.end() - 3, lines.end()),
      (std::vector<std::string>{rule(95), "", sp(42) + "Pagina 1" + sp(17) + "....fine stampa"}));
}

}  // namespace
}  // namespace contavia
