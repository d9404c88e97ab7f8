#include "archive/open_account.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "archive/account_totals.h"
#include "archive/record_file.h"
#include "archive/tables.h"
#include "common/dates.h"
#include "common/text.h"

namespace contavia {

DateSpan dateSpanOf(const MovementRecords& movements) {
  DateSpan span;
  std::int32_t earliestKey = 0;
  std::int32_t latestKey = 0;
  std::string scratch;
  for (const MovementView m : movements) {
    const std::int32_t key = m.dateKey();
    if (span.earliest.empty() || key < earliestKey) {
      span.earliest = trim(m.date(scratch));
      earliestKey = key;
    }
    if (span.latest.empty() || key > latestKey) {
      span.latest = trim(m.date(scratch));
      latestKey = key;
    }
  }
  return span;
}

OpenAccount::OpenAccount(const DataDirectory& dir, const Clock& clock, const std::string& code,
                         std::string creditLine)
    : dir_(&dir), clock_(&clock), code_(trim(code)), creditLine_(std::move(creditLine)) {}

std::string OpenAccount::filePath(const char* extension) const {
  if (!isSafeFileName(code_)) {
    return {};
  }
  return dir_->path(code_ + extension);
}

void OpenAccount::setSelection(std::string from, std::string to) {
  selectionFrom_ = std::move(from);
  selectionTo_ = std::move(to);
}

std::int32_t OpenAccount::todayKey() const { return dateKey(clock_->todayText()); }

Movement OpenAccount::movement(std::size_t number) const {
  if (number < 1 || number > movements_.size()) {
    throw std::out_of_range("movimento " + std::to_string(number));
  }
  return movements_[number - 1].decoded();
}

Damage OpenAccount::readMovements(MovementRecords& out) const {
  CountedRecords counted = readCountedRecords(
      dir_->files(), filePath(filename::kMovementCount), filePath(filename::kMovements),
      Movement::kLength, Movement::kCapacity,
      {code_ + filename::kMovementCount, code_ + filename::kMovements, "movimenti"});
  out = MovementRecords(std::move(counted.bytes), counted.count);
  for (const std::size_t i : out.zeroInvalidAmounts()) {
    counted.damage.add({"Archivio danneggiato: il movimento " + std::to_string(i + 1) +
                            " del file " + code_ + filename::kMovements +
                            " ha un importo non valido, letto come zero; non si possono "
                            "registrare modifiche finché non viene riparato.",
                        code_ + filename::kMovements});
  }
  return std::move(counted.damage);
}

std::string OpenAccount::load() {
  damage_ = spellingDamage(*dir_, {code_ + filename::kMovements, code_ + filename::kMovementCount,
                                   code_ + filename::kTotals, code_ + filename::kCarryForward,
                                   code_ + filename::kClosingUndo});
  damage_.add(readMovements(movements_));
  FileLayer& files = dir_->files();
  readRecord(files, filePath(filename::kCarryForward), 1, carry_);
  Totals totals;
  readRecord(files, filePath(filename::kTotals), 1, totals);
  selectionFrom_ = totals.selectionFrom;
  selectionTo_ = totals.selectionTo;
  // The movements were just read from the files: the recompute sums them without reading again.
  settle(recomputed(movements_, carry_.carryAmount, todayKey()));
  return damage_.problem;
}

WriteOutcome OpenAccount::appendMovement(Movement movement) {
  if (damage_.readOnly()) {
    return {WriteOutcome::kDamaged, damage_.damagedFile};
  }
  if (movements_.size() >= Movement::kCapacity) {
    return {kCapacityReached, {}};
  }
  const std::size_t number = movements_.size() + 1;
  movement.movementNumber = static_cast<std::int16_t>(number);
  WriteJournal journal(*dir_);
  journal.record(filePath(filename::kMovements), number, movement);
  journal.count(filePath(filename::kMovementCount), static_cast<std::int16_t>(number));
  if (!journal.failed()) {
    const std::string counterPath = dir_->path(filename::kMovementCounter);
    std::int16_t counter = 0;
    readCount(dir_->files(), counterPath, counter);
    if (counter < std::numeric_limits<std::int16_t>::max()) {
      ++counter;
    }
    journal.count(counterPath, counter);
  }
  WriteOutcome outcome = journal.finish();
  if (outcome.ok()) {
    movements_.append(movement);
  }
  return outcome;
}

WriteOutcome OpenAccount::rewriteMovements(std::vector<Movement> changed) {
  if (damage_.readOnly()) {
    return {WriteOutcome::kDamaged, damage_.damagedFile};
  }
  std::sort(changed.begin(), changed.end(), [](const Movement& a, const Movement& b) {
    return a.movementNumber < b.movementNumber;
  });
  for (const Movement& m : changed) {
    if (m.movementNumber < 1 || static_cast<std::size_t>(m.movementNumber) > movements_.size()) {
      return {diskerr::kBadFileNameOrNumber, {}};
    }
  }
  WriteJournal journal(*dir_);
  for (std::size_t first = 0; first < changed.size();) {
    std::size_t end = first + 1;
    while (end < changed.size() &&
           changed[end].movementNumber == changed[end - 1].movementNumber + 1) {
      ++end;
    }
    const std::vector<Movement> run(changed.begin() + static_cast<std::ptrdiff_t>(first),
                                    changed.begin() + static_cast<std::ptrdiff_t>(end));
    journal.records(filePath(filename::kMovements),
                    static_cast<std::size_t>(run.front().movementNumber), run);
    first = end;
  }
  WriteOutcome outcome = journal.finish();
  if (outcome.ok()) {
    for (const Movement& m : changed) {
      movements_.set(static_cast<std::size_t>(m.movementNumber) - 1, m);
    }
  }
  return outcome;
}

WriteOutcome OpenAccount::replaceMovements(std::vector<Movement> kept) {
  if (damage_.readOnly()) {
    return {WriteOutcome::kDamaged, damage_.damagedFile};
  }
  for (std::size_t i = 0; i < kept.size(); ++i) {
    kept[i].movementNumber = static_cast<std::int16_t>(i + 1);
  }
  // The records before the first one that changes are already on disk as they are.
  std::size_t unchanged = 0;
  while (unchanged < kept.size() && unchanged < movements_.size() &&
         movements_.holds(unchanged, kept[unchanged])) {
    ++unchanged;
  }
  WriteJournal journal(*dir_);
  if (unchanged < kept.size()) {
    const std::vector<Movement> changed(kept.begin() + static_cast<std::ptrdiff_t>(unchanged),
                                        kept.end());
    journal.records(filePath(filename::kMovements), unchanged + 1, changed);
  }
  journal.count(filePath(filename::kMovementCount), static_cast<std::int16_t>(kept.size()));
  WriteOutcome outcome = journal.finish();
  if (outcome.ok()) {
    movements_.truncate(unchanged);
    for (std::size_t i = unchanged; i < kept.size(); ++i) {
      movements_.append(kept[i]);
    }
  }
  return outcome;
}

std::optional<WholeBalances> OpenAccount::increment(const std::string& date, double amount,
                                                    const std::string& sign, bool reverse) const {
  return incremented(balances_, amount, sign, dateKey(date) <= todayKey(), reverse);
}

bool OpenAccount::incrementFits(const std::string& date, double amount, const std::string& sign,
                                bool reverse) const {
  return increment(date, amount, sign, reverse).has_value();
}

bool OpenAccount::addToTotals(const std::string& date, double amount, const std::string& sign) {
  const auto after = increment(date, amount, sign, false);
  if (!after) {
    return false;
  }
  balances_ = *after;
  const ExactBalances shown{static_cast<double>(after->today), static_cast<double>(after->total)};
  show(shown);
  writeTotals(shown);
  return true;
}

bool OpenAccount::removeFromTotals(const std::string& date, double amount,
                                   const std::string& sign) {
  const auto after = increment(date, amount, sign, true);
  if (!after) {
    return false;
  }
  balances_ = *after;
  writeTotals({static_cast<double>(after->today), static_cast<double>(after->total)});
  return true;
}

void OpenAccount::recompute() {
  // The records held are the stored ones: every write goes through this class and changes them
  // only once it has reached the files.
  settle(recomputed(movements_, carry_.carryAmount, todayKey()));
}

void OpenAccount::settle(const ExactBalances& exact) {
  balances_ = exact.wholeOrZero();
  show(exact);
  writeTotals(exact);
}

bool OpenAccount::recomputeFitsWith(std::size_t number, const Movement& changed) const {
  BalanceRecompute sums(todayKey());
  for (std::size_t i = 0; i < movements_.size(); ++i) {
    if (i + 1 == number) {
      sums.add(changed);
    } else {
      sums.add(movements_[i]);
    }
  }
  if (number > movements_.size()) {
    sums.add(changed);
  }
  return sums.result(carry_.carryAmount).fitsWholeUnits();
}

void OpenAccount::show(const ExactBalances& balances) {
  shown_ = balances;
  panels_ = statusPanelsOf(balances.today, balances.total, creditLine_);
}

void OpenAccount::writeTotals(const ExactBalances& balances) {
  if (damage_.readOnly()) {
    return;
  }
  storeTotals(dir_->files(), filePath(filename::kTotals), balances, selectionFrom_, selectionTo_);
}

}  // namespace contavia
