#pragma once
// The movement query (`Form3`): over every account that passes the group and category filters,
// the movements dated from `dal` to `al` (both included) whose causale passes the causale filter,
// one row each, newest first, then the closing rows with the totals. Each row begins with the
// 7-character key it is sorted by.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "archive/data_directory.h"
#include "archive/records.h"
#include "archive/session.h"
#include "common/prompter.h"

namespace contavia {

// The first item of every filter: it lets everything pass.
inline constexpr const char* kEverything = " Tutte";

struct QueryFilter {
  std::string from;                    // `dal`, "dd/mm/yyyy"
  std::string to;                      // `al`
  std::string group = kEverything;     // `Combo1`: a group description
  std::string category = kEverything;  // `Combo3`: a category description
  std::string causale = kEverything;   // `Combo2`: a causale description
};

// Whether a filter lets `value` pass: " Tutte" lets everything pass, any other choice only the
// same text (both compared without their trailing blanks).
bool filterPasses(const std::string& filter, const std::string& value);

// A movement the query lists, field by field.
struct QueryMovement {
  std::string date;
  std::int16_t number = 0;
  std::string account;
  std::string causale;  // its description (the code when it is not in the table)
  std::string description;
  double amount = 0.0;
  bool debit = false;
};

struct QueryResult {
  std::vector<std::string> rows;         // as `lista` shows them, closing rows included
  std::size_t count = 0;                 // movements listed
  double debits = 0.0;                   // "D" movements
  double credits = 0.0;                  // the others
  std::vector<QueryMovement> movements;  // in the order of `rows`, when asked for
};

// The movements of a query as a table for a spreadsheet, in the order the query lists them.
std::string queryCsv(const std::vector<QueryMovement>& movements);

// The checks of `saldi` before the query: a date left empty ("Campo data operazione
// obbligatorio") and then the date rules. False after the message.
bool queryDatesAccepted(const QueryFilter& filter, Prompter& prompter);

// Runs the query. The account files are read, never written. `progress` hears of each account
// done (for a long archive). With `fields` the result also holds each movement field by field.
QueryResult runMovementQuery(
    const DataDirectory& dir, const std::vector<Account>& accounts,
    const std::vector<Causale>& causali, const QueryFilter& filter,
    const std::function<void(std::size_t done, std::size_t total)>& progress = {},
    bool fields = false);

// The items of a filter: " Tutte", then every description in table order.
std::vector<std::string> filterItems(const std::vector<std::string>& descriptions);

// The items of the query's three filters, from the tables as they are now ("Gruppi.con" is read).
struct QueryChoices {
  std::vector<std::string> groups;
  std::vector<std::string> categories;
  std::vector<std::string> causali;
};
QueryChoices queryChoices(const Session& session);

// The query window as it opens: from 1 January of this year to today, every filter " Tutte".
QueryFilter openingQueryFilter(const Clock& clock);

// The heading over the query's rows on screen: the printed heading, behind the rows' key.
std::string queryListHeading();

}  // namespace contavia
