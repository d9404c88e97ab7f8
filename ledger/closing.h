#pragma once
// "Chiusura periodica" (`Form19`): the working account's movements up to a date, that date
// included, are removed and printed as a paper archive, and their signed sum (debits up, credits
// down) is carried forward, rounded to a whole number. The report is also kept as a file of the
// DataDirectory before anything is removed, and the files the closing changes are copied to a
// safety copy first. The account's files as they were are copied to the "Bak." files of the
// DataDirectory, from which "Ripristina chiusura preccedente" puts them back.

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "archive/records.h"
#include "archive/session.h"
#include "printing/report_page.h"

namespace contavia {

inline constexpr const char* kClosingDateRequired = "Campo data obbligatorio";
inline constexpr const char* kClosingWarning =
    "\nL'azione appena intrapresa eliminerà tutti i\n"
    "movimenti registrati prima della data che avete\n"
    "indicato, essi non potranno essere più recupe-\n"
    "rati, pertanto, verrà eseguita una stampa per\n"
    "l'archiviazione.\n"
    "se vuoi continuare accendi la stampante.\n";
// Where the reports of the closings are kept, in the DataDirectory.
inline constexpr const char* kClosingArchivesFolder = "chiusure";

// The "Bak." files: the account's files as they were before the last closing. The closing
// writes the first four and "Bak.chi", which names the account they came from; the undo reads
// back all nine of the others that are there.
inline constexpr const char* kBakPrefix = "Bak";
inline constexpr const char* kBakOwner = "Bak.chi";

// What a closing does to the movements, worked out before anything is written.
struct ClosingPlan {
  std::vector<Movement> removed;  // in file order
  // The records of the movement file from `firstChanged` (1-based) to the old count, as the
  // closing leaves them: the kept movements renumbered, then the old records marked "S".
  std::size_t firstChanged = 0;
  std::vector<Movement> rewritten;
  std::size_t keptCount = 0;
  double runningSum = 0.0;  // debits added, credits ("A") subtracted
};
ClosingPlan planClosing(const std::vector<Movement>& movements, const std::string& closingDate);

// The carried-forward amount after a closing: the previous one plus the running sum, rounded
// half to even; nullopt when it leaves the 32-bit range.
std::optional<std::int32_t> carriedForward(std::int32_t previous, double runningSum);

// Keeps the report of the removed movements at `path`, drawn as the printer prints it; false
// when it could not be written whole.
using ArchiveKeeper = std::function<bool(const Report& report, const std::string& path)>;

struct ClosingResult {
  bool closed = false;
  Report report;            // to show and print
  std::string archivePath;  // where the report was kept
};

// The start button of `Form19`: checks the typed date, warns, keeps the report, closes.
ClosingResult closePeriod(Session& session, const std::string& typedDate,
                          const ArchiveKeeper& keepArchive);

}  // namespace contavia
