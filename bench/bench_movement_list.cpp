// The working account's daily loop on a large account: choosing an account of 10,000 movements
// (open, recompute, build the list) beside its floor (bench/plain_floor.h: the file read, its
// movements sorted newest first and printed), and building the list alone with each builder.

#include <benchmark/benchmark.h>

#include "archive/file_layer.h"
#include "archive/session.h"
#include "bench/generator/archive_generator.h"
#include "bench/plain_floor.h"
#include "common/clock.h"
#include "common/dates.h"
#include "common/prompter.h"
#include "ledger/chart_data.h"
#include "ledger/movement_entry.h"
#include "ledger/movement_list.h"

namespace {

using namespace contavia;

class SilentPrompter final : public Prompter {
 public:
  Answer show(const Message& message) override { return message.defaultButton; }
  void beep() override {}
};

struct LargeAccount {
  bench::ScratchFolder folder;
  OsFileLayer files;
  SilentPrompter prompter;
  FixedClock clock{CalendarDate{21, 11, 2026}};
  Session session{files, prompter, clock, folder.path()};

  LargeAccount() {
    bench::GeneratorOptions options;
    options.accounts = 1;
    options.movementsPerAccount = 10000;
    options.firstYear = 2017;
    options.years = 10;
    bench::generateArchive(folder.path(), options);
    session.start();
  }
};

LargeAccount& largeAccount() {
  static LargeAccount account;
  return account;
}

// Choosing the account in the selector: open, recompute, and the movement window's list.
void BM_ChooseAccountAndBuildList(benchmark::State& state) {
  LargeAccount& a = largeAccount();
  for (auto _ : state) {
    a.session.openAccount(0);
    MovementEntry entry(a.session);
    entry.open();
    benchmark::DoNotOptimize(entry.list().lines.data());
  }
}
BENCHMARK(BM_ChooseAccountAndBuildList)->Unit(benchmark::kMillisecond);

// The floor of the list: read, sort newest first, print one line a movement (to /dev/null).
void BM_Floor_ReadSortPrint10000(benchmark::State& state) {
  LargeAccount& a = largeAccount();
  std::FILE* out = std::fopen("/dev/null", "w");
  for (auto _ : state) {
    benchmark::DoNotOptimize(bench::plain::printLines(a.folder.path(), true, out));
  }
  std::fclose(out);
}
BENCHMARK(BM_Floor_ReadSortPrint10000)->Unit(benchmark::kMillisecond);

// The numbers of the balance chart of the account (one point a date), beside the floor above.
void BM_BalanceChart10000(benchmark::State& state) {
  LargeAccount& a = largeAccount();
  a.session.openAccount(0);
  const OpenAccount& account = *a.session.account();
  const std::int32_t today = dateKey("21/11/2026");
  for (auto _ : state) {
    benchmark::DoNotOptimize(balanceChart(account, today).points.data());
  }
}
BENCHMARK(BM_BalanceChart10000)->Unit(benchmark::kMillisecond);

void BM_BuildList(benchmark::State& state) {
  LargeAccount& a = largeAccount();
  a.session.openAccount(0);
  const OpenAccount& account = *a.session.account();
  const auto builder = static_cast<ListBuilder>(state.range(0));
  ListFilter filter;
  filter.from = "01/01/2020";
  filter.to = "31/12/2024";
  for (auto _ : state) {
    const MovementList list = buildMovementList(account.movements(), account.carryForward(),
                                                a.session.tables().causali, builder, filter);
    benchmark::DoNotOptimize(list.lines.data());
  }
}
BENCHMARK(BM_BuildList)
    ->Arg(static_cast<int>(ListBuilder::Main))
    ->Arg(static_cast<int>(ListBuilder::WholeUnits))
    ->Arg(static_cast<int>(ListBuilder::Filtered))
    ->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
