// movimenti CONTO [--dal D] [--al D] [--causale DESCRIZIONE]: chooses the account and prints the
// movement list; with a filter option, the filtered list.

#include <ostream>

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "common/text.h"

namespace contavia::cli {
namespace {

int movimenti(Context& c) {
  const Arguments args = c.arguments({"dal", "al", "causale"});
  args.expectAtMost(1);
  const std::unique_ptr<MovementEntry> entry = listedMovements(c, args);
  if (!entry) {
    return kExitStopped;
  }
  printLines(c.out, entry->list().lines);
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("movimenti", "CONTO [--dal GG/MM/AAAA] [--al GG/MM/AAAA] [--causale DESCRIZIONE]",
                 "stampa l'elenco dei movimenti del conto, dal più recente; con un filtro "
                 "(senza --dal o --al la data non ha limite da quel lato) l'elenco filtrato",
                 movimenti);

}  // namespace contavia::cli
