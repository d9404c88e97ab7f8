// saldi CONTO: chooses the account and prints status panels 1, 4 and 5.

#include <ostream>

#include "cli/command.h"
#include "cli/ledger_support.h"

namespace contavia::cli {
namespace {

int saldi(Context& c) {
  const Arguments args = c.arguments();
  args.expectAtMost(1);
  if (!openWorkingAccount(c, args.positional(0, "CONTO"))) {
    return kExitStopped;
  }
  const StatusPanels& panels = c.session.account()->panels();
  c.out << "1: " << panels.balanceToday << "\n"
        << "4: " << panels.balanceTotal << "\n"
        << "5: " << panels.available << "\n";
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("saldi", "CONTO",
                 "sceglie il conto e stampa i pannelli 1 (saldo oggi), 4 (saldo totale) e 5 "
                 "(disponibile)",
                 saldi);

}  // namespace contavia::cli
