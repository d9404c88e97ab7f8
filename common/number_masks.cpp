#include "common/number_masks.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace contavia {
namespace {

struct MaskShape {
  bool grouping = false;
  bool hasDecimalPoint = false;
  std::size_t requiredIntegerDigits = 0;
  std::size_t decimals = 0;          // placeholders after the decimal point
  std::size_t requiredDecimals = 0;  // of which shown even when zero
};

MaskShape readMask(std::string_view mask) {
  MaskShape shape;
  const std::size_t point = mask.find('.');
  const std::string_view integerPart = mask.substr(0, point);
  shape.grouping = integerPart.find(',') != std::string_view::npos;
  const std::size_t firstZero = integerPart.find('0');
  if (firstZero != std::string_view::npos) {
    for (std::size_t i = firstZero; i < integerPart.size(); ++i) {
      if (integerPart[i] == '0' || integerPart[i] == '#') {
        ++shape.requiredIntegerDigits;
      }
    }
  }
  if (point != std::string_view::npos) {
    shape.hasDecimalPoint = true;
    const std::string_view decimalPart = mask.substr(point + 1);
    for (std::size_t i = 0; i < decimalPart.size(); ++i) {
      if (decimalPart[i] == '0' || decimalPart[i] == '#') {
        ++shape.decimals;
        if (decimalPart[i] == '0') {
          shape.requiredDecimals = shape.decimals;
        }
      }
    }
  }
  return shape;
}

// Adds one unit at the last digit of a string of decimal digits; returns the carry out.
bool incrementDigits(std::string& digits) {
  for (std::size_t i = digits.size(); i-- > 0;) {
    if (digits[i] == '9') {
      digits[i] = '0';
    } else {
      ++digits[i];
      return false;
    }
  }
  return true;
}

// The digits of |value| rounded half away from zero to `decimals` places, from its
// 15-significant-digit decimal form: integer digits (no leading zeros) and exactly `decimals`
// fraction digits.
void roundedDigits(double value, std::size_t decimals, std::string& integer,
                   std::string& fraction) {
  char buf[64];
  const auto res =
      std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::scientific, 14);
  const std::string_view text(buf, static_cast<std::size_t>(res.ptr - buf));
  const std::size_t e = text.find('e');
  std::string mantissa;
  for (char c : text.substr(0, e)) {
    if (c != '.') {
      mantissa.push_back(c);
    }
  }
  int exponent = 0;
  const std::string_view expText = text.substr(e + 1);
  std::from_chars(expText.data() + (expText[0] == '+' ? 1 : 0), expText.data() + expText.size(),
                  exponent);
  const long point = exponent + 1;  // digits of the mantissa before the decimal point
  const long size = static_cast<long>(mantissa.size());
  if (point <= 0) {
    integer.clear();
    fraction = std::string(static_cast<std::size_t>(-point), '0') + mantissa;
  } else if (point >= size) {
    integer = mantissa + std::string(static_cast<std::size_t>(point - size), '0');
    fraction.clear();
  } else {
    integer = mantissa.substr(0, static_cast<std::size_t>(point));
    fraction = mantissa.substr(static_cast<std::size_t>(point));
  }
  const bool roundUp = fraction.size() > decimals && fraction[decimals] >= '5';
  fraction.resize(decimals, '0');
  if (roundUp) {
    std::string all = integer + fraction;
    if (incrementDigits(all)) {
      all.insert(all.begin(), '1');
    }
    integer = all.substr(0, all.size() - decimals);
    fraction = all.substr(all.size() - decimals);
  }
  const std::size_t firstNonZero = integer.find_first_not_of('0');
  integer = firstNonZero == std::string::npos ? std::string() : integer.substr(firstNonZero);
}

std::string groupThousands(const std::string& digits) {
  std::string out;
  const std::size_t n = digits.size();
  for (std::size_t i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) {
      out.push_back('.');
    }
    out.push_back(digits[i]);
  }
  return out;
}

bool isIgnoredByVal(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

}  // namespace

std::string formatNumber(double value, std::string_view mask) {
  if (!std::isfinite(value)) {
    value = 0.0;
  }
  const MaskShape shape = readMask(mask);
  std::string integer;
  std::string fraction;
  roundedDigits(value, shape.decimals, integer, fraction);
  while (fraction.size() > shape.requiredDecimals && fraction.back() == '0') {
    fraction.pop_back();
  }
  if (integer.size() < shape.requiredIntegerDigits) {
    integer.insert(0, shape.requiredIntegerDigits - integer.size(), '0');
  }
  std::string out = value < 0 ? "-" : "";
  out += shape.grouping ? groupThousands(integer) : integer;
  if (shape.hasDecimalPoint) {
    out += ',';
    out += fraction;
  }
  return out;
}

double val(std::string_view text) {
  std::string cleaned;
  for (char c : text) {
    if (!isIgnoredByVal(c)) {
      cleaned.push_back(c);
    }
  }
  std::size_t i = 0;
  std::string number;
  if (i < cleaned.size() && (cleaned[i] == '-' || cleaned[i] == '+')) {
    if (cleaned[i] == '-') {
      number.push_back('-');
    }
    ++i;
  }
  auto digits = [&] {
    while (i < cleaned.size() && cleaned[i] >= '0' && cleaned[i] <= '9') {
      number.push_back(cleaned[i++]);
    }
  };
  digits();
  if (i < cleaned.size() && cleaned[i] == '.') {
    number.push_back('.');
    ++i;
    digits();
  }
  if (number.empty() || number == "-" || number == "." || number == "-.") {
    return 0.0;
  }
  if (i < cleaned.size() &&
      (cleaned[i] == 'E' || cleaned[i] == 'e' || cleaned[i] == 'D' || cleaned[i] == 'd')) {
    std::size_t j = i + 1;
    std::string exponent = "e";
    if (j < cleaned.size() && (cleaned[j] == '-' || cleaned[j] == '+')) {
      exponent.push_back(cleaned[j++]);
    }
    const std::size_t firstDigit = j;
    while (j < cleaned.size() && cleaned[j] >= '0' && cleaned[j] <= '9') {
      exponent.push_back(cleaned[j++]);
    }
    if (j > firstDigit) {
      number += exponent;
    }
  }
  double result = 0.0;
  const auto res = std::from_chars(number.data(), number.data() + number.size(), result);
  if (res.ec == std::errc::result_out_of_range) {
    return number[0] == '-' ? -std::numeric_limits<double>::infinity()
                            : std::numeric_limits<double>::infinity();
  }
  return res.ec == std::errc() ? result : 0.0;
}

std::optional<double> italianToDouble(std::string_view text) {
  std::size_t begin = 0;
  std::size_t end = text.size();
  while (begin < end && text[begin] == ' ') {
    ++begin;
  }
  while (end > begin && text[end - 1] == ' ') {
    --end;
  }
  std::string number;
  bool seenDigit = false;
  bool seenComma = false;
  for (std::size_t i = begin; i < end; ++i) {
    const char c = text[i];
    if ((c == '-' || c == '+') && i == begin) {
      if (c == '-') {
        number.push_back('-');
      }
    } else if (c >= '0' && c <= '9') {
      number.push_back(c);
      seenDigit = true;
    } else if (c == '.' && !seenComma) {
      // thousands separator: ignored wherever it stands in the integer part
    } else if (c == ',' && !seenComma) {
      seenComma = true;
      number.push_back('.');
    } else {
      return std::nullopt;
    }
  }
  if (!seenDigit) {
    return std::nullopt;
  }
  double result = 0.0;
  const auto res = std::from_chars(number.data(), number.data() + number.size(), result);
  if (res.ec != std::errc() || !std::isfinite(result)) {
    return std::nullopt;
  }
  return result;
}

std::optional<std::int32_t> roundHalfEven(double value) {
  if (!std::isfinite(value)) {
    return std::nullopt;
  }
  const double r = std::nearbyint(value);
  if (r < static_cast<double>(std::numeric_limits<std::int32_t>::min()) ||
      r > static_cast<double>(std::numeric_limits<std::int32_t>::max())) {
    return std::nullopt;
  }
  return static_cast<std::int32_t>(r);
}

}  // namespace contavia
