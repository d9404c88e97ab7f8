// esempio: fills an empty DataDirectory with a small sample archive.

#include <ostream>

#include "archive/disk_errors.h"
#include "cli/command.h"
#include "cli/sample_archive.h"

namespace contavia::cli {
namespace {

int esempio(Context& c) {
  const Arguments args = c.arguments();
  args.expectAtMost(0);
  Session& session = c.session;
  if (!session.start()) {
    return kExitStopped;
  }
  if (!canHoldSample(session)) {
    session.prompter().show(errorBox("L'archivio in " + session.dir().folder() +
                                     " contiene già dei dati: l'archivio di esempio si crea "
                                     "solo in una cartella vuota."));
    return kExitStopped;
  }
  SampleSummary summary;
  const WriteOutcome outcome = writeSampleArchive(session, summary);
  if (!outcome.ok()) {
    session.prompter().show(
        diskErrorBox("Archivio di esempio incompleto: impossibile scrivere il file " +
                     outcome.failedFile + " (" + describeDiskError(outcome.error) + ")."));
    return kExitStopped;
  }
  c.out << "Archivio di esempio creato in " << session.dir().folder() << ": " << summary.groups
        << " gruppi, " << summary.categories << " categorie, " << summary.causali << " causali, "
        << summary.accounts << " conti, " << summary.movements << " movimenti.\n";
  return kExitDone;
}

}  // namespace

CONTAVIA_COMMAND("esempio", "",
                 "crea un piccolo archivio di esempio (gruppi, categorie, causali, conti con un "
                 "anno di movimenti fino a oggi) in una cartella dati vuota",
                 esempio);

}  // namespace contavia::cli
