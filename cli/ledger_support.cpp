#include "cli/ledger_support.h"

#include <ostream>

#include "common/key_rules.h"
#include "common/text.h"

namespace contavia::cli {

bool openWorkingAccount(Context& c, const std::string& code) {
  return c.session.start() && c.session.openAccountByCode(code);
}

int runOnAccount(Context& c, bool (*action)(Session&)) {
  const Arguments args = c.arguments();
  args.expectAtMost(1);
  if (!openWorkingAccount(c, args.positional(0, "CONTO"))) {
    return kExitStopped;
  }
  return action(c.session) ? kExitDone : kExitStopped;
}

std::string typedAmount(std::string_view keys) {
  std::string field;
  for (const char key : keys) {
    const KeyVerdict verdict = filterAmountKey(field, key);
    if (verdict.kind == KeyVerdict::Accept) {
      field.push_back(key);
    } else if (verdict.kind == KeyVerdict::Replace) {
      field.push_back(verdict.replacement);
    } else {
      throw UsageError("importo non valido: \"" + std::string(keys) +
                       "\" (cifre e al più una virgola decimale, per esempio 1234,5)");
    }
  }
  return field;
}

bool selectMovementOrStop(Context& c, MovementEntry& entry, int number) {
  if (entry.selectMovement(static_cast<std::size_t>(number))) {
    return true;
  }
  c.session.prompter().show(errorBox("Movimento " + std::to_string(number) +
                                     " non presente nel conto " + c.session.currentAccountCode() +
                                     "."));
  return false;
}

int abandonChange(Context& c, MovementEntry& entry) {
  entry.abandon();
  c.session.account()->recompute();
  return kExitStopped;
}

void printLines(std::ostream& out, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    out << trimRight(line) << '\n';
  }
}

}  // namespace contavia::cli
