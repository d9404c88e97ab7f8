#include "printing/master_listings.h"

#include "common/number_masks.h"
#include "common/text.h"

namespace contavia {
namespace {

// The header of the master listings and of the chart of accounts.
ReportLayout listingLayout(const std::string& title, std::string heading, const std::string& today,
                           int breakCount, int padTarget) {
  ReportLayout layout;
  layout.header.title = std::string(41, ' ') + title;
  layout.header.titleSpacer = true;
  layout.header.dateBlock = {" Stampato il " + today};
  layout.header.columnHeading = std::move(heading);
  layout.breakCount = breakCount;
  layout.padTarget = padTarget;
  return layout;
}

std::string codeDashName(const std::string& code, const std::string& name) {
  return padRight(trim(code), 5) + " - " + padRight(name, 25);
}

}  // namespace

Report causaliListing(const std::vector<Causale>& causali, const std::string& today) {
  Report r{listingLayout("Elenco Causali", " Cod.    Descrizione                    D/A ", today,
                         57, 57),
           {}};
  for (const Causale& c : causali) {
    r.lines.push_back(" " + padRight(c.causaleCode, 5) + " - " +
                      padRight(c.causaleDescription, 25) + std::string(7, ' ') +
                      padRight(c.sign, 1));
  }
  return r;
}

Report accountsListing(const std::vector<Account>& accounts, const std::string& today) {
  Report r{listingLayout("Elenco Conti ",
                         " Codice     Conto                                    Gruppo          "
                         "Categoria       Fido",
                         today, 56, 54),
           {}};
  r.layout.header.ruleDashes = 97;
  for (const Account& a : accounts) {
    r.lines.push_back(" " + padRight(a.accountCode, 10) + " " + padRight(a.accountName, 40) + " " +
                      padRight(a.groupName, 15) + " " + padRight(a.categoryName, 15) + " " +
                      formatNumber(val(a.creditLine), "###,###,###"));
  }
  return r;
}

Report categoriesListing(const std::vector<Category>& categories, const std::string& today) {
  Report r{listingLayout("Elenco Categorie", " Cod.     Descrizione                     ", today,
                         57, 57),
           {}};
  for (const Category& c : categories) {
    r.lines.push_back(codeDashName(c.categoryCode, c.categoryName));
  }
  return r;
}

Report groupsListing(const std::vector<Group>& groups, const std::string& today) {
  Report r{
      listingLayout("Elenco gruppi", " Cod.     Descrizione                     ", today, 57, 57),
      {}};
  for (const Group& g : groups) {
    r.lines.push_back(codeDashName(g.groupCode, g.groupName));
  }
  return r;
}

Report chartOfAccounts(const std::vector<Group>& groups, const std::vector<Category>& categories,
                       const std::vector<Account>& accounts, const std::string& today) {
  Report r{
      listingLayout("Piano dei conti",
                    " Cod.   Gruppo           Cod.  categoria    Codice     Conto ", today, 56, 54),
      {}};
  r.layout.segue = true;
  for (const Group& g : groups) {
    r.lines.push_back("  " + padRight(g.groupCode, 5) + padRight(g.groupName, 25));
    for (const Category& c : categories) {
      if (trim(c.groupName) != trim(g.groupName)) {
        continue;
      }
      // Under the category columns of the heading.
      r.lines.push_back(std::string(25, ' ') + padRight(c.categoryCode, 5) + " " +
                        padRight(c.categoryName, 25));
      for (const Account& a : accounts) {
        if (trim(a.categoryName) == trim(c.categoryName)) {
          r.lines.push_back(" " + padRight(a.accountCode, 10) + padRight(a.accountName, 45));
        }
      }
    }
  }
  return r;
}

}  // namespace contavia
