#include "frame/account_panel_texts.h"

#include "archive/running_balances.h"
#include "common/number_masks.h"
#include "common/text.h"

namespace contavia {
namespace {

constexpr const char* kFigureMask = "###,###,###.00";

}  // namespace

AccountPanelTexts accountPanelTexts(const Session& session) {
  const OpenAccount* account = session.account();
  const auto index = session.accountIndex();
  if (account == nullptr || !index) {
    return {};
  }
  const Account& a = session.tables().accounts.at(*index);
  const std::string province = trim(a.bankProvince);
  const ExactBalances& shown = account->shownBalances();
  AccountPanelTexts texts;
  texts.name = trim(a.accountCode) + "  " + trim(a.accountName);
  texts.address = trim(a.bankAddress);
  texts.town = trim(trim(a.bankPostCode) + " " + trim(a.bankTown)) +
               (province.empty() ? "" : " (" + province + ")");
  texts.group = trim(a.groupName);
  texts.category = trim(a.categoryName);
  texts.latestDate = account->dateSpan().latest;
  texts.figures = {formatNumber(shown.today, kFigureMask), formatNumber(shown.total, kFigureMask),
                   formatNumber(val(a.creditLine), kFigureMask),
                   formatNumber(availableOf(shown.today, a.creditLine), kFigureMask)};
  return texts;
}

}  // namespace contavia
