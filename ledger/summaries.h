#pragma once
// The summary window (`Form22`): every account's current balance with its credit line and what
// is available, and the balances summed by category and by group. A balance is the account's
// total balance recomputed from its files (and stored in its totals record).

#include <functional>
#include <string>
#include <vector>

#include "archive/data_directory.h"
#include "archive/records.h"
#include "archive/session.h"
#include "printing/summaries.h"

namespace contavia {

// The total balance of every account, in table order, its totals brought up to date.
std::vector<double> currentBalances(
    const DataDirectory& dir, const std::vector<Account>& accounts, std::int32_t todayKey,
    const std::function<void(std::size_t done, std::size_t total)>& progress = {});

// The accounts that pass the category filter (" Tutte": all), with their figures.
std::vector<AccountSummaryLine> accountSummary(const std::vector<Account>& accounts,
                                               const std::vector<double>& balances,
                                               const std::string& category);
// For each category (group) in table order, the sum of the balances of the accounts that name
// it; an account that names none adds to none.
std::vector<SummaryLine> categorySummary(const std::vector<Category>& categories,
                                         const std::vector<Account>& accounts,
                                         const std::vector<double>& balances);
std::vector<SummaryLine> groupSummary(const std::vector<Group>& groups,
                                      const std::vector<Account>& accounts,
                                      const std::vector<double>& balances);

// What `List1` and `Totali` show of a view.
struct SummaryView {
  std::string heading;  // the column heading over the rows
  std::vector<std::string> rows;
  std::string total;
};
SummaryView accountsView(const std::vector<AccountSummaryLine>& lines);
SummaryView totalsView(const std::vector<SummaryLine>& lines);

// The three views of the summary window, and their reports, from the tables and balances read
// when it opens. `progress` hears of each account done (for a long archive).
enum class SummaryKind { Accounts, Categories, Groups };
class Summaries {
 public:
  using Progress = std::function<void(std::size_t done, std::size_t total)>;
  explicit Summaries(const Session& session, const Progress& progress = {});

  // The window's date: today as "DD-MM-YYYY".
  const std::string& date() const { return date_; }
  // The category filter's items: " Tutte", then every category.
  std::vector<std::string> categoryItems() const;
  SummaryView view(SummaryKind kind, const std::string& category) const;
  Report report(SummaryKind kind, const std::string& category) const;
  // The rows of the view as a table for a spreadsheet: each account with its balance, credit
  // line and available amount; or each category (group) with its balance.
  std::string csv(SummaryKind kind, const std::string& category) const;
  // The balances of the view for a bar chart: each account (its code) or each category (group).
  std::vector<std::pair<std::string, double>> bars(SummaryKind kind,
                                                   const std::string& category) const;

 private:
  std::vector<Account> accounts_;
  std::vector<Category> categories_;
  std::vector<Group> groups_;
  std::vector<double> balances_;
  std::string date_;
};

}  // namespace contavia
