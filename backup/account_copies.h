#pragma once
// "Esegui copie di sicurezza" and "Ripristina copie" (`Form18`): the four files of each account
// (movements, their count, totals, carried-forward amount) copied as they are to a folder of the
// user's choice, and back. The master tables are not copied. Every copy runs under the
// disk-error routine: Retry repeats it, Ignore goes on with the next, the other answers stop
// with "Errore irrecuperabile".

#include <array>
#include <cstddef>
#include <functional>
#include <string>

#include "archive/session.h"

namespace contavia {

// The mode flag of the window: 0 makes copies, 1 restores them.
enum class BackupMode : std::int16_t { Save = 0, Restore = 1 };

inline constexpr const char* kBackupCaption = "Backup dati";
inline constexpr const char* kRestoreCaption = "Ripristina Dati";
inline constexpr const char* kBackupPanelCaption = "Copie di sicurezza";
inline constexpr const char* kRestoreWarning =
    "\nI dati che si stanno ripristinando sostituiranno \n"
    "quelli presenti nel disco rigido, eventuali \n"
    "modifiche effettuate dopo la creazione delle \n"
    "copie di Backup verranno perse.";

// The files of an account that a copy holds, in the order they are copied.
inline constexpr std::array<const char*, 4> kBackupExtensions = {
    filename::kMovements, filename::kMovementCount, filename::kTotals, filename::kCarryForward};

// The folder as `NomeFile` shows it: with one trailing separator.
std::string backupFolderText(const std::string& folder);

// Which accounts: every account of the table ("tutti i conti") or the working one ("conto
// attivo").
enum class BackupScope { AllAccounts, ActiveAccount };

// Tells how far the copy has gone, one account at a time.
using BackupProgress = std::function<void(std::size_t done, std::size_t total)>;

// The confirm button `salva` in the given mode. True when every account was copied (or
// skipped by Ignore); false when the user stopped, or when nothing could be done (after its
// message).
bool runBackupWindow(Session& session, BackupMode mode, const std::string& folder,
                     BackupScope scope, const BackupProgress& progress = {});

}  // namespace contavia
