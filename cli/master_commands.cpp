#include "cli/master_commands.h"

#include <ostream>

namespace contavia::cli {
namespace {

void chooseRow(MasterScreen& screen, int row) {
  const std::size_t count = screen.rows().size();
  if (static_cast<std::size_t>(row) > count) {
    throw UsageError("la riga " + std::to_string(row) + " non esiste: l'elenco ha " +
                     std::to_string(count) + " righe");
  }
  screen.chooseRow(static_cast<std::size_t>(row - 1));
  if (screen.selected() == 0) {
    // The row's first characters name no record (a code with leading blanks): saying so beats
    // adding a new record or deleting nothing without a word.
    throw UsageError("la riga " + std::to_string(row) + " non corrisponde a nessun record");
  }
}

void type(MasterScreen& screen, const FieldValue& v) {
  if (std::string(v.field) == kChoiceField) {
    if (!screen.pickChoice(*v.value)) {
      throw UsageError("\"" + *v.value + "\" non è tra le voci dell'elenco " + kChoiceField);
    }
  } else if (!screen.setField(v.field, *v.value)) {
    throw UsageError("il campo " + std::string(v.field) + " non accetta \"" + *v.value + "\"");
  }
}

}  // namespace

int printRows(Context& c, const MasterScreen& screen) {
  for (const std::string& row : screen.rows()) {
    c.out << row << "\n";
  }
  return kExitDone;
}

int saveOn(MasterScreen& screen, std::optional<int> row, const std::vector<FieldValue>& values) {
  if (row) {
    chooseRow(screen, *row);
  }
  for (const FieldValue& v : values) {
    if (v.value) {
      type(screen, v);
    }
  }
  return screen.save() ? kExitDone : kExitStopped;
}

int removeOn(MasterScreen& screen, int row) {
  chooseRow(screen, row);
  return screen.remove() ? kExitDone : kExitStopped;
}

}  // namespace contavia::cli
