#pragma once
// Keyboard rules of the entry fields, as pure functions: a key in, a verdict out. The windows
// apply the verdict (let the key through, change it, or drop it with a beep).

#include <optional>
#include <string_view>

namespace contavia {

inline constexpr char kKeyBackspace = 8;
inline constexpr char kKeyLineFeed = 10;
inline constexpr char kKeyEnter = 13;

struct KeyVerdict {
  enum Kind {
    Accept,     // the key goes into the field as it is
    Replace,    // the key goes in as `replacement`
    Refuse,     // the key is dropped with a beep
    MoveFocus,  // the key is dropped and the focus moves to the next control
  };
  Kind kind = Accept;
  char replacement = 0;
  bool operator==(const KeyVerdict&) const = default;
};

// The amount field `IMPORTO`: digits, ",", "." (turned into ","), backspace and Enter; one
// decimal comma at most; Enter in a non-empty field moves on.
KeyVerdict filterAmountKey(std::string_view currentText, char key);

// The list's filter date fields: digits, "/" and code 10 pass, every other key (backspace
// included) is refused.
KeyVerdict filterRangeDateKey(char key);

// Digit-only fields (postal code, credit line): digits and backspace pass; every other key,
// Enter included, is refused.
KeyVerdict filterDigitKey(char key);

// Reads the amount field: the text as an Italian number, rounded to two decimals as its
// "#,###,###,###.00" form; nullopt for an empty or unreadable field.
std::optional<double> readAmountField(std::string_view text);

}  // namespace contavia
