#include "ledger/closing.h"

#include <array>
#include <cstdio>

#include "archive/account_files.h"
#include "archive/disk_errors.h"
#include "archive/safety_copies.h"
#include "common/dates.h"
#include "common/number_masks.h"
#include "common/text.h"
#include "printing/closing_archive.h"

namespace contavia {
namespace {

// The account files a closing copies to the "Bak." files, with the spelling of the copies.
struct BakCopy {
  const char* accountExtension;
  const char* bakName;
};
constexpr std::array<BakCopy, 4> kClosingCopies = {{{filename::kMovements, "Bak.moc"},
                                                    {filename::kMovementCount, "Bak.MOR"},
                                                    {filename::kTotals, "Bak.TOC"},
                                                    {filename::kCarryForward, "Bak.RIP"}}};

// "chiusure/AAAAMMGG-CONTO.pdf", numbered when a closing of the same day is already kept there.
std::string archivePathFor(const DataDirectory& dir, const Clock& clock, const std::string& code) {
  const CalendarDate d = clock.today();
  char date[16];
  std::snprintf(date, sizeof date, "%04d%02d%02d", d.year, d.month, d.day);
  const std::string base = dir.folder() + kClosingArchivesFolder + "/" + date + "-" + code;
  std::string path = base + ".pdf";
  for (int n = 2; dir.files().exists(path); ++n) {
    path = base + "-" + std::to_string(n) + ".pdf";
  }
  return path;
}

// The closing's writes, all in one journal: the "Bak." files, the compacted movements, the new
// count, the restore point and the carried-forward amount.
void writeClosing(WriteJournal& journal, const DataDirectory& dir, const OpenAccount& account,
                  const ClosingPlan& plan, const ClosingUndo& undo, const CarryForward& carry) {
  for (const BakCopy& c : kClosingCopies) {
    const std::string from = account.filePath(c.accountExtension);
    if (dir.files().exists(from)) {
      journal.copy(from, dir.path(c.bakName));
    } else {
      journal.remove(dir.path(c.bakName));  // no copy of another account's file stays behind
    }
  }
  journal.record(dir.path(kBakOwner), 1, undo);
  if (!plan.rewritten.empty()) {
    journal.records(account.filePath(filename::kMovements), plan.firstChanged, plan.rewritten);
  }
  journal.count(account.filePath(filename::kMovementCount),
                static_cast<std::int16_t>(plan.keptCount));
  journal.record(account.filePath(filename::kClosingUndo), 1, undo);
  journal.record(account.filePath(filename::kCarryForward), 1, carry);
}

std::vector<std::string> filesTheClosingChanges(const DataDirectory& dir, const std::string& code) {
  std::vector<std::string> names = accountFilesMatching(dir, code, CodeMatch::Exact);
  for (const BakCopy& c : kClosingCopies) {
    names.emplace_back(c.bakName);
  }
  names.emplace_back(kBakOwner);
  return names;
}

}  // namespace

ClosingPlan planClosing(const std::vector<Movement>& movements, const std::string& closingDate) {
  const std::int32_t closingKey = dateKey(closingDate);
  ClosingPlan plan;
  std::vector<Movement> slots;
  slots.reserve(movements.size());
  std::vector<Movement> marked;
  for (const Movement& m : movements) {
    Movement slot = m;
    if (dateKey(m.operationDate) <= closingKey) {
      slot.closedFlag = "S";
    }
    if (slot.closedFlag == "S") {
      plan.removed.push_back(m);
      plan.runningSum += m.sign == "A" ? -m.amount : m.amount;
      marked.push_back(std::move(slot));
    } else {
      slot.movementNumber = static_cast<std::int16_t>(plan.keptCount + 1);
      slots.push_back(std::move(slot));
      ++plan.keptCount;
    }
  }
  // Past the kept movements the file keeps its old records, those the closing marked with "S".
  for (std::size_t i = plan.keptCount; i < movements.size(); ++i) {
    Movement old = movements[i];
    if (dateKey(old.operationDate) <= closingKey) {
      old.closedFlag = "S";
    }
    slots.push_back(std::move(old));
  }
  std::size_t first = 0;
  while (first < slots.size() && slots[first] == movements[first]) {
    ++first;
  }
  plan.firstChanged = first + 1;
  plan.rewritten.assign(slots.begin() + static_cast<std::ptrdiff_t>(first), slots.end());
  return plan;
}

std::optional<std::int32_t> carriedForward(std::int32_t previous, double runningSum) {
  return roundHalfEven(static_cast<double>(previous) + runningSum);
}

ClosingResult closePeriod(Session& session, const std::string& typedDate,
                          const ArchiveKeeper& keepArchive) {
  ClosingResult result;
  const OpenAccount* account = session.account();
  const auto index = session.accountIndex();
  Prompter& prompter = session.prompter();
  if (account == nullptr || !index ||
      !typedDateAccepted(typedDate, kClosingDateRequired, prompter) ||
      !confirm(prompter, warningQuestion(kClosingWarning))) {
    return result;
  }
  if (account->damage().readOnly()) {
    written(prompter, {WriteOutcome::kDamaged, account->damage().damagedFile});
    return result;
  }
  const DataDirectory& dir = session.dir();
  const std::string closingDate = trim(typedDate);
  const std::string code = account->code();
  const ClosingPlan plan = planClosing(account->movements().decodedAll(), closingDate);
  const CarryForward before = account->carryForward();
  const auto carried = carriedForward(before.carryAmount, plan.runningSum);
  if (!carried) {
    prompter.show(
        errorBox("La somma dei movimenti da eliminare porterebbe il riporto oltre "
                 "l'importo massimo: la chiusura non è stata eseguita."));
    return result;
  }
  const ClosingUndo undo{.previousCarryDate = before.carryDate,
                         .previousCarryAmount = before.carryAmount,
                         .closedAccountCode = code};
  const CarryForward carry{.carryDate = closingDate, .carryAmount = *carried};

  // The report is kept before anything is removed: the removed movements are never lost to a
  // printer that is not there.
  result.report = closingArchiveReport(plan.removed, session.clock().todayText(), closingDate);
  result.archivePath = archivePathFor(dir, session.clock(), code);
  FileLayer& files = dir.files();
  const std::string archives = dir.folder() + kClosingArchivesFolder;
  if (!files.isDirectory(archives)) {
    files.makeDirectory(archives);
  }
  if (!keepArchive(result.report, result.archivePath)) {
    prompter.show(fileNotWrittenBox(result.archivePath));
    files.remove(result.archivePath);
    return result;
  }
  const std::vector<std::string> changed = filesTheClosingChanges(dir, code);
  const bool done =
      stepUnderRoutine(prompter,
                       [&] { return makeSafetyCopy(dir, session.clock(), "chiusura", changed); }) &&
      stepUnderRoutine(prompter, [&] {
        WriteJournal journal(dir);
        writeClosing(journal, dir, *account, plan, undo, carry);
        return journal.finish();
      });
  if (!done) {
    files.remove(result.archivePath);
    return result;
  }
  session.openAccount(*index);  // the movements read back, the totals recomputed
  prompter.show(plainBox(kProgramTitle,
                         "Chiusura eseguita. L'elenco dei movimenti eliminati è conservato in " +
                             result.archivePath + "."));
  result.closed = true;
  return result;
}

}  // namespace contavia
