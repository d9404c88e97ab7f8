#include "archive/account_totals.h"

#include <cmath>
#include <cstring>

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
  const CountedRecords counted = readCountedRecords(
      files, dir.path(name + filename::kMovementCount), dir.path(name + filename::kMovements),
      Movement::kLength, Movement::kCapacity,
      {name + filename::kMovementCount, name + filename::kMovements, "movimenti"});
  BalanceRecompute sums(todayKey);
  bool damaged = counted.damage.readOnly();
  for (std::size_t i = 0; i < counted.count; ++i) {
    // The three fields the balances need, straight from the record's bytes.
    const std::uint8_t* r = counted.bytes.data() + i * Movement::kLength;
    double amount = 0.0;
    std::memcpy(&amount, r + 17, sizeof amount);
    if (!std::isfinite(amount)) {
      amount = 0.0;
      damaged = true;
    }
    const char sign = static_cast<char>(r[63]);
    sums.add(std::string_view(&sign, 1), amount,
             std::string_view(reinterpret_cast<const char*>(r + 2), 10));
  }
  CarryForward carry;
  readRecord(files, dir.path(name + filename::kCarryForward), 1, carry);
  const ExactBalances exact = sums.result(carry.carryAmount);
  if (!damaged) {
    const std::string path = dir.path(name + filename::kTotals);
    Totals stored;
    readRecord(files, path, 1, stored);
    storeTotals(files, path, exact, stored.selectionFrom, stored.selectionTo);
  }
  return exact;
}

}  // namespace contavia
