#pragma once
// The listings of the master tables ("Elenco Causali", "Elenco Conti", "Elenco Categorie",
// "Elenco gruppi") and the chart of accounts ("Piano dei conti"): one line per record, or the tree
// of groups, categories and accounts. `today` is "dd/mm/yyyy".

#include <string>
#include <vector>

#include "archive/records.h"
#include "printing/report_page.h"

namespace contavia {

Report causaliListing(const std::vector<Causale>& causali, const std::string& today);
Report accountsListing(const std::vector<Account>& accounts, const std::string& today);
Report categoriesListing(const std::vector<Category>& categories, const std::string& today);
Report groupsListing(const std::vector<Group>& groups, const std::string& today);

// Each group in table order; under it the categories of that group, under each category its
// accounts (both found by description). A page broken inside the tree says "segue...".
Report chartOfAccounts(const std::vector<Group>& groups, const std::vector<Category>& categories,
                       const std::vector<Account>& accounts, const std::string& today);

}  // namespace contavia
