// chiusura CONTO DATA [--stampa FILE]: "Chiusura periodica"; ripristina-chiusura CONTO:
// "Ripristina chiusura preccedente".

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/report_output.h"
#include "cli/report_pdf.h"
#include "common/dates.h"
#include "ledger/closing.h"
#include "ledger/closing_undo.h"

namespace contavia::cli {
namespace {

int chiusura(Context& c) {
  const Arguments args = c.arguments({"stampa"});
  args.expectAtMost(2);
  const std::string& code = args.positional(0, "CONTO");
  const std::string& date = args.positional(1, "DATA");
  requireReportFolder(args.option("stampa"));
  if (!openWorkingAccount(c, code)) {
    return kExitStopped;
  }
  // An empty date goes to the closing, which asks for it; any other must be a whole date.
  if (!dateLeftEmpty(date)) {
    requireDate(date);
  }
  const ClosingResult result = closePeriod(c.session, date, writeReportPdf);
  if (!result.closed) {
    return kExitStopped;
  }
  return deliverReport(c, result.report, args.option("stampa"));
}

int ripristinaChiusura(Context& c) { return runOnAccount(c, undoLastClosing); }

}  // namespace

CONTAVIA_COMMAND("chiusura", "CONTO DATA [--stampa FILE]",
                 "chiusura periodica: elimina i movimenti fino a DATA compresa e li stampa",
                 chiusura);
CONTAVIA_COMMAND("ripristina-chiusura", "CONTO",
                 "rimette il conto com'era prima dell'ultima chiusura", ripristinaChiusura);

}  // namespace contavia::cli
