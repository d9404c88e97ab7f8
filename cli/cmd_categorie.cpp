// categorie, categoria-salva, categoria-elimina: the categories window (Form1).

#include "cli/master_commands.h"
#include "masterdata/categories_screen.h"

namespace contavia::cli {
namespace {

int categoriaSalva(Context& c) {
  const Arguments args = c.arguments({"n"});
  args.expectAtMost(3);
  std::optional<std::string> group;
  if (args.positionalCount() > 2) {
    group = args.positional(2, "GRUPPO");
  }
  return saveCommand<CategoriesScreen>(
      c, args.numberOption("n"),
      {{CategoriesScreen::kCode, args.positional(0, "CODICE")},
       {CategoriesScreen::kDescription, args.positional(1, "DESCRIZIONE")},
       {CategoriesScreen::kGroup, group}});
}

}  // namespace

CONTAVIA_COMMAND("categorie", "", "stampa le righe dell'elenco delle categorie",
                 listCommand<CategoriesScreen>);
CONTAVIA_COMMAND("categoria-salva", "[--n N] CODICE DESCRIZIONE [GRUPPO]",
                 "\"ok\" della finestra delle categorie: con --n N cambia la categoria della riga "
                 "N, senza aggiunge una categoria nuova; GRUPPO è la descrizione del gruppo",
                 categoriaSalva);
CONTAVIA_COMMAND("categoria-elimina", "N", "sceglie la riga N delle categorie e la cancella",
                 removeCommand<CategoriesScreen>);

}  // namespace contavia::cli
