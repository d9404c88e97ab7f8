#pragma once
// Numbers as the system shows and reads them, with Visual-Basic-style conversions under the
// Italian regional settings: "." groups thousands, "," separates decimals.

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace contavia {

// Formats a number with a mask such as "###,###,##0.00", "##,###,###.##", "###,###,###,##0" or
// "0000": "#" an optional digit, "0" a required digit, "," anywhere in the integer part asks for
// thousands grouping, "." the decimal separator. The value is rounded half away from zero at the
// last decimal place, on its 15-significant-digit decimal form. A negative value keeps its "-"
// even when it rounds to zero. Non-finite values are shown as 0.
std::string formatNumber(double value, std::string_view mask);

// Val: the number at the start of a text. Blanks, tabs and line feeds are skipped anywhere;
// "." is the only decimal separator; reading stops at the first other character. "" gives 0.
double val(std::string_view text);

// CDbl of a text under Italian settings: "." thousands (ignored), "," decimals. Leading and
// trailing blanks allowed; nullopt when the text is not a number.
std::optional<double> italianToDouble(std::string_view text);

// CLng / CInt: to the nearest whole number, halves to the even neighbour; nullopt on overflow
// of the 32-bit range or for a non-finite value.
std::optional<std::int32_t> roundHalfEven(double value);

}  // namespace contavia
