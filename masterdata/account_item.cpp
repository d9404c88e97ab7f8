#include "masterdata/account_item.h"

#include "common/text.h"

namespace contavia {

std::string accountItem(const Account& account) {
  return padRight(trim(account.accountCode), 10) + " " + padRight(account.accountName, 45);
}

std::vector<std::string> accountItems(const std::vector<Account>& accounts) {
  std::vector<std::string> items;
  items.reserve(accounts.size());
  for (const Account& a : accounts) {
    items.push_back(accountItem(a));
  }
  return items;
}

bool itemNames(std::string_view item, const Account& account) {
  return trim(account.accountCode) == trim(leftChars(item, 10));
}

std::optional<std::size_t> findAccountByItem(const std::vector<Account>& accounts,
                                             std::string_view item) {
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    if (itemNames(item, accounts[i])) {
      return i;
    }
  }
  return std::nullopt;
}

}  // namespace contavia
