#pragma once
// The running balances of the working account, in whole 32-bit units, and the texts that show
// them.
//
// Two sign rules are kept on purpose. The incremental update (a movement added to the balances,
// or taken back from them) lets an "A" movement lower them; the full recompute from the files
// counts "A" movements as credits. Every save ends with the full recompute, so only the moments
// in between show the incremental rule.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/movement_records.h"
#include "archive/records.h"
#include "common/dates.h"

namespace contavia {

struct WholeBalances {
  std::int32_t today = 0;
  std::int32_t total = 0;
  bool operator==(const WholeBalances&) const = default;
};

// The incremental rule: `from` changed by one movement, or with `reverse` by its exact reverse.
// The amount is rounded half to even; "A" lowers the balances, any other sign raises them; the
// balance for today changes only for a movement dated up to today. nullopt when the amount or a
// balance would leave the 32-bit range.
std::optional<WholeBalances> incremented(WholeBalances from, double amount, std::string_view sign,
                                         bool upToToday, bool reverse);

struct ExactBalances {
  double today = 0.0;
  double total = 0.0;
  // Each balance rounded half to even; one that leaves the 32-bit range counts as 0.
  WholeBalances wholeOrZero() const;
  // False when a balance leaves the 32-bit range.
  bool fitsWholeUnits() const;
};

// The full recompute: credits ("A") minus debits plus the carried-forward amount, over every
// movement and over those dated up to today.
class BalanceRecompute {
 public:
  explicit BalanceRecompute(std::int32_t todayKey) : todayKey_(todayKey) {}
  void add(const Movement& m) { add(m.sign == "A", m.amount, dateKey(m.operationDate)); }
  void add(MovementView m) { add(m.isCredit(), m.amount(), m.dateKey()); }
  ExactBalances result(std::int32_t carryAmount) const;

 private:
  void add(bool credit, double amount, std::int32_t dateKey);

  std::int32_t todayKey_;
  double creditsAll_ = 0.0;
  double debitsAll_ = 0.0;
  double creditsToday_ = 0.0;
  double debitsToday_ = 0.0;
};

ExactBalances recomputed(const MovementRecords& movements, std::int32_t carryAmount,
                         std::int32_t todayKey);

// The available amount: today's balance plus the credit line read as a number.
double availableOf(double today, std::string_view creditLine);

// The texts of status panels 1 (balance today), 4 (total balance) and 5 (available), with the
// mask "###,###,##0.00".
struct StatusPanels {
  std::string balanceToday;
  std::string balanceTotal;
  std::string available;
  bool operator==(const StatusPanels&) const = default;
};
StatusPanels statusPanelsOf(double today, double total, std::string_view creditLine);

// The message that stops an operation whose balance would leave the range.
std::string balanceOverflowText();

}  // namespace contavia
