#pragma once
// The item of an account, as the account selector of the main window and the list of the accounts
// window show it: the trimmed code padded to 10 characters, a blank, and the name in its full
// width of 45 characters. The first 10 characters of an item name its account.

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/records.h"

namespace contavia {

inline constexpr std::size_t kAccountItemWidth = 56;

std::string accountItem(const Account& account);
std::vector<std::string> accountItems(const std::vector<Account>& accounts);
// Whether `item` names `account`: its first 10 characters equal the code, blanks ignored at both
// ends.
bool itemNames(std::string_view item, const Account& account);
// The first account (0-based) that the item names; nullopt when none does.
std::optional<std::size_t> findAccountByItem(const std::vector<Account>& accounts,
                                             std::string_view item);

}  // namespace contavia
