// The account panel of the main window: the working account's data, its four figures and the
// date of its latest movement.

#include "frame/account_panel_texts.h"

#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

class AccountPanelTextsTest : public test::ArchiveTest {};

TEST_F(AccountPanelTextsTest, WorkingAccountAndNone) {
  test::writeTable(folder, "CONTI.CON", "RecConti.CON",
                   {test::accountRecord({.number = 1,
                                         .code = "CC1",
                                         .category = "Banche",
                                         .name = "Banca Societ\xE0",
                                         .address = "Via Roma 1",
                                         .postCode = "20100",
                                         .town = "Milano",
                                         .province = "MI",
                                         .creditLine = "1500",
                                         .group = "Liquidit\xE0"}),
                    test::accountRecord({.number = 2, .code = "CC2", .town = "Roma"})});
  // 1.000,25 today and 300 more tomorrow; the latest date is not the last record.
  test::writeMovements(folder, "CC1",
                       {{.date = "01/11/2026", .amount = 1000.25, .sign = "A"},
                        {.date = "22/11/2026", .amount = 300, .sign = "A"},
                        {.date = "02/11/2026", .amount = 0, .sign = "A"}});
  Session session = startedSession();
  EXPECT_EQ(accountPanelTexts(session), AccountPanelTexts{});

  session.openAccount(0);
  EXPECT_EQ(accountPanelTexts(session),
            (AccountPanelTexts{"CC1  Banca Società",
                               "Via Roma 1",
                               "20100 Milano (MI)",
                               "Liquidità",
                               "Banche",
                               "22/11/2026",
                               {"1.000,25", "1.300,25", "1.500,00", "2.500,25"}}));

  // No province, no postal code, no credit line, no movement.
  session.openAccount(1);
  const AccountPanelTexts bare = accountPanelTexts(session);
  EXPECT_EQ(bare.town, "Roma");
  EXPECT_EQ(bare.latestDate, "");
  EXPECT_EQ(bare.figures, (std::array<std::string, 4>{",00", ",00", ",00", ",00"}));
}

}  // namespace
}  // namespace contavia
