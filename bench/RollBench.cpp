// Rolls per second of the whole roll, beside the bare dice draw of the same run. With --signature: one number
// over fixed games instead. With --run BETTOR ROLLS: that many rolls of one bettor, for counting
// instructions.
#include <benchmark/benchmark.h>

#include <charconv>
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

// Short runs, of so many rolls; with `changesRules` each begins with a rule that was another in the run
// before.
void ShortRun(benchmark::State& state, std::int32_t rolls, bool changesRules) {
  SilentHost host;
  const auto game = OpenGame(host, Bettor::TenRules, 1);
  for (auto _ : state) {
    if (changesRules) game->Rules.BarNumber = 14 - game->Rules.BarNumber;
    RollInHyperDrive(*game, rolls);
  }
}

// Never looks in, so that equal runs are equal to the instruction.
class AbsentHost : public SilentHost {
 public:
  bool EventsAreDue() override { return false; }
};

// BETTOR counts from 0 in the order of the Bettors. False when the words are no such run.
bool RunFor(std::string_view bettor, std::string_view rolls) {
  std::int32_t which = -1, count = 0;
  std::from_chars(bettor.data(), bettor.data() + bettor.size(), which);
  std::from_chars(rolls.data(), rolls.data() + rolls.size(), count);
  if (which < 0 || which > static_cast<std::int32_t>(Bettor::TenRules) || count < 1) return false;
  AbsentHost host;
  RollInHyperDrive(*OpenGame(host, static_cast<Bettor>(which), 1), count);
  return true;
}

BENCHMARK(BareDraw)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, PassLineOnly, Bettor::PassLineOnly)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, FiveBets, Bettor::FiveBets)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, IronCross, Bettor::IronCross)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WholeRoll, TenRules, Bettor::TenRules)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(ShortRun, OneRoll, 1, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShortRun, HundredRolls, 100, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(ShortRun, HundredRollsUnderOtherRules, 100, true)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace rollwick

int main(int argc, char** argv) {
  if (argc == 2 && std::string_view(argv[1]) == "--signature") {
    std::cout << rollwick::Signature() << '\n';
    return 0;
  }
  if (argc == 4 && std::string_view(argv[1]) == "--run") return rollwick::RunFor(argv[2], argv[3]) ? 0 : 2;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
}
