// movimenti-svuota CONTO: "Cancella movimenti" of the Manutenzione menu.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "ledger/clear_movements.h"

namespace contavia::cli {
namespace {

int movimentiSvuota(Context& c) { return runOnAccount(c, clearAccountMovements); }

}  // namespace

CONTAVIA_COMMAND("movimenti-svuota", "CONTO",
                 "elimina tutti i movimenti del conto senza eliminare il conto (due conferme)",
                 movimentiSvuota);

}  // namespace contavia::cli
