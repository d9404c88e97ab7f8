#include "archive/session.h"

#include "archive/record_file.h"
#include "archive/tables.h"
#include "archive/write_journal.h"
#include "common/text.h"

namespace contavia {

std::optional<std::size_t> findAccountByCode(const std::vector<Account>& accounts,
                                             std::string_view code) {
  const std::string wanted = trim(code);
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    if (trim(accounts[i].accountCode) == wanted) {
      return i;
    }
  }
  return std::nullopt;
}

Session::Session(FileLayer& files, Prompter& prompter, const Clock& clock, std::string folder,
                 std::string program)
    : dir_(files, std::move(folder)),
      program_(std::move(program)),
      prompter_(&prompter),
      clock_(&clock) {}

void Session::showProblem(const std::string& problem) {
  if (!problem.empty()) {
    prompter_->show(errorBox(problem));
  }
}

bool Session::start() {
  dir_.ensureExists();
  if (const int rc = lock_.take(dir_, program_); rc != diskerr::kOk) {
    prompter_->show(errorBox(FolderLock::refusalText(dir_, rc)));
    return false;
  }
  if (const std::string note = takeBackInterruptedOperation(dir_); !note.empty()) {
    prompter_->show(plainBox(kProgramTitle, note));
  }
  readCount(files(), dir_.path(filename::kMovementCounter), tables_.movementCounter);
  auto accounts = loadTable<Account>(dir_, kAccountTable);
  tables_.accounts = std::move(accounts.records);
  showProblem(accounts.damage.problem);
  reloadCausali();
  reloadCategories();
  return true;
}

void Session::reloadCausali() {
  auto causali = loadTable<Causale>(dir_, kCausaleTable);
  tables_.causali = std::move(causali.records);
  showProblem(causali.damage.problem);
}

void Session::reloadCategories() {
  auto categories = loadTable<Category>(dir_, kCategoryTable);
  tables_.categories = std::move(categories.records);
  showProblem(categories.damage.problem);
}

void Session::openAccount(std::size_t index) {
  closeAccount();
  const Account& record = tables_.accounts.at(index);
  account_ = std::make_unique<OpenAccount>(dir_, *clock_, record.accountCode, record.creditLine);
  accountIndex_ = index;
  chosenCode_ = account_->code();
  showProblem(account_->load());
}

bool Session::openAccountByCode(std::string_view code) {
  const auto index = findAccountByCode(tables_.accounts, code);
  if (!index) {
    prompter_->show(errorBox("Conto " + trim(code) + " non presente in archivio."));
    return false;
  }
  openAccount(*index);
  return true;
}

void Session::closeAccount() {
  account_.reset();
  accountIndex_.reset();
}

std::string Session::currentAccountCode() const { return account_ ? account_->code() : ""; }

}  // namespace contavia
