#pragma once
// A safety copy before every bulk change (a closing, its undo, a restore of copies, "Cancella
// movimenti"): the files the operation will change are copied into a folder of the DataDirectory
// named "copie/AAAAMMGG-HHMMSS-<operation>/", written as "<name>.tmp" and renamed once complete.
// The last 20 copies are kept; only folders of that form are ever removed.

#include <string>
#include <vector>

#include "archive/data_directory.h"
#include "archive/write_journal.h"
#include "common/clock.h"

namespace contavia {

inline constexpr const char* kSafetyCopiesFolder = "copie";
inline constexpr std::size_t kSafetyCopiesKept = 20;

// Copies the files of the DataDirectory named `names` (those not there are skipped) into a new
// safety copy for `operation` ("chiusura", ...). The outcome names the file that could not be
// copied; then nothing of the new copy is left.
WriteOutcome makeSafetyCopy(const DataDirectory& dir, const Clock& clock,
                            const std::string& operation, const std::vector<std::string>& names);

// The safety copies there are, oldest first (folder names).
std::vector<std::string> safetyCopies(const DataDirectory& dir);

}  // namespace contavia
