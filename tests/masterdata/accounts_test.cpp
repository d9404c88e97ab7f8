// The accounts window: the group copied from the categories, the code rules (required, unique
// whatever its case and blanks, never the name of an archive file or a path), the locked code of
// a chosen account, the refusal to delete the working account, and the delete that takes the
// files of every account whose code begins with the deleted one and no other file.

#include "masterdata/accounts_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

class AccountsTest : public test::ArchiveTest {
 protected:
  void SetUp() override {
    test::writeTable(folder, "Tipo.con", "RecTipo.con",
                     {test::categoryRecord(1, "T1", "Banche", "Privati"),
                      test::categoryRecord(2, "T2", "Carte", "Privati"),
                      test::categoryRecord(3, "T3", "Banche", "Aziende")});
  }

  // Account `code` of category "Carte", as record `number`.
  static Bytes card(int number, const std::string& code) {
    return test::accountRecord(
        {number, code, "Carte", "Conto " + code, "", "", "", "", "", "Privati"});
  }

  void writeAccounts(const std::vector<std::string>& codes) {
    std::vector<Bytes> records;
    for (std::size_t i = 0; i < codes.size(); ++i) {
      records.push_back(card(static_cast<int>(i + 1), codes[i]));
    }
    test::writeTable(folder, "CONTI.CON", "RecConti.CON", records);
  }

  static void typeNew(AccountsScreen& s, const std::string& code) {
    s.setField("CodConto", code);
    s.pickChoice("Carte");
  }
};

TEST_F(AccountsTest, TheGroupComesFromTheLastCategoryOfThatDescription) {
  Session session = startedSession();
  AccountsScreen screen(session);
  EXPECT_EQ(screen.choices(), (std::vector<std::string>{"T1    - Banche                   ",
                                                        "T2    - Carte                    ",
                                                        "T3    - Banche                   "}));
  screen.setField("CodConto", "100");
  screen.setField("NomeConto", "Banca Società");
  screen.setField("IndBanca", "Via Roma 1");
  screen.setField("CapBanca", "10100");
  screen.setField("LocBanca", "Torino");
  screen.setField("ProvBanca", "TO");
  screen.setField("Fido", "5000");
  ASSERT_TRUE(screen.pickChoice("Banche"));
  ASSERT_TRUE(screen.save());
  EXPECT_EQ(folder.read("CONTI.CON"),
            test::accountRecord({1, "100", "Banche", "Banca Societ\xE0", "Via Roma 1", "10100",
                                 "Torino", "TO", "5000", "Aziende"}));
  EXPECT_EQ(folder.read("RecConti.CON"), test::le16(1));
  EXPECT_EQ(session.tables().accounts.size(), 1U);
  EXPECT_EQ(screen.rows(),
            std::vector<std::string>{"100        Banca Società" + std::string(32, ' ')});
}

TEST_F(AccountsTest, AChangeToAVanishedCategoryKeepsTheGroupItHad) {
  const auto record = [](const std::string& name) {
    return test::accountRecord({1, "7", "Vecchia", name, "", "", "", "", "", "Storico"});
  };
  test::writeTable(folder, "CONTI.CON", "RecConti.CON", {record("Conto")});
  Session session = startedSession();
  AccountsScreen screen(session);
  screen.chooseRow(0);
  EXPECT_EQ(screen.field("Combo1"), "Vecchia");
  screen.setField("NomeConto", "Conto rinominato");
  ASSERT_TRUE(screen.save());
  EXPECT_EQ(folder.read("CONTI.CON"), record("Conto rinominato"));
}

TEST_F(AccountsTest, TheChecksOfOkInTheirOrder) {
  writeAccounts({"AB", "Per\xF9"});
  Session session = startedSession();
  AccountsScreen screen(session);
  const auto before = test::snapshot(folder);
  // "PERÙ" names the same files as "Perù"; the category is checked after the code.
  for (const auto& [code, category] : std::vector<std::pair<std::string, std::string>>{
           {"   ", ""}, {"ab ", "Carte"}, {" AB", "Carte"}, {"PERÙ", "Carte"}, {"CD", ""}}) {
    screen.setField("CodConto", code);
    screen.pickChoice(category);
    EXPECT_FALSE(screen.save()) << code;
  }
  const Message duplicate = errorBox(
      "Si è inserito un numero di conto già esistente, i dati inseriti non possono "
      "essere salvati. Cambiare il nr. di conto e riprovare.");
  EXPECT_EQ(prompter.messages,
            (std::vector<Message>{
                errorBox("Nr. di conto obbligatorio"), duplicate, duplicate, duplicate,
                errorBox("Campo Tipo conto obbligatorio, selezionare un tipo e riprovare.")}));
  EXPECT_EQ(test::snapshot(folder), before);
}

TEST_F(AccountsTest, CodesThatWouldNameArchiveFilesOrPathsAreRefused) {
  Session session = startedSession();
  AccountsScreen screen(session);
  const auto before = test::snapshot(folder);
  const std::vector<std::pair<std::string, std::string>> refused = {
      {"conti", "Il nr. di conto \"conti\" non si può usare: è il nome di un file dell'archivio."},
      {"recGRUPPI", "\"recGRUPPI\" non si può usare"},
      {"reccausali", "\"reccausali\" non si può usare"},
      {" BAK ", "\"BAK\" non si può usare"},
      {"..", "\"..\" non è un nome di file valido"},
      {"../x", "il carattere \"/\""},
      {"a\\b", "il carattere \"\\\""},
      {"1*", "il carattere \"*\""},
      {"1?", "il carattere \"?\""},
      {"a:b", "il carattere \":\""},
      {"a|b", "il carattere \"|\""},
      {std::string("a\tb"), "caratteri di controllo"},
      {"Ā1", "il carattere \"Ā\", che l'archivio non sa registrare"},
  };
  for (const auto& [code, text] : refused) {
    prompter.clear();
    typeNew(screen, code);
    EXPECT_FALSE(screen.save()) << code;
    ASSERT_EQ(prompter.messages.size(), 1U) << code;
    EXPECT_EQ(prompter.messages[0].title, "ERRORE");
    EXPECT_NE(prompter.messages[0].text.find(text), std::string::npos)
        << code << ": " << prompter.messages[0].text;
  }
  EXPECT_EQ(test::snapshot(folder), before);
  for (const std::string code : {"CONTI1", "Bakery", "Perù", "12.5"}) {
    typeNew(screen, code);
    EXPECT_TRUE(screen.save()) << code;
  }
}

TEST_F(AccountsTest, AChosenAccountKeepsItsCodeAndIsNotItsOwnDuplicate) {
  writeAccounts({"AB", "CD"});
  Session session = startedSession();
  AccountsScreen screen(session);
  screen.chooseRow(1);
  EXPECT_FALSE(screen.editable("CodConto"));
  EXPECT_FALSE(screen.setField("CodConto", "AB"));
  EXPECT_TRUE(screen.setField("CodConto", "CD"));
  EXPECT_FALSE(screen.setField("Fido", "12a"));
  EXPECT_TRUE(screen.setField("Fido", "12"));
  ASSERT_TRUE(screen.save());
  EXPECT_TRUE(prompter.messages.empty());
  EXPECT_TRUE(screen.editable("CodConto"));
  EXPECT_EQ(session.tables().accounts.at(1).creditLine, "12             ");
}

TEST_F(AccountsTest, TheWorkingAccountCannotBeDeleted) {
  writeAccounts({"1", "2"});
  test::writeMovements(folder, "2", {{.causale = "VER"}});
  Session session = startedSession();
  session.openAccountByCode("2");
  AccountsScreen screen(session);
  const auto before = test::snapshot(folder);
  screen.chooseRow(1);
  prompter.answer({Answer::Ok});
  EXPECT_FALSE(screen.remove());
  ASSERT_EQ(prompter.messages.size(), 2U);
  EXPECT_EQ(prompter.messages[0].text,
            "Attenzione il conto selezionato verrà cancellato tutti i dati verranno "
            "irrimediabilmente persi. Vuoi continuare ?");
  EXPECT_EQ(prompter.messages[1],
            plainBox("attenzione",
                     "Non si può cancellare il conto sul quale si lavora, devi prima chiudere il "
                     "conto"));
  EXPECT_EQ(test::snapshot(folder), before);
}

TEST_F(AccountsTest, DeletingAccount1TakesTheFilesOfAccount10AndNoOtherFile) {
  writeAccounts({"1", "10", "2"});
  for (const char* name : {"1.MOC", "1.MOR", "1.TOC", "1.RIP", "1.chi", "10.moc", "10.MOR",
                           "10.TOC", "2.MOC", "2.MOR", "Bak.moc", "Bak.MOR", "causali.con",
                           "Reccausali.con", "records.rer", "Gruppi.con", "1.txt", "1.CON"}) {
    folder.write(name, test::le16(1));
  }
  Session session = startedSession();
  AccountsScreen screen(session);
  screen.chooseRow(0);
  prompter.answer({Answer::Ok});
  ASSERT_TRUE(screen.remove());
  EXPECT_EQ(folder.names(),
            (std::vector<std::string>{"1.CON", "1.txt", "2.MOC", "2.MOR", "Bak.MOR", "Bak.moc",
                                      "CONTI.CON", "Causali.CAP", "Gruppi.con", "RecCausa.CAP",
                                      "RecConti.CON", "RecTipo.con", "Reccausali.con", "Tipo.con",
                                      "causali.con", "records.rer"}));
  EXPECT_EQ(folder.read("CONTI.CON"), test::cat({card(1, "10"), card(2, "2"), card(3, "2")}));
  EXPECT_EQ(folder.read("RecConti.CON"), test::le16(2));
  EXPECT_EQ(session.tables().accounts.size(), 2U);
  EXPECT_EQ(screen.rows().size(), 2U);
}

}  // namespace
}  // namespace contavia
