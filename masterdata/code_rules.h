#pragma once
// Pieces that the causali, groups and categories screens share: both the code and the
// description are required, a new code must not be one already present (compared as typed with
// the stored code right-trimmed, so "AB " is not "AB"), and records refer to one another by
// their description text.

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "common/prompter.h"
#include "common/text.h"
#include "masterdata/master_screen.h"

namespace contavia {

inline constexpr const char* kCodeAndDescriptionRequired = "Campo codice e descrizione obbligatori";
inline constexpr const char* kDeleteQuestionEnd =
    " il dato verrà irrimediabilmente perso. Vuoi continuare ?";

struct CodeRules {
  const char* codeField;
  const char* descriptionField;
  const char* duplicateText;
  bool beepWhenMissing;       // the beep before the message of a missing field
  bool emptyCodeWhenMissing;  // the code field is emptied after that message
};

// The checks before "ok". On an add a code already present is refused, and both fields are
// emptied; a change is not checked for duplicates.
template <class Record>
bool acceptsCodeAndDescription(MasterScreen& screen, Prompter& prompter, const CodeRules& rules,
                               const std::vector<Record>& table, std::string Record::*code,
                               bool changing) {
  const std::string& typed = screen.field(rules.codeField);
  if (typed.empty() || screen.field(rules.descriptionField).empty()) {
    if (rules.beepWhenMissing) {
      prompter.beep();
    }
    prompter.show(errorBox(kCodeAndDescriptionRequired));
    if (rules.emptyCodeWhenMissing) {
      screen.setField(rules.codeField, "");
    }
    return false;
  }
  if (changing) {
    return true;
  }
  // Compared as it will be stored: a character with no Windows-1252 byte is stored as "?".
  const std::string stored = asStoredText(typed);
  for (const Record& r : table) {
    if (trimRight(r.*code) == stored) {
      prompter.show(errorBox(rules.duplicateText));
      screen.setField(rules.codeField, "");
      screen.setField(rules.descriptionField, "");
      return false;
    }
  }
  return true;
}

// How many records name `name` in `field` (both trimmed).
template <class Record>
std::int64_t countNaming(const std::vector<Record>& records, std::string Record::*field,
                         std::string_view name) {
  const std::string wanted = trim(name);
  std::int64_t n = 0;
  for (const Record& r : records) {
    n += trim(r.*field) == wanted ? 1 : 0;
  }
  return n;
}

// The box that refuses to delete a record still referred to: `before` + count + `after`, under
// the program's title. True when the count is 0; otherwise shows the box and returns false.
bool notInUse(Prompter& prompter, std::int64_t count, std::string_view before,
              std::string_view after);

// The list row of groups and categories: the trimmed code padded to 5, " - ", the description in
// its full width of 25; and the heading over such rows.
inline constexpr std::size_t kCodeDashNameWidth = 33;
std::string codeDashNameRow(std::string_view code, std::string_view name);
std::string codeDashNameHeading();

}  // namespace contavia
