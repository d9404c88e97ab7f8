#include "cli/command.h"

#include <algorithm>

#include "common/dates.h"

namespace contavia::cli {

namespace {
std::vector<CommandInfo>& registry() {
  static std::vector<CommandInfo> all;
  return all;
}
}  // namespace

void registerCommand(const CommandInfo& info) { registry().push_back(info); }

const std::vector<CommandInfo>& commands() { return registry(); }

Arguments::Arguments(std::vector<std::string> args, std::vector<std::string> valueOptions) {
  for (std::size_t i = 0; i < args.size(); ++i) {
    const std::string& a = args[i];
    if (a.size() > 2 && a.starts_with("--")) {
      const std::string name = a.substr(2);
      if (std::find(valueOptions.begin(), valueOptions.end(), name) != valueOptions.end()) {
        if (i + 1 >= args.size()) {
          throw UsageError("l'opzione " + a + " richiede un valore");
        }
        options_.emplace_back(name, args[++i]);
      } else {
        flags_.push_back(name);
      }
    } else {
      positional_.push_back(a);
    }
  }
  for (const std::string& f : flags_) {
    if (f != "help") {
      throw UsageError("opzione sconosciuta: --" + f);
    }
  }
}

const std::string& Arguments::positional(std::size_t i, const char* what) const {
  if (i >= positional_.size()) {
    throw UsageError(std::string("manca l'argomento ") + what);
  }
  return positional_[i];
}

std::optional<std::string> Arguments::option(const std::string& name) const {
  for (const auto& [key, value] : options_) {
    if (key == name) {
      return value;
    }
  }
  return std::nullopt;
}

std::optional<int> Arguments::numberOption(const std::string& name) const {
  const auto value = option(name);
  if (!value) {
    return std::nullopt;
  }
  return requireNumber(*value, ("--" + name).c_str());
}

std::optional<std::string> Arguments::dateOption(const std::string& name) const {
  const auto value = option(name);
  if (!value) {
    return std::nullopt;
  }
  return requireDate(*value);
}

bool Arguments::flag(const std::string& name) const {
  return std::find(flags_.begin(), flags_.end(), name) != flags_.end();
}

Arguments Arguments::shifted() const {
  Arguments rest = *this;
  if (!rest.positional_.empty()) {
    rest.positional_.erase(rest.positional_.begin());
  }
  return rest;
}

void Arguments::expectAtMost(std::size_t max) const {
  if (positional_.size() > max) {
    throw UsageError("argomento in più: " + positional_[max]);
  }
}

std::string requireDate(const std::string& text) {
  if (!parseDate(text)) {
    throw UsageError("data non valida: \"" + text + "\" (formato GG/MM/AAAA)");
  }
  return text;
}

int requireNumber(const std::string& text, const char* what) {
  int value = 0;
  bool ok = !text.empty() && text.size() <= 6;
  for (char c : text) {
    ok = ok && c >= '0' && c <= '9';
  }
  if (ok) {
    value = std::stoi(text);
  }
  if (!ok || value < 1) {
    throw UsageError(std::string(what) + " deve essere un numero da 1 in su: \"" + text + "\"");
  }
  return value;
}

}  // namespace contavia::cli
