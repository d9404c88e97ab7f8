#include "ledger/summaries.h"

#include "archive/account_totals.h"
#include "archive/tables.h"
#include "common/csv.h"
#include "common/dates.h"
#include "common/number_masks.h"
#include "common/text.h"
#include "ledger/movement_query.h"

namespace contavia {
namespace {

constexpr const char* kShownMask = "##,###,##0.00";

constexpr std::size_t kShownWidth = 14;

// An amount right-aligned in its column, with at least one blank before it.
std::string shown(double amount) {
  return padLeft(" " + formatNumber(amount, kShownMask), kShownWidth);
}

template <class Entry>
std::vector<SummaryLine> summed(const std::vector<Entry>& entries, std::string Entry::*name,
                                const std::vector<Account>& accounts,
                                std::string Account::*accountField,
                                const std::vector<double>& balances) {
  std::vector<SummaryLine> lines;
  lines.reserve(entries.size());
  for (const Entry& e : entries) {
    SummaryLine line{trimRight(e.*name), 0.0};
    for (std::size_t i = 0; i < accounts.size(); ++i) {
      if (trim(accounts[i].*accountField) == trim(e.*name)) {
        line.total += balances[i];
      }
    }
    lines.push_back(line);
  }
  return lines;
}

}  // namespace

std::vector<double> currentBalances(
    const DataDirectory& dir, const std::vector<Account>& accounts, std::int32_t todayKey,
    const std::function<void(std::size_t done, std::size_t total)>& progress) {
  std::vector<double> balances;
  balances.reserve(accounts.size());
  for (const Account& a : accounts) {
    balances.push_back(refreshTotals(dir, a.accountCode, todayKey).total);
    if (progress) {
      progress(balances.size(), accounts.size());
    }
  }
  return balances;
}

std::vector<AccountSummaryLine> accountSummary(const std::vector<Account>& accounts,
                                               const std::vector<double>& balances,
                                               const std::string& category) {
  std::vector<AccountSummaryLine> lines;
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    const Account& a = accounts[i];
    if (filterPasses(category, trim(a.categoryName))) {
      lines.push_back({a.accountCode, a.accountName, balances[i], val(a.creditLine)});
    }
  }
  return lines;
}

std::vector<SummaryLine> categorySummary(const std::vector<Category>& categories,
                                         const std::vector<Account>& accounts,
                                         const std::vector<double>& balances) {
  return summed(categories, &Category::categoryName, accounts, &Account::categoryName, balances);
}

std::vector<SummaryLine> groupSummary(const std::vector<Group>& groups,
                                      const std::vector<Account>& accounts,
                                      const std::vector<double>& balances) {
  return summed(groups, &Group::groupName, accounts, &Account::groupName, balances);
}

SummaryView accountsView(const std::vector<AccountSummaryLine>& lines) {
  SummaryView view;
  view.heading = padRight("Conto", 11) + padRight("Descrizione", 32) +
                 padLeft("Saldo", kShownWidth) + padLeft("Fido", kShownWidth) +
                 padLeft("Disponibilità", kShownWidth);
  double total = 0.0;
  for (const AccountSummaryLine& a : lines) {
    view.rows.push_back(padRight(a.code, 10) + " " + padRight(a.name, 32) + shown(a.balance) +
                        shown(a.creditLine) + shown(a.balance + a.creditLine));
    total += a.balance;
  }
  view.total = "     Totali" + shown(total);
  return view;
}

SummaryView totalsView(const std::vector<SummaryLine>& lines) {
  SummaryView view;
  view.heading = padRight("Descrizione", 25) + padLeft("Saldo", kShownWidth);
  double total = 0.0;
  for (const SummaryLine& s : lines) {
    view.rows.push_back(padRight(s.description, 25) + shown(s.total));
    total += s.total;
  }
  view.total = "         Totali " + shown(total);
  return view;
}

Summaries::Summaries(const Session& session, const Progress& progress)
    : accounts_(session.tables().accounts),
      categories_(session.tables().categories),
      groups_(loadTable<Group>(session.dir(), kGroupTable).records),
      date_(formatDateDashed(session.clock().today())) {
  balances_ =
      currentBalances(session.dir(), accounts_, dateKey(session.clock().todayText()), progress);
}

std::vector<std::string> Summaries::categoryItems() const {
  std::vector<std::string> names;
  for (const Category& c : categories_) {
    names.push_back(c.categoryName);
  }
  return filterItems(names);
}

SummaryView Summaries::view(SummaryKind kind, const std::string& category) const {
  switch (kind) {
    case SummaryKind::Categories:
      return totalsView(categorySummary(categories_, accounts_, balances_));
    case SummaryKind::Groups:
      return totalsView(groupSummary(groups_, accounts_, balances_));
    case SummaryKind::Accounts:
      break;
  }
  return accountsView(accountSummary(accounts_, balances_, category));
}

std::string Summaries::csv(SummaryKind kind, const std::string& category) const {
  if (kind == SummaryKind::Accounts) {
    CsvTable table({"Conto", "Nome", "Saldo", "Fido", "Disponibile"});
    for (const AccountSummaryLine& line : accountSummary(accounts_, balances_, category)) {
      table.text(trim(line.code)).text(trim(line.name)).number(line.balance);
      table.number(line.creditLine).number(line.balance + line.creditLine);
      table.endRow();
    }
    return table.bytes();
  }
  const bool byCategory = kind == SummaryKind::Categories;
  CsvTable table({byCategory ? "Categoria" : "Gruppo", "Saldo"});
  for (const SummaryLine& line : byCategory ? categorySummary(categories_, accounts_, balances_)
                                            : groupSummary(groups_, accounts_, balances_)) {
    table.text(trim(line.description)).number(line.total);
    table.endRow();
  }
  return table.bytes();
}

std::vector<std::pair<std::string, double>> Summaries::bars(SummaryKind kind,
                                                            const std::string& category) const {
  std::vector<std::pair<std::string, double>> out;
  if (kind == SummaryKind::Accounts) {
    for (const AccountSummaryLine& line : accountSummary(accounts_, balances_, category)) {
      out.emplace_back(trim(line.code), line.balance);
    }
    return out;
  }
  for (const SummaryLine& line : kind == SummaryKind::Categories
                                     ? categorySummary(categories_, accounts_, balances_)
                                     : groupSummary(groups_, accounts_, balances_)) {
    out.emplace_back(trim(line.description), line.total);
  }
  return out;
}

Report Summaries::report(SummaryKind kind, const std::string& category) const {
  switch (kind) {
    case SummaryKind::Categories:
      return categorySummaryReport(categorySummary(categories_, accounts_, balances_), date_);
    case SummaryKind::Groups:
      return groupSummaryReport(groupSummary(groups_, accounts_, balances_), date_);
    case SummaryKind::Accounts:
      break;
  }
  return accountSummaryReport(accountSummary(accounts_, balances_, category), category, date_);
}

}  // namespace contavia
