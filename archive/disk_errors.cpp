#include "archive/disk_errors.h"

#include "archive/file_layer.h"

namespace contavia {
namespace {

struct RoutineEntry {
  std::string message;
  Buttons buttons;
};

bool lookup(int n, RoutineEntry& entry) {
  switch (n) {
    case 52:
    case 64:
      entry = {"Nome o numero di file non valido", Buttons::Ok};
      return true;
    case 53:
      entry = {"Il file non esiste.", Buttons::Ok};
      return true;
    case 54:
      entry = {"Modalità di file non valida.", Buttons::AbortRetryIgnore};
      return true;
    case 55:
      entry = {"File già aperto.", Buttons::Ok};
      return true;
    case 57:
      entry = {"Errore di I/O di periferica", Buttons::RetryCancel};
      return true;
    case 61:
      entry = {"Disco pieno. Continuare?", Buttons::AbortRetryIgnore};
      return true;
    case 62:
      entry = {std::string("Input oltre la fine del file; è stata ") +
                   "raggiunta la fine del file e non si " + "può continuare con la lettura.",
               Buttons::Ok};
      return true;
    case 68:
      entry = {"Periferica non disponibile.", Buttons::RetryCancel};
      return true;
    case 71:
      entry = {"Disco non pronto. Inserire un dischetto", Buttons::RetryCancel};
      return true;
    case 76:
      entry = {"Il percorso non esiste", Buttons::Ok};
      return true;
    default:
      return false;
  }
}

}  // namespace

std::string describeDiskError(int n) {
  switch (n) {
    case diskerr::kDiskFull:
      return "disco pieno";
    case diskerr::kPathNotFound:
      return "il percorso non esiste";
    case diskerr::kFileNotFound:
      return "il file non esiste";
    case diskerr::kPermissionDenied:
    case diskerr::kPathFileAccess:
      return "accesso negato";
    case diskerr::kDeviceIo:
      return "errore di I/O di periferica";
    case diskerr::kDeviceUnavailable:
    case diskerr::kDiskNotReady:
      return "periferica non disponibile";
    case diskerr::kBadFileName:
    case diskerr::kBadFileNameOrNumber:
      return "nome di file non valido";
    default:
      return "errore " + std::to_string(n);
  }
}

namespace {
struct RestartProcedure {};
}  // namespace

int diskErrorRoutine(Prompter& prompter, int errorNumber) {
  RoutineEntry entry;
  if (!lookup(errorNumber, entry)) {
    return kVerdictUnknown;
  }
  const Answer answer = prompter.show(diskErrorBox(entry.message, entry.buttons));
  switch (answer) {
    case Answer::Retry:
      return kVerdictRetry;
    case Answer::Ignore:
      return kVerdictIgnore;
    default:
      return kVerdictGiveUp;
  }
}

bool GuardedSteps::step(const std::function<int()>& action) {
  const int rc = action();
  if (rc == diskerr::kOk) {
    return true;
  }
  switch (const int verdict = diskErrorRoutine(*prompter_, rc)) {
    case kVerdictRetry:
      throw RestartProcedure{};
    case kVerdictIgnore:
      if (journal_ != nullptr) {
        journal_->goOnAfterFailure();
      }
      return false;
    default:
      throw ProcedureAbandoned{verdict};
  }
}

bool runGuarded(Prompter& prompter, WriteJournal* journal,
                const std::function<void(GuardedSteps&)>& procedure) {
  for (;;) {
    GuardedSteps steps(prompter, journal);
    try {
      procedure(steps);
      return true;
    } catch (const RestartProcedure&) {
      if (journal != nullptr) {
        journal->rollback();
      }
    } catch (const ProcedureAbandoned& abandoned) {
      if (journal != nullptr) {
        journal->rollback();
      }
      showAbandoned(prompter, abandoned.verdict);
      return false;
    }
  }
}

int retryUnderRoutine(Prompter& prompter, const std::function<int()>& action) {
  for (;;) {
    const int rc = action();
    if (rc == diskerr::kOk) {
      return kDiskStepDone;
    }
    if (const int verdict = diskErrorRoutine(prompter, rc); verdict != kVerdictRetry) {
      return verdict;
    }
  }
}

void showAbandoned(Prompter& prompter, int verdict) {
  prompter.show(diskErrorBox(verdict == kVerdictUnknown ? "Erore non riconosciuto"
                                                        : "Errore irrecuperabile"));
}

void showGivenUp(Prompter& prompter, int verdict, const WriteOutcome& outcome) {
  showAbandoned(prompter, verdict);
  written(prompter, outcome);
}

bool stepUnderRoutine(Prompter& prompter, const std::function<WriteOutcome()>& step) {
  WriteOutcome outcome;
  const int verdict = retryUnderRoutine(prompter, [&] {
    outcome = step();
    return outcome.error;
  });
  if (verdict == kDiskStepDone) {
    return true;
  }
  showGivenUp(prompter, verdict, outcome);
  return false;
}

Message fileNotWrittenBox(const std::string& path) {
  return errorBox("Impossibile scrivere il file " + path + ".");
}

bool written(Prompter& prompter, const WriteOutcome& outcome) {
  if (outcome.ok()) {
    return true;
  }
  if (outcome.error == WriteOutcome::kDamaged) {
    prompter.show(errorBox("Il file " + outcome.failedFile +
                           " è danneggiato: finché non viene riparato non si possono registrare "
                           "modifiche."));
    return false;
  }
  const char* what = outcome.removing ? "eliminare" : "scrivere";
  prompter.show(diskErrorBox(std::string("Impossibile ") + what + " il file " + outcome.failedFile +
                             " (" + describeDiskError(outcome.error) +
                             "). L'operazione è stata annullata e i dati non sono stati "
                             "modificati."));
  return false;
}

}  // namespace contavia
