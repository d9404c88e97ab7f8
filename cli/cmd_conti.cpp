// conti, conto-salva, conto-elimina: the accounts window (Form2).

#include "cli/master_commands.h"
#include "masterdata/accounts_screen.h"

namespace contavia::cli {
namespace {

int contoSalva(Context& c) {
  const Arguments args =
      c.arguments({"n", "categoria", "nome", "indirizzo", "cap", "localita", "provincia", "fido"});
  args.expectAtMost(1);
  return saveCommand<AccountsScreen>(c, args.numberOption("n"),
                                     {{AccountsScreen::kCode, args.positional(0, "CODICE")},
                                      {AccountsScreen::kName, args.option("nome")},
                                      {AccountsScreen::kAddress, args.option("indirizzo")},
                                      {AccountsScreen::kPostCode, args.option("cap")},
                                      {AccountsScreen::kTown, args.option("localita")},
                                      {AccountsScreen::kProvince, args.option("provincia")},
                                      {AccountsScreen::kCreditLine, args.option("fido")},
                                      {AccountsScreen::kCategory, args.option("categoria")}});
}

}  // namespace

CONTAVIA_COMMAND("conti", "", "stampa le righe dell'elenco dei conti", listCommand<AccountsScreen>);
CONTAVIA_COMMAND("conto-salva",
                 "[--n N] CODICE --categoria T [--nome T] [--indirizzo T] [--cap T] "
                 "[--localita T] [--provincia T] [--fido T]",
                 "\"ok\" della finestra dei conti: con --n N cambia il conto della riga N (il "
                 "codice resta quello del conto), senza aggiunge un conto nuovo; T di --categoria "
                 "è la descrizione della categoria",
                 contoSalva);
CONTAVIA_COMMAND("conto-elimina", "N",
                 "sceglie la riga N dei conti e lo cancella con tutti i suoi file",
                 removeCommand<AccountsScreen>);

}  // namespace contavia::cli
