#include "common/key_rules.h"

#include "common/number_masks.h"

namespace contavia {
namespace {

bool isDigit(char key) { return key >= '0' && key <= '9'; }

}  // namespace

KeyVerdict filterAmountKey(std::string_view currentText, char key) {
  if (key == kKeyEnter) {
    return currentText.empty() ? KeyVerdict{KeyVerdict::Accept, 0}
                               : KeyVerdict{KeyVerdict::MoveFocus, 0};
  }
  if (key == '.' || key == ',') {
    if (currentText.find(',') != std::string_view::npos) {
      return {KeyVerdict::Refuse, 0};
    }
    return key == '.' ? KeyVerdict{KeyVerdict::Replace, ','} : KeyVerdict{KeyVerdict::Accept, 0};
  }
  if (isDigit(key) || key == kKeyBackspace) {
    return {KeyVerdict::Accept, 0};
  }
  return {KeyVerdict::Refuse, 0};
}

KeyVerdict filterRangeDateKey(char key) {
  if (isDigit(key) || key == '/' || key == kKeyLineFeed) {
    return {KeyVerdict::Accept, 0};
  }
  return {KeyVerdict::Refuse, 0};
}

KeyVerdict filterDigitKey(char key) {
  if (isDigit(key) || key == kKeyBackspace) {
    return {KeyVerdict::Accept, 0};
  }
  return {KeyVerdict::Refuse, 0};
}

std::optional<double> readAmountField(std::string_view text) {
  const auto typed = italianToDouble(text);
  if (!typed) {
    return std::nullopt;
  }
  return italianToDouble(formatNumber(*typed, "#,###,###,###.00"));
}

}  // namespace contavia
