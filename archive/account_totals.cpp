#include "archive/account_totals.h"

#include <utility>

#include "archive/movement_records.h"
#include "archive/record_file.h"
#include "archive/tables.h"
#include "common/text.h"

namespace contavia {

void storeTotals(FileLayer& files, const std::string& path, const ExactBalances& balances,
                 const std::string& selectionFrom, const std::string& selectionTo) {
  if (path.empty()) {
    return;
  }
  const std::vector<std::uint8_t> bytes =
      encodeRecord(Totals{balances.today, balances.total, selectionFrom, selectionTo});
  files.write(path, 0, bytes.data(), bytes.size());
}

ExactBalances refreshTotals(const DataDirectory& dir, const std::string& code,
                            std::int32_t todayKey) {
  const std::string name = trim(code);
  if (!isSafeFileName(name)) {
    return {};
  }
  FileLayer& files = dir.files();
  CountedRecords counted = readCountedRecords(
      files, dir.path(name + filename::kMovementCount), dir.path(name + filename::kMovements),
      Movement::kLength, Movement::kCapacity,
      {name + filename::kMovementCount, name + filename::kMovements, "movimenti"});
  MovementRecords movements(std::move(counted.bytes), counted.count);
  const bool damaged = counted.damage.readOnly() || !movements.zeroInvalidAmounts().empty();
  CarryForward carry;
  readRecord(files, dir.path(name + filename::kCarryForward), 1, carry);
  const ExactBalances exact = recomputed(movements, carry.carryAmount, todayKey);
  if (!damaged) {
    const std::string path = dir.path(name + filename::kTotals);
    Totals stored;
    readRecord(files, path, 1, stored);
    storeTotals(files, path, exact, stored.selectionFrom, stored.selectionTo);
  }
  return exact;
}

}  // namespace contavia
