#pragma once
// The seam through which the core shows every message and asks every question. The desktop
// program answers with message boxes, the command line on the terminal, tests from a script.

#include <string>

namespace contavia {

enum class Buttons { Ok, OkCancel, RetryCancel, AbortRetryIgnore };
enum class Icon { None, Exclamation };
enum class Answer { Ok, Cancel, Abort, Retry, Ignore };

struct Message {
  std::string title;
  std::string text;
  Buttons buttons = Buttons::Ok;
  Icon icon = Icon::None;
  Answer defaultButton = Answer::Ok;

  bool operator==(const Message&) const = default;
};

class Prompter {
 public:
  virtual ~Prompter() = default;
  virtual Answer show(const Message& message) = 0;
  virtual void beep() = 0;
};

// The program's own title, used by the boxes that carry no title of their own.
inline constexpr const char* kProgramTitle = "Contavia";
inline constexpr const char* kDiskErrorTitle = "Errore Disco";

// Message box builders for the kinds of box the system uses.
Message errorBox(std::string text);                     // "ERRORE", OK, exclamation
Message warningQuestion(std::string text);              // "AVVERTIMENTO!", OK/Cancel
Message plainBox(std::string title, std::string text);  // OK, no icon
// "Errore Disco", exclamation; the default button is Retry for Retry/Cancel, Abort for
// Abort/Retry/Ignore, OK for OK.
Message diskErrorBox(std::string text, Buttons buttons = Buttons::Ok);

// Shows a question and tells whether the user pressed OK.
bool confirm(Prompter& prompter, const Message& question);

}  // namespace contavia
