#include "cli/ledger_support.h"

#include <algorithm>
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

std::unique_ptr<MovementEntry> listedMovements(Context& c, const Arguments& args) {
  const std::string& code = args.positional(0, "CONTO");
  const auto from = args.dateOption("dal");
  const auto to = args.dateOption("al");
  auto causale = args.option("causale");
  if (causale) {
    causale = trim(*causale) == trim(kAllCausali) ? kAllCausali : trim(*causale);
  }
  if (!c.session.start()) {
    return nullptr;
  }
  if (causale) {
    const auto items = causaleSelectorItems(c.session.tables().causali);
    if (std::find(items.begin(), items.end(), *causale) == items.end()) {
      throw UsageError("causale sconosciuta: \"" + *causale +
                       "\" (la descrizione come in 'contavia-cli causali', oppure \" TUTTE\")");
    }
  }
  if (!c.session.openAccountByCode(code)) {
    return nullptr;
  }
  auto entry = std::make_unique<MovementEntry>(c.session);
  entry->open();
  if (from || to || causale) {
    ListFilter& filter = entry->filter();
    filter.from = from.value_or("");
    filter.to = to.value_or("");
    filter.causale = causale.value_or(kAllCausali);
    entry->applyFilter();
  }
  return entry;
}

void printLines(std::ostream& out, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    out << trimRight(line) << '\n';
  }
}

}  // namespace contavia::cli
