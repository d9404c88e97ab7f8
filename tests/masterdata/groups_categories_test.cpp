// Groups and categories refer to each other, and accounts to categories, by description: the
// reference checks before a delete count by description text, a renamed group no longer counts,
// and the categories window offers the group names and stores the chosen one trimmed.

#include "masterdata/categories_screen.h"
#include "masterdata/groups_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

class GroupsCategoriesTest : public test::ArchiveTest {
 protected:
  void SetUp() override {
    test::writeTable(folder, "Gruppi.con", "RecGruppi.con",
                     {test::groupRecord(1, "G1", "Banche"), test::groupRecord(2, "G2", "Casa")});
    test::writeTable(folder, "Tipo.con", "RecTipo.con",
                     {test::categoryRecord(1, "T1", "Conti correnti", "Banche"),
                      test::categoryRecord(2, "T2", "Mutui", "Casa")});
    test::writeTable(folder, "CONTI.CON", "RecConti.CON",
                     {test::accountRecord({.number = 1, .code = "1", .category = "Mutui"}),
                      test::accountRecord({.number = 2, .code = "2", .category = " Mutui"}),
                      test::accountRecord({.number = 3, .code = "3", .category = "Conti"})});
  }
};

TEST_F(GroupsCategoriesTest, AGroupUsedByACategoryIsRefusedWithItsCount) {
  Session session = startedSession();
  GroupsScreen screen(session);
  const auto before = test::snapshot(folder);
  screen.chooseRow(1);
  EXPECT_FALSE(screen.remove());
  EXPECT_EQ(prompter.messages,
            std::vector<Message>{plainBox("Contavia",
                                          "Il gruppo che vuoi eliminare è presente in 1 "
                                          "categorie, pertanto, non è possibile la sua "
                                          "eliminazione.")});
  EXPECT_EQ(test::snapshot(folder), before);
}

TEST_F(GroupsCategoriesTest, ARenamedGroupIsNoLongerReferredToAndCanBeDeleted) {
  Session session = startedSession();
  GroupsScreen screen(session);
  screen.chooseRow(1);
  screen.setField("DescGruppi", "Abitazione");
  ASSERT_TRUE(screen.save());
  EXPECT_EQ(screen.selected(), 0U);
  EXPECT_EQ(folder.read("Tipo.con").size(), 2U * 58);  // categories keep "Casa"
  screen.chooseRow(1);
  prompter.answer({Answer::Ok});
  ASSERT_TRUE(screen.remove());
  EXPECT_EQ(prompter.messages.at(0).text,
            "Attenzione il gruppo selezionato verrà cancellato il dato verrà irrimediabilmente "
            "perso. Vuoi continuare ?");
  EXPECT_EQ(folder.read("Gruppi.con"),
            test::cat({test::groupRecord(1, "G1", "Banche"),
                       test::groupRecord(2, "G2", "Abitazione", " ", "N")}));
  EXPECT_EQ(folder.read("RecGruppi.con"), test::le16(1));
}

TEST_F(GroupsCategoriesTest, ACategoryIsReferredToByTrimmedDescription) {
  Session session = startedSession();
  CategoriesScreen screen(session);
  screen.chooseRow(1);
  EXPECT_FALSE(screen.remove());
  EXPECT_EQ(prompter.messages,
            std::vector<Message>{plainBox("Contavia",
                                          "La categoria che vuoi eliminare è presente in 2 "
                                          "conti, pertanto, non è possibile la sua "
                                          "eliminazione.")});
  prompter.clear();
  screen.chooseRow(0);
  prompter.answer({Answer::Ok});
  EXPECT_TRUE(screen.remove());
  EXPECT_EQ(prompter.messages.at(0).text,
            "Attenzione la categoria selezionata verrà cancellata il dato verrà "
            "irrimediabilmente perso. Vuoi continuare ?");
  EXPECT_EQ(session.tables().categories.size(), 1U);
}

TEST_F(GroupsCategoriesTest, CategoriesOfferTheGroupNamesAndMayHaveNone) {
  Session session = startedSession();
  CategoriesScreen screen(session);
  EXPECT_EQ(screen.choices(), (std::vector<std::string>{"Banche", "Casa"}));
  screen.chooseRow(1);
  EXPECT_EQ(screen.field("Combo1"), "Casa");
  EXPECT_FALSE(screen.pickChoice("Nessuno"));
  screen.clear();
  EXPECT_EQ(screen.field("Combo1"), "");
  screen.setField("CodCausale", "T3");
  screen.setField("DescCausale", "Una descrizione di trenta car");
  ASSERT_TRUE(screen.save());
  ASSERT_TRUE(screen.pickChoice("Banche"));
  screen.setField("CodCausale", "T4");
  screen.setField("DescCausale", "Carte");
  ASSERT_TRUE(screen.save());
  const test::Bytes file = folder.read("Tipo.con");
  EXPECT_EQ(test::Bytes(file.begin() + 2 * 58, file.end()),
            test::cat({test::categoryRecord(3, "T3", "Una descrizione di trenta", ""),
                       test::categoryRecord(4, "T4", "Carte", "Banche")}));
  EXPECT_EQ(session.tables().categories.size(), 4U);
}

}  // namespace
}  // namespace contavia
