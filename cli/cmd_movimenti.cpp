// movimenti CONTO [--dal D] [--al D] [--causale DESCRIZIONE] [--csv FILE]: chooses the account and
// prints the movement list; with a filter option, the filtered list; with --csv also its rows as
// a table for a spreadsheet.

#include <ostream>

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/report_output.h"
#include "common/text.h"
#include "ledger/movement_export.h"

namespace contavia::cli {
namespace {

int movimenti(Context& c) {
  const Arguments args = c.arguments({"dal", "al", "causale", "csv"});
  args.expectAtMost(1);
  const auto csv = args.option("csv");
  requireReportFolder(csv, "csv");
  const std::unique_ptr<MovementEntry> entry = listedMovements(c, args);
  if (!entry) {
    return kExitStopped;
  }
  printLines(c.out, entry->list().lines);
  return deliverCsv(
      c,
      csv ? movementListCsv(*c.session.account(), entry->list(), c.session.tables().causali)
          : std::string(),
      csv);
}

}  // namespace

CONTAVIA_COMMAND("movimenti",
                 "CONTO [--dal GG/MM/AAAA] [--al GG/MM/AAAA] [--causale DESCRIZIONE] [--csv FILE]",
                 "stampa l'elenco dei movimenti del conto, dal più recente; con un filtro "
                 "(senza --dal o --al la data non ha limite da quel lato) l'elenco filtrato; con "
                 "--csv scrive anche le sue righe in FILE per un foglio di calcolo",
                 movimenti);

}  // namespace contavia::cli
