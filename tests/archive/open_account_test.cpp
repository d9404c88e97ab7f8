// The open account: its files, the running balances with their two sign rules, today against
// future movements, whole-unit rounding and the texts of the status panels. Today is 21/11/2026.

#include "archive/open_account.h"

#include <cstring>

#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

class OpenAccountTest : public test::ArchiveTest {
 protected:
  OpenAccount opened(const std::string& code, const std::string& creditLine = "") {
    OpenAccount account(dir, clock, code, creditLine);
    EXPECT_EQ(account.load(), "");
    return account;
  }
  // The two balances stored in the account's ".TOC".
  std::pair<double, double> storedTotals(const std::string& code) const {
    const Bytes toc = folder.read(code + ".TOC");
    EXPECT_EQ(toc.size(), Totals::kLength);
    double today = 0.0;
    double total = 0.0;
    std::memcpy(&today, toc.data(), 8);
    std::memcpy(&total, toc.data() + 8, 8);
    return {today, total};
  }
};

TEST_F(OpenAccountTest, AccountWithoutFilesOpensAtZeroAndCreatesThemEmpty) {
  const OpenAccount account = opened("  CC1 ", "1500");
  EXPECT_EQ(account.code(), "CC1");
  EXPECT_EQ(account.count(), 0U);
  EXPECT_EQ(account.balanceToday(), 0);
  EXPECT_EQ(account.balanceTotal(), 0);
  EXPECT_EQ(account.panels(), (StatusPanels{"0,00", "0,00", "1.500,00"}));
  for (const char* name : {"CC1.MOC", "CC1.MOR", "CC1.RIP"}) {
    EXPECT_TRUE(folder.exists(name)) << name;
    EXPECT_TRUE(folder.read(name).empty()) << name;
  }
  EXPECT_EQ(folder.read("CC1.TOC"), test::totalsRecord(0, 0, "", ""));
  EXPECT_EQ(account.dateSpan().latest, "");
}

TEST_F(OpenAccountTest, RecomputeCountsCreditsUpAndFutureMovementsOnlyInTheTotal) {
  // Dates chosen so that comparing them as text would put each on the wrong side of today.
  test::writeMovements(folder, "CC1",
                       {{.date = "30/12/2025", .amount = 500.25, .sign = "A"},
                        {.date = "21/11/2026", .amount = 200.10, .sign = "D"},
                        {.date = "05/01/2027", .amount = 300, .sign = "A"},
                        {.date = "22/11/2026", .amount = 50, .sign = "D"}});
  folder.write("CC1.RIP", test::carryForwardRecord("31/12/2024", 1000));
  folder.write("CC1.TOC", test::totalsRecord(99, 99, "01/01/2026", "31/12/2026"));

  const OpenAccount account = opened("CC1", "2000");
  EXPECT_EQ(account.count(), 4U);
  EXPECT_EQ(account.carryForward().carryAmount, 1000);
  EXPECT_EQ(account.balanceToday(), 1300);  // 1000 + 500,25 - 200,10
  EXPECT_EQ(account.balanceTotal(), 1550);  // and + 300 - 50 of the days to come
  EXPECT_EQ(account.panels(), (StatusPanels{"1.300,15", "1.550,15", "3.300,15"}));
  const auto [today, total] = storedTotals("CC1");
  EXPECT_NEAR(today, 1300.15, 1e-9);
  EXPECT_NEAR(total, 1550.15, 1e-9);
  // The selection dates are read from ".TOC" and written back unchanged.
  EXPECT_EQ(account.selectionFrom(), "01/01/2026");
  const Bytes toc = folder.read("CC1.TOC");
  EXPECT_EQ(Bytes(toc.begin() + 16, toc.end()),
            test::cat({test::text("01/01/2026", 10), test::text("31/12/2026", 10)}));
  EXPECT_EQ(account.dateSpan().latest, "05/01/2027");
}

TEST_F(OpenAccountTest, IncrementalUpdateLetsCreditsLowerTheBalances) {
  OpenAccount account = opened("CC1", "100");
  ASSERT_TRUE(account.addToTotals("21/11/2026", 10.40, "A"));
  EXPECT_EQ(account.balanceToday(), -10);
  EXPECT_EQ(account.balanceTotal(), -10);
  EXPECT_EQ(account.panels(), (StatusPanels{"-10,00", "-10,00", "90,00"}));
  EXPECT_EQ(storedTotals("CC1"), std::make_pair(-10.0, -10.0));

  ASSERT_TRUE(account.addToTotals("22/11/2026", 5.5, "D"));  // tomorrow: the total only
  EXPECT_EQ(account.balanceToday(), -10);
  EXPECT_EQ(account.balanceTotal(), -4);
  EXPECT_EQ(account.panels().balanceTotal, "-4,00");

  ASSERT_TRUE(account.removeFromTotals("22/11/2026", 5.5, "D"));
  EXPECT_EQ(account.balanceTotal(), -10);
  EXPECT_EQ(account.panels().balanceTotal, "-4,00");  // the reverse leaves the panels alone
  EXPECT_EQ(storedTotals("CC1"), std::make_pair(-10.0, -10.0));

  // The full recompute that ends every save counts the same credit up, with its decimals.
  ASSERT_TRUE(
      account.appendMovement({.operationDate = "21/11/2026", .amount = 10.40, .sign = "A"}).ok());
  account.recompute();
  EXPECT_EQ(account.balanceToday(), 10);
  EXPECT_EQ(account.balanceTotal(), 10);
  EXPECT_EQ(account.panels(), (StatusPanels{"10,40", "10,40", "110,40"}));
}

TEST_F(OpenAccountTest, WholeUnitsRoundHalvesToEven) {
  struct Case {
    double amount;
    std::int32_t whole;
  };
  for (const Case c : {Case{10.50, 10}, Case{10.51, 11}, Case{11.5, 12}, Case{2.5, 2},
                       Case{-10.5, -10}, Case{-11.5, -12}, Case{0.49, 0}}) {
    test::writeMovements(folder, "R", {{.date = "21/11/2026", .amount = c.amount, .sign = "A"}});
    OpenAccount account = opened("R");
    EXPECT_EQ(account.balanceToday(), c.whole) << c.amount;
    EXPECT_EQ(account.balanceTotal(), c.whole) << c.amount;
    ASSERT_TRUE(account.addToTotals("01/01/2026", c.amount, "D"));
    EXPECT_EQ(account.balanceToday(), 2 * c.whole) << c.amount;
  }
}

TEST_F(OpenAccountTest, AnUpdatePastThe32BitRangeChangesNothing) {
  OpenAccount account = opened("CC1");
  ASSERT_TRUE(account.addToTotals("01/01/2026", 2'000'000'000, "D"));
  const Bytes toc = folder.read("CC1.TOC");
  EXPECT_FALSE(account.addToTotals("01/01/2026", 2'000'000'000, "D"));
  EXPECT_FALSE(account.addToTotals("01/01/2026", 1e300, "D"));
  EXPECT_EQ(account.balanceTotal(), 2'000'000'000);
  EXPECT_EQ(folder.read("CC1.TOC"), toc);
}

TEST_F(OpenAccountTest, AppendedAndRewrittenMovementsAreWrittenWithTheirNumbers) {
  test::writeMovements(folder, "CC1", {{.date = "01/01/2026", .amount = 1, .sign = "A"}});
  folder.write("records.rer", test::le16(41));
  OpenAccount account = opened("CC1");
  // The number is the record's position, whatever the caller put.
  Movement m{.movementNumber = 99,
             .operationDate = "02/01/2026",
             .causaleCode = "PREL",
             .amount = 25.5,
             .description = "Prelievo Società",
             .sign = "D",
             .closedFlag = "N"};
  ASSERT_TRUE(account.appendMovement(m).ok());
  const Bytes second = test::movementRecord({.number = 2,
                                             .date = "02/01/2026",
                                             .causale = "PREL",
                                             .amount = 25.5,
                                             .sign = "D",
                                             .description = "Prelievo Societ\xE0"});
  const Bytes moc = folder.read("CC1.MOC");
  EXPECT_EQ(Bytes(moc.begin() + 87, moc.end()), second);
  EXPECT_EQ(folder.read("CC1.MOR"), test::le16(2));
  EXPECT_EQ(folder.read("records.rer"), test::le16(42));

  m.amount = 30;
  m.movementNumber = 1;
  ASSERT_TRUE(account.rewriteMovements({m}).ok());
  EXPECT_EQ(account.movement(1).movementNumber, 1);
  EXPECT_EQ(folder.read("CC1.MOR"), test::le16(2));
  account.recompute();
  EXPECT_EQ(account.balanceTotal(), -56);  // -30 - 25,5
}

}  // namespace
}  // namespace contavia
