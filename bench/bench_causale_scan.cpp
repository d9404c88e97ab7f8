// The check that refuses to delete a causale still in use, over 1,000 accounts of 1,000
// movements each: the count alone, and "del" on the causali window up to its refusal (the
// causali read at opening, the scan, the message). Both read two small pieces of each account
// (its ".MOR" count and its last movement), never the movements one by one.

#include <benchmark/benchmark.h>

#include "archive/session.h"
#include "bench/generator/archive_generator.h"
#include "masterdata/causale_usage.h"
#include "masterdata/causali_screen.h"

namespace contavia::bench {
namespace {

const FixedClock kClock{CalendarDate{30, 6, 2022}};

const GeneratedFolder& archive() {
  static const GeneratedFolder a(1000, 1000);
  return a;
}

// The program started on the archive, with its first account as the working account (its
// movements fill the in-memory slots the check compares).
struct Started {
  Started() : session(files, prompter, kClock, archive().folder.path()) {
    session.start();
    session.openAccount(0);
  }
  OsFileLayer files;
  QuietPrompter prompter;
  Session session;
};

void BM_CausaleUsesCount(benchmark::State& state) {
  Started started;
  Session& session = started.session;
  const std::string code = archive().generated.causali.front().causaleCode;
  std::int64_t uses = 0;
  for (auto _ : state) {
    uses = countCausaleUses(session.dir(), session.tables().accounts,
                            session.account()->movements(), code);
    benchmark::DoNotOptimize(uses);
  }
  state.counters["accounts"] = static_cast<double>(session.tables().accounts.size());
  state.counters["uses"] = static_cast<double>(uses);
}
BENCHMARK(BM_CausaleUsesCount)->Unit(benchmark::kMillisecond);

void BM_CausaleDeleteRefused(benchmark::State& state) {
  Started started;
  for (auto _ : state) {
    CausaliScreen screen(started.session);
    screen.chooseRow(0);
    const bool removed = screen.remove();
    benchmark::DoNotOptimize(removed);
    if (removed) {
      state.SkipWithError("the causale was not in use");
      break;
    }
  }
}
BENCHMARK(BM_CausaleDeleteRefused)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace contavia::bench

BENCHMARK_MAIN();
