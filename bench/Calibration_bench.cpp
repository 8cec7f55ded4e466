// "Calculate" and "Update" of the calibration dialog on a table of twenty lines, in its window, and
// the calculation alone.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>

#include "BenchApplication.h"
#include "batch/BatchPorts.h"
#include "forms/frmDialogCalibC.h"
#include "program/EnergyCalibration.h"
#include "qt/binding/QtFormHost.h"
#include "qt/views/Views.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

constexpr int kLines = 20;

CalibForm FormOf(const benchmark::State& state) {
  return state.range(0) == 0 ? CalibForm::Line : CalibForm::Parabola;
}

// Lines that lie some eV beside a curve.
std::vector<CalibRow> TwentyLines() {
  std::vector<CalibRow> rows;
  for (int i = 0; i < kLines; ++i) {
    const double channel = 80.25 + 97.3 * i;
    const double energy = 0.3 + 0.065 * channel + 1e-7 * channel * channel + 0.002 * (i % 7 - 3);
    rows.push_back({std::to_string(channel), std::to_string(energy), "a line", "reference"});
  }
  return rows;
}

void CalculateAlone(benchmark::State& state) {
  CalibTable table;
  table.rows = TwentyLines();
  table.form = FormOf(state);
  for (auto _ : state) {
    const CalibFit fit = Calculate(table);
    benchmark::DoNotOptimize(fit.coefficients[0]);
  }
}
BENCHMARK(CalculateAlone)->ArgName("parabola")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// The dialog, shown, with its table filled.
class DialogBench {
 public:
  explicit DialogBench(CalibForm form) {
    windows_.Add(dialog, [this](FormWindow& window) { LayOut(dialog, window); });
    dialog.Open();
    dialog.optCnst.SetIndex(static_cast<int>(form));
    const std::vector<CalibRow> rows = TwentyLines();
    for (int i = 0; i < kLines; ++i) {
      const CalibRow& row = rows[static_cast<std::size_t>(i)];
      dialog.vaSpread1.EditCell(i + 1, frmDialogCalibC::kChannel, row.channel);
      dialog.vaSpread1.EditCell(i + 1, frmDialogCalibC::kEnergy, row.energy);
    }
    QCoreApplication::processEvents();
  }
  // Another value in the table, so that there is something to show.
  void ChangeALine() {
    higher_ = !higher_;
    dialog.vaSpread1.EditCell(1, frmDialogCalibC::kEnergy, higher_ ? "5.6" : "5.5");
    QCoreApplication::processEvents();
  }

 private:
  QApplication& application_ = TheApplication();
  TemporaryFolder folder_;
  SystemFileLayer files_;
  BatchPorts ports_;
  QtFormHost host_;
  std::unique_ptr<Program> program_ =
      std::make_unique<Program>(ports_.Join(files_), folder_.Path(""));
  bool higher_ = false;

 public:
  frmDialogCalibC dialog{*program_, host_, {.CloseElementTable = [] {}}};

 private:
  FormViews windows_{host_};
};

// Until the new coefficients are painted; Update with its two files.
void Press(benchmark::State& state, Button frmDialogCalibC::*button) {
  DialogBench bench(FormOf(state));
  for (auto _ : state) {
    state.PauseTiming();
    bench.ChangeALine();
    state.ResumeTiming();
    (bench.dialog.*button).Press();
    QCoreApplication::processEvents();
  }
}
void CalculateInTheDialog(benchmark::State& state) {
  Press(state, &frmDialogCalibC::cmdCalEng);
}
void UpdateInTheDialog(benchmark::State& state) {
  Press(state, &frmDialogCalibC::cmdCalbOK);
}
BENCHMARK(CalculateInTheDialog)->ArgName("parabola")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(UpdateInTheDialog)->ArgName("parabola")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dorvane
