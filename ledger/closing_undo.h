#pragma once
// "Ripristina chiusura preccedente": the working account's files are put back as the last
// closing found them, from the "Bak." files, and the restore point goes back to the closing
// before it. Movements entered after the closing are lost, as the warning says.

#include "archive/session.h"

namespace contavia {

inline constexpr const char* kUndoWarning =
    "\nL'azione appena intrapresa eliminerà tutti i\n"
    "movimenti registrati dopo l'ultima chiusura, \n"
    "essi non potranno essere più recuperati.\n"
    "Vuoi continuare ?";
inline constexpr const char* kOtherAccountsData =
    " I dati che si tenta di recuperare appartengono ad un altro conto, operazione annullata";

// After the warning and the check that the saved files belong to the working account, replaces
// the account's files with them, all or nothing, and opens the account again. True when done.
bool undoLastClosing(Session& session);

}  // namespace contavia
