// The reads across every account, on 1,000 accounts x 1,000 movements, each beside the floor of
// bench/plain_floor.h (a plain loop that reads every account's count, movements and
// carry-forward and sums the amounts):
//   BM_Floor          the floor itself;
//   BM_Summary        the summary window of the accounts: Summaries (every account's balances
//                     recomputed from its files and its ".TOC" rewritten) and the view of all
//                     accounts, on a started Session;
//   BM_MovementQuery  the movement query over the whole range with every filter " Tutte" (all
//                     the million movements listed and sorted).
// "ratio" is a benchmark's median iteration over the median of the floor runs paired with its
// iterations (one just before each, on the same archive, outside the reported time), so the
// ratio stands under a varying load and when a filter runs one benchmark alone. The summary of
// the accounts is required to stay within 3x of the floor.
// The files are read once before anything is timed, so every figure is with a warm page cache.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <vector>

#include "archive/session.h"
#include "bench/generator/archive_generator.h"
#include "bench/plain_floor.h"
#include "common/dates.h"
#include "ledger/movement_query.h"
#include "ledger/summaries.h"

namespace contavia::bench {
namespace {

// Today falls inside the generated years (2020-2024): the balance for today and the total differ.
const FixedClock kClock{CalendarDate{30, 6, 2022}};

// The archive, with the page cache warm for everything that follows.
struct WarmArchive : GeneratedFolder {
  WarmArchive() : GeneratedFolder(1000, 1000) { plain::readAndSum(folder.path()); }
};

const GeneratedFolder& archive() {
  static const WarmArchive a;
  return a;
}

using SteadyClock = std::chrono::steady_clock;

double secondsSince(SteadyClock::time_point start) {
  return std::chrono::duration<double>(SteadyClock::now() - start).count();
}

// Times each iteration (given to the benchmark as manual time) and, just before it and outside
// the reported time, one run of the floor. The ratio is the median iteration over the median
// floor: the pairs share whatever else the machine is doing at that moment.
class PairedTimes {
 public:
  template <class Work>
  void time(benchmark::State& state, Work&& work) {
    state.PauseTiming();  // keeps the floor out of the CPU time too
    auto start = SteadyClock::now();
    benchmark::DoNotOptimize(plain::readAndSum(archive().folder.path()));
    floor_.push_back(secondsSince(start));
    state.ResumeTiming();
    start = SteadyClock::now();
    work();
    const double seconds = secondsSince(start);
    state.SetIterationTime(seconds);
    work_.push_back(seconds);
  }
  void report(benchmark::State& state) {
    state.counters["floor_ms"] = median(floor_) * 1e3;
    state.counters["ratio"] = median(work_) / median(floor_);
  }

 private:
  static double median(std::vector<double> v) {
    std::nth_element(v.begin(), v.begin() + static_cast<std::ptrdiff_t>(v.size() / 2), v.end());
    return v[v.size() / 2];
  }
  std::vector<double> floor_;
  std::vector<double> work_;
};

// The program started on the archive, as the summary window finds it.
struct Started {
  Started() : session(files, prompter, kClock, archive().folder.path()) { session.start(); }
  OsFileLayer files;
  QuietPrompter prompter;
  Session session;
};

void BM_Floor(benchmark::State& state) {
  const std::string& folder = archive().folder.path();
  plain::Sums sums;
  for (auto _ : state) {
    const auto start = SteadyClock::now();
    sums = plain::readAndSum(folder);
    state.SetIterationTime(secondsSince(start));
  }
  if (sums.movements != archive().generated.movements) {
    state.SkipWithError("the floor did not read every movement");
  }
  state.counters["accounts"] = static_cast<double>(sums.accounts);
  state.counters["movements"] = static_cast<double>(sums.movements);
}
BENCHMARK(BM_Floor)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);

void BM_Summary(benchmark::State& state) {
  Started started;
  PairedTimes times;
  std::size_t rows = 0;
  for (auto _ : state) {
    times.time(state, [&] {
      const Summaries summaries(started.session);
      const SummaryView view = summaries.view(SummaryKind::Accounts, kEverything);
      rows = view.rows.size();
      benchmark::DoNotOptimize(view.total.data());
    });
  }
  times.report(state);
  // The floor and the summary did the same sums: the balances (stored in ".TOC" by the
  // iterations) add up to the floor's total.
  const Session& session = started.session;
  const std::vector<double> balances =
      currentBalances(session.dir(), session.tables().accounts, dateKey(kClock.todayText()));
  double total = 0.0;
  for (double b : balances) {
    total += b;
  }
  const double floorTotal = plain::readAndSum(archive().folder.path()).total;
  if (rows != archive().generated.accounts.size() || std::fabs(total - floorTotal) > 0.5) {
    state.SkipWithError("the summary and the floor disagree");
  }
  state.counters["rows"] = static_cast<double>(rows);
}
BENCHMARK(BM_Summary)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(10);

void BM_MovementQuery(benchmark::State& state) {
  Started started;
  QueryFilter filter;
  filter.from = "01/01/2020";
  filter.to = "31/12/2030";
  PairedTimes times;
  std::size_t listed = 0;
  for (auto _ : state) {
    // The result is freed inside the timed part, as a window that replaces its list frees it.
    times.time(state, [&] {
      const QueryResult result =
          runMovementQuery(started.session.dir(), started.session.tables().accounts,
                           started.session.tables().causali, filter);
      listed = result.count;
      benchmark::DoNotOptimize(result.rows.data());
    });
  }
  times.report(state);
  if (listed != archive().generated.movements) {
    state.SkipWithError("the query did not list every movement");
  }
  state.counters["movements"] = static_cast<double>(listed);
}
BENCHMARK(BM_MovementQuery)->Unit(benchmark::kMillisecond)->UseManualTime()->Iterations(5);

}  // namespace
}  // namespace contavia::bench

BENCHMARK_MAIN();
