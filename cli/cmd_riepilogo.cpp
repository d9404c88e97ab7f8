// riepilogo conti|categorie|gruppi [--categoria T] [--csv FILE]: the summary window (Form22):
// prints the rows of the view and its total; with --csv also the rows as a table for a
// spreadsheet.

#include <ostream>

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/query_support.h"
#include "cli/report_output.h"

namespace contavia::cli {
namespace {

int riepilogo(Context& c) {
  const Arguments args = c.arguments({"categoria", "csv"});
  args.expectAtMost(1);
  const SummaryKind kind = summaryKind(args.positional(0, "conti|categorie|gruppi"));
  const auto csv = args.option("csv");
  requireReportFolder(csv, "csv");
  if (!c.session.start()) {
    return kExitStopped;
  }
  const Summaries summaries(c.session);
  const std::string category = summaryCategory(summaries, args);
  const SummaryView view = summaries.view(kind, category);
  printLines(c.out, view.rows);
  printLines(c.out, {view.total});
  return deliverCsv(c, csv ? summaries.csv(kind, category) : std::string(), csv);
}

}  // namespace

CONTAVIA_COMMAND("riepilogo", "conti|categorie|gruppi [--categoria T] [--csv FILE]",
                 "il saldo di ogni conto con fido e disponibilità, o i saldi sommati per categoria "
                 "o per gruppo, come nella finestra \"Totale conti\"; con --csv anche in FILE "
                 "per un foglio di calcolo",
                 riepilogo);

}  // namespace contavia::cli
