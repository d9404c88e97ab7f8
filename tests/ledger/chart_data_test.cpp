// The numbers behind the charts, without a display: the balance over time of a few accounts
// (a carried-forward start, movements on the same date, future ones, a credit line, an empty
// account, balances below zero) and the scale of an axis. Today is 21/11/2026.

#include "ledger/chart_data.h"

#include "common/dates.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

class ChartDataTest : public test::ArchiveTest {
 protected:
  BalanceChart chartOf(const std::string& code, const std::string& creditLine = "") {
    OpenAccount account(dir, clock, code, creditLine);
    account.load();
    return balanceChart(account, dateKey("21/11/2026"));
  }
};

TEST_F(ChartDataTest, TheBalanceOverTimeOnePointADate) {
  test::writeMovements(folder, "CC1",
                       {{.date = "05/11/2026", .amount = 300, .sign = "D"},
                        {.date = "01/11/2026", .amount = 100, .sign = "A"},
                        {.date = "05/11/2026", .amount = 50, .sign = "A"},
                        {.date = "01/12/2026", .amount = 900, .sign = "D"}});
  folder.write("CC1.RIP", test::carryForwardRecord("31/10/2026", 200));
  const BalanceChart chart = chartOf("CC1", "500");
  EXPECT_EQ(chart.startDate, "31/10/2026");
  EXPECT_EQ(chart.start, 200.0);
  EXPECT_EQ(chart.creditFloor, -500.0);
  ASSERT_EQ(chart.points.size(), 3U);
  const std::vector<std::tuple<std::string, double, bool>> expected = {
      {"01/11/2026", 300.0, false}, {"05/11/2026", 50.0, false}, {"01/12/2026", -850.0, true}};
  for (std::size_t i = 0; i < expected.size(); ++i) {
    EXPECT_EQ(chart.points[i].date, std::get<0>(expected[i]));
    EXPECT_EQ(chart.points[i].balance, std::get<1>(expected[i]));
    EXPECT_EQ(chart.points[i].future, std::get<2>(expected[i]));
  }
  // An account with no movements, no closing and no credit line: nothing but the start at zero.
  const BalanceChart empty = chartOf("VUOTO");
  EXPECT_TRUE(empty.points.empty() && empty.startDate.empty() && !empty.creditFloor);
  EXPECT_EQ(empty.start, 0.0);
}

TEST_F(ChartDataTest, AxesHoldTheValuesAndZeroWithRoundTicks) {
  struct Case {
    double min, max;
    std::vector<std::string> labels;
  };
  const std::vector<Case> cases = {
      {-850, 300, {"-1.000", "-500", "0", "500"}},
      {1200, 9800, {"0", "2.000", "4.000", "6.000", "8.000", "10.000"}},
      {0.3, 2.2, {"0,00", "0,50", "1,00", "1,50", "2,00", "2,50"}},
      {0, 0, {"0,00", "0,20", "0,40", "0,60", "0,80", "1,00"}},
  };
  for (const Case& c : cases) {
    const ChartAxis axis = chartAxis(c.min, c.max, 5);
    EXPECT_EQ(axis.labels, c.labels) << c.min << ".." << c.max;
    EXPECT_LE(axis.low, std::min(c.min, 0.0));
    EXPECT_GE(axis.high, std::max(c.max, 0.0));
  }
}

}  // namespace
}  // namespace contavia
