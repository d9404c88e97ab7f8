#include "masterdata/accounts_screen.h"

#include "archive/account_files.h"
#include "archive/disk_errors.h"
#include "masterdata/account_codes.h"
#include "masterdata/account_item.h"
#include "masterdata/code_rules.h"

namespace contavia {
AccountsScreen::AccountsScreen(Session& session)
    : TableScreen(
          session,
          {{.name = kCode, .label = "Nr. conto", .width = 10},
           {.name = kName, .label = "Nome", .width = 45},
           {.name = kAddress, .label = "Indirizzo", .width = 45},
           {.name = kPostCode, .label = "CAP", .width = 5, .accepts = kDigits},
           {.name = kTown, .label = "Località", .width = 25},
           {.name = kProvince, .label = "Provincia", .width = 2},
           {.name = kCreditLine, .label = "Fido", .width = 15, .accepts = kDigits},
           {.name = kCategory, .label = "Categoria", .width = 33, .kind = FieldDefinition::Choice}},
          Setup{kAccountTable, kAccountTable, "conti", /*keepsChangedRecord=*/false,
                kAccountItemWidth, padRight("Codice", 11) + "Nome"}) {
  open();
  categories_ = readTable<Category>(session, kCategoryTable).records;
}

std::vector<std::string> AccountsScreen::choices() const {
  std::vector<std::string> items;
  items.reserve(categories_.size());
  for (const Category& c : categories_) {
    items.push_back(codeDashNameRow(c.categoryCode, c.categoryName));
  }
  return items;
}

std::optional<std::string> AccountsScreen::itemOf(std::string_view categoryName) const {
  for (const Category& c : categories_) {
    if (trim(c.categoryName) == trim(categoryName)) {
      return codeDashNameRow(c.categoryCode, c.categoryName);
    }
  }
  return std::nullopt;
}

bool AccountsScreen::pickChoice(std::string_view name) {
  const std::optional<std::string> item = itemOf(name);
  if (item) {
    put(kCategory, *item);
  }
  return item.has_value() || MasterScreen::pickChoice(name);
}

bool AccountsScreen::editable(std::string_view name) const {
  return name != kCode || selected() == 0;
}

bool AccountsScreen::enter(std::string_view name) {
  if (name == kCode && field(kCode).empty()) {
    session().prompter().show(errorBox("Campo obbligatorio"));
    put(kCode, {});
    return false;
  }
  return true;
}

std::string AccountsScreen::row(const Account& r) const { return accountItem(r); }

bool AccountsScreen::rowNames(const Account& r, std::string_view chosen) const {
  return itemNames(chosen, r);
}

void AccountsScreen::show(const Account& r) {
  put(kCode, trimRight(r.accountCode));
  put(kName, trimRight(r.accountName));
  put(kAddress, trimRight(r.bankAddress));
  put(kPostCode, trimRight(r.bankPostCode));
  put(kTown, trimRight(r.bankTown));
  put(kProvince, trimRight(r.bankProvince));
  put(kCreditLine, trimRight(r.creditLine));
  // The item of the account's category; a description no category has any more is shown as it
  // is, and kept by a save.
  put(kCategory, itemOf(r.categoryName).value_or(trimRight(r.categoryName)));
}

void AccountsScreen::fill(Account& r) const {
  r.accountCode = field(kCode);
  r.categoryName = trim(rightChars(field(kCategory), 25));
  r.accountName = field(kName);
  r.bankAddress = field(kAddress);
  r.bankPostCode = field(kPostCode);
  r.bankTown = field(kTown);
  r.bankProvince = field(kProvince);
  r.creditLine = field(kCreditLine);
  // The group of the category, every category of that description in file order: the last
  // one wins; with none the account keeps the group it had.
  for (const Category& c : categories_) {
    if (trim(c.categoryName) == trim(r.categoryName)) {
      r.groupName = trim(c.groupName);
    }
  }
}

// Two codes that differ only in letter case or blanks would name the same files: they count as
// the same code.
bool AccountsScreen::accepts(bool changing) {
  Prompter& prompter = session().prompter();
  const std::string code = field(kCode);
  if (trim(code).empty()) {
    prompter.show(errorBox("Nr. di conto obbligatorio"));
    return false;
  }
  if (!changing) {
    if (const std::string problem = accountCodeProblem(code); !problem.empty()) {
      prompter.show(errorBox(problem));
      return false;
    }
  }
  for (std::size_t i = 0; i < table().size(); ++i) {
    if (i + 1 != selected() && equalsIgnoringCase(trim(table()[i].accountCode), trim(code))) {
      prompter.show(errorBox(
          "Si è inserito un numero di conto già esistente, i dati inseriti non possono essere "
          "salvati. Cambiare il nr. di conto e riprovare."));
      return false;
    }
  }
  if (field(kCategory).empty()) {
    prompter.show(errorBox("Campo Tipo conto obbligatorio, selezionare un tipo e riprovare."));
    return false;
  }
  return true;
}

Message AccountsScreen::removeQuestion() const {
  return warningQuestion(
      "Attenzione il conto selezionato verrà cancellato tutti i dati verranno irrimediabilmente "
      "persi. Vuoi continuare ?");
}

bool AccountsScreen::mayRemoveConfirmed(const Account& r) {
  const std::string& working = session().chosenAccountCode();
  if (!working.empty() && working == trim(r.accountCode)) {
    session().prompter().show(
        plainBox("attenzione",
                 "Non si può cancellare il conto sul quale si lavora, devi prima chiudere "
                 "il conto"));
    return false;
  }
  return true;
}

// The files of every account whose code begins with the deleted one go too (account 1 takes
// the files of account 10); only account files are ever taken.
void AccountsScreen::removing(const Account& r, WriteJournal& journal) {
  removeAccountFiles(journal, session().dir(), r.accountCode, CodeMatch::Prefix);
}

void AccountsScreen::publish() { session().tables().accounts = table(); }

}  // namespace contavia
