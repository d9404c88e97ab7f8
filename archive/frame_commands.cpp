#include "archive/frame_commands.h"

#include "archive/prompter.h"

namespace contavia {

bool confirmExit(Prompter& prompter) { return confirm(prompter, warningQuestion(kExitQuestion)); }

}  // namespace contavia
