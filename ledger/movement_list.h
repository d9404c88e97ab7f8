#pragma once
// The movement list of the working account (`ElencoMovim`): a carry-forward line, one line per
// movement newest first, and the totals block. Each line is built with an 8-character ordering
// key in front, the keyed lines are sorted as text, and the keys are dropped.

#include <optional>
#include <string>
#include <vector>

#include "archive/movement_records.h"
#include "archive/records.h"

namespace contavia {

enum class ListBuilder {
  Main,        // after choosing the account, an append, a deletion, a closing, a restore
  WholeUnits,  // amounts without decimals
  Filtered,    // date range and causale of the filter controls
};

struct ListFilter {
  std::string from;                // `DataInizSel`, "dd/mm/yyyy"
  std::string to;                  // `Datafinesel`, "dd/mm/yyyy"
  std::string causale = " TUTTE";  // an item of the causale selector
};

struct MovementList {
  std::vector<std::string> lines;  // as shown, keys dropped
  bool hasCarryForwardLine = false;
};

inline constexpr const char* kAllCausali = " TUTTE";

// The causale selector of the movement window: " TUTTE", then every description in file order.
std::vector<std::string> causaleSelectorItems(const std::vector<Causale>& causali);

// A movement's number as the lists show it, with the mask "0000".
std::string movementNumberText(std::int16_t number);

// The column heading over the list, lined up with its lines.
std::string movementListHeading();

// Builds the list. `filter` is used by the filtered builder only.
MovementList buildMovementList(const MovementRecords& movements, const CarryForward& carry,
                               const std::vector<Causale>& causali, ListBuilder builder,
                               const ListFilter& filter = {});

// The movement number a picked line stands for (the four digits after its date), or nullopt
// for a line that picks nothing: the carry-forward line, a separator (ending in "--"), a line
// past the movement count, a totals line. `row` is 0-based.
std::optional<std::size_t> pickedMovementNumber(const MovementList& list, std::size_t row,
                                                std::size_t movementCount);

}  // namespace contavia
