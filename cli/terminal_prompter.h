#pragma once
// Message boxes on the terminal: each box is one line on standard error ("title: text"); a
// question is asked on the terminal, answered OK by --si, and Cancel (or Abort) with no terminal.

#include <iosfwd>
#include <string>

#include "common/prompter.h"

namespace contavia::cli {

class TerminalPrompter final : public Prompter {
 public:
  TerminalPrompter(std::istream& in, std::ostream& err, bool interactive, bool yesToAll)
      : in_(&in), err_(&err), interactive_(interactive), yesToAll_(yesToAll) {}

  Answer show(const Message& message) override;
  void beep() override {}

  // Counts the boxes shown with the exclamation icon: errors and refusals.
  int warnings() const { return warnings_; }

 private:
  std::string ask(const std::string& prompt);

  std::istream* in_;
  std::ostream* err_;
  bool interactive_;
  bool yesToAll_;
  int warnings_ = 0;
};

// One line of a message: its line breaks written as blanks.
std::string oneLine(const Message& message);

}  // namespace contavia::cli
