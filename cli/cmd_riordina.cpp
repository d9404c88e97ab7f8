// riordina CONTO: "Riordina archivio", the two-digit years of the account's movements.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "ledger/account_maintenance.h"

namespace contavia::cli {
namespace {

int riordina(Context& c) {
  const Arguments args = c.arguments();
  args.expectAtMost(1);
  if (!openWorkingAccount(c, args.positional(0, "CONTO"))) {
    return kExitStopped;
  }
  return reorderTwoDigitYears(c.session) ? kExitDone : kExitStopped;
}

}  // namespace

CONTAVIA_COMMAND("riordina", "CONTO",
                 "porta a quattro cifre gli anni delle date dei movimenti (GG/MM/AA)", riordina);

}  // namespace contavia::cli
