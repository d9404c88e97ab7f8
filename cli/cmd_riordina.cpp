// riordina CONTO: "Riordina archivio", the two-digit years of the account's movements.

#include "cli/command.h"
#include "cli/ledger_support.h"
#include "frame/two_digit_years.h"

namespace contavia::cli {
namespace {

int riordina(Context& c) { return runOnAccount(c, reorderTwoDigitYears); }

}  // namespace

CONTAVIA_COMMAND("riordina", "CONTO",
                 "porta a quattro cifre gli anni delle date dei movimenti (GG/MM/AA)", riordina);

}  // namespace contavia::cli
