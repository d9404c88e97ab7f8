#pragma once
// The commands of contavia-cli. Each command file registers itself with CONTAVIA_COMMAND; the
// command calls the same core functions as the desktop program and holds no rule of its own.

#include <iosfwd>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "archive/session.h"

namespace contavia::cli {

inline constexpr int kExitDone = 0;
inline constexpr int kExitStopped = 1;  // a message, a refusal or a Cancel stopped the action
inline constexpr int kExitUsage = 2;

// A usage error: unknown command, missing argument, malformed date. Exit status 2.
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// The arguments of one command: positional values and "--name value" / "--flag" options.
class Arguments {
 public:
  Arguments(std::vector<std::string> args, std::vector<std::string> valueOptions);
  // The positional argument `i`; throws UsageError naming `what` when missing.
  const std::string& positional(std::size_t i, const char* what) const;
  std::size_t positionalCount() const { return positional_.size(); }
  std::optional<std::string> option(const std::string& name) const;
  // A "--n N" style option read as a row or movement number (1 or more).
  std::optional<int> numberOption(const std::string& name) const;
  // A date option ("--dal 01/01/2026"), checked as "dd/mm/yyyy".
  std::optional<std::string> dateOption(const std::string& name) const;
  bool flag(const std::string& name) const;
  // Refuses more positional arguments than `max`.
  void expectAtMost(std::size_t max) const;
  // The same arguments without the first positional one (a command that names a subcommand).
  Arguments shifted() const;

 private:
  std::vector<std::string> positional_;
  std::vector<std::pair<std::string, std::string>> options_;
  std::vector<std::string> flags_;
};

struct Context {
  Session& session;
  std::ostream& out;
  std::ostream& err;
  const std::vector<std::string>& rawArgs;
  // Parses the command's arguments, knowing which options take a value.
  Arguments arguments(std::vector<std::string> valueOptions = {}) const {
    return Arguments(rawArgs, std::move(valueOptions));
  }
};

struct CommandInfo {
  const char* name;
  const char* usage;    // arguments, after the name
  const char* summary;  // one line, in Italian
  int (*run)(Context&);
};

void registerCommand(const CommandInfo& info);
const std::vector<CommandInfo>& commands();

struct Registration {
  explicit Registration(const CommandInfo& info) { registerCommand(info); }
};

// Reads a "dd/mm/yyyy" date argument; throws UsageError when malformed.
std::string requireDate(const std::string& text);
// Reads a row or movement number argument (1 or more); throws UsageError otherwise.
int requireNumber(const std::string& text, const char* what);

}  // namespace contavia::cli

#define CONTAVIA_CONCAT_INNER(a, b) a##b
#define CONTAVIA_CONCAT(a, b) CONTAVIA_CONCAT_INNER(a, b)
#define CONTAVIA_COMMAND(name, usage, summary, fn)            \
  static const ::contavia::cli::Registration CONTAVIA_CONCAT( \
      registration_, __LINE__)(::contavia::cli::CommandInfo{name, usage, summary, fn})
