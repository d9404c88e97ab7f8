// gruppi, gruppo-salva, gruppo-elimina: the groups window (Form4).

#include "cli/master_commands.h"
#include "masterdata/groups_screen.h"

namespace contavia::cli {
namespace {

int gruppoSalva(Context& c) {
  const Arguments args = c.arguments({"n"});
  args.expectAtMost(2);
  return saveCommand<GroupsScreen>(
      c, args.numberOption("n"),
      {{GroupsScreen::kCode, args.positional(0, "CODICE")},
       {GroupsScreen::kDescription, args.positional(1, "DESCRIZIONE")}});
}

}  // namespace

CONTAVIA_COMMAND("gruppi", "", "stampa le righe dell'elenco dei gruppi", listCommand<GroupsScreen>);
CONTAVIA_COMMAND("gruppo-salva", "[--n N] CODICE DESCRIZIONE",
                 "\"ok\" della finestra dei gruppi: con --n N cambia il gruppo della riga N, "
                 "senza aggiunge un gruppo nuovo",
                 gruppoSalva);
CONTAVIA_COMMAND("gruppo-elimina", "N", "sceglie la riga N dei gruppi e lo cancella",
                 removeCommand<GroupsScreen>);

}  // namespace contavia::cli
