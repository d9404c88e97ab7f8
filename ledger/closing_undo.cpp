#include "ledger/closing_undo.h"

#include <array>

#include "archive/account_files.h"
#include "archive/disk_errors.h"
#include "archive/record_file.h"
#include "archive/safety_copies.h"
#include "common/text.h"
#include "ledger/closing.h"

namespace contavia {
namespace {

// The saved files, in the order they are put back, and the account file each one becomes.
struct SavedFile {
  const char* bakName;
  const char* accountExtension;
};
constexpr std::array<SavedFile, 9> kSavedFiles = {{{"Bak.ORD", ".ORD"},
                                                   {"Bak.FOG", ".FOG"},
                                                   {"Bak.moc", filename::kMovements},
                                                   {"Bak.MOR", filename::kMovementCount},
                                                   {"Bak.TOC", filename::kTotals},
                                                   {"Bak.NRC", ".NRC"},
                                                   {"Bak.CAR", ".CAR"},
                                                   {"Bak.NRF", ".NRF"},
                                                   {"Bak.RIP", filename::kCarryForward}}};

// Record 1 of a file, or a blank record when the file is not there (nothing is created).
template <class Record>
Record firstRecordOf(const DataDirectory& dir, const std::string& name) {
  Record r;
  const std::string path = dir.path(name);
  if (dir.files().exists(path)) {
    readRecord(dir.files(), path, 1, r);
  }
  return r;
}

// The owner named by the closing's restore point, and by the "Bak." files when they say.
bool savedFilesBelongTo(const DataDirectory& dir, const std::string& code) {
  if (trim(firstRecordOf<ClosingUndo>(dir, code + filename::kClosingUndo).closedAccountCode) !=
      code) {
    return false;
  }
  return !dir.files().exists(dir.path(kBakOwner)) ||
         trim(firstRecordOf<ClosingUndo>(dir, kBakOwner).closedAccountCode) == code;
}

// Every file of the account goes but its restore point (a second undo repeats the same one);
// the saved files take their place and the carried-forward amount is the previous closing's.
void writeUndo(WriteJournal& journal, const DataDirectory& dir, const std::string& code,
               const ClosingUndo& previous) {
  for (const std::string& name : accountFilesMatching(dir, code, CodeMatch::Exact)) {
    if (foldCase(name) != foldCase(code + filename::kClosingUndo)) {
      journal.remove(dir.folder() + name);
    }
  }
  for (const SavedFile& f : kSavedFiles) {
    const std::string from = dir.path(f.bakName);
    if (dir.files().exists(from)) {
      journal.copy(from, dir.path(code + f.accountExtension));
    }
  }
  journal.record(dir.path(code + filename::kCarryForward), 1,
                 CarryForward{.carryDate = previous.previousCarryDate,
                              .carryAmount = previous.previousCarryAmount});
}

}  // namespace

bool undoLastClosing(Session& session) {
  const OpenAccount* account = session.account();
  const auto index = session.accountIndex();
  Prompter& prompter = session.prompter();
  if (account == nullptr || !index || !confirm(prompter, warningQuestion(kUndoWarning))) {
    return false;
  }
  const DataDirectory& dir = session.dir();
  const std::string code = account->code();
  if (!savedFilesBelongTo(dir, code)) {
    prompter.show(Message{"Errore", kOtherAccountsData, Buttons::Ok, Icon::Exclamation});
    return false;
  }
  for (const char* needed : {"Bak.moc", "Bak.MOR"}) {
    if (!dir.files().exists(dir.path(needed))) {
      prompter.show(errorBox(std::string("Manca il file ") + needed +
                             " salvato dall'ultima chiusura: il ripristino non è possibile e il "
                             "conto non è stato modificato."));
      return false;
    }
  }
  const ClosingUndo previous = firstRecordOf<ClosingUndo>(dir, code + filename::kClosingUndo);
  const std::vector<std::string> changed = accountFilesMatching(dir, code, CodeMatch::Exact);
  const bool done =
      stepUnderRoutine(
          prompter,
          [&] { return makeSafetyCopy(dir, session.clock(), "ripristino-chiusura", changed); }) &&
      stepUnderRoutine(prompter, [&] {
        WriteJournal journal(dir);
        writeUndo(journal, dir, code, previous);
        return journal.finish();
      });
  if (!done) {
    return false;
  }
  session.openAccount(*index);
  return true;
}

}  // namespace contavia
