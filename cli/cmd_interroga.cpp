// interroga --dal D --al D [--gruppo T] [--categoria T] [--causale T] [--csv FILE]: the movement
// query (Form3): prints the rows of its list; with --csv also the movements as a table for a
// spreadsheet.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/query_support.h"
#include "cli/report_output.h"

namespace contavia::cli {
namespace {

int interroga(Context& c) {
  const Arguments args = c.arguments({"dal", "al", "gruppo", "categoria", "causale", "csv"});
  args.expectAtMost(0);
  const auto csv = args.option("csv");
  requireReportFolder(csv, "csv");
  if (!c.session.start()) {
    return kExitStopped;
  }
  const QueryFilter filter = queryFilter(c, args);
  if (!queryDatesAccepted(filter, c.session.prompter())) {
    return kExitStopped;
  }
  const QueryResult result =
      runMovementQuery(c.session.dir(), c.session.tables().accounts, c.session.tables().causali,
                       filter, {}, csv.has_value());
  printLines(c.out, result.rows);
  return deliverCsv(c, csv ? queryCsv(result.movements) : std::string(), csv);
}

}  // namespace

CONTAVIA_COMMAND("interroga",
                 "--dal GG/MM/AAAA --al GG/MM/AAAA [--gruppo T] [--categoria T] [--causale T] "
                 "[--csv FILE]",
                 "i movimenti di tutti i conti dal... al... (estremi compresi), con i filtri della "
                 "finestra \"Totale Movimenti\" (T è la descrizione; \" Tutte\" per tutti); con "
                 "--csv anche in FILE per un foglio di calcolo",
                 interroga);

}  // namespace contavia::cli
