#include "ledger/text_order.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace contavia {

std::vector<std::uint32_t> orderAsText(const std::vector<std::string>& keyed) {
  constexpr std::size_t kPrefix = 24;
  struct Entry {
    // Zeros past the end of a shorter line sort it first, as a shorter text.
    std::array<unsigned char, kPrefix> prefix{};
    std::uint32_t index = 0;
  };
  std::vector<Entry> entries(keyed.size());
  for (std::size_t i = 0; i < keyed.size(); ++i) {
    std::memcpy(entries[i].prefix.data(), keyed[i].data(), std::min(kPrefix, keyed[i].size()));
    entries[i].index = static_cast<std::uint32_t>(i);
  }
  std::sort(entries.begin(), entries.end(), [&](const Entry& a, const Entry& b) {
    const int byPrefix = std::memcmp(a.prefix.data(), b.prefix.data(), kPrefix);
    return byPrefix != 0 ? byPrefix < 0 : keyed[a.index] < keyed[b.index];
  });
  std::vector<std::uint32_t> order(entries.size());
  for (std::size_t i = 0; i < entries.size(); ++i) {
    order[i] = entries[i].index;
  }
  return order;
}

}  // namespace contavia
