// The screen pattern, run through all four tables: "ok" adds at count+1 and writes the count,
// a chosen row is changed in place, a missing code stops, "del" asks and compacts (records
// renumbered, count lowered, the record past the new count left in the file), a full table
// stops, and a failed write leaves every file as it was.

#include <functional>
#include <memory>
#include <optional>
#include <tuple>

#include "masterdata/accounts_screen.h"
#include "masterdata/categories_screen.h"
#include "masterdata/causali_screen.h"
#include "masterdata/groups_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

struct TableCase {
  const char* name;
  std::function<std::unique_ptr<MasterScreen>(Session&)> open;
  const char* table;
  const char* countFile;
  const char* tableAfterDelete;  // where a delete writes the compacted table
  const char* countAfterDelete;
  std::size_t capacity;
  const char* codeField;
  const char* missingCodeText;
  const char* fullText;
  bool codeKeptOnChange;    // a chosen record keeps its code
  const char* nameHeading;  // the heading over the name column of the rows, and the name typed
  const char* namePrefix;
  // Types record k into the screen.
  std::function<void(MasterScreen&, int k)> type;
  // The bytes of record k written as record `number`, with the code of record `codeK`.
  std::function<Bytes(int number, int k, int codeK)> bytes;
};

// The case's name in test listings, instead of its bytes.
void PrintTo(const TableCase& c, std::ostream* os) { *os << c.name; }

std::string nth(const char* prefix, int k) { return prefix + std::to_string(k); }

template <class Screen>
std::function<std::unique_ptr<MasterScreen>(Session&)> opener() {
  return [](Session& s) { return std::make_unique<Screen>(s); };
}

const TableCase kCases[] = {
    {"Causali", opener<CausaliScreen>(), "Causali.CAP", "RecCausa.CAP", "causali.con",
     "Reccausali.con", 100, "CodCausale", "Campo codice e descrizione obbligatori",
     "Archivio pieno: non si possono registrare più di 100 causali.", false, "Descrizione",
     "Causale ",
     [](MasterScreen& s, int k) {
       s.setField("CodCausale", nth("C", k));
       s.setField("DescCausale", nth("Causale ", k));
       s.setField("DarAver", "A");
     },
     [](int n, int k, int codeK) {
       return test::causaleRecord(n, nth("C", codeK), nth("Causale ", k), "A");
     }},
    {"Groups", opener<GroupsScreen>(), "Gruppi.con", "RecGruppi.con", "Gruppi.con", "RecGruppi.con",
     100, "CodGruppi", "Campo codice e descrizione obbligatori",
     "Archivio pieno: non si possono registrare più di 100 gruppi.", false, "Descrizione",
     "Gruppo ",
     [](MasterScreen& s, int k) {
       s.setField("CodGruppi", nth("G", k));
       s.setField("DescGruppi", nth("Gruppo ", k));
     },
     [](int n, int k, int codeK) {
       return test::groupRecord(n, nth("G", codeK), nth("Gruppo ", k), " ", "N");
     }},
    {"Categories", opener<CategoriesScreen>(), "Tipo.con", "RecTipo.con", "Tipo.con", "RecTipo.con",
     200, "CodCausale", "Campo codice e descrizione obbligatori",
     "Archivio pieno: non si possono registrare più di 200 categorie.", false, "Descrizione",
     "Categoria ",
     [](MasterScreen& s, int k) {
       s.setField("CodCausale", nth("T", k));
       s.setField("DescCausale", nth("Categoria ", k));
     },
     [](int n, int k, int codeK) {
       return test::categoryRecord(n, nth("T", codeK), nth("Categoria ", k), "");
     }},
    {"Accounts", opener<AccountsScreen>(), "CONTI.CON", "RecConti.CON", "CONTI.CON", "RecConti.CON",
     1000, "CodConto", "Nr. di conto obbligatorio",
     "Archivio pieno: non si possono registrare più di 1000 conti.", true, "Nome", "Conto ",
     [](MasterScreen& s, int k) {
       s.setField("CodConto", nth("K", k));
       s.setField("NomeConto", nth("Conto ", k));
       s.setField("Fido", "1000");
       s.pickChoice("Banche");
     },
     [](int n, int k, int codeK) {
       return test::accountRecord(
           {n, nth("K", codeK), "Banche", nth("Conto ", k), "", "", "", "", "1000", "Privati"});
     }},
};

class ScreenPatternTest : public test::ArchiveTest,
                          public ::testing::WithParamInterface<TableCase> {
 protected:
  const TableCase& c = GetParam();

  void SetUp() override {
    if (std::string(c.table) == "CONTI.CON") {
      // The category the accounts choose.
      test::writeTable(folder, "Tipo.con", "RecTipo.con",
                       {test::categoryRecord(1, "BA", "Banche", "Privati")});
    }
  }

  // The screen over a table of records k = 1..n written by hand (no files for n = 0).
  std::unique_ptr<MasterScreen> openWith(int n) {
    std::vector<Bytes> records;
    for (int k = 1; k <= n; ++k) {
      records.push_back(c.bytes(k, k, k));
    }
    if (n > 0) {
      test::writeTable(folder, c.table, c.countFile, records);
    }
    session.emplace(startedSession());
    return c.open(*session);
  }

  void expectRefused(MasterScreen& screen, const char* text) {
    const auto before = test::snapshot(folder);
    EXPECT_FALSE(screen.save());
    EXPECT_EQ(prompter.messages, std::vector<Message>{errorBox(text)});
    EXPECT_EQ(test::snapshot(folder), before);
  }

  std::optional<Session> session;
};

TEST_P(ScreenPatternTest, OkAppendsOrRewritesTheChosenRecordAndPulisciForgetsTheChoice) {
  auto screen = openWith(0);
  for (int k = 1; k <= 3; ++k) {
    c.type(*screen, k);
    ASSERT_TRUE(screen->save()) << k;
  }
  EXPECT_EQ(folder.read(c.table),
            test::cat({c.bytes(1, 1, 1), c.bytes(2, 2, 2), c.bytes(3, 3, 3)}));
  EXPECT_EQ(folder.read(c.countFile), test::le16(3));
  ASSERT_EQ(screen->rows().size(), 3U);
  EXPECT_EQ(screen->field(c.codeField), "");
  EXPECT_TRUE(prompter.messages.empty());
  // The heading lines up with the rows.
  const std::string row = screen->rows()[0];
  EXPECT_EQ(row.size(), screen->rowWidth());
  EXPECT_EQ(screen->heading().find(c.nameHeading), row.find(nth(c.namePrefix, 1)));

  screen->chooseRow(1);
  EXPECT_EQ(screen->selected(), 2U);
  c.type(*screen, 7);
  ASSERT_TRUE(screen->save());
  const Bytes changed = c.bytes(2, 7, c.codeKeptOnChange ? 2 : 7);
  EXPECT_EQ(folder.read(c.table), test::cat({c.bytes(1, 1, 1), changed, c.bytes(3, 3, 3)}));
  EXPECT_EQ(folder.read(c.countFile), test::le16(3));

  screen->chooseRow(0);
  screen->clear();
  EXPECT_EQ(screen->selected(), 0U);
  EXPECT_EQ(screen->field(c.codeField), "");
  c.type(*screen, 4);
  ASSERT_TRUE(screen->save());
  EXPECT_EQ(folder.read(c.countFile), test::le16(4));
}

TEST_P(ScreenPatternTest, MissingCodeStopsWithItsMessageAndWritesNothing) {
  auto screen = openWith(1);
  c.type(*screen, 2);
  screen->setField(c.codeField, "");
  expectRefused(*screen, c.missingCodeText);
}

TEST_P(ScreenPatternTest, DeleteWithoutAChosenRowOrCancelledChangesNothing) {
  auto screen = openWith(2);
  const auto before = test::snapshot(folder);
  EXPECT_FALSE(screen->remove());
  EXPECT_TRUE(prompter.messages.empty());
  screen->chooseRow(0);
  prompter.answer({Answer::Cancel});
  EXPECT_FALSE(screen->remove());
  ASSERT_EQ(prompter.messages.size(), 1U);
  const Message& asked = prompter.messages[0];
  EXPECT_EQ(std::tuple(asked.title, asked.buttons, asked.icon, asked.defaultButton),
            std::tuple("AVVERTIMENTO!", Buttons::OkCancel, Icon::Exclamation, Answer::Cancel));
  EXPECT_EQ(test::snapshot(folder), before);
  EXPECT_EQ(screen->rows().size(), 2U);
}

TEST_P(ScreenPatternTest, DeleteRenumbersTheKeptRecordsAndLeavesTheTailInTheFile) {
  auto screen = openWith(3);
  const Bytes previous = folder.read(c.tableAfterDelete);
  screen->chooseRow(0);
  prompter.answer({Answer::Ok});
  ASSERT_TRUE(screen->remove());
  Bytes expected = test::cat({c.bytes(1, 2, 2), c.bytes(2, 3, 3)});
  if (previous.size() > expected.size()) {
    expected.insert(expected.end(), previous.begin() + static_cast<long>(expected.size()),
                    previous.end());
  }
  EXPECT_EQ(folder.read(c.tableAfterDelete), expected);
  EXPECT_EQ(folder.read(c.countAfterDelete), test::le16(2));
  EXPECT_EQ(screen->rows().size(), 2U);
  EXPECT_EQ(screen->selected(), 0U);
  EXPECT_FALSE(screen->canRemove());
}

TEST_P(ScreenPatternTest, AFullTableTakesNoMoreButItsRecordsCanStillChange) {
  const int last = static_cast<int>(c.capacity);
  auto screen = openWith(last);
  c.type(*screen, 9999);
  expectRefused(*screen, c.fullText);

  screen->chooseRow(c.capacity - 1);
  c.type(*screen, 9999);
  EXPECT_TRUE(screen->save());
  const Bytes table = folder.read(c.table);
  const Bytes changed = c.bytes(last, 9999, c.codeKeptOnChange ? last : 9999);
  EXPECT_EQ(Bytes(table.end() - static_cast<long>(changed.size()), table.end()), changed);
}

TEST_P(ScreenPatternTest, AFailedAddOrDeleteLeavesEveryFileAndTheList) {
  auto screen = openWith(3);
  const auto before = test::snapshot(folder);
  for (const bool adding : {true, false}) {
    SCOPED_TRACE(adding ? "add" : "delete");
    prompter.clear();
    if (adding) {
      c.type(*screen, 4);
    } else {
      screen->chooseRow(1);
      prompter.answer({Answer::Ok});
    }
    files.failWrite(2, diskerr::kDiskFull);  // the count, after the records went
    EXPECT_FALSE(adding ? screen->save() : screen->remove());
    files.heal();
    EXPECT_EQ(test::snapshot(folder), before);
    ASSERT_FALSE(prompter.messages.empty());
    EXPECT_EQ(prompter.messages.back().title, "Errore Disco");
    EXPECT_NE(prompter.messages.back().text.find(adding ? c.countFile : c.countAfterDelete),
              std::string::npos);
    EXPECT_EQ(screen->rows().size(), 3U);
  }
}

INSTANTIATE_TEST_SUITE_P(AllTables, ScreenPatternTest, ::testing::ValuesIn(kCases),
                         [](const auto& p) { return std::string(p.param.name); });

}  // namespace
}  // namespace contavia
