// Every row of the format oracle: results of a VB-compatible implementation in the Italian locale
// for the masks and conversions the system uses.

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <sstream>

#include "common/dates.h"
#include "common/number_masks.h"

namespace contavia {
namespace {

std::string oraclePath() {
  std::stringstream candidates(CONTAVIA_ORACLE_CANDIDATES);
  for (std::string path; std::getline(candidates, path, ';');) {
    if (std::filesystem::exists(path)) {
      return path;
    }
  }
  return {};
}

std::vector<std::string> columns(const std::string& line) {
  std::vector<std::string> out;
  std::stringstream in(line);
  for (std::string column; std::getline(in, column, '\t');) {
    out.push_back(column);
  }
  return out;
}

// A quoted text without its quotes.
std::string unquoted(const std::string& text) {
  EXPECT_TRUE(text.size() >= 2 && text.front() == '"' && text.back() == '"') << text;
  return text.substr(1, text.size() - 2);
}

double number(const std::string& text) {
  double value = 0.0;
  const auto res = std::from_chars(text.data(), text.data() + text.size(), value);
  EXPECT_TRUE(res.ec == std::errc() && res.ptr == text.data() + text.size()) << text;
  return value;
}

// "DateSerial(2026,11,21)".
CalendarDate dateSerial(const std::string& text) {
  CalendarDate date;
  char open = 0;
  char comma = 0;
  std::stringstream in(text.substr(text.find('(')));
  in >> open >> date.year >> comma >> date.month >> comma >> date.day;
  EXPECT_FALSE(in.fail()) << text;
  return date;
}

std::string formatted(const std::string& mask, const std::string& argument) {
  if (argument.starts_with("DateSerial")) {
    const CalendarDate date = dateSerial(argument);
    return mask == "DD-MM-YYYY" ? formatDateDashed(date) : formatDateDmy(date);
  }
  return formatNumber(number(argument), mask);
}

// A number as the oracle writes it, as CStr shows it: up to 15 significant digits, "," for
// decimals, no grouping ("1234,5", "-3", "0,004").
std::string italianText(double value) {
  if (!std::isfinite(value)) {
    return "0";
  }
  if (value == 0.0) {
    value = 0.0;  // no negative zero
  }
  char buf[64];
  const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::general, 15);
  std::string out(buf, static_cast<std::size_t>(res.ptr - buf));
  for (char& c : out) {
    if (c == '.') {
      c = ',';
    }
  }
  return out;
}

template <class T>
std::string orNothing(const std::optional<T>& value) {
  return value ? italianText(static_cast<double>(*value)) : "(nessun valore)";
}

using Conversion = std::function<std::string(const std::string& argument)>;

// The conversions besides Format that the system uses, each giving its result as the oracle
// writes it. The oracle also holds CInt, Int and Fix, which nothing in the system calls.
const std::map<std::string, Conversion>& conversions() {
  static const std::map<std::string, Conversion> all = {
      {"Val", [](const std::string& a) { return italianText(val(unquoted(a))); }},
      {"CDbl", [](const std::string& a) { return orNothing(italianToDouble(unquoted(a))); }},
      {"CLng", [](const std::string& a) { return orNothing(roundHalfEven(number(a))); }},
  };
  return all;
}
const std::set<std::string> kUnused = {"CInt", "Int", "Fix"};

std::string resultOf(const std::string& function, const std::string& argument) {
  if (function.starts_with("Format ")) {
    return formatted(function.substr(7), argument);
  }
  const auto conversion = conversions().find(function);
  if (conversion == conversions().end()) {
    ADD_FAILURE() << "funzione sconosciuta: " << function;
    return {};
  }
  return conversion->second(argument);
}

TEST(FormatOracle, EveryRow) {
  const std::string path = oraclePath();
  ASSERT_FALSE(path.empty()) << "no oracle among " << CONTAVIA_ORACLE_CANDIDATES;
  std::ifstream in(path);
  int rows = 0;
  for (std::string line; std::getline(in, line);) {
    if (line.empty() || line.starts_with("#") || line.starts_with("function\t")) {
      continue;
    }
    const std::vector<std::string> c = columns(line);
    ASSERT_GE(c.size(), 3U) << line;
    if (kUnused.contains(c[0])) {
      continue;
    }
    EXPECT_EQ(resultOf(c[0], c[1]), unquoted(c[2])) << line;
    ++rows;
  }
  EXPECT_GT(rows, 200);  // every Format row and the conversions above
}

}  // namespace
}  // namespace contavia
