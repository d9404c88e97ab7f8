#pragma once
// The disk-error routine: an error number becomes a message under "Errore Disco" and the button
// pressed becomes a verdict. The folder change, the closing, its undo and the backups run their
// steps under it; the other procedures skip a failing step.

#include <functional>
#include <string>

#include "archive/write_journal.h"
#include "common/prompter.h"

namespace contavia {

// Verdicts of the routine.
inline constexpr int kVerdictRetry = 0;
inline constexpr int kVerdictIgnore = 1;
inline constexpr int kVerdictGiveUp = 2;
inline constexpr int kVerdictUnknown = 3;

// Shows the message of `errorNumber` and returns the verdict (0 retry, 1 ignore, 2 give up,
// 3 not a known disk error: nothing shown).
int diskErrorRoutine(Prompter& prompter, int errorNumber);

// One step of a guarded procedure failed and the user chose to give up.
struct ProcedureAbandoned {
  int verdict = kVerdictGiveUp;
};

// The steps of a procedure that runs under the disk-error routine.
class GuardedSteps {
 public:
  GuardedSteps(Prompter& prompter, WriteJournal* journal)
      : prompter_(&prompter), journal_(journal) {}
  // Runs one step (returning a disk-error number). On an error the routine is asked: Retry
  // starts the whole procedure again, Ignore skips this step (returns false) and the journal
  // goes on writing the later steps, the others
  // abandon the procedure.
  bool step(const std::function<int()>& action);

 private:
  Prompter* prompter_;
  WriteJournal* journal_;
};

// Runs `procedure` until it completes or is abandoned. Before a restart and after an abandon the
// journal's writes are taken back, so an abandoned procedure leaves the files as they were; on
// abandon "Errore irrecuperabile" or "Erore non riconosciuto" is shown. True when completed.
bool runGuarded(Prompter& prompter, WriteJournal* journal,
                const std::function<void(GuardedSteps&)>& procedure);

// Runs `action` (returning a disk-error number) under the routine until it goes: Retry repeats
// it, any other answer stops. Returns kDiskStepDone, or the verdict that stopped it.
inline constexpr int kDiskStepDone = -1;
int retryUnderRoutine(Prompter& prompter, const std::function<int()>& action);

// "Errore irrecuperabile", or "Erore non riconosciuto" for an error the routine does not know.
void showAbandoned(Prompter& prompter, int verdict);

// An all-or-nothing step (its writes taken back when it fails) under the routine: Retry repeats
// it whole; any other answer ends it with "Errore irrecuperabile" (or "Erore non riconosciuto")
// and the message that names the file that could not be written. True when the step went.
bool stepUnderRoutine(Prompter& prompter, const std::function<WriteOutcome()>& step);
// The two messages of a step given up at the routine with `verdict` after `outcome`.
void showGivenUp(Prompter& prompter, int verdict, const WriteOutcome& outcome);

// A short description of an error number for the messages that name a file ("disco pieno").
std::string describeDiskError(int errorNumber);

// The message of a file the user asked for (a report, a PDF) that could not be written.
Message fileNotWrittenBox(const std::string& path);

// True when every write of an operation went; otherwise tells the user which file could not be
// written and that the operation was taken back. Used by the procedures that otherwise run
// without the routine, so that a full disk never goes unnoticed.
bool written(Prompter& prompter, const WriteOutcome& outcome);

}  // namespace contavia
