// causali, causale-salva, causale-elimina: the causali window (Form6).

#include "cli/master_commands.h"
#include "masterdata/causali_screen.h"

namespace contavia::cli {
namespace {

int causaleSalva(Context& c) {
  const Arguments args = c.arguments({"n"});
  args.expectAtMost(3);
  const std::string& sign = args.positional(2, "A|D");
  if (sign != "A" && sign != "D") {
    throw UsageError("il segno deve essere A (Avere) o D (Dare): \"" + sign + "\"");
  }
  return saveCommand<CausaliScreen>(
      c, args.numberOption("n"),
      {{CausaliScreen::kCode, args.positional(0, "CODICE")},
       {CausaliScreen::kDescription, args.positional(1, "DESCRIZIONE")},
       {CausaliScreen::kSign, sign}});
}

}  // namespace

CONTAVIA_COMMAND("causali", "", "stampa le righe dell'elenco delle causali",
                 listCommand<CausaliScreen>);
CONTAVIA_COMMAND("causale-salva", "[--n N] CODICE DESCRIZIONE A|D",
                 "\"ok\" della finestra delle causali: con --n N cambia la causale della riga N, "
                 "senza aggiunge una causale nuova",
                 causaleSalva);
CONTAVIA_COMMAND("causale-elimina", "N", "sceglie la riga N delle causali e la cancella",
                 removeCommand<CausaliScreen>);

}  // namespace contavia::cli
