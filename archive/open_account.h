#pragma once
// The working account: its files (code + ".MOC", ".MOR", ".TOC", ".RIP", ".chi"), its movements
// held in memory, and its two running balances in whole units.
//
// Two sign rules are kept on purpose: the incremental update (addToTotals) lets an "A" movement
// lower the balances, the full recompute from the files counts "A" movements as credits. Every
// save ends with the full recompute, so only the moments in between show the incremental rule.

#include <cstdint>
#include <string>
#include <vector>

#include "common/clock.h"
#include "archive/data_directory.h"
#include "archive/records.h"

namespace contavia {

// The texts of status panels 1 (balance today), 4 (total balance) and 5 (available).
struct StatusPanels {
  std::string balanceToday;
  std::string balanceTotal;
  std::string available;
  bool operator==(const StatusPanels&) const = default;
};

class OpenAccount {
 public:
  // `code` is the account's code as stored (trimmed here); `creditLine` its credit line text.
  OpenAccount(const DataDirectory& dir, const Clock& clock, const std::string& code,
              std::string creditLine);

  // Loads count, movements, carry-forward and totals, then recomputes. Returns a
  // description of any damage found (empty when the files are sound).
  std::string load();

  const std::string& code() const { return code_; }
  std::string filePath(const char* extension) const;

  const std::vector<Movement>& movements() const { return movements_; }
  std::size_t count() const { return movements_.size(); }
  const Movement& movement(std::size_t number) const { return movements_.at(number - 1); }
  const CarryForward& carryForward() const { return carry_; }

  std::int32_t balanceTotal() const { return balanceTotal_; }
  std::int32_t balanceToday() const { return balanceToday_; }
  const StatusPanels& panels() const { return panels_; }
  // The two balances as the panels last showed them (exact after a recompute).
  double shownBalanceToday() const { return shownToday_; }
  double shownBalanceTotal() const { return shownTotal_; }

  const std::string& selectionFrom() const { return selectionFrom_; }
  const std::string& selectionTo() const { return selectionTo_; }
  void setSelection(std::string from, std::string to);

  // Appends a movement as number count+1: its record, the new count in ".MOR" and the raised
  // counter in "records.rer", all or nothing. Returns the disk-error number (0 = written);
  // kCapacityReached when the account already holds the most movements it can.
  int appendMovement(Movement movement);
  // Rewrites movement `number` (its record and the copy in memory).
  int rewriteMovement(std::size_t number, Movement movement);
  // Rewrites several movements, each at the record of its own number, all or nothing; runs of
  // consecutive numbers go to the file in one write.
  int rewriteMovements(std::vector<Movement> changed);
  // Replaces the movements in memory and on disk by `kept` (renumbered 1..n; only the records
  // from the first one that differs are written, the count last). Records past the new count
  // stay in the file.
  int replaceMovements(std::vector<Movement> kept);
  // Reads count and movements from the files again.
  void reloadMovements();
  // Reads the carry-forward record again.
  void reloadCarryForward();

  // The incremental update by one movement (amount rounded half to even): "A" lowers the
  // balances, any other sign raises them; the balance for today only when the movement is dated
  // on or before today. Shows the panels and rewrites ".TOC". False on a 32-bit overflow
  // (nothing changed).
  bool addToTotals(const std::string& date, double amount, const std::string& sign);
  // The exact reverse of addToTotals; rewrites ".TOC" but leaves the panels as they were.
  bool removeFromTotals(const std::string& date, double amount, const std::string& sign);
  // The full recompute from the files: credits ("A") minus debits plus the carried-forward
  // amount, over all movements and over those up to today. Shows the panels, rewrites ".TOC".
  void recompute();

  // The latest movement date (compared by DateKey); empty without movements.
  std::string latestDate() const;

  static constexpr int kCapacityReached = -1;
  // The file whose write failed in the last movement write that did not succeed.
  const std::string& failedFile() const { return failedFile_; }

 private:
  int readMovements(std::string* problem);
  // The full recompute over movements just read from the files.
  void recomputeFrom(const std::vector<Movement>& stored);
  void show(double today, double total);
  bool applyIncrement(const std::string& date, double amount, const std::string& sign, bool reverse,
                      bool showPanels);
  void writeTotals(double today, double total);

  const DataDirectory* dir_;
  const Clock* clock_;
  std::string code_;
  std::string creditLine_;
  std::vector<Movement> movements_;
  CarryForward carry_;
  std::int32_t balanceTotal_ = 0;
  std::int32_t balanceToday_ = 0;
  StatusPanels panels_;
  double shownToday_ = 0.0;
  double shownTotal_ = 0.0;
  std::string selectionFrom_;
  std::string selectionTo_;
  std::string failedFile_;
};

// The panel texts of two balances and a credit line: "###,###,##0.00" of the balance for today,
// of the total balance, and of today's balance plus the credit line read as a number.
StatusPanels statusPanelsOf(double today, double total, const std::string& creditLine);

}  // namespace contavia
