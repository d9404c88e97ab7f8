#pragma once
// The print-archives window (`Form21`, "Stampa Archivi") without its widgets: it reads the four
// master tables when it opens, and each of its buttons prints one listing, or the chart of
// accounts.

#include <vector>

#include "archive/records.h"
#include "archive/session.h"
#include "printing/report_page.h"

namespace contavia {

enum class ArchiveListing {
  Causali,     // `Command3D5`, "Elenco Causali"
  Accounts,    // `conti`, "Elenco Conti"
  Categories,  // `tipi`, "Elenco Categorie"
  Groups,      // `Gruppi`, "Elenco gruppi"
  Chart,       // `SSCommand1`, "Piano dei conti"
};

class PrintArchives {
 public:
  // Opening: the tables are read from their files; damage found is shown.
  explicit PrintArchives(Session& session);
  Report report(ArchiveListing listing) const;

 private:
  std::vector<Account> accounts_;
  std::vector<Causale> causali_;
  std::vector<Category> categories_;
  std::vector<Group> groups_;
  std::string today_;
};

}  // namespace contavia
