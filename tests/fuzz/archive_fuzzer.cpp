// libFuzzer target: a small sound archive, damaged at random places (any bytes written over any
// file, files cut short, a journal left behind), then opened and worked on with the operations of
// the program in the order the input chooses. Nothing may crash or read out of bounds, and no
// operation may leave its journal behind.

#include <fuzzer/FuzzedDataProvider.h>

#include <array>
#include <string>

#include "archive/session.h"
#include "frame/account_panel_texts.h"
#include "frame/frame_commands.h"
#include "frame/two_digit_years.h"
#include "ledger/clear_movements.h"
#include "ledger/movement_entry.h"
#include "masterdata/accounts_screen.h"
#include "masterdata/categories_screen.h"
#include "masterdata/causali_screen.h"
#include "masterdata/groups_screen.h"
#include "tests/fuzz/memory_file_layer.h"

namespace contavia::fuzz {
namespace {

constexpr const char* kFolder = "/dati/";

// Answers OK to every question, so that destructive operations run.
class YesPrompter final : public Prompter {
 public:
  Answer show(const Message& m) override {
    return m.buttons == Buttons::Ok         ? Answer::Ok
           : m.buttons == Buttons::OkCancel ? Answer::Ok
                                            : Answer::Abort;
  }
  void beep() override {}
};

template <class Record>
void table(MemoryFileLayer& files, const char* name, const char* countName,
           std::vector<Record> records) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < records.size(); ++i) {
    records[i].recordNumber = static_cast<std::int16_t>(i + 1);
    const std::vector<std::uint8_t> r = encodeRecord(records[i]);
    bytes.insert(bytes.end(), r.begin(), r.end());
  }
  files.contents()[std::string(kFolder) + name] = bytes;
  files.contents()[std::string(kFolder) + countName] =
      encodeRecord(CountRecord{static_cast<std::int16_t>(records.size())});
}

void soundArchive(MemoryFileLayer& files) {
  table(files, "CONTI.CON", "RecConti.CON",
        std::vector<Account>{{.accountCode = "A", .categoryName = "Banche", .accountName = "Uno"},
                             {.accountCode = "B", .categoryName = "Carte", .creditLine = "100"}});
  table(files, "Causali.CAP", "RecCausa.CAP",
        std::vector<Causale>{{.causaleCode = "S", .causaleDescription = "Stipendio", .sign = "A"},
                             {.causaleCode = "P", .causaleDescription = "Prelievo", .sign = "D"}});
  table(files, "Tipo.con", "RecTipo.con",
        std::vector<Category>{{.categoryCode = "B", .categoryName = "Banche", .groupName = "G"}});
  table(files, "Gruppi.con", "RecGruppi.con",
        std::vector<Group>{{.groupCode = "G", .groupName = "G"}});
  std::vector<Movement> movements;
  for (int i = 0; i < 4; ++i) {
    movements.push_back(
        {.movementNumber = static_cast<std::int16_t>(i + 1),
         .operationDate = i == 2 ? "05/03/98" : "0" + std::to_string(i + 1) + "/11/2026",
         .causaleCode = i % 2 == 0 ? "S" : "P",
         .amount = 10.5 * (i + 1),
         .sign = i % 2 == 0 ? "A" : "D",
         .closedFlag = "N"});
  }
  std::vector<std::uint8_t> moc;
  for (const Movement& m : movements) {
    const std::vector<std::uint8_t> r = encodeRecord(m);
    moc.insert(moc.end(), r.begin(), r.end());
  }
  files.contents()[std::string(kFolder) + "A.MOC"] = moc;
  files.contents()[std::string(kFolder) + "A.MOR"] = encodeRecord(CountRecord{4});
}

constexpr std::array<const char*, 16> kNames = {
    "CONTI.CON",  "RecConti.CON",  "Causali.CAP",      "RecCausa.CAP", "Tipo.con", "RecTipo.con",
    "Gruppi.con", "RecGruppi.con", "records.rer",      "A.MOC",        "A.MOR",    "A.TOC",
    "A.RIP",      "a.moc",         "contavia.journal", "causali.con"};

void damage(MemoryFileLayer& files, FuzzedDataProvider& in) {
  while (in.remaining_bytes() > 0 && in.ConsumeBool()) {
    const std::string path = std::string(kFolder) + in.PickValueInArray(kNames);
    std::vector<std::uint8_t>& bytes = files.contents()[path];
    const auto offset = in.ConsumeIntegralInRange<std::size_t>(0, 900);
    if (in.ConsumeBool()) {
      bytes.resize(std::min(bytes.size(), offset));
      continue;
    }
    const std::vector<std::uint8_t> patch =
        in.ConsumeBytes<std::uint8_t>(in.ConsumeIntegralInRange<std::size_t>(0, 48));
    if (bytes.size() < offset + patch.size()) {
      bytes.resize(offset + patch.size(), 0);
    }
    std::copy(patch.begin(), patch.end(), bytes.begin() + static_cast<long>(offset));
  }
}

std::string text(FuzzedDataProvider& in) { return in.ConsumeRandomLengthString(40); }

template <class Screen>
void onScreen(Session& session, FuzzedDataProvider& in) {
  Screen screen(session);
  const std::vector<FieldDefinition> fields = screen.fields();
  if (in.ConsumeBool() && !screen.rows().empty()) {
    screen.chooseRow(in.ConsumeIntegralInRange<std::size_t>(0, screen.rows().size() - 1));
  }
  if (in.ConsumeBool()) {
    screen.remove();
    return;
  }
  for (const FieldDefinition& f : fields) {
    if (f.kind == FieldDefinition::Choice) {
      screen.pickChoice(text(in));
    } else {
      screen.setField(f.name, text(in));
    }
  }
  screen.save();
}

void work(Session& session, FuzzedDataProvider& in) {
  std::unique_ptr<MovementEntry> entry;
  for (int step = 0; step < 12 && in.remaining_bytes() > 0; ++step) {
    switch (in.ConsumeIntegralInRange(0, 11)) {
      case 0:
        if (!session.tables().accounts.empty()) {
          session.openAccount(
              in.ConsumeIntegralInRange<std::size_t>(0, session.tables().accounts.size() - 1));
          entry = std::make_unique<MovementEntry>(session);
          entry->open();
        }
        break;
      case 1:
      case 2:
      case 3:
        if (entry && session.account() != nullptr) {
          if (in.ConsumeBool()) {
            entry->selectMovement(in.ConsumeIntegralInRange<std::size_t>(0, 12));
          }
          EntryRow& row = entry->row();
          row.date = text(in);
          row.causale = text(in);
          row.amount = text(in);
          row.description = text(in);
          if (in.ConsumeBool()) {
            entry->deleteSelected();
          } else {
            entry->save();
          }
          entry->filter() = {text(in), text(in), text(in)};
          entry->applyFilter();
        }
        break;
      case 4:
        clearAccountMovements(session);
        if (entry && session.account() != nullptr) {
          entry->refresh();
        }
        break;
      case 5:
        reorderTwoDigitYears(session);
        break;
      case 6:
        onScreen<CausaliScreen>(session, in);
        break;
      case 7:
        onScreen<GroupsScreen>(session, in);
        break;
      case 8:
        onScreen<CategoriesScreen>(session, in);
        break;
      case 9:
        entry.reset();
        session.closeAccount();
        onScreen<AccountsScreen>(session, in);
        break;
      case 10:
        entry.reset();
        changeDataFolder(session, kFolder);
        break;
      default:
        accountPanelTexts(session);
        break;
    }
  }
}

}  // namespace
}  // namespace contavia::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace contavia;
  FuzzedDataProvider in(data, size);
  fuzz::MemoryFileLayer files(fuzz::kFolder);
  fuzz::soundArchive(files);
  fuzz::damage(files, in);
  fuzz::YesPrompter prompter;
  FixedClock clock{CalendarDate{21, 11, 2026}};
  {
    Session session(files, prompter, clock, fuzz::kFolder);
    if (session.start()) {
      fuzz::work(session, in);
    }
  }
  // Every operation ended: no journal is left, and the folder opens again.
  if (files.exists(std::string(fuzz::kFolder) + "contavia.journal")) {
    __builtin_trap();
  }
  Session again(files, prompter, clock, fuzz::kFolder);
  again.start();
  return 0;
}
