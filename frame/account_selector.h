#pragma once
// The account selector of the main window and its letter index.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "archive/records.h"

namespace contavia {

// The letters of the index, one label each, in order (the alphabet without K, X and Y).
inline constexpr std::string_view kIndexLetters = "ABCDEFGHIJLMNOPQRSTUVWZ";
// The last label of the index, which lists every account.
inline constexpr std::size_t kAllAccountsLabel = 23;
inline constexpr const char* kAllAccountsCaption = "Tutti";

// The items of the selector after a click on label `label` (0..23): every account for "Tutti";
// otherwise the accounts whose name begins exactly with the label's letter ("J" also takes "K",
// "W" also takes "Y"), in record order.
std::vector<std::string> accountItemsForLabel(const std::vector<Account>& accounts,
                                              std::size_t label);

}  // namespace contavia
