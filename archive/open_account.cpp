#include "archive/open_account.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "archive/record_file.h"
#include "common/text.h"
#include "common/dates.h"
#include "common/number_masks.h"

namespace contavia {
namespace {

constexpr const char* kTotalsMask = "###,###,##0.00";

std::int32_t roundedOrZero(double value) { return roundHalfEven(value).value_or(0); }

bool isCredit(const std::string& sign) { return sign == "A"; }

}  // namespace

StatusPanels statusPanelsOf(double today, double total, const std::string& creditLine) {
  return StatusPanels{formatNumber(today, kTotalsMask), formatNumber(total, kTotalsMask),
                      formatNumber(today + val(creditLine), kTotalsMask)};
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

int OpenAccount::readMovements(std::string* problem) {
  FileLayer& files = dir_->files();
  std::int16_t stored = 0;
  readCount(files, filePath(filename::kMovementCount), stored);
  std::size_t wanted = stored < 0 ? 0 : static_cast<std::size_t>(stored);
  auto report = [&](std::string text) {
    if (problem != nullptr && problem->empty()) {
      *problem = std::move(text);
    }
  };
  if (stored < 0 || wanted > Movement::kCapacity) {
    wanted = stored < 0 ? 0 : Movement::kCapacity;
    report("Archivio danneggiato: il file " + code_ + filename::kMovementCount + " indica " +
           std::to_string(stored) + " movimenti, ma ne sono ammessi al massimo " +
           std::to_string(Movement::kCapacity) + ".");
  }
  std::vector<std::uint8_t> bytes;
  std::size_t available = 0;
  readRecordBytes(files, filePath(filename::kMovements), Movement::kLength, 1, wanted, bytes,
                  &available);
  if (available < wanted) {
    report("Archivio danneggiato: il file " + code_ + filename::kMovements + " contiene " +
           std::to_string(available) + " movimenti dei " + std::to_string(wanted) +
           " indicati nel file " + code_ + filename::kMovementCount +
           ". Vengono letti solo quelli presenti.");
    wanted = available;
  }
  movements_.clear();
  movements_.reserve(wanted);
  for (std::size_t i = 0; i < wanted; ++i) {
    Movement m = decodeRecord<Movement>(bytes.data() + i * Movement::kLength);
    if (!std::isfinite(m.amount)) {
      m.amount = 0.0;
      report("Archivio danneggiato: il movimento " + std::to_string(i + 1) + " del file " + code_ +
             filename::kMovements + " ha un importo non valido, letto come zero.");
    }
    movements_.push_back(std::move(m));
  }
  return static_cast<int>(wanted);
}

std::string OpenAccount::load() {
  std::string problem;
  readMovements(&problem);
  FileLayer& files = dir_->files();
  readRecord(files, filePath(filename::kCarryForward), 1, carry_);
  Totals totals;
  readRecord(files, filePath(filename::kTotals), 1, totals);
  balanceToday_ = roundedOrZero(totals.balanceToday);
  balanceTotal_ = roundedOrZero(totals.balanceTotal);
  selectionFrom_ = totals.selectionFrom;
  selectionTo_ = totals.selectionTo;
  // The movements were just read from the files: the recompute sums them without reading again.
  recomputeFrom(movements_);
  return problem;
}

void OpenAccount::reloadMovements() { readMovements(nullptr); }

void OpenAccount::reloadCarryForward() {
  readRecord(dir_->files(), filePath(filename::kCarryForward), 1, carry_);
}

int OpenAccount::appendMovement(Movement movement) {
  if (movements_.size() >= Movement::kCapacity) {
    return kCapacityReached;
  }
  const std::size_t number = movements_.size() + 1;
  movement.movementNumber = static_cast<std::int16_t>(number);
  FileLayer& files = dir_->files();
  WriteJournal journal(files);
  int rc = writeRecord(journal, filePath(filename::kMovements), number, movement);
  if (rc == diskerr::kOk) {
    rc = writeCount(journal, filePath(filename::kMovementCount), static_cast<std::int16_t>(number));
  }
  if (rc == diskerr::kOk) {
    const std::string counterPath = dir_->path(filename::kMovementCounter);
    std::int16_t counter = 0;
    readCount(files, counterPath, counter);
    if (counter < std::numeric_limits<std::int16_t>::max()) {
      ++counter;
    }
    rc = writeCount(journal, counterPath, counter);
  }
  if (rc != diskerr::kOk) {
    failedFile_ = journal.failedFileName();
    journal.rollback();
    return rc;
  }
  movements_.push_back(std::move(movement));
  return diskerr::kOk;
}

int OpenAccount::rewriteMovement(std::size_t number, Movement movement) {
  movement.movementNumber = static_cast<std::int16_t>(number);
  WriteJournal journal(dir_->files());
  const int rc = writeRecord(journal, filePath(filename::kMovements), number, movement);
  if (rc != diskerr::kOk) {
    failedFile_ = journal.failedFileName();
    journal.rollback();
    return rc;
  }
  movements_.at(number - 1) = std::move(movement);
  return diskerr::kOk;
}

int OpenAccount::rewriteMovements(std::vector<Movement> changed) {
  std::sort(changed.begin(), changed.end(), [](const Movement& a, const Movement& b) {
    return a.movementNumber < b.movementNumber;
  });
  for (const Movement& m : changed) {
    if (m.movementNumber < 1 || static_cast<std::size_t>(m.movementNumber) > movements_.size()) {
      return diskerr::kBadFileNameOrNumber;
    }
  }
  WriteJournal journal(dir_->files());
  for (std::size_t first = 0; first < changed.size();) {
    std::size_t end = first + 1;
    while (end < changed.size() &&
           changed[end].movementNumber == changed[end - 1].movementNumber + 1) {
      ++end;
    }
    const std::vector<Movement> run(changed.begin() + static_cast<std::ptrdiff_t>(first),
                                    changed.begin() + static_cast<std::ptrdiff_t>(end));
    const int rc = writeRecords(journal, filePath(filename::kMovements),
                                static_cast<std::size_t>(run.front().movementNumber), run);
    if (rc != diskerr::kOk) {
      failedFile_ = journal.failedFileName();
      journal.rollback();
      return rc;
    }
    first = end;
  }
  for (Movement& m : changed) {
    const auto number = static_cast<std::size_t>(m.movementNumber);
    movements_[number - 1] = std::move(m);
  }
  return diskerr::kOk;
}

int OpenAccount::replaceMovements(std::vector<Movement> kept) {
  for (std::size_t i = 0; i < kept.size(); ++i) {
    kept[i].movementNumber = static_cast<std::int16_t>(i + 1);
  }
  // The records before the first one that changes are already on disk as they are.
  std::size_t unchanged = 0;
  while (unchanged < kept.size() && unchanged < movements_.size() &&
         kept[unchanged] == movements_[unchanged]) {
    ++unchanged;
  }
  WriteJournal journal(dir_->files());
  int rc = diskerr::kOk;
  if (unchanged < kept.size()) {
    const std::vector<Movement> changed(kept.begin() + static_cast<std::ptrdiff_t>(unchanged),
                                        kept.end());
    rc = writeRecords(journal, filePath(filename::kMovements), unchanged + 1, changed);
  }
  if (rc == diskerr::kOk) {
    rc = writeCount(journal, filePath(filename::kMovementCount),
                    static_cast<std::int16_t>(kept.size()));
  }
  if (rc != diskerr::kOk) {
    failedFile_ = journal.failedFileName();
    journal.rollback();
    return rc;
  }
  movements_ = std::move(kept);
  return diskerr::kOk;
}

bool OpenAccount::applyIncrement(const std::string& date, double amount, const std::string& sign,
                                 bool reverse, bool showPanels) {
  const auto whole = roundHalfEven(amount);
  if (!whole) {
    return false;
  }
  // The incremental rule: "A" lowers the balances, any other sign raises them.
  std::int64_t delta = isCredit(sign) ? -static_cast<std::int64_t>(*whole) : *whole;
  if (reverse) {
    delta = -delta;
  }
  const bool upToToday = dateKey(date) <= dateKey(clock_->todayText());
  const std::int64_t total = balanceTotal_ + delta;
  const std::int64_t today = upToToday ? balanceToday_ + delta : balanceToday_;
  constexpr std::int64_t kMin = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t kMax = std::numeric_limits<std::int32_t>::max();
  if (total < kMin || total > kMax || today < kMin || today > kMax) {
    return false;
  }
  balanceTotal_ = static_cast<std::int32_t>(total);
  balanceToday_ = static_cast<std::int32_t>(today);
  if (showPanels) {
    show(balanceToday_, balanceTotal_);
  }
  writeTotals(balanceToday_, balanceTotal_);
  return true;
}

bool OpenAccount::addToTotals(const std::string& date, double amount, const std::string& sign) {
  return applyIncrement(date, amount, sign, false, true);
}

bool OpenAccount::removeFromTotals(const std::string& date, double amount,
                                   const std::string& sign) {
  return applyIncrement(date, amount, sign, true, false);
}

void OpenAccount::recompute() {
  // Read from the files again, as the stored state is what the balances must follow.
  OpenAccount fromFiles(*dir_, *clock_, code_, creditLine_);
  fromFiles.readMovements(nullptr);
  recomputeFrom(fromFiles.movements_);
}

void OpenAccount::recomputeFrom(const std::vector<Movement>& stored) {
  const std::int32_t todayKey = dateKey(clock_->todayText());
  double creditsAll = 0.0;
  double debitsAll = 0.0;
  double creditsToday = 0.0;
  double debitsToday = 0.0;
  for (const Movement& m : stored) {
    const bool credit = isCredit(m.sign);
    const bool upToToday = dateKey(m.operationDate) <= todayKey;
    (credit ? creditsAll : debitsAll) += m.amount;
    if (upToToday) {
      (credit ? creditsToday : debitsToday) += m.amount;
    }
  }
  const double total = creditsAll - debitsAll + carry_.carryAmount;
  const double today = creditsToday - debitsToday + carry_.carryAmount;
  balanceTotal_ = roundedOrZero(total);
  balanceToday_ = roundedOrZero(today);
  show(today, total);
  writeTotals(today, total);
}

void OpenAccount::show(double today, double total) {
  shownToday_ = today;
  shownTotal_ = total;
  panels_ = statusPanelsOf(today, total, creditLine_);
}

void OpenAccount::writeTotals(double today, double total) {
  // The stored totals are derived data: a failed write is skipped, the next recompute mends it.
  WriteJournal journal(dir_->files());
  const Totals totals{today, total, selectionFrom_, selectionTo_};
  if (writeRecord(journal, filePath(filename::kTotals), 1, totals) != diskerr::kOk) {
    journal.rollback();
  }
}

std::string OpenAccount::latestDate() const {
  if (movements_.empty()) {
    return {};
  }
  std::string latest = movements_.front().operationDate;
  std::int32_t latestKey = dateKey(latest);
  for (std::size_t i = 1; i < movements_.size(); ++i) {
    const std::int32_t key = dateKey(movements_[i].operationDate);
    if (key > latestKey) {
      latest = movements_[i].operationDate;
      latestKey = key;
    }
  }
  return latest;
}

}  // namespace contavia
