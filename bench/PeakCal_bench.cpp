// "Execute" of the lattice form on 99 indexed lines, the most that a refinement takes: with the log
// on disk, without a window and in one. `matched` beside the time are the lines indexed.
#include <benchmark/benchmark.h>

#include <cmath>
#include <functional>
#include <memory>

#include "BenchApplication.h"
#include "forms/frmPeakCal.h"
#include "qt/binding/QtFormHost.h"
#include "qt/views/Views.h"
#include "support/MemorySettings.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

constexpr int kLines = 99;
constexpr double kA = 4.7535, kB = 10.1943, kC = 5.9807;

class NoDialogs : public Dialogs {
 public:
  void Message(std::string_view) override {}
  void CaptionedMessage(std::string_view, std::string_view) override {}
  bool AskYesNo(const Question&) override { return false; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

class NoLog : public LogSink {
 public:
  void PutLog(std::string_view) override {}
};

class NoProgress : public Progress {
 public:
  void Report(int, int) override {}
  bool Cancelled() override { return false; }
};

// Works a modal form without showing it.
class HiddenHost : public FormHost {
 public:
  std::function<void()> work;
  void Show(Form&) override {}
  void Hide(Form&) override {}
  void ShowModal(Form& form) override {
    work();
    form.Hide();
  }
};

// Works a modal form in its window.
class WindowHost : public QtFormHost {
 public:
  std::function<void()> work;
  void ShowModal(Form& form) override {
    Show(form);
    QCoreApplication::processEvents();
    work();
    form.Hide();
  }
};

// A spectrum with a peak at each line of an orthorhombic crystal, and the form upon it.
class LatticeBench {
 public:
  explicit LatticeBench(bool in_window) {
    GraphList list = program_->List();
    const std::int16_t data_no = GetGraphSpace(list, -1);
    program_->workspace.Channels[data_no].Count = kMaxChannels;
    SetGraph(list, 0, 0, data_no, "a.npd");
    Change_cboGrphSel(list, 0, 0);
    program_->workspace.UseFileEgc = 1;
    program_->workspace.Settings.JudgeRange = 1e-4;
    MeasProp& prop = program_->workspace.Spectra[data_no].Prop;
    prop.EGC[1] = 0.02;
    prop.TwoTheta = 10;
    folder_.Put("crystal.dat", Library(program_->workspace.Peaks[data_no]));
    FormHost& host = in_window ? static_cast<FormHost&>(window_host_) : hidden_host_;
    form_ = std::make_unique<frmPeakCal>(*program_, host, settings_, marks_);
    windows_ = std::make_unique<FormViews>(window_host_);
    windows_->Add(*form_, [this](FormWindow& window) { LayOut(*form_, window); });
  }

  // Opens the form, chooses the crystal and works the form.
  void Open(const std::function<void(frmPeakCal&)>& work) {
    hidden_host_.work = window_host_.work = [&] {
      form_->cmbElement.SetIndex(0);
      work(*form_);
    };
    form_->Open(0);
  }

 private:
  // Ten comment lines, one crystal; its peaks go to the table, half a per mille off.
  static std::string Library(PeakTable& table) {
    std::string text;
    for (int i = 0; i < 10; ++i) text += "\n";
    text += "1\n\"Olivine\",3," + std::to_string(kA) + "," + std::to_string(kB) + "," +
            std::to_string(kC) + ",90,90,90\n";
    for (int i = 0; i < kLines; ++i) {
      const int h = i % 5, k = i / 5 % 5 + 1, l = i / 25;
      text += std::to_string(h) + "," + std::to_string(k) + "," + std::to_string(l) + "\n";
      const double d = 1 / std::hypot(h / kA, k / kB, l / kC);
      const double energy = 12.3981 / (2 * d * std::sin(std::acos(-1.0) / 36));
      PeakRec& peak = table.Peaks[table.Count++];
      peak.Center = energy / 0.02 * (1 + 1e-6 * (i % 7 - 3)) - 1;
      peak.Height = 1000 + i;
      peak.HalfWidth = 8;
      peak.Amplitude = 20000;
      peak.FitEngine = kEngineExpress;
    }
    return text + "0,0,0\n";
  }

  QApplication& application_ = TheApplication();
  TemporaryFolder folder_;
  NoDialogs dialogs_;
  SystemFileLayer files_;
  NoLog log_;
  NoProgress progress_;
  WorkspaceListener listener_;
  MemorySettings settings_;
  HiddenHost hidden_host_;
  WindowHost window_host_;
  std::unique_ptr<Program> program_ = std::make_unique<Program>(
      Ports{dialogs_, files_, log_, progress_, listener_}, folder_.Path(""));
  LineMarks marks_{*program_};
  std::unique_ptr<frmPeakCal> form_;
  std::unique_ptr<FormViews> windows_;
};

// The first after the form has come up: all rows are new.
void FirstExecute(benchmark::State& state) {
  LatticeBench bench(state.range(0) != 0);
  for (auto _ : state) {
    bench.Open([&](frmPeakCal& form) {
      const auto start = std::chrono::steady_clock::now();
      form.cmdCal.Press();
      const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
      state.SetIterationTime(time.count());
      state.counters["matched"] = form.sprPeakInf3.MaxRows();
    });
  }
}
BENCHMARK(FirstExecute)
    ->ArgName("window")
    ->Arg(0)
    ->Arg(1)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

// Once more, the seed changed a little each time, so that most values in the rows are new.
void ExecuteAfterAnotherSeed(benchmark::State& state) {
  LatticeBench bench(state.range(0) != 0);
  bench.Open([&](frmPeakCal& form) {
    for (auto _ : state) {
      state.PauseTiming();
      const bool first = form.txtSeedConstant[0].Text() == std::to_string(kA);
      form.txtSeedConstant[0].SetText(first ? "4.753510" : std::to_string(kA));
      form.txtSeedConstant[0].Leave();
      state.ResumeTiming();
      form.cmdCal.Press();
      state.counters["matched"] = form.sprPeakInf3.MaxRows();
    }
  });
}
BENCHMARK(ExecuteAfterAnotherSeed)
    ->ArgName("window")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMillisecond);

// Once more, with nothing changed.
void ExecuteAgain(benchmark::State& state) {
  LatticeBench bench(state.range(0) != 0);
  bench.Open([&](frmPeakCal& form) {
    for (auto _ : state) form.cmdCal.Press();
    state.counters["matched"] = form.sprPeakInf3.MaxRows();
  });
}
BENCHMARK(ExecuteAgain)->ArgName("window")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace dorvane
