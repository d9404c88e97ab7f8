#include "cli/terminal_prompter.h"

#include <istream>
#include <ostream>

namespace contavia::cli {

std::string oneLine(const Message& message) {
  std::string text;
  for (std::size_t i = 0; i < message.text.size(); ++i) {
    const char c = message.text[i];
    if (c == '\r' && i + 1 < message.text.size() && message.text[i + 1] == '\n') {
      continue;  // a CR LF pair is one line break
    }
    text.push_back(c == '\n' || c == '\r' ? ' ' : c);
  }
  return message.title + ": " + text;
}

std::string TerminalPrompter::ask(const std::string& prompt) {
  *err_ << prompt << std::flush;
  std::string reply;
  if (!std::getline(*in_, reply)) {
    return {};
  }
  return reply;
}

Answer TerminalPrompter::show(const Message& message) {
  *err_ << oneLine(message) << '\n' << std::flush;
  switch (message.buttons) {
    case Buttons::Ok:
      return Answer::Ok;
    case Buttons::OkCancel:
      if (yesToAll_) {
        return Answer::Ok;
      }
      if (interactive_) {
        const std::string reply = ask("Continuare? (s = OK, altro = Annulla) ");
        return reply == "s" || reply == "S" ? Answer::Ok : Answer::Cancel;
      }
      return Answer::Cancel;
    case Buttons::RetryCancel:
      if (interactive_) {
        const std::string reply = ask("(r = Riprova, altro = Annulla) ");
        return reply == "r" || reply == "R" ? Answer::Retry : Answer::Cancel;
      }
      return Answer::Cancel;
    case Buttons::AbortRetryIgnore:
      if (interactive_) {
        const std::string reply = ask("(r = Riprova, i = Ignora, altro = Interrompi) ");
        if (reply == "r" || reply == "R") {
          return Answer::Retry;
        }
        if (reply == "i" || reply == "I") {
          return Answer::Ignore;
        }
      }
      return Answer::Abort;
  }
  return Answer::Cancel;
}

}  // namespace contavia::cli
