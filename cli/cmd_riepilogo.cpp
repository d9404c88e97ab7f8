// riepilogo conti|categorie|gruppi [--categoria T]: the summary window (Form22): prints the rows
// of the view and its total.

#include <ostream>

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "cli/query_support.h"

namespace contavia::cli {
namespace {

int riepilogo(Context& c) {
  const Arguments args = c.arguments({"categoria"});
  args.expectAtMost(1);
  const SummaryKind kind = summaryKind(args.positional(0, "conti|categorie|gruppi"));
  if (!c.session.start()) {
    return kExitStopped;
  }
  const Summaries summaries(c.session);
  const SummaryView view = summaries.view(kind, summaryCategory(summaries, args));
  printLines(c.out, view.rows);
  printLines(c.out, {view.total});
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("riepilogo", "conti|categorie|gruppi [--categoria T]",
                 "il saldo di ogni conto con fido e disponibilità, o i saldi sommati per categoria "
                 "o per gruppo, come nella finestra \"Totale conti\"",
                 riepilogo);

}  // namespace contavia::cli
