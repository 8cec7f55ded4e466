// The main window with ten curves of 8192 channels in both graph windows: redraws, and what moves
// over the pictures.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <cmath>
#include <memory>
#include <random>

#include "program/View.h"
#include "qt/Session.h"
#include "support/MemorySettings.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

constexpr int kChannels = 8192;

// Without a display, as long as the program runs.
struct OneApplication {
  OneApplication() {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    application = std::make_unique<QApplication>(argc, argv);
  }
  char name[6] = "bench";
  char* argv[2] = {name, nullptr};
  int argc = 1;
  std::unique_ptr<QApplication> application;
};

// The lower window is an expansion of the upper one, so that both show all ten curves.
class TenGraphs {
 public:
  TenGraphs() : session_({folder_.Path(""), folder_.Path("home/"), ""}, settings_) {
    Program& program = session_.program;
    for (int i = 0; i < kRows; ++i) AddGraph(program, i);
    session_.main.style.ckbExpand.SetChecked(true);
    window_ = session_.form_views.WindowOf(session_.main);
    window_->resize(1280, 800);
    window_->show();
    QCoreApplication::processEvents();
  }
  void ShowChannels(double span) {
    session_.main.scale.imnSpanCh.SetValue(span);
    QCoreApplication::processEvents();
  }
  void RedrawBoth() {
    for (int win_no = 0; win_no < kWindows; ++win_no) {
      session_.main.graphs.RedrawGraph(win_no);
      window_->Of(session_.main.graphs.picGraph[win_no])->repaint();
    }
  }
  void RepaintOverlay() {
    session_.main.cursor.updCursorX.Up();
    window_->Of(session_.main.graphs.picGraph[0])->repaint();
  }
  void RepaintBothOverlays() {
    for (int win_no = 0; win_no < kWindows; ++win_no) {
      window_->Of(session_.main.graphs.picGraph[win_no])->repaint();
    }
  }

 private:
  static void AddGraph(Program& program, int row) {
    const auto data_no = GetGraphSpace(program.List(), -1);
    ChannelBlock& block = program.workspace.Channels[data_no];
    block.Count = kChannels;
    std::mt19937 random(static_cast<unsigned>(row));
    for (int i = 0; i < kChannels; ++i) {
      double mean = 1500 * std::exp(-i / 3000.0) + 100 * row;
      for (int k = 1; k < 12; ++k) {
        const double distance = (i - kChannels * k / 12.0 - 5 * row) / 8.0;
        mean += 7000.0 / k * std::exp(-distance * distance);
      }
      block.Counts[i] = std::poisson_distribution<std::int32_t>(mean)(random);
    }
    SetGraph(program.List(), 0, row, data_no, "curve");
    AutoScaleY(program, 0, data_no);
  }

  OneApplication& application_ = TheApplication();
  TemporaryFolder folder_;
  MemorySettings settings_;
  Session session_;
  FormWindow* window_ = nullptr;

  static OneApplication& TheApplication() {
    static OneApplication application;
    return application;
  }
};

void RedrawAtFullWidth(benchmark::State& state) {
  TenGraphs graphs;
  graphs.ShowChannels(kChannels);
  for (auto _ : state) graphs.RedrawBoth();
}
BENCHMARK(RedrawAtFullWidth)->Unit(benchmark::kMillisecond);

void RedrawOfAPart(benchmark::State& state) {
  TenGraphs graphs;
  graphs.ShowChannels(static_cast<double>(state.range(0)));
  for (auto _ : state) graphs.RedrawBoth();
}
BENCHMARK(RedrawOfAPart)
    ->ArgName("channels")
    ->Arg(4096)
    ->Arg(2048)
    ->Arg(500)
    ->Unit(benchmark::kMillisecond);

void CursorStepWithItsReadOuts(benchmark::State& state) {
  TenGraphs graphs;
  for (auto _ : state) graphs.RepaintOverlay();
}
BENCHMARK(CursorStepWithItsReadOuts)->Unit(benchmark::kMillisecond);

void OverlaysAlone(benchmark::State& state) {
  TenGraphs graphs;
  for (auto _ : state) graphs.RepaintBothOverlays();
}
BENCHMARK(OverlaysAlone)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dorvane
