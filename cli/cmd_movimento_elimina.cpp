// movimento-elimina CONTO N: selects movement N, then "Cancella" with its confirmation.

#include "cli/command.h"
#include "cli/ledger_support.h"

namespace contavia::cli {
namespace {

int movimentoElimina(Context& c) {
  const Arguments args = c.arguments();
  args.expectAtMost(2);
  const std::string& code = args.positional(0, "CONTO");
  const int number = requireNumber(args.positional(1, "N"), "N");
  if (!openWorkingAccount(c, code)) {
    return kExitStopped;
  }
  MovementEntry entry(c.session);
  entry.open();
  if (!selectMovementOrStop(c, entry, number)) {
    return kExitStopped;
  }
  return entry.deleteSelected() ? kExitDone : abandonChange(c, entry);
}

}  // namespace

CONTAVIA_COMMAND("movimento-elimina", "CONTO N",
                 "seleziona il movimento N e lo cancella (\"Cancella\", con la conferma)",
                 movimentoElimina);

}  // namespace contavia::cli
