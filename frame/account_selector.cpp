#include "frame/account_selector.h"

#include "masterdata/account_item.h"

namespace contavia {
namespace {

bool nameMatchesLetter(const std::string& name, char letter) {
  if (name.empty()) {
    return false;
  }
  const char first = name.front();
  switch (letter) {
    case 'J':
      return first == 'J' || first == 'K';
    case 'W':
      return first == 'W' || first == 'Y';
    default:
      return first == letter;
  }
}

}  // namespace

std::vector<std::string> accountItemsForLabel(const std::vector<Account>& accounts,
                                              std::size_t label) {
  if (label >= kAllAccountsLabel) {
    return accountItems(accounts);
  }
  const char letter = kIndexLetters[label];
  std::vector<std::string> items;
  for (const Account& a : accounts) {
    if (nameMatchesLetter(a.accountName, letter)) {
      items.push_back(accountItem(a));
    }
  }
  return items;
}

}  // namespace contavia
