#pragma once
// The shape the master-data commands share (causali, gruppi, categorie, conti): print the rows
// of a window's list; "ok" with row N chosen first or none; row N chosen, then "del". The
// commands drive the same screens as the windows and hold no rule of their own.

#include <optional>
#include <string>
#include <vector>

#include "archive/session.h"
#include "cli/command.h"
#include "masterdata/master_screen.h"

namespace contavia::cli {

// A value typed into a field; an absent value leaves the field as it is.
struct FieldValue {
  const char* field;
  std::optional<std::string> value;
};

int printRows(Context& c, const MasterScreen& screen);
// Chooses row `row` (1-based) when given, types the values, then "ok". Exit 0 when saved.
int saveOn(MasterScreen& screen, std::optional<int> row, const std::vector<FieldValue>& values);
// Chooses row N (the first argument), then "del". Exit 0 when deleted.
int removeOn(MasterScreen& screen, int row);

template <class Screen>
int listCommand(Context& c) {
  c.arguments().expectAtMost(0);
  if (!c.session.start()) {
    return kExitStopped;
  }
  Screen screen(c.session);
  return printRows(c, screen);
}

template <class Screen>
int saveCommand(Context& c, std::optional<int> row, const std::vector<FieldValue>& values) {
  if (!c.session.start()) {
    return kExitStopped;
  }
  Screen screen(c.session);
  return saveOn(screen, row, values);
}

template <class Screen>
int removeCommand(Context& c) {
  const Arguments args = c.arguments();
  args.expectAtMost(1);
  const int row = requireNumber(args.positional(0, "N"), "N");
  if (!c.session.start()) {
    return kExitStopped;
  }
  Screen screen(c.session);
  return removeOn(screen, row);
}

}  // namespace contavia::cli
