#pragma once
// Questions of the main frame itself.

namespace contavia {

class Prompter;

inline constexpr const char* kExitQuestion = "Sei Sicuro di Voler Uscire?";
// The folder browser's title for "Percorso archivi".
inline constexpr const char* kFolderBrowserTitle = "archivio di lavoro";

// "Esci": asks the exit question; true when the user answered OK.
bool confirmExit(Prompter& prompter);

}  // namespace contavia
