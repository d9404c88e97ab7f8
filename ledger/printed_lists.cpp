#include "ledger/printed_lists.h"

#include "common/text.h"
#include "printing/movement_lists.h"

namespace contavia {

Report workingAccountReport(const Session& session, const MovementEntry& entry) {
  std::string caption;
  if (const auto index = session.accountIndex()) {
    const Account& a = session.tables().accounts.at(*index);
    caption = trim(a.accountCode) + "  " + trim(a.accountName);
  }
  const ListFilter& f = entry.filter();
  return accountMovementsReport(caption, {f.from, f.to, f.causale}, entry.list().lines,
                                session.clock().todayText());
}

Report queryReport(const QueryFilter& filter, const QueryResult& result, const std::string& today) {
  return queryMovementsReport(
      {filter.from, filter.to, filter.causale, filter.group, filter.category}, result.rows, today);
}

}  // namespace contavia
