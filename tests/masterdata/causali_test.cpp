// The causali window: the duplicate rule on the code as typed, the change without a duplicate
// check, the missing-field box, the sign options, the delete written to "causali.con" and
// "Reccausali.con" (the deleted causale comes back from "Causali.CAP"), and the in-use refusal.

#include "masterdata/causali_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

class CausaliTest : public test::ArchiveTest {
 protected:
  void writeCausali() {
    test::writeTable(folder, "Causali.CAP", "RecCausa.CAP",
                     {test::causaleRecord(1, "VER", "Versamento", "A"),
                      test::causaleRecord(2, "PRE", "Prelievo", "D"),
                      test::causaleRecord(3, "AB", "Bonifico", "D")});
  }

  static void type(MasterScreen& s, const std::string& code, const std::string& description) {
    s.setField("CodCausale", code);
    s.setField("DescCausale", description);
  }
};

TEST_F(CausaliTest, RowsKeepTheFieldsFullWidthSoColumnsLineUp) {
  test::writeTable(folder, "Causali.CAP", "RecCausa.CAP",
                   {test::causaleRecord(1, "VER", "Versamento", "A"),
                    test::causaleRecord(2, "SOC", "Societ\xE0", "D")});
  Session session = startedSession();
  CausaliScreen screen(session);
  EXPECT_EQ(screen.rows(), (std::vector<std::string>{"VER   Versamento                A",
                                                     "SOC   Società                   D"}));
}

TEST_F(CausaliTest, ADuplicateIsTheCodeAsItWillBeStoredAndItsRefusalEmptiesBothFields) {
  writeCausali();
  Session session = startedSession();
  CausaliScreen screen(session);
  const auto before = test::snapshot(folder);
  type(screen, "AB", "Altro");
  EXPECT_FALSE(screen.save());
  EXPECT_EQ(screen.field("CodCausale"), "");
  EXPECT_EQ(screen.field("DescCausale"), "");
  EXPECT_EQ(test::snapshot(folder), before);

  screen.setField("DarAver", "A");
  // A trailing blank or another letter case makes a new code; "Ω" and "Σ" are both stored "?".
  for (const auto& [code, added] : std::vector<std::pair<std::string, bool>>{
           {"AB ", true}, {"ver", true}, {"AΩ", true}, {"AΣ", false}}) {
    type(screen, code, "Nuova " + code);
    EXPECT_EQ(screen.save(), added) << code;
  }
  EXPECT_EQ(prompter.messages, std::vector<Message>(2, errorBox("Nr di causale già presente")));
  EXPECT_EQ(folder.read("Causali.CAP"),
            test::cat({before.at("Causali.CAP"), test::causaleRecord(4, "AB", "Nuova AB ", "A"),
                       test::causaleRecord(5, "ver", "Nuova ver", "A"),
                       test::causaleRecord(6, "A?", "Nuova A?", "A")}));
  EXPECT_EQ(folder.read("RecCausa.CAP"), test::le16(6));
}

TEST_F(CausaliTest, AChangeMayTakeAnotherCausalesCodeAndKeepsFieldsAndChoice) {
  writeCausali();
  Session session = startedSession();
  CausaliScreen screen(session);
  screen.chooseRow(2);
  EXPECT_EQ(screen.field("DarAver"), "D");
  type(screen, "VER", "Bonifico bis");
  screen.setField("DarAver", "A");
  ASSERT_TRUE(screen.save());
  EXPECT_TRUE(prompter.messages.empty());
  const Bytes file = folder.read("Causali.CAP");
  EXPECT_EQ(Bytes(file.begin() + 2 * 46, file.end()),
            test::causaleRecord(3, "VER", "Bonifico bis", "A"));
  EXPECT_EQ(screen.selected(), 3U);
  EXPECT_EQ(screen.field("DescCausale"), "Bonifico bis");
  EXPECT_EQ(session.tables().causali.at(2).causaleCode, "VER  ");
  // Two rows now read "VER": choosing the second finds the first causale of that code.
  screen.chooseRow(2);
  EXPECT_EQ(screen.selected(), 1U);
}

TEST_F(CausaliTest, AMissingFieldBeepsAndEmptiesTheCodeButBlanksPass) {
  Session session = startedSession();
  CausaliScreen screen(session);
  type(screen, "X", "");
  EXPECT_FALSE(screen.save());
  EXPECT_EQ(prompter.beeps, 1);
  EXPECT_EQ(prompter.messages,
            std::vector<Message>{errorBox("Campo codice e descrizione obbligatori")});
  EXPECT_EQ(screen.field("CodCausale"), "");

  type(screen, "  ", " ");
  EXPECT_TRUE(screen.save());
  EXPECT_EQ(folder.read("Causali.CAP"), test::causaleRecord(1, "", "", ""));
}

TEST_F(CausaliTest, DeleteWritesCausaliConDownToNoneAndTheCausaliComeBackOnReopening) {
  writeCausali();
  Session session = startedSession();
  const Bytes cap = folder.read("Causali.CAP");
  {
    CausaliScreen screen(session);
    screen.chooseRow(0);
    prompter.answer({Answer::Ok});
    ASSERT_TRUE(screen.remove());
    EXPECT_EQ(prompter.messages.at(0).text,
              "Attenzione la causale selezionata verrà cancellata il dato verrà "
              "irrimediabilmente perso. Vuoi continuare ?");
    // "causali.con" itself is checked in the screen pattern test; "Causali.CAP" stays.
    EXPECT_EQ(folder.read("Causali.CAP"), cap);
    EXPECT_EQ(folder.read("RecCausa.CAP"), test::le16(3));
    EXPECT_EQ(screen.rows().size(), 2U);
    EXPECT_EQ(session.tables().causali.size(), 2U);
    EXPECT_EQ(session.tables().causali.at(0).causaleCode, "PRE  ");
    for (int i = 0; i < 2; ++i) {
      screen.chooseRow(0);
      prompter.answer({Answer::Ok});
      ASSERT_TRUE(screen.remove());
    }
    EXPECT_TRUE(screen.rows().empty());
    EXPECT_EQ(folder.read("Reccausali.con"), test::le16(0));
  }
  CausaliScreen reopened(session);
  EXPECT_EQ(reopened.rows().size(), 3U);
  EXPECT_EQ(session.tables().causali.at(0).causaleCode, "VER  ");
}

TEST_F(CausaliTest, ACausaleInUseIsRefusedWithTheCountUnderTheProgramsTitle) {
  writeCausali();
  test::writeTable(folder, "CONTI.CON", "RecConti.CON",
                   {test::accountRecord({.number = 1, .code = "A"}),
                    test::accountRecord({.number = 2, .code = "B"})});
  test::writeMovements(folder, "A", {{.causale = "PRE"}, {.causale = "VER"}});
  test::writeMovements(folder, "B", {{.causale = "VER"}});
  Session session = startedSession();
  CausaliScreen screen(session);
  const auto before = test::snapshot(folder);
  screen.chooseRow(0);
  EXPECT_FALSE(screen.remove());
  // A: slot 2 holds its last movement (VER); B: slot 1 holds its last movement (VER).
  EXPECT_EQ(prompter.messages,
            std::vector<Message>{plainBox("Contavia",
                                          "La causale che vuoi eliminare è presente in 2 "
                                          "movimenti, pertanto, non è possibile la sua "
                                          "eliminazione.")});
  EXPECT_EQ(test::snapshot(folder), before);
}

}  // namespace
}  // namespace contavia
