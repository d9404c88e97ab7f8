#pragma once
// The commands of the main frame itself: "Esci", "Chiudi" and "Percorso archivi".

#include <string>

#include "archive/session.h"

namespace contavia {

inline constexpr const char* kExitQuestion = "Sei Sicuro di Voler Uscire?";
// The folder browser's title for "Percorso archivi".
inline constexpr const char* kFolderBrowserTitle = "archivio di lavoro";

// "Esci": asks the exit question; true when the user answered OK.
bool confirmExit(Prompter& prompter);

// "Chiudi": closes the working account and forgets the account chosen in the selector, which can
// then be deleted.
void closeWorkingAccount(Session& session);

// "Percorso archivi" after the folder browser: the working account is closed, then the
// DataDirectory becomes `folder` for the rest of the run and the accounts are read from it, under
// the disk-error routine. When the reading is given up the previous folder stays. True when the
// folder was changed.
bool changeDataFolder(Session& session, const std::string& folder);

}  // namespace contavia
