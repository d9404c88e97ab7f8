// movimenti-svuota CONTO: "Cancella movimenti" of the Manutenzione menu.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "ledger/account_maintenance.h"

namespace contavia::cli {
namespace {

int movimentiSvuota(Context& c) {
  const Arguments args = c.arguments();
  args.expectAtMost(1);
  if (!openWorkingAccount(c, args.positional(0, "CONTO"))) {
    return kExitStopped;
  }
  return clearAccountMovements(c.session) ? kExitDone : kExitStopped;
}

}  // namespace

CONTAVIA_COMMAND("movimenti-svuota", "CONTO",
                 "elimina tutti i movimenti del conto senza eliminare il conto (due conferme)",
                 movimentiSvuota);

}  // namespace contavia::cli
