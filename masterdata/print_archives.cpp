#include "masterdata/print_archives.h"

#include "masterdata/table_screen.h"
#include "printing/master_listings.h"

namespace contavia {

PrintArchives::PrintArchives(Session& session)
    : accounts_(readTable<Account>(session, kAccountTable).records),
      causali_(readTable<Causale>(session, kCausaleTable).records),
      categories_(readTable<Category>(session, kCategoryTable).records),
      groups_(readTable<Group>(session, kGroupTable).records),
      today_(session.clock().todayText()) {}

Report PrintArchives::report(ArchiveListing listing) const {
  switch (listing) {
    case ArchiveListing::Accounts:
      return accountsListing(accounts_, today_);
    case ArchiveListing::Categories:
      return categoriesListing(categories_, today_);
    case ArchiveListing::Groups:
      return groupsListing(groups_, today_);
    case ArchiveListing::Chart:
      return chartOfAccounts(groups_, categories_, accounts_, today_);
    case ArchiveListing::Causali:
      break;
  }
  return causaliListing(causali_, today_);
}

}  // namespace contavia
