// movimenti CONTO [--dal D] [--al D] [--causale DESCRIZIONE]: chooses the account and prints the
// movement list; with a filter option, the filtered list.

#include <algorithm>
#include <ostream>

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "common/text.h"

namespace contavia::cli {
namespace {

int movimenti(Context& c) {
  const Arguments args = c.arguments({"dal", "al", "causale"});
  args.expectAtMost(1);
  const std::string& code = args.positional(0, "CONTO");
  const auto from = args.dateOption("dal");
  const auto to = args.dateOption("al");
  auto causale = args.option("causale");
  if (causale) {
    causale = trim(*causale) == trim(kAllCausali) ? kAllCausali : trim(*causale);
  }
  if (!c.session.start()) {
    return kExitStopped;
  }
  if (causale) {
    const auto items = causaleSelectorItems(c.session.tables().causali);
    if (std::find(items.begin(), items.end(), *causale) == items.end()) {
      throw UsageError("causale sconosciuta: \"" + *causale +
                       "\" (la descrizione come in 'contavia-cli causali', oppure \" TUTTE\")");
    }
  }
  if (!c.session.openAccountByCode(code)) {
    return kExitStopped;
  }
  MovementEntry entry(c.session);
  entry.open();
  if (from || to || causale) {
    ListFilter& filter = entry.filter();
    filter.from = from.value_or("");
    filter.to = to.value_or("");
    filter.causale = causale.value_or(kAllCausali);
    entry.applyFilter();
  }
  printLines(c.out, entry.list().lines);
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("movimenti", "CONTO [--dal GG/MM/AAAA] [--al GG/MM/AAAA] [--causale DESCRIZIONE]",
                 "stampa l'elenco dei movimenti del conto, dal più recente; con un filtro "
                 "(senza --dal o --al la data non ha limite da quel lato) l'elenco filtrato",
                 movimenti);

}  // namespace contavia::cli
