#pragma once
// The state the whole program shares: the DataDirectory, the master tables loaded at start-up,
// the movement counter and the working account. The desktop program and the command line each
// hold one Session and pass it to the operations of the core.

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/data_directory.h"
#include "archive/folder_lock.h"
#include "archive/open_account.h"
#include "archive/records.h"
#include "common/clock.h"
#include "common/prompter.h"

namespace contavia {

struct MasterTables {
  std::vector<Account> accounts;
  std::vector<Causale> causali;
  std::vector<Category> categories;
  std::int16_t movementCounter = 0;
};

// The first account whose code, trimmed, equals `code` trimmed.
std::optional<std::size_t> findAccountByCode(const std::vector<Account>& accounts,
                                             std::string_view code);

class Session {
 public:
  // `program` names this program to another one that finds the folder in use.
  Session(FileLayer& files, Prompter& prompter, const Clock& clock, std::string folder,
          std::string program = "contavia");

  DataDirectory& dir() { return dir_; }
  const DataDirectory& dir() const { return dir_; }
  FileLayer& files() { return dir_.files(); }
  const std::string& program() const { return program_; }
  // The lock of the DataDirectory, held from start() on.
  FolderLock& lock() { return lock_; }
  Prompter& prompter() { return *prompter_; }
  const Clock& clock() const { return *clock_; }
  MasterTables& tables() { return tables_; }
  const MasterTables& tables() const { return tables_; }

  // Start-up: creates the DataDirectory when missing (one level), takes its lock, takes back an
  // operation that a stop left unfinished, reads the counts, the movement counter, the
  // accounts, causali and categories. Damage found is shown. False (after its message) when
  // another program works on the folder: then nothing is read and nothing may be written.
  bool start();
  // Reloads the causali (screens that need them fresh read them again).
  void reloadCausali();
  void reloadCategories();

  // The working account, or null when none is open.
  OpenAccount* account() { return account_.get(); }
  const OpenAccount* account() const { return account_.get(); }
  // Index (0-based) in the account table of the working account.
  std::optional<std::size_t> accountIndex() const { return accountIndex_; }
  // Opens account `index` (0-based) as the working account; damage found is shown.
  void openAccount(std::size_t index);
  // Opens the account whose code (trimmed) equals `code`, as a choice in the account selector;
  // shows a message and returns false when there is none.
  bool openAccountByCode(std::string_view code);
  // Closes the working account (the code becomes blank, the account-open flag 0).
  void closeAccount();
  // The working account's code, trimmed; blank when none is open.
  std::string currentAccountCode() const;
  // The code of the account chosen in the account selector, trimmed. Closing the working account
  // to maintain the accounts keeps it; "Chiudi" (and a change of folder) clears it, so the
  // account chosen there cannot be deleted until it is closed.
  const std::string& chosenAccountCode() const { return chosenCode_; }
  void clearChosenAccount() { chosenCode_.clear(); }

  // Shows a description of damage found in the files as an error box, when there is one.
  void showProblem(const std::string& problem);

 private:
  DataDirectory dir_;
  std::string program_;
  FolderLock lock_;
  Prompter* prompter_;
  const Clock* clock_;
  MasterTables tables_;
  std::unique_ptr<OpenAccount> account_;
  std::optional<std::size_t> accountIndex_;
  std::string chosenCode_;
};

}  // namespace contavia
