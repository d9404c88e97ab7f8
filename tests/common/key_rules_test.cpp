// The keyboard rules of the amount, filter-date and digit-only fields, and the reading of the
// amount field.

#include "common/key_rules.h"

#include <gtest/gtest.h>

namespace contavia {
namespace {

constexpr KeyVerdict kAccept{KeyVerdict::Accept, 0};
constexpr KeyVerdict kRefuse{KeyVerdict::Refuse, 0};
constexpr KeyVerdict kMoveOn{KeyVerdict::MoveFocus, 0};
constexpr KeyVerdict kComma{KeyVerdict::Replace, ','};

TEST(KeyFilters, AmountField) {
  struct Case {
    const char* field;
    char key;
    KeyVerdict verdict;
  };
  const std::vector<Case> cases = {
      {"", '0', kAccept},
      {"12", '9', kAccept},
      {"12", '.', kComma},
      {"12", ',', kAccept},
      {"12,5", ',', kRefuse},
      {"12,5", '.', kRefuse},
      {"12", kKeyBackspace, kAccept},
      {"12,5", kKeyBackspace, kAccept},
      {"12", kKeyEnter, kMoveOn},
      {"", kKeyEnter, kAccept},
      {"12", '-', kRefuse},
      {"12", 'a', kRefuse},
      {"12", ' ', kRefuse},
      {"12", '/', kRefuse},
      {"", kKeyLineFeed, kRefuse},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(filterAmountKey(c.field, c.key), c.verdict)
        << "\"" << c.field << "\" + " << static_cast<int>(c.key);
  }
}

TEST(KeyFilters, RangeDateAndDigitFields) {
  struct Case {
    char key;
    KeyVerdict rangeDate;
    KeyVerdict digits;
  };
  const std::vector<Case> cases = {
      {'0', kAccept, kAccept},           {'9', kAccept, kAccept},
      {'/', kAccept, kRefuse},           {kKeyLineFeed, kAccept, kRefuse},
      {kKeyBackspace, kRefuse, kAccept}, {kKeyEnter, kRefuse, kRefuse},
      {'-', kRefuse, kRefuse},           {'.', kRefuse, kRefuse},
      {'a', kRefuse, kRefuse},           {' ', kRefuse, kRefuse},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(filterRangeDateKey(c.key), c.rangeDate) << static_cast<int>(c.key);
    EXPECT_EQ(filterDigitKey(c.key), c.digits) << static_cast<int>(c.key);
  }
}

TEST(KeyFilters, AmountFieldIsReadRoundedToCents) {
  struct Case {
    const char* text;
    std::optional<double> amount;
  };
  const std::vector<Case> cases = {
      {"1234,5", 1234.5},    {"10,40", 10.40}, {"2,675", 2.68},    {"0,004", 0.0},
      {"1.234,56", 1234.56}, {" 7 ", 7.0},     {"", std::nullopt}, {"12,5,1", std::nullopt},
      {"abc", std::nullopt}, {",5", 0.5},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(readAmountField(c.text), c.amount) << c.text;
  }
}

}  // namespace
}  // namespace contavia
