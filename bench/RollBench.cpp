// Rolls per second of the whole roll, beside the bare dice draw of the same run. With --signature: one number
// over fixed games instead.
#include <benchmark/benchmark.h>

#include <iostream>
#include <string_view>

#include "bench/Games.h"
#include "dice/Draw.h"

namespace rollwick {
namespace {

constexpr std::int32_t kRollsPerRun = 200'000;

void BareDraw(benchmark::State& state) {
  SilentHost host;
  const auto game = OpenGame(host, Bettor::PassLineOnly, 1);
  std::int64_t pips = 0;
  for (auto _ : state) {
    for (std::int32_t roll = 0; roll < kRollsPerRun; ++roll) {
      DrawDice(*game);
      pips += game->Die1 + game->Die2;
    }
  }
  benchmark::DoNotOptimize(pips);
  state.SetItemsProcessed(state.iterations() * kRollsPerRun);
}

void WholeRoll(benchmark::State& state, Bettor bettor) {
  SilentHost host;
  const auto game = OpenGame(host, bettor, 1);
  for (auto _ : state) RollInHyperDrive(*game, kRollsPerRun);
  state.SetItemsProcessed(state.iterations() * kRollsPerRun);
}

BENCHMARK(BareDraw)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, PassLineOnly, Bettor::PassLineOnly)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, FiveBets, Bettor::FiveBets)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, IronCross, Bettor::IronCross)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, TenRules, Bettor::TenRules)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace rollwick

int main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--signature") {
    std::cout << rollwick::Signature() << '\n';
    return 0;
  }
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
}
