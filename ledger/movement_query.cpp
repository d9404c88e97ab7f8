#include "ledger/movement_query.h"

#include <unordered_map>

#include "archive/tables.h"
#include "common/csv.h"
#include "common/dates.h"
#include "common/number_masks.h"
#include "common/text.h"
#include "ledger/causale_index.h"
#include "ledger/movement_list.h"
#include "ledger/text_order.h"
#include "printing/movement_lists.h"

namespace contavia {
namespace {

constexpr const char* kAmountMask = "##,###,##0.00";
constexpr std::size_t kAmountWidth = 13;

// An amount right-aligned in its column, with at least one blank before it.
std::string amountText(double amount, std::size_t width = kAmountWidth) {
  return padLeft(" " + formatNumber(amount, kAmountMask), width);
}

// The key: 1000000 less the date's key (newest first, as in the account's own list), cut or
// padded to 7 characters.
std::string sortKey(const std::string& date) {
  return padRight(std::to_string(1000000 - static_cast<std::int64_t>(dateKey(date))), 7);
}

// A movement's row: the columns of the printed list's heading, after the key.
std::string rowOf(const Movement& m, const std::string& causale, const std::string& account) {
  std::string row = sortKey(m.operationDate);
  row += padRight(m.operationDate, 10) + " ";
  row += padRight(movementNumberText(m.movementNumber), 4) + " ";
  const std::string amount = amountText(m.amount);
  const bool debit = trim(m.sign) == "D";
  row += debit ? amount + std::string(kAmountWidth, ' ') : std::string(kAmountWidth, ' ') + amount;
  row += " " + padRight(causale, 13);
  row += padRight(trim(m.linkedMovementNumber), 9);
  row += padRight(m.description, 22) + " ";
  row += trim(account);
  return row;
}

void addClosingRows(QueryResult& result) {
  const std::string dashes = std::string(94, '-');
  result.rows.push_back(padRight("99996", 7) + dashes);
  result.rows.push_back(padRight("99997", 7) + " Totali        " + amountText(result.debits, 14) +
                        amountText(result.credits));
  result.rows.push_back(padRight("99998", 7) + dashes);
  result.rows.push_back(padRight("99999", 7) + " Saldo         " +
                        amountText(result.credits - result.debits, 14));
  result.rows.push_back(padRight("999999", 7) + " Nr. Movimenti: " + std::to_string(result.count));
}

}  // namespace

bool filterPasses(const std::string& filter, const std::string& value) {
  return trimRight(filter) == trimRight(kEverything) || trimRight(filter) == trimRight(value);
}

bool queryDatesAccepted(const QueryFilter& filter, Prompter& prompter) {
  const std::string required = "Campo data operazione obbligatorio";
  return typedDateAccepted(filter.from, required, prompter) &&
         typedDateAccepted(filter.to, required, prompter);
}

QueryResult runMovementQuery(
    const DataDirectory& dir, const std::vector<Account>& accounts,
    const std::vector<Causale>& causali, const QueryFilter& filter,
    const std::function<void(std::size_t done, std::size_t total)>& progress, bool fields) {
  std::size_t done = 0;
  const std::int32_t from = dateKey(filter.from);
  const std::int32_t to = dateKey(filter.to);
  // The causale each code names, trimmed, looked up once per code.
  const CausaleIndex index(causali);
  std::unordered_map<std::string, std::string> causaleOf;
  for (const auto& [code, c] : index.byCode()) {
    causaleOf.emplace(code, trim(c->causaleDescription));
  }
  QueryResult result;
  for (const Account& a : accounts) {
    if (progress) {
      progress(done++, accounts.size());
    }
    const std::string code = trim(a.accountCode);
    if (!filterPasses(filter.group, trim(a.groupName)) ||
        !filterPasses(filter.category, trim(a.categoryName)) || !isSafeFileName(code)) {
      continue;
    }
    const CountedRecords counted = readCountedRecords(
        dir.files(), dir.path(code + filename::kMovementCount),
        dir.path(code + filename::kMovements), Movement::kLength, Movement::kCapacity,
        {code + filename::kMovementCount, code + filename::kMovements, "movimenti"});
    for (std::size_t i = 0; i < counted.count; ++i) {
      const Movement m = decodeRecord<Movement>(counted.bytes.data() + i * Movement::kLength);
      const std::int32_t key = dateKey(m.operationDate);
      const std::string causaleCode = trim(m.causaleCode);
      const std::string& causale = causaleOf.try_emplace(causaleCode, causaleCode).first->second;
      if (key < from || key > to || !filterPasses(filter.causale, causale)) {
        continue;
      }
      (trim(m.sign) == "D" ? result.debits : result.credits) += m.amount;
      ++result.count;
      result.rows.push_back(rowOf(m, causale, code));
      if (fields) {
        result.movements.push_back({trim(m.operationDate), m.movementNumber, code, causale,
                                    trim(m.description), m.amount, trim(m.sign) == "D"});
      }
    }
  }
  addClosingRows(result);
  std::vector<std::string> sorted;
  sorted.reserve(result.rows.size());
  std::vector<QueryMovement> sortedMovements;
  sortedMovements.reserve(result.movements.size());
  for (const std::uint32_t i : orderAsText(result.rows)) {
    sorted.push_back(std::move(result.rows[i]));
    if (i < result.movements.size()) {  // the movements' rows come before the closing rows
      sortedMovements.push_back(std::move(result.movements[i]));
    }
  }
  result.rows = std::move(sorted);
  result.movements = std::move(sortedMovements);
  return result;
}

std::string queryCsv(const std::vector<QueryMovement>& movements) {
  CsvTable table({"Data", "Numero", "Conto", "Causale", "Descrizione", "Dare", "Avere"});
  for (const QueryMovement& m : movements) {
    table.text(m.date).whole(m.number).text(m.account).text(m.causale).text(m.description);
    if (m.debit) {
      table.number(m.amount).empty();
    } else {
      table.empty().number(m.amount);
    }
    table.endRow();
  }
  return table.bytes();
}

namespace {

template <class Record>
std::vector<std::string> descriptions(const std::vector<Record>& records,
                                      std::string Record::*field) {
  std::vector<std::string> out;
  out.reserve(records.size());
  for (const Record& r : records) {
    out.push_back(r.*field);
  }
  return out;
}

}  // namespace

QueryChoices queryChoices(const Session& session) {
  const MasterTables& tables = session.tables();
  return {filterItems(descriptions(loadTable<Group>(session.dir(), kGroupTable).records,
                                   &Group::groupName)),
          filterItems(descriptions(tables.categories, &Category::categoryName)),
          filterItems(descriptions(tables.causali, &Causale::causaleDescription))};
}

QueryFilter openingQueryFilter(const Clock& clock) {
  QueryFilter filter;
  filter.from = formatDateDmy({1, 1, clock.today().year});
  filter.to = clock.todayText();
  return filter;
}

std::string queryListHeading() { return std::string(kQueryKeyWidth, ' ') + queryColumnHeading(); }

std::vector<std::string> filterItems(const std::vector<std::string>& descriptions) {
  std::vector<std::string> items{kEverything};
  for (const std::string& d : descriptions) {
    items.push_back(trimRight(d));
  }
  return items;
}

}  // namespace contavia
