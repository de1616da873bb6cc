// The window: from its beginning to the painted table, a click until it is painted, and Hyper-Drive beside
// the same run without a window. Offscreen, unless QT_QPA_PLATFORM names another platform.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTest>
#include <filesystem>

#include "bench/Games.h"
#include "ui/frmCrapTable.h"

namespace rollwick {
namespace {

constexpr std::int32_t kRollsPerRun = 2'000'000;

std::filesystem::path Folder() {
  return std::filesystem::temp_directory_path() / "rollwick-window-bench";
}

std::unique_ptr<frmCrapTable> OpenWindow() {
  std::filesystem::remove_all(Folder());
  std::filesystem::create_directories(Folder());
  auto window = std::make_unique<frmCrapTable>(TableOptions{Folder(), {}, {}});
  window->show();
  QApplication::processEvents();
  window->repaint();
  return window;
}

void PaintedWindow(benchmark::State& state) {
  for (auto _ : state) OpenWindow();
}

void PaintedClick(benchmark::State& state) {
  const auto window = OpenWindow();
  auto& layout = *window->findChild<picLayout*>();
  const WidgetPoint at = ToWidget(layout.Frame(), *HotPointOf(window->TheGame(), Bet::Field));
  const QPoint point(static_cast<int>(at.x), static_cast<int>(at.y));
  window->TheGame().Rules.NotifyFlags = 0;
  for (auto _ : state) {
    QTest::mouseClick(&layout, Qt::LeftButton, {}, point);
    layout.repaint();
  }
}

void WithoutWindow(benchmark::State& state, Bettor bettor) {
  SilentHost host;
  const auto game = OpenGame(host, bettor, 1);
  for (auto _ : state) RollInHyperDrive(*game, kRollsPerRun);
  state.SetItemsProcessed(state.iterations() * kRollsPerRun);
}

void InWindow(benchmark::State& state, Bettor bettor) {
  const auto window = OpenWindow();
  Game& g = window->TheGame();
  SeatBettor(g, bettor, 1);
  auto& hyperDrive = *window->findChild<QAction*>("mnuHyperDrive");
  for (auto _ : state) {
    g.Rules.NotifyFlags = 0;
    if (g.RollCount() > 90'000'000) g.RollCount() = 0;
    g.BetAmount[SlotBankroll] = Dollars(500);
    g.AutoRollsSet = g.AutoRollsLeft = kRollsPerRun;
    const std::int32_t before = g.RollCount();
    QTimer::singleShot(0, [] {  // the notice at the end of the run
      auto* const look = new QTimer(QApplication::instance());
      QObject::connect(look, &QTimer::timeout, look, [look] {
        if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
          look->deleteLater();
          dialog->reject();
        }
      });
      look->start(1);
    });
    hyperDrive.trigger();
    if (g.RollCount() != before + kRollsPerRun) return state.SkipWithError("the run was cut short");
  }
  state.SetItemsProcessed(state.iterations() * kRollsPerRun);
}

BENCHMARK(PaintedWindow)->Unit(benchmark::kMillisecond);
BENCHMARK(PaintedClick)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WithoutWindow, PassLineOnly, Bettor::PassLineOnly)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(InWindow, PassLineOnly, Bettor::PassLineOnly)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(WithoutWindow, TenRules, Bettor::TenRules)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(InWindow, TenRules, Bettor::TenRules)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace rollwick

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  const QApplication application(argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
