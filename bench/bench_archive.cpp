// The archive under load: opening an account of 10,000 movements (count, movements,
// carry-forward, totals, and the full recompute that reads the files again), the recompute on its
// own, and the start-up load of 1,000 accounts.

#include <benchmark/benchmark.h>

#include "archive/open_account.h"
#include "archive/session.h"
#include "archive/tables.h"
#include "bench/generator/archive_generator.h"

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
}
BENCHMARK(BM_OpenAccount10000)->Unit(benchmark::kMillisecond);

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
