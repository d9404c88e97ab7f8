#include "masterdata/code_rules.h"

namespace contavia {

bool notInUse(Prompter& prompter, std::int64_t count, std::string_view before,
              std::string_view after) {
  if (count < 1) {
    return true;
  }
  prompter.show(
      plainBox(kProgramTitle, std::string(before) + std::to_string(count) + std::string(after)));
  return false;
}

std::string codeDashNameRow(std::string_view code, std::string_view name) {
  return padRight(trim(code), 5) + " - " + padRight(name, 25);
}

std::string codeDashNameHeading() { return padRight("Cod.", 8) + "Descrizione"; }

}  // namespace contavia
