// The movement query and the summaries across accounts: the inclusive date range, the three
// filters, the rows with their key, the closing rows; each account's balance recomputed and
// stored, summed by category and by group (an account that names no category adds to none).

#include "ledger/movement_query.h"

#include <tuple>

#include "common/dates.h"
#include "common/text.h"
#include "ledger/summaries.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

class AcrossAccountsTest : public test::ArchiveTest {
 protected:
  void SetUp() override {
    test::writeTable(folder, "CONTI.CON", "RecConti.CON",
                     {test::accountRecord({.number = 1,
                                           .code = "CC1",
                                           .category = "Banche",
                                           .name = "Banca",
                                           .creditLine = "1000",
                                           .group = "Privati"}),
                      test::accountRecord({.number = 2,
                                           .code = "CC2",
                                           .category = "Carte",
                                           .name = "Carta",
                                           .group = "Privati"}),
                      test::accountRecord({.number = 3,
                                           .code = "CC3",
                                           .category = "Sparita",
                                           .name = "Altro",
                                           .group = "Ditta"})});
    test::writeTable(folder, "Causali.CAP", "RecCausa.CAP",
                     {test::causaleRecord(1, "STI", "Stipendio", "A"),
                      test::causaleRecord(2, "AFF", "Affitto", "D")});
    test::writeMovements(folder, "CC1",
                         {{.date = "31/10/2026", .causale = "STI", .amount = 1, .sign = "A"},
                          {.date = "01/11/2026",
                           .causale = "STI",
                           .amount = 1500,
                           .sign = "A",
                           .description = "Paga di ottobre",
                           .linkedNumber = "12"},
                          {.date = "30/11/2026", .causale = "AFF", .amount = 600, .sign = "D"},
                          {.date = "01/12/2026", .causale = "AFF", .amount = 1, .sign = "D"}});
    test::writeMovements(folder, "CC2",
                         {{.date = "15/11/2026", .causale = "AFF", .amount = 45.5, .sign = "D"}});
    test::writeMovements(folder, "CC3",
                         {{.date = "15/11/2026", .causale = "STI", .amount = 10, .sign = "A"}});
    folder.write("CC3.RIP", test::carryForwardRecord("31/12/2025", 90));
  }

  QueryResult query(QueryFilter f) {
    const Session session = startedSession();
    return runMovementQuery(dir, session.tables().accounts, session.tables().causali, f);
  }
};

std::string sp(std::size_t n) { return std::string(n, ' '); }

// The rows of the movements only, without the closing rows.
std::vector<std::string> movementRows(const QueryResult& r) {
  return {r.rows.begin(), r.rows.end() - 5};
}

TEST_F(AcrossAccountsTest, TheQueryListsTheRangeBothEndsIncludedNewestFirst) {
  const QueryResult all = query({"01/11/2026", "30/11/2026"});
  // Key, date, number, "Mov. Dare" or "Mov. Avere", causale, linked number, description, account.
  EXPECT_EQ(movementRows(all),
            (std::vector<std::string>{
                "258150 30/11/2026 0003        600,00" + sp(14) + "Affitto" + sp(38) + "CC1",
                "258165 15/11/2026 0001" + sp(22) + "10,00 Stipendio" + sp(36) + "CC3",
                "258165 15/11/2026 0001         45,50" + sp(14) + "Affitto" + sp(38) + "CC2",
                "258179 01/11/2026 0002" + sp(19) + "1.500,00 Stipendio    12" + sp(7) +
                    "Paga di ottobre" + sp(8) + "CC1"}));
  EXPECT_EQ(
      std::vector<std::string>(all.rows.end() - 5, all.rows.end()),
      (std::vector<std::string>{
          "99996  " + std::string(94, '-'), "99997   Totali                645,50     1.510,00",
          "99998  " + std::string(94, '-'), "99999   Saldo                 864,50",
          "999999  Nr. Movimenti: 4"}));
}

TEST_F(AcrossAccountsTest, TheFiltersChooseAccountsAndMovements) {
  struct Case {
    QueryFilter filter;
    std::vector<std::string> accounts;  // of the rows, in order
  };
  const std::vector<Case> cases = {
      {{"01/11/2026", "30/11/2026", "Ditta"}, {"CC3"}},
      {{"01/11/2026", "30/11/2026", " Tutte", "Carte"}, {"CC2"}},
      {{"01/11/2026", "30/11/2026", " Tutte", " Tutte", "Affitto"}, {"CC1", "CC2"}},
      {{"31/10/2026", "01/12/2026", "Privati", "Banche"}, {"CC1", "CC1", "CC1", "CC1"}},
      {{"02/12/2026", "01/11/2026"}, {}},  // from after to: nothing
  };
  for (const Case& c : cases) {
    const QueryResult r = query(c.filter);
    std::vector<std::string> accounts;
    for (const std::string& row : movementRows(r)) {
      accounts.push_back(row.substr(95));
    }
    EXPECT_EQ(accounts, c.accounts) << c.filter.group << c.filter.category << c.filter.causale;
    EXPECT_EQ(r.rows.back(), "999999  Nr. Movimenti: " + std::to_string(c.accounts.size()));
  }
}

TEST_F(AcrossAccountsTest, QueryDatesAreRequiredAndChecked) {
  for (const auto& [from, to, text] :
       std::vector<std::tuple<std::string, std::string, std::string>>{
           {"__/__/____", "30/11/2026", "Campo data operazione obbligatorio"},
           {"01/11/2026", "", "Campo data operazione obbligatorio"},
           {"31/02/2026", "30/11/2026", kWrongDateText}}) {
    prompter.clear();
    EXPECT_FALSE(queryDatesAccepted({from, to}, prompter));
    EXPECT_EQ(prompter.texts(), std::vector<std::string>{text});
  }
  EXPECT_TRUE(queryDatesAccepted({"01/11/2026", "30/11/2026"}, prompter));
}

TEST_F(AcrossAccountsTest, SummariesSumTheStoredBalances) {
  const Session session = startedSession();
  const std::vector<Account>& accounts = session.tables().accounts;
  const std::vector<double> balances = currentBalances(dir, accounts, dateKey("21/11/2026"));
  // Up to 21/11/2026 and after it alike: the total balance, carried-forward amount included.
  EXPECT_EQ(balances, (std::vector<double>{900, -45.5, 100}));
  EXPECT_EQ(folder.read("CC3.TOC"), test::totalsRecord(100, 100, "", ""));

  const std::vector<Category> categories = {
      {.categoryName = "Banche"}, {.categoryName = "Carte"}, {.categoryName = "Vuota"}};
  const SummaryView byCategory = totalsView(categorySummary(categories, accounts, balances));
  EXPECT_EQ(byCategory.rows, (std::vector<std::string>{"Banche" + sp(19) + sp(8) + "900,00",
                                                       "Carte" + sp(20) + sp(8) + "-45,50",
                                                       "Vuota" + sp(20) + sp(10) + "0,00"}));
  EXPECT_EQ(byCategory.total, "         Totali " + sp(8) + "854,50");  // CC3 names none
  const std::vector<Group> groups = {{.groupName = "Privati"}, {.groupName = "Ditta"}};
  EXPECT_EQ(totalsView(groupSummary(groups, accounts, balances)).total,
            "         Totali " + sp(8) + "954,50");

  const SummaryView carte = accountsView(accountSummary(accounts, balances, "Carte"));
  EXPECT_EQ(carte.rows, std::vector<std::string>{"CC2        Carta" + sp(27) + sp(8) + "-45,50" +
                                                 sp(10) + "0,00" + sp(8) + "-45,50"});
  EXPECT_EQ(accountsView(accountSummary(accounts, balances, " Tutte")).total,
            "     Totali" + sp(8) + "954,50");
  // The headings end where the amounts under them end.
  EXPECT_EQ(charCount(carte.heading), charCount(carte.rows[0]));
  EXPECT_EQ(carte.heading.find("Saldo") + 5, carte.rows[0].find("-45,50") + 6);
  EXPECT_EQ(byCategory.heading.find("Saldo") + 5, byCategory.rows[0].size());
}

}  // namespace
}  // namespace contavia
