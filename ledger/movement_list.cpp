#include "ledger/movement_list.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string_view>
#include <unordered_map>

#include "common/dates.h"
#include "common/number_masks.h"
#include "common/text.h"
#include "ledger/causale_index.h"
#include "ledger/text_order.h"

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

// An ordering key of exactly 8 characters (keys are plain ASCII).
std::string key8(std::string_view key) { return padRight(key, kKeyWidth); }

bool isAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// `text` cut or padded with blanks to `width` characters. Plain ASCII, as most fields are, is
// fitted by its bytes; other text by its characters.
void appendFitted(std::string& out, std::string_view text, std::size_t width) {
  if (!isAscii(text)) {
    out += padRight(text, width);
    return;
  }
  const std::size_t kept = std::min(text.size(), width);
  out.append(text.substr(0, kept));
  out.append(width - kept, ' ');
}

// Formatted numbers are plain ASCII: their width is their size.
void appendPaddedLeft(std::string& out, const std::string& ascii, std::size_t width) {
  if (ascii.size() < width) {
    out.append(width - ascii.size(), ' ');
  }
  out += ascii;
}

std::string amountText(double amount, const char* mask, std::size_t width = kAmountWidth) {
  std::string out;
  appendPaddedLeft(out, formatNumber(amount, mask), width);
  return out;
}

}  // namespace

std::string movementNumberText(std::int16_t number) {
  if (number < 0) {
    return formatNumber(number, "0000");
  }
  std::string digits = std::to_string(number);
  return digits.size() < 4 ? std::string(4 - digits.size(), '0') + digits : digits;
}

namespace {

// A causale as a movement line shows it: its whole description (for the causale filter) and the
// first 18 characters that stand in the line.
struct CausaleName {
  std::string description;
  std::string column;
};

CausaleName causaleName(const std::string& description) {
  return {description, leftChars(description, kCausaleWidth)};
}

// The causale name of each code (trimmed).
using CausaleNames = std::unordered_map<std::string, CausaleName>;

CausaleNames causaleNames(const std::vector<Causale>& causali) {
  CausaleNames names;
  const CausaleIndex index(causali);
  for (const auto& [code, causale] : index.byCode()) {
    names.emplace(code, causaleName(trim(causale->causaleDescription)));
  }
  return names;
}

// The causale of a movement; when its code is not in the table, the code itself, so that the
// line still says which causale it carries (remembered for the next movement of that code).
const CausaleName& causaleOf(CausaleNames& names, MovementView m) {
  std::string scratch;
  std::string code = trim(m.causaleCode(scratch));
  const auto found = names.find(code);
  if (found != names.end()) {
    return found->second;
  }
  CausaleName name = causaleName(code);
  return names.emplace(std::move(code), std::move(name)).first->second;
}

struct ColumnTotals {
  double debits = 0.0;   // first column
  double credits = 0.0;  // second column
};

// A movement line with its key in front: 1000000 minus the DateKey, then the date, the number,
// the two amount columns (27 characters: a debit in the first, a credit in the second), the
// causale, the document and the description.
// Its fields are read from the record, text decoded only where it is not plain ASCII.
std::string keyedMovementLine(MovementView m, std::int32_t key, const std::string& causale,
                              const BuilderStyle& s) {
  std::string scratch;
  std::string line;
  line.reserve(kKeyWidth + 100);
  appendFitted(line, std::to_string(1000000 - static_cast<std::int64_t>(key)), kKeyWidth);
  appendFitted(line, m.date(scratch), 10);
  line += ' ';
  line += movementNumberText(m.number());
  const double amount = m.amount();
  if (m.isCredit()) {
    line.append(kAmountWidth + 1, ' ');
    appendPaddedLeft(line, formatNumber(amount, s.lineMask), kAmountWidth);
  } else {
    line += ' ';
    appendPaddedLeft(line, formatNumber(amount, s.lineMask), kAmountWidth);
    line.append(kAmountWidth, ' ');
  }
  line += ' ';
  line += causale;
  line += '-';
  line += trim(m.documentNumber(scratch));
  line += '-';
  appendFitted(line, m.description(scratch), kDescriptionWidth);
  return line;
}

// The carry-forward line with its key: "00001" takes the first three of its leading blanks.
std::string carryForwardKeyedLine(const CarryForward& carry, const BuilderStyle& s,
                                  ColumnTotals& totals) {
  const std::string amount = amountText(carry.carryAmount, s.carryMask);
  const bool first = carry.carryAmount >= 0;
  const double magnitude = std::abs(static_cast<double>(carry.carryAmount));
  (first ? totals.debits : totals.credits) += magnitude;
  std::string line = "   " + padRight(carry.carryDate, 10) + blanks(5);
  line += first ? amount + blanks(kAmountWidth) : blanks(kAmountWidth) + amount;
  line += " Riporto Chiusura precedente";
  return kKeyCarryForward + line;
}

// What the filtered builder lists: the movements dated within the range (an empty date does not
// limit its side) whose causale is the chosen one (" TUTTE": any).
class FilterTest {
 public:
  explicit FilterTest(const ListFilter& filter)
      : from_(boundKey(filter.from, std::numeric_limits<std::int32_t>::min())),
        to_(boundKey(filter.to, std::numeric_limits<std::int32_t>::max())),
        anyCausale_(filter.causale.empty() || filter.causale == kAllCausali),
        causale_(trim(filter.causale)) {}

  bool lists(std::int32_t key, const CausaleName& causale) const {
    return key >= from_ && key <= to_ && (anyCausale_ || causale.description == causale_);
  }

 private:
  static std::int32_t boundKey(const std::string& date, std::int32_t none) {
    return trim(date).empty() ? none : dateKey(date);
  }

  std::int32_t from_;
  std::int32_t to_;
  bool anyCausale_;
  std::string causale_;
};

void addTotalsBlock(std::vector<std::string>& keyed, const BuilderStyle& s,
                    const ColumnTotals& totals, double outOfList, std::size_t listed) {
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

std::string movementListHeading() {
  return padRight("Data", 11) + padRight("N.O.", 4) + padLeft("Dare", 14) + padLeft("Avere", 13) +
         " " + padRight("Causale", kCausaleWidth + 1) + "Doc.-Descrizione";
}

std::vector<std::string> causaleSelectorItems(const std::vector<Causale>& causali) {
  std::vector<std::string> items;
  items.reserve(causali.size() + 1);
  items.emplace_back(kAllCausali);
  for (const Causale& c : causali) {
    items.push_back(trimRight(c.causaleDescription));
  }
  return items;
}

MovementList buildMovementList(const MovementRecords& movements, const CarryForward& carry,
                               const std::vector<Causale>& causali, ListBuilder builder,
                               const ListFilter& filter) {
  const BuilderStyle& style = styleOf(builder);
  const bool filtered = builder == ListBuilder::Filtered;
  const FilterTest filterTest(filter);
  CausaleNames names = causaleNames(causali);

  MovementList list;
  std::vector<std::string> keyed;
  keyed.reserve(movements.size() + 8);
  ColumnTotals totals;
  if (val(carry.carryDate) != 0.0) {
    keyed.push_back(carryForwardKeyedLine(carry, style, totals));
    list.hasCarryForwardLine = true;
  }

  double outOfList = 0.0;
  std::size_t listed = 0;
  for (const MovementView m : movements) {
    const CausaleName& causale = causaleOf(names, m);
    const std::int32_t key = m.dateKey();
    if (filtered && !filterTest.lists(key, causale)) {
      std::string scratch;
      outOfList += trim(m.sign(scratch)) == "D" ? -m.amount() : m.amount();
      continue;
    }
    (m.isCredit() ? totals.credits : totals.debits) += m.amount();
    keyed.push_back(keyedMovementLine(m, key, causale.column, style));
    ++listed;
  }
  addTotalsBlock(keyed, style, totals, outOfList, listed);

  list.lines.reserve(keyed.size());
  for (const std::uint32_t i : orderAsText(keyed)) {
    std::string& line = keyed[i];
    line.erase(0, kKeyWidth);
    list.lines.push_back(std::move(line));
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
