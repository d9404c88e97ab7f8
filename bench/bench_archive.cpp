// The archive under load: opening an account of 10,000 movements (count, movements,
// carry-forward, totals, and the full recompute) beside its floor (bench/plain_floor.h: the same
// files read and summed by a plain loop), with the heap the open account holds against the size
// of its files; the recompute on its own; and the start-up load of 1,000 accounts.

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <filesystem>

#include "archive/open_account.h"
#include "archive/session.h"
#include "archive/tables.h"
#include "bench/generator/archive_generator.h"
#include "bench/plain_floor.h"
#include "common/text.h"

namespace contavia::bench {
namespace {

// Today falls inside the generated years, so the balances count both past and future movements.
const FixedClock kClock{CalendarDate{30, 6, 2022}};

using Archive = GeneratedFolder;

// One account of 10,000 movements over 2020-2024.
const Archive& largeAccount() {
  static const Archive archive(1, 10000);
  return archive;
}

// 1,000 accounts, each with a few movements.
const Archive& manyAccounts() {
  static const Archive archive(1000, 10);
  return archive;
}

void BM_OpenAccount10000(benchmark::State& state) {
  const Archive& archive = largeAccount();
  const Account& record = archive.generated.accounts.front();
  OsFileLayer files;
  const DataDirectory dir(files, archive.folder.path());
  for (auto _ : state) {
    OpenAccount account(dir, kClock, record.accountCode, record.creditLine);
    benchmark::DoNotOptimize(account.load());
    benchmark::DoNotOptimize(account.balanceTotal());
  }
  state.SetItemsProcessed(state.iterations() * 10000);
  // The heap the open account holds, per byte of its files.
  const std::size_t before = mallinfo2().uordblks;
  OpenAccount held(dir, kClock, record.accountCode, record.creditLine);
  held.load();
  const std::size_t after = mallinfo2().uordblks;
  std::uintmax_t fileBytes = 0;
  for (const char* extension : {".MOC", ".MOR", ".TOC", ".RIP"}) {
    fileBytes +=
        std::filesystem::file_size(archive.folder.path() + trim(record.accountCode) + extension);
  }
  state.counters["heap_per_file_byte"] =
      static_cast<double>(after - before) / static_cast<double>(fileBytes);
}
BENCHMARK(BM_OpenAccount10000)->Unit(benchmark::kMillisecond);

// The floor of the opening: the account's files read and summed by a plain loop.
void BM_Floor_ReadAndSum10000(benchmark::State& state) {
  const std::string folder = largeAccount().folder.path();
  for (auto _ : state) {
    benchmark::DoNotOptimize(plain::readAndSum(folder).total);
  }
  state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_Floor_ReadAndSum10000)->Unit(benchmark::kMillisecond);

void BM_RecomputeTotals10000(benchmark::State& state) {
  const Archive& archive = largeAccount();
  const Account& record = archive.generated.accounts.front();
  OsFileLayer files;
  const DataDirectory dir(files, archive.folder.path());
  OpenAccount account(dir, kClock, record.accountCode, record.creditLine);
  account.load();
  for (auto _ : state) {
    account.recompute();
    benchmark::DoNotOptimize(account.balanceToday());
  }
  state.SetItemsProcessed(state.iterations() * 10000);
}
BENCHMARK(BM_RecomputeTotals10000)->Unit(benchmark::kMillisecond);

void BM_LoadAccounts1000(benchmark::State& state) {
  OsFileLayer files;
  const DataDirectory dir(files, manyAccounts().folder.path());
  for (auto _ : state) {
    const auto accounts = loadTable<Account>(dir, kAccountTable);
    benchmark::DoNotOptimize(accounts.records.data());
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}
BENCHMARK(BM_LoadAccounts1000)->Unit(benchmark::kMillisecond);

// Start-up: the counter, the accounts, the causali and the categories.
void BM_StartUp1000Accounts(benchmark::State& state) {
  OsFileLayer files;
  QuietPrompter prompter;
  for (auto _ : state) {
    Session session(files, prompter, kClock, manyAccounts().folder.path());
    session.start();
    benchmark::DoNotOptimize(session.tables().accounts.size());
  }
}
BENCHMARK(BM_StartUp1000Accounts)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace contavia::bench

BENCHMARK_MAIN();
