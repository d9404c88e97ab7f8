// Damaged archives: a count below zero, beyond the capacity or beyond the records really in the
// file. The damage is told in one "ERRORE" box, only the records present are read, and reading
// changes no file.

#include <cmath>
#include <functional>
#include <limits>

#include "archive/open_account.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;

struct DamageCase {
  int count;
  std::size_t recordsInFile;
  std::size_t loaded;
  std::string message;  // empty: a sound archive, no message
};

Bytes recordsOf(std::size_t n, const std::function<Bytes(int)>& record) {
  Bytes all;
  for (std::size_t i = 1; i <= n; ++i) {
    const Bytes r = record(static_cast<int>(i));
    all.insert(all.end(), r.begin(), r.end());
  }
  return all;
}

class DamagedFilesTest : public test::ArchiveTest {
 protected:
  void expectOneErrorBox(const std::string& text) {
    if (text.empty()) {
      EXPECT_TRUE(prompter.messages.empty());
      return;
    }
    ASSERT_EQ(prompter.messages.size(), 1U);
    EXPECT_EQ(prompter.messages[0], errorBox(text));
  }
};

TEST_F(DamagedFilesTest, AccountTable) {
  const std::vector<DamageCase> cases = {
      {2, 2, 2, ""},
      {-1, 2, 0,
       "Archivio danneggiato: il file RecConti.CON indica -1 record, ma ne sono ammessi al "
       "massimo 1000. Vengono letti 0 record."},
      {1001, 2, 2,
       "Archivio danneggiato: il file RecConti.CON indica 1001 record, ma ne sono ammessi al "
       "massimo 1000. Vengono letti i primi 2."},
      {32767, 1000, 1000,
       "Archivio danneggiato: il file RecConti.CON indica 32767 record, ma ne sono ammessi al "
       "massimo 1000. Vengono letti i primi 1000."},
      {3, 2, 2,
       "Archivio danneggiato: il file CONTI.CON contiene 2 record dei 3 indicati nel file "
       "RecConti.CON. Vengono letti solo quelli presenti."},
  };
  for (const char* other :
       {"Causali.CAP", "RecCausa.CAP", "Tipo.con", "RecTipo.con", "records.rer"}) {
    folder.write(other, {});
  }
  for (const DamageCase& c : cases) {
    SCOPED_TRACE(c.count);
    folder.write("RecConti.CON", test::le16(c.count));
    folder.write("CONTI.CON", recordsOf(c.recordsInFile, [](int n) {
                   return test::accountRecord({.number = n, .code = "C" + std::to_string(n)});
                 }));
    prompter.clear();
    const auto before = test::snapshot(folder);
    const Session session = startedSession();
    EXPECT_EQ(session.tables().accounts.size(), c.loaded);
    expectOneErrorBox(c.message);
    EXPECT_EQ(test::snapshot(folder), before);
  }
}

TEST_F(DamagedFilesTest, ATableCutInTheMiddleOfARecord) {
  Bytes causali = recordsOf(2, [](int n) { return test::causaleRecord(n, "C", "Causale", "D"); });
  causali.resize(causali.size() - 10);
  folder.write("Causali.CAP", causali);
  folder.write("RecCausa.CAP", test::le16(2));
  const Session session = startedSession();
  EXPECT_EQ(session.tables().causali.size(), 1U);
  expectOneErrorBox(
      "Archivio danneggiato: il file Causali.CAP contiene 1 record dei 2 indicati nel file "
      "RecCausa.CAP. Vengono letti solo quelli presenti.");
}

TEST_F(DamagedFilesTest, MovementFile) {
  const std::vector<DamageCase> cases = {
      {-3, 2, 0,
       "Archivio danneggiato: il file CC1.MOR indica -3 movimenti, ma ne sono ammessi al massimo "
       "10000. Vengono letti 0 movimenti."},
      {20000, 2, 2,
       "Archivio danneggiato: il file CC1.MOR indica 20000 movimenti, ma ne sono ammessi al "
       "massimo 10000. Vengono letti i primi 2."},
      {5, 2, 2,
       "Archivio danneggiato: il file CC1.MOC contiene 2 movimenti dei 5 indicati nel file "
       "CC1.MOR. Vengono letti solo quelli presenti."},
  };
  for (const DamageCase& c : cases) {
    SCOPED_TRACE(c.count);
    folder.write("CC1.MOR", test::le16(c.count));
    folder.write("CC1.MOC", recordsOf(c.recordsInFile, [](int n) {
                   return test::movementRecord(
                       {.number = n, .date = "01/01/2026", .amount = 10.0 * n, .sign = "A"});
                 }));
    const auto before = test::snapshot(folder);
    OpenAccount account(dir, clock, "CC1", "");
    EXPECT_EQ(account.load(), c.message);
    EXPECT_EQ(account.count(), c.loaded);
    EXPECT_EQ(account.balanceTotal(), c.loaded == 2 ? 30 : 0);
    EXPECT_EQ(folder.read("CC1.MOC"), before.at("CC1.MOC"));
    EXPECT_EQ(folder.read("CC1.MOR"), before.at("CC1.MOR"));
  }
}

TEST_F(DamagedFilesTest, AnAmountThatIsNotANumberReadsAsZero) {
  test::writeMovements(folder, "CC1",
                       {{.date = "01/01/2026", .amount = 5, .sign = "A"},
                        {.date = "01/01/2026", .amount = std::numeric_limits<double>::quiet_NaN()},
                        {.date = "01/01/2026", .amount = -INFINITY}});
  OpenAccount account(dir, clock, "CC1", "");
  EXPECT_EQ(account.load(),
            "Archivio danneggiato: il movimento 2 del file CC1.MOC ha un importo non valido, letto "
            "come zero.");
  EXPECT_EQ(account.movement(3).amount, 0.0);
  EXPECT_EQ(account.balanceTotal(), 5);
  EXPECT_EQ(account.panels().balanceTotal, "5,00");
}

}  // namespace
}  // namespace contavia
