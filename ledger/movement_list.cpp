#include "ledger/movement_list.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "archive/text.h"
#include "ledger/dates.h"
#include "ledger/vb.h"

namespace contavia {
namespace {

// How the three builders differ: the masks of their amounts and the labels of the totals block.
struct BuilderStyle {
  const char* lineMask;
  const char* carryMask;
  const char* totalsMask;
  const char* totalsLabel;
  const char* outOfListLabel;
  const char* balanceLabel;
};

constexpr BuilderStyle kMainStyle{"###,###,##0.00", "###,###,###.00", "###,###,##0.00",
                                  " Totali      ",  "Fuori lista   ", "    Saldo       "};
constexpr BuilderStyle kWholeUnitsStyle{"###,###,###,##0", "###,###,###,##0", "###,###,###,##0",
                                        " Totali     ",    "Fuori lista  ",   "    Saldo      "};
constexpr BuilderStyle kFilteredStyle{"###,###,##0.00", "##,###,###.00",  "###,###,###0.00",
                                      "  Totali     ",  "   Fuori lista", "     Saldo      "};

const BuilderStyle& styleOf(ListBuilder builder) {
  switch (builder) {
    case ListBuilder::WholeUnits:
      return kWholeUnitsStyle;
    case ListBuilder::Filtered:
      return kFilteredStyle;
    case ListBuilder::Main:
      break;
  }
  return kMainStyle;
}

constexpr std::size_t kKeyWidth = 8;
constexpr std::size_t kAmountWidth = 13;
constexpr std::size_t kOutOfListWidth = 12;
constexpr std::size_t kCausaleWidth = 18;
constexpr std::size_t kDescriptionWidth = 30;

// Keys of the lines that follow the movements, in the order they are listed.
constexpr const char* kKeySeparatorAbove = "99996";
constexpr const char* kKeyTotals = "99997";
constexpr const char* kKeySeparatorBelow = "99998";
constexpr const char* kKeyOutOfList = "99999";
constexpr const char* kKeySeparatorAboveBalance = "999991";
constexpr const char* kKeyBalance = "999992";
constexpr const char* kKeyCount = "999999";
constexpr const char* kKeyCarryForward = "00001";

std::string blanks(std::size_t n) { return std::string(n, ' '); }

std::string dashes(std::size_t leading) { return blanks(leading) + std::string(91, '-'); }

// An ordering key of exactly 8 characters.
std::string key8(std::string_view key) { return padRight(key, kKeyWidth); }

std::string amountText(double amount, const char* mask, std::size_t width = kAmountWidth) {
  return padLeft(formatNumber(amount, mask), width);
}

bool isCredit(const Movement& m) { return trim(m.sign) == "A"; }

// The description of each causale code (trimmed), the last of equal codes winning.
using CausaleNames = std::unordered_map<std::string, std::string>;

CausaleNames causaleNames(const std::vector<Causale>& causali) {
  CausaleNames names;
  names.reserve(causali.size());
  for (const Causale& c : causali) {
    names[trim(c.causaleCode)] = trim(c.causaleDescription);
  }
  return names;
}

// The causale column of a movement: its causale's description, or its own code when the code is
// not in the table, so that the line still says which causale it carries.
std::string causaleText(const CausaleNames& names, const Movement& m) {
  const std::string code = trim(m.causaleCode);
  const auto found = names.find(code);
  return found != names.end() ? found->second : code;
}

struct Totals2 {
  double debits = 0.0;   // first column
  double credits = 0.0;  // second column
};

// The two amount columns (27 characters): a debit stands in the first, a credit in the second.
std::string amountColumns(const std::string& amount, bool credit) {
  return credit ? blanks(kAmountWidth + 1) + amount : " " + amount + blanks(kAmountWidth);
}

std::string movementLine(const Movement& m, const std::string& causale, const BuilderStyle& s) {
  std::string line = padRight(m.operationDate, 10);
  line += ' ';
  line += formatNumber(m.movementNumber, "0000");
  line += amountColumns(amountText(m.amount, s.lineMask), isCredit(m));
  line += ' ';
  line += leftChars(causale, kCausaleWidth);
  line += '-';
  line += trim(m.documentNumber);
  line += '-';
  line += padRight(m.description, kDescriptionWidth);
  return line;
}

std::string movementKey(const Movement& m) {
  const std::int64_t order = 1000000 - static_cast<std::int64_t>(dateKey(m.operationDate));
  return key8(std::to_string(order));
}

// The carry-forward line with its key: "00001" takes the first three of its leading blanks.
std::string carryForwardKeyedLine(const CarryForward& carry, const BuilderStyle& s,
                                  Totals2& totals) {
  const std::string amount =
      padLeft(formatNumber(static_cast<double>(carry.carryAmount), s.carryMask), kAmountWidth);
  const bool first = carry.carryAmount >= 0;
  const double magnitude = std::abs(static_cast<double>(carry.carryAmount));
  (first ? totals.debits : totals.credits) += magnitude;
  std::string line = "   " + padRight(carry.carryDate, 10) + blanks(5);
  line += first ? amount + blanks(kAmountWidth) : blanks(kAmountWidth) + amount;
  line += " Riporto Chiusura precedente";
  return kKeyCarryForward + line;
}

bool inDateRange(std::int32_t key, const ListFilter& filter) {
  if (!trim(filter.from).empty() && key < dateKey(filter.from)) {
    return false;
  }
  if (!trim(filter.to).empty() && key > dateKey(filter.to)) {
    return false;
  }
  return true;
}

bool allCausali(const ListFilter& filter) {
  return filter.causale.empty() || filter.causale == kAllCausali;
}

void addTotalsBlock(std::vector<std::string>& keyed, const BuilderStyle& s, const Totals2& totals,
                    double outOfList, std::size_t listed) {
  const double balance = outOfList + (totals.credits - totals.debits);
  keyed.push_back(key8(kKeySeparatorAbove) + dashes(2));
  keyed.push_back(key8(kKeyTotals) + s.totalsLabel + amountText(totals.debits, s.totalsMask) +
                  amountText(totals.credits, s.totalsMask));
  keyed.push_back(key8(kKeySeparatorBelow) + dashes(2));
  keyed.push_back(key8(kKeyOutOfList) + s.outOfListLabel +
                  amountText(outOfList, s.totalsMask, kOutOfListWidth));
  keyed.push_back(key8(kKeySeparatorAboveBalance) + dashes(1));
  keyed.push_back(key8(kKeyBalance) + s.balanceLabel + amountText(balance, s.totalsMask));
  keyed.push_back(key8(kKeyCount) + " Nr. Movimenti: " + std::to_string(listed));
}

}  // namespace

std::vector<std::string> causaleSelectorItems(const std::vector<Causale>& causali) {
  std::vector<std::string> items;
  items.reserve(causali.size() + 1);
  items.emplace_back(kAllCausali);
  for (const Causale& c : causali) {
    items.push_back(trimRight(c.causaleDescription));
  }
  return items;
}

MovementList buildMovementList(const std::vector<Movement>& movements, const CarryForward& carry,
                               const std::vector<Causale>& causali, ListBuilder builder,
                               const ListFilter& filter) {
  const BuilderStyle& style = styleOf(builder);
  const bool filtered = builder == ListBuilder::Filtered;
  const CausaleNames names = causaleNames(causali);
  const std::string wantedCausale = trim(filter.causale);

  MovementList list;
  std::vector<std::string> keyed;
  keyed.reserve(movements.size() + 8);
  Totals2 totals;
  if (val(carry.carryDate) != 0.0) {
    keyed.push_back(carryForwardKeyedLine(carry, style, totals));
    list.hasCarryForwardLine = true;
  }

  double outOfList = 0.0;
  std::size_t listed = 0;
  for (const Movement& m : movements) {
    const std::string causale = causaleText(names, m);
    if (filtered && (!inDateRange(dateKey(m.operationDate), filter) ||
                     (!allCausali(filter) && causale != wantedCausale))) {
      outOfList += trim(m.sign) == "D" ? -m.amount : m.amount;
      continue;
    }
    (isCredit(m) ? totals.credits : totals.debits) += m.amount;
    keyed.push_back(movementKey(m) + movementLine(m, causale, style));
    ++listed;
  }
  addTotalsBlock(keyed, style, totals, outOfList, listed);

  std::sort(keyed.begin(), keyed.end());
  list.lines.reserve(keyed.size());
  for (std::string& line : keyed) {
    list.lines.push_back(line.substr(kKeyWidth));
  }
  return list;
}

std::optional<std::size_t> pickedMovementNumber(const MovementList& list, std::size_t row,
                                                std::size_t movementCount) {
  if (row >= list.lines.size() || row > movementCount) {
    return std::nullopt;
  }
  if (list.hasCarryForwardLine && row == 0) {
    return std::nullopt;
  }
  const std::string& line = list.lines[row];
  if (line.ends_with("--")) {
    return std::nullopt;
  }
  // The movement number follows the 10 characters of the date and a blank: four digits, five
  // for movement 10000.
  const std::string tail = midChars(line, 10, 7);
  if (tail.size() < 5 || tail[0] != ' ') {
    return std::nullopt;
  }
  std::size_t number = 0;
  std::size_t digits = 0;
  for (std::size_t i = 1; i < tail.size() && tail[i] >= '0' && tail[i] <= '9'; ++i, ++digits) {
    number = number * 10 + static_cast<std::size_t>(tail[i] - '0');
  }
  if (digits < 4 || number == 0) {
    return std::nullopt;
  }
  return number;
}

}  // namespace contavia
