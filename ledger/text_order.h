#pragma once
// The lists that a hidden sorted list box puts in order: lines sorted as text, character by
// character, ascending. The lines are compared by their first 24 characters (sort key, date,
// number) held side by side, and whole only when those are equal, which keeps a million lines
// quick to sort.

#include <cstdint>
#include <string>
#include <vector>

namespace contavia {

// The positions of `lines` in sorted order.
std::vector<std::uint32_t> orderAsText(const std::vector<std::string>& lines);

}  // namespace contavia
