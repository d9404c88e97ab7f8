#include "frame/frame_commands.h"

#include "common/prompter.h"

namespace contavia {

bool confirmExit(Prompter& prompter) { return confirm(prompter, warningQuestion(kExitQuestion)); }

}  // namespace contavia
