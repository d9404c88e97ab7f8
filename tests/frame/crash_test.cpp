// A stop at any instant of any writing operation leaves the archive as it was before the
// operation or as it is after it. Each operation runs in a child process whose file layer ends it
// dead right after its Nth change to the disk (and, in a second pass, in the middle of that
// change's write), for every N until the operation completes; the folder is then opened again,
// which takes back an interrupted operation, and compared with the two states.

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <iterator>
#include <optional>

#include "frame/two_digit_years.h"
#include "ledger/clear_movements.h"
#include "ledger/movement_entry.h"
#include "masterdata/accounts_screen.h"
#include "masterdata/categories_screen.h"
#include "masterdata/causali_screen.h"
#include "masterdata/groups_screen.h"
#include "tests/support/archive_fixture.h"

namespace contavia {
namespace {

using test::Bytes;
using Snapshot = std::map<std::string, Bytes>;

// The archive every operation starts from: two accounts (CC10's files go with a delete of CC1),
// the master tables, and CC1's movements, two of them with a two-digit year.
void writeArchive(const test::TempFolder& folder) {
  test::writeTable(
      folder, "CONTI.CON", "RecConti.CON",
      {test::accountRecord({.number = 1, .code = "CC1", .category = "Banche", .name = "Banca"}),
       test::accountRecord({.number = 2, .code = "CC10", .category = "Carte", .name = "Carta"}),
       test::accountRecord({.number = 3, .code = "CC2", .category = "Banche", .name = "Posta"})});
  test::writeTable(folder, "Causali.CAP", "RecCausa.CAP",
                   {test::causaleRecord(1, "STI", "Stipendio", "A"),
                    test::causaleRecord(2, "AFF", "Affitto", "D"),
                    test::causaleRecord(3, "XXX", "Mai usata", "D")});
  test::writeTable(folder, "Tipo.con", "RecTipo.con",
                   {test::categoryRecord(1, "BA", "Banche", "Privati"),
                    test::categoryRecord(2, "CA", "Carte", "Privati"),
                    test::categoryRecord(3, "VU", "Vuota", "Altro")});
  test::writeTable(folder, "Gruppi.con", "RecGruppi.con",
                   {test::groupRecord(1, "PR", "Privati"), test::groupRecord(2, "AL", "Altro"),
                    test::groupRecord(3, "NO", "Nessuno")});
  test::writeMovements(folder, "CC1",
                       {{.date = "01/11/2026", .causale = "STI", .amount = 100, .sign = "A"},
                        {.date = "02/11/98", .causale = "AFF", .amount = 50, .sign = "D"},
                        {.date = "03/11/2026", .causale = "AFF", .amount = 20, .sign = "D"},
                        {.date = "04/11/05", .causale = "STI", .amount = 10, .sign = "A"}});
  test::writeMovements(folder, "CC10", {{.date = "01/11/2026", .amount = 5, .sign = "A"}});
  folder.write("CC1.RIP", test::carryForwardRecord("31/12/2025", 40));
  folder.write("records.rer", test::le16(5));
}

// The archive as a user finds it: the lock, the derived totals and empty files (a missing file
// reads as an empty one) left out.
Snapshot archiveState(const test::TempFolder& folder) {
  Snapshot state;
  for (auto& [name, bytes] : test::snapshot(folder)) {
    if (!bytes.empty() && !name.ends_with(".TOC")) {
      state.emplace(name, std::move(bytes));
    }
  }
  return state;
}

struct Operation {
  std::string name;
  bool onAccount;  // works on CC1, the working account
  std::function<bool(Session&)> run;
};

bool saveMovement(Session& s, std::size_t selected, const char* amount) {
  MovementEntry entry(s);
  entry.open();
  if (selected > 0 && !entry.selectMovement(selected)) {
    return false;
  }
  entry.row().causale = "STI";
  entry.row().amount = amount;
  return entry.save();
}

using Fields = std::vector<std::pair<const char*, const char*>>;

// "ok" on a master screen after typing `fields` ("Combo1" picked by name), on row `row` when
// given; or "del" on that row.
template <class Screen>
Operation onScreen(std::string name, std::optional<std::size_t> row, Fields fields,
                   bool remove = false) {
  return {std::move(name), false, [=](Session& s) {
            Screen screen(s);
            if (row) {
              screen.chooseRow(*row);
            }
            for (const auto& [field, value] : fields) {
              if (std::string_view(field) == kChoiceField ? !screen.pickChoice(value)
                                                          : !screen.setField(field, value)) {
                return false;
              }
            }
            return remove ? screen.remove() : screen.save();
          }};
}

template <class Screen>
std::vector<Operation> addChangeDelete(const std::string& what, Fields added, Fields changedRow1,
                                       std::size_t deletedRow) {
  return {onScreen<Screen>("new " + what, std::nullopt, std::move(added)),
          onScreen<Screen>("changed " + what, 1, std::move(changedRow1)),
          onScreen<Screen>("deleted " + what, deletedRow, {}, true)};
}

std::vector<Operation> operations() {
  std::vector<Operation> all = {
      {"new movement", true, [](Session& s) { return saveMovement(s, 0, "75"); }},
      {"changed movement", true, [](Session& s) { return saveMovement(s, 3, "1234,5"); }},
      {"deleted movement", true,
       [](Session& s) {
         MovementEntry entry(s);
         entry.open();
         return entry.selectMovement(2) && entry.deleteSelected();
       }},
      {"Cancella movimenti", true, [](Session& s) { return clearAccountMovements(s); }},
      {"Riordina archivio", true, [](Session& s) { return reorderTwoDigitYears(s); }}};
  for (std::vector<Operation> more :
       {addChangeDelete<CausaliScreen>(
            "causale", {{"CodCausale", "BON"}, {"DescCausale", "Bonifico"}, {"DarAver", "A"}},
            {{"DescCausale", "Affitto casa"}}, 2),
        addChangeDelete<GroupsScreen>("group", {{"CodGruppi", "AZ"}, {"DescGruppi", "Aziende"}},
                                      {{"DescGruppi", "Famiglia"}}, 2),
        addChangeDelete<CategoriesScreen>(
            "category", {{"CodCausale", "MU"}, {"DescCausale", "Mutui"}, {"Combo1", "Altro"}},
            {{"DescCausale", "Carte di credito"}}, 2),
        // Deleting CC1 takes the files of CC10 too.
        addChangeDelete<AccountsScreen>(
            "account", {{"CodConto", "CC3"}, {"NomeConto", "Risparmi"}, {"Combo1", "Banche"}},
            {{"NomeConto", "Posta italiana"}}, 0)}) {
    std::move(more.begin(), more.end(), std::back_inserter(all));
  }
  return all;
}

class CrashTest : public ::testing::Test {
 protected:
  // Runs `op` on a fresh copy of the archive in `folder`; with `crashAfter` the process ends at
  // that change. Returns the child's exit status: 0 done, 1 refused, kCrashed stopped.
  static int runInChild(const Operation& op, const test::TempFolder& folder, int crashAfter,
                        std::size_t partialBytes) {
    const pid_t child = ::fork();
    if (child == 0) {
      test::FaultyFileLayer files;
      test::ScriptedPrompter prompter;
      prompter.answer({Answer::Ok, Answer::Ok, Answer::Ok});
      FixedClock clock{CalendarDate{21, 11, 2026}};
      Session session(files, prompter, clock, folder.path());
      bool done = session.start() && (!op.onAccount || session.openAccountByCode("CC1"));
      if (crashAfter > 0) {
        files.crashAfter(crashAfter, partialBytes);
      }
      done = done && op.run(session);
      std::_Exit(done ? 0 : 1);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  // The archive after opening the folder again, as the program does after a stop.
  static Snapshot reopened(const Operation& op, const test::TempFolder& folder) {
    OsFileLayer files;
    test::ScriptedPrompter prompter;
    FixedClock clock{CalendarDate{21, 11, 2026}};
    Session session(files, prompter, clock, folder.path());
    EXPECT_TRUE(session.start());
    if (op.onAccount) {
      EXPECT_TRUE(session.openAccountByCode("CC1"));
    }
    return archiveState(folder);
  }
};

TEST_F(CrashTest, AStopAtAnyChangeLeavesTheArchiveBeforeOrAfterTheOperation) {
  int cases = 0;
  const std::vector<Operation> all = operations();
  for (const Operation& op : all) {
    SCOPED_TRACE(op.name);
    test::TempFolder before;
    writeArchive(before);
    const Snapshot stateBefore = reopened(op, before);
    test::TempFolder after;
    writeArchive(after);
    ASSERT_EQ(runInChild(op, after, 0, 0), 0) << "the operation itself did not go";
    const Snapshot stateAfter = reopened(op, after);
    ASSERT_NE(stateAfter, stateBefore) << "the operation changed nothing";

    for (const std::size_t partial : {std::size_t{0}, std::size_t{3}}) {
      for (int n = 1;; ++n) {
        test::TempFolder stopped;
        writeArchive(stopped);
        const int status = runInChild(op, stopped, n, partial);
        if (status == 0) {
          break;  // the operation ended before its nth change
        }
        ASSERT_EQ(status, test::FaultyFileLayer::kCrashed) << "change " << n;
        const Snapshot state = reopened(op, stopped);
        EXPECT_TRUE(state == stateBefore || state == stateAfter)
            << "stopped after change " << n << (partial > 0 ? " (cut short)" : "");
        EXPECT_FALSE(stopped.exists("contavia.journal"));
        ++cases;
      }
    }
  }
  std::cout << "[ crash test ] " << all.size() << " operations, " << cases << " stops checked\n";
  EXPECT_GT(cases, 10 * static_cast<int>(all.size()));
}

}  // namespace
}  // namespace contavia
