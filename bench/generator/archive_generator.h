#pragma once
// Large, realistic archives for the benchmarks: groups, categories, causali of both signs,
// accounts with their movements spread over several years, carried-forward balances and stored
// totals, all written with the archive's own record layouts. Every file is written whole in one
// go, so an archive of 1,000 accounts x 1,000 movements takes a second or two.
//
//   contavia::bench::ScratchFolder folder;
//   contavia::bench::GeneratorOptions options;
//   options.accounts = 1000;
//   options.movementsPerAccount = 1000;
//   const auto archive = contavia::bench::generateArchive(folder.path(), options);
//   // archive.accounts[0].accountCode names the files folder.path() + "C0001.MOC", ...
//
// The same options and seed always give the same bytes.

#include <cstdint>
#include <string>
#include <vector>

#include "archive/records.h"
#include "common/prompter.h"

namespace contavia::bench {

struct GeneratorOptions {
  int accounts = 100;              // 1..1000 (the capacity of "CONTI.CON")
  int movementsPerAccount = 1000;  // 0..10000 (the capacity of an account)
  int firstYear = 2020;            // movements are dated from 01/01/firstYear ...
  int years = 5;                   // ... to 31/12/(firstYear + years - 1)
  std::uint32_t seed = 1;
  int causali = 16;          // 2..100; signs alternate, so both are always present
  int categories = 12;       // 1..200
  int groups = 4;            // 1..100
  bool carryForward = true;  // a ".RIP" with a closing on 31/12 of the year before, else blank
};

// What was written, in file order (index 0 = record 1).
struct GeneratedArchive {
  std::vector<Group> groups;
  std::vector<Category> categories;
  std::vector<Causale> causali;
  std::vector<Account> accounts;
  std::size_t movements = 0;  // over all accounts
};

// Writes a complete archive into `folder` (created when missing, one level): "Gruppi.con",
// "Tipo.con", "Causali.CAP", "CONTI.CON" with their count files, "records.rer", and for every
// account code + ".MOC" (movements in date order, each with its causale's sign), ".MOR",
// ".RIP" and ".TOC". Files of the same names are replaced. Throws std::invalid_argument for
// options outside the ranges above.
GeneratedArchive generateArchive(const std::string& folder, const GeneratorOptions& options);

// The code of account n (1-based): "C0001", "C0002", ...
std::string generatedAccountCode(int n);

// A fresh folder under the system's temporary folder, removed with everything in it at the end.
class ScratchFolder {
 public:
  ScratchFolder();
  ~ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  // Ends with "/".
  const std::string& path() const { return path_; }

 private:
  std::string path_;
};

// A generated archive of `accounts` accounts of `movementsPerAccount` movements (the other options
// as they come) in its own scratch folder, for a whole benchmark run.
struct GeneratedFolder {
  GeneratedFolder(int accounts, int movementsPerAccount);
  ScratchFolder folder;
  GeneratedArchive generated;
};

// Answers every box with its default button and shows nothing: for timing operations that may
// ask or warn.
class QuietPrompter final : public Prompter {
 public:
  Answer show(const Message& message) override { return message.defaultButton; }
  void beep() override {}
};

}  // namespace contavia::bench
