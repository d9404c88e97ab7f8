#pragma once
// The working account: its files (code + ".MOC", ".MOR", ".TOC", ".RIP", ".chi"), its movements
// held in memory, and its two running balances (see running_balances.h for their two rules).

#include <cstdint>
#include <string>
#include <vector>

#include "archive/data_directory.h"
#include "archive/movement_records.h"
#include "archive/records.h"
#include "archive/running_balances.h"
#include "archive/tables.h"
#include "archive/write_journal.h"
#include "common/clock.h"

namespace contavia {

// The earliest and the latest movement date (compared by DateKey, trimmed); empty without
// movements. Of equal dates the first in file order is taken.
struct DateSpan {
  std::string earliest;
  std::string latest;
};
DateSpan dateSpanOf(const MovementRecords& movements);

class OpenAccount {
 public:
  // `code` is the account's code as stored (trimmed here); `creditLine` its credit line text.
  OpenAccount(const DataDirectory& dir, const Clock& clock, const std::string& code,
              std::string creditLine);

  // Loads count, movements, carry-forward and totals, then recomputes. Returns a
  // description of any damage found (empty when the files are sound). A damaged account is not
  // written until it is repaired: its writes end with WriteOutcome::kDamaged.
  std::string load();
  const Damage& damage() const { return damage_; }

  const std::string& code() const { return code_; }
  const std::string& creditLine() const { return creditLine_; }
  std::string filePath(const char* extension) const;

  // The movements as their records; `movement` decodes movement `number` (1-based).
  const MovementRecords& movements() const { return movements_; }
  std::size_t count() const { return movements_.size(); }
  Movement movement(std::size_t number) const;
  const CarryForward& carryForward() const { return carry_; }
  DateSpan dateSpan() const { return dateSpanOf(movements_); }

  std::int32_t balanceTotal() const { return balances_.total; }
  std::int32_t balanceToday() const { return balances_.today; }
  const StatusPanels& panels() const { return panels_; }
  // The two balances as the panels last showed them (exact after a recompute).
  const ExactBalances& shownBalances() const { return shown_; }

  const std::string& selectionFrom() const { return selectionFrom_; }
  const std::string& selectionTo() const { return selectionTo_; }
  void setSelection(std::string from, std::string to);

  // Appends a movement as number count+1: its record, the new count in ".MOR" and the raised
  // counter in "records.rer", all or nothing. kCapacityReached when the account already holds
  // the most movements it can.
  WriteOutcome appendMovement(Movement movement);
  // Rewrites several movements, each at the record of its own number, all or nothing; runs of
  // consecutive numbers go to the file in one write.
  WriteOutcome rewriteMovements(std::vector<Movement> changed);
  // Replaces the movements in memory and on disk by `kept` (renumbered 1..n; only the records
  // from the first one that differs are written, the count last). Records past the new count
  // stay in the file.
  WriteOutcome replaceMovements(std::vector<Movement> kept);

  // The incremental update by one movement: shows the panels and rewrites ".TOC". False on a
  // 32-bit overflow (nothing changed).
  bool addToTotals(const std::string& date, double amount, const std::string& sign);
  // The exact reverse of addToTotals; rewrites ".TOC" but leaves the panels as they were.
  bool removeFromTotals(const std::string& date, double amount, const std::string& sign);
  // Whether that update (or its reverse) keeps both balances in the 32-bit range.
  bool incrementFits(const std::string& date, double amount, const std::string& sign,
                     bool reverse) const;
  // The full recompute from the files: shows the panels, rewrites ".TOC".
  void recompute();
  // Whether the full recompute, with movement `number` replaced by `changed` (number count+1:
  // `changed` appended), keeps both balances in the 32-bit range.
  bool recomputeFitsWith(std::size_t number, const Movement& changed) const;

  static constexpr int kCapacityReached = -1;

 private:
  Damage readMovements(MovementRecords& out) const;
  std::int32_t todayKey() const;
  // The balances of a full recompute become the running balances, shown and stored.
  void settle(const ExactBalances& exact);
  void show(const ExactBalances& balances);
  std::optional<WholeBalances> increment(const std::string& date, double amount,
                                         const std::string& sign, bool reverse) const;
  void writeTotals(const ExactBalances& balances);

  const DataDirectory* dir_;
  const Clock* clock_;
  std::string code_;
  std::string creditLine_;
  MovementRecords movements_;
  CarryForward carry_;
  WholeBalances balances_;
  StatusPanels panels_;
  ExactBalances shown_;
  std::string selectionFrom_;
  std::string selectionTo_;
  Damage damage_;
};

}  // namespace contavia
