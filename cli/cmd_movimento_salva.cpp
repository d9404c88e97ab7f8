// movimento-salva CONTO [--n N] DATA CAUSALE IMPORTO [--doc T] [--descrizione T]: "Conferma" of
// the movement window, for a new movement or, with --n, for movement N selected first.

#include "cli/command.h"
#include "cli/ledger_support.h"

namespace contavia::cli {
namespace {

int movimentoSalva(Context& c) {
  const Arguments args = c.arguments({"n", "doc", "descrizione"});
  args.expectAtMost(4);
  const std::string& code = args.positional(0, "CONTO");
  const std::string date = requireDate(args.positional(1, "DATA"));
  const std::string& causale = args.positional(2, "CAUSALE");
  const std::string amount = typedAmount(args.positional(3, "IMPORTO"));
  const auto number = args.numberOption("n");
  if (!openWorkingAccount(c, code)) {
    return kExitStopped;
  }
  MovementEntry entry(c.session);
  entry.open();
  if (number && !selectMovementOrStop(c, entry, *number)) {
    return kExitStopped;
  }
  entry.setDate(date);
  EntryRow& row = entry.row();
  row.causale = causale;
  bool done = entry.lookupCausale();
  if (done) {
    row.amount = amount;
    row.documentNumber = args.option("doc").value_or(row.documentNumber);
    row.description = args.option("descrizione").value_or(row.description);
    done = entry.save();
  }
  if (!done) {
    return number ? abandonChange(c, entry) : kExitStopped;
  }
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("movimento-salva",
                 "CONTO [--n N] GG/MM/AAAA CAUSALE IMPORTO [--doc TESTO] [--descrizione TESTO]",
                 "registra un movimento nuovo (\"Conferma\"); con --n N cambia il movimento N. "
                 "IMPORTO come nel campo importo: 1234,5",
                 movimentoSalva);

}  // namespace contavia::cli
