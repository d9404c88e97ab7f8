// interroga --dal D --al D [--gruppo T] [--categoria T] [--causale T]: the movement query
// (Form3): prints the rows of its list.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/query_support.h"

namespace contavia::cli {
namespace {

int interroga(Context& c) {
  const Arguments args = c.arguments({"dal", "al", "gruppo", "categoria", "causale"});
  args.expectAtMost(0);
  if (!c.session.start()) {
    return kExitStopped;
  }
  const QueryFilter filter = queryFilter(c, args);
  if (!queryDatesAccepted(filter, c.session.prompter())) {
    return kExitStopped;
  }
  printLines(c.out, runMovementQuery(c.session.dir(), c.session.tables().accounts,
                                     c.session.tables().causali, filter)
                        .rows);
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("interroga",
                 "--dal GG/MM/AAAA --al GG/MM/AAAA [--gruppo T] [--categoria T] [--causale T]",
                 "i movimenti di tutti i conti dal... al... (estremi compresi), con i filtri della "
                 "finestra \"Totale Movimenti\" (T è la descrizione; \" Tutte\" per tutti)",
                 interroga);

}  // namespace contavia::cli
