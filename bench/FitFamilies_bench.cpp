// How well both fit families find and fit the peaks of simulated spectra: beside the time of a
// spectrum the table tells
//   recall      peaks found over peaks made
//   precision   results that are peaks made over results
//   position    mean distance of a found peak from the one made, channels
//   width       mean deviation of its FWHM, percent; 100 at the most
//   failed      spectra whose fit ended in a fault
// A result is a peak that was made when it lies within half the FWHM of one that has no nearer
// result; only fitted peaks are results.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <memory>

#include "program/Commands.h"
#include "program/NaxFitting.h"
#include "program/PeakFit.h"
#include "support/RandomCounts.h"

namespace dorvane {
namespace {

constexpr int kSpectraMade = 100;
constexpr int kChannels = 4096;

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

struct Line {
  double center, height, fwhm;  // channel index, counts, channels
};

struct Made {
  std::vector<Line> lines;
  std::vector<std::int32_t> counts;
};

// 6 to 25 Gaussians with FWHM 6 to 30, two widths or more apart, heights from 8 to 1000 standard
// deviations of the background, evenly on a logarithmic scale; counting noise if wanted.
Made MakeSpectrum(std::uint64_t seed, double background, bool noise) {
  RandomCounts random(seed);
  const auto between = [&](double from, double to) {
    return from + random.Uniform() * (to - from);
  };
  Made made;
  const auto wanted = static_cast<std::size_t>(between(6, 26));
  while (made.lines.size() < wanted) {
    const Line line{between(60, kChannels - 60),
                    std::sqrt(background) * std::exp(between(std::log(8), std::log(1000))),
                    between(6, 30)};
    const bool free = std::ranges::all_of(made.lines, [&](const Line& other) {
      return std::abs(line.center - other.center) > 2 * std::max(line.fwhm, other.fwhm);
    });
    if (free) made.lines.push_back(line);
  }
  for (int i = 0; i < kChannels; ++i) {
    double mean = background;
    for (const Line& line : made.lines) {
      const double v = (i - line.center) / line.fwhm;
      mean += line.height * std::exp2(-4 * v * v);
    }
    made.counts.push_back(noise ? random.Poisson(mean)
                                : static_cast<std::int32_t>(std::lround(mean)));
  }
  return made;
}

struct Score {
  double made = 0;
  double results = 0;
  double found = 0;
  double distance = 0;
  double width = 0;
  double failed = 0;
};

void Compare(const std::vector<Line>& lines, const PeakTable& table, Score& score) {
  score.made += static_cast<double>(lines.size());
  for (int i = 0; i < table.Count; ++i) score.results += table.Peaks[i].FitDone == kTrue;
  for (const Line& line : lines) {
    const PeakRec* nearest = nullptr;
    for (int i = 0; i < table.Count; ++i) {
      const PeakRec& peak = table.Peaks[i];
      const bool fitted = peak.FitDone == kTrue;
      if (!fitted || std::abs(peak.Center - line.center) > line.fwhm / 2) continue;
      const bool nearer = nearest == nullptr || std::abs(peak.Center - line.center) <
                                                    std::abs(nearest->Center - line.center);
      if (nearer) nearest = &peak;
    }
    if (nearest == nullptr) continue;
    score.found += 1;
    score.distance += std::abs(nearest->Center - line.center);
    score.width += std::min(std::abs(2 * nearest->HalfWidth / line.fwhm - 1), 1.0);
  }
}

// A program whose first row holds the counts.
class OneSpectrum {
 public:
  explicit OneSpectrum(const std::vector<std::int32_t>& counts) {
    const GraphList list = program->List();
    data_no = GetGraphSpace(list, -1);
    ChannelBlock& block = program->workspace.Channels[data_no];
    block.Count = ToInt16(static_cast<std::int64_t>(counts.size()));
    std::ranges::copy(counts, block.Counts.begin());
    SetGraph(list, 0, 0, data_no, "a.npd");
    Change_cboGrphSel(list, 0, 0);
  }
  const PeakTable& Table() const { return program->workspace.Peaks[data_no]; }

 private:
  NoDialogs dialogs;
  SystemFileLayer files;
  NoLog log;
  NoProgress progress;
  WorkspaceListener listener;

 public:
  std::unique_ptr<Program> program =
      std::make_unique<Program>(Ports{dialogs, files, log, progress, listener}, "");
  std::int16_t data_no = 0;
};

// Both answer false after a fault.
bool FitNax(OneSpectrum& spectrum, double coefficient) {
  spectrum.program->workspace.Settings.BgCoef = coefficient;
  return RunGuarded(*spectrum.program,
                    [&](Program& program) { NaxFitting(program, 0, spectrum.data_no); });
}

// Search and fit over the whole spectrum.
bool FitExpress(OneSpectrum& spectrum, double) {
  return RunGuarded(*spectrum.program, [](Program& program) {
    InsertAllPeaks(program);
    program.view.AreaStart = 0;
    program.view.AreaEnd = kChannels - 1;
    FitPeak(program, 0);
  });
}

using FitAll = bool (*)(OneSpectrum&, double coefficient);

void Family(benchmark::State& state, FitAll fit, double background, double coefficient,
            bool noise) {
  std::vector<Made> spectra;
  for (std::uint64_t seed = 1; seed <= kSpectraMade; ++seed) {
    spectra.push_back(MakeSpectrum(seed, background, noise));
  }
  Score score;
  for (auto _ : state) {
    for (const Made& made : spectra) {
      state.PauseTiming();
      OneSpectrum spectrum(made.counts);
      state.ResumeTiming();
      const bool done = fit(spectrum, coefficient);
      state.PauseTiming();
      score.failed += done ? 0 : 1;
      Compare(made.lines, spectrum.Table(), score);
      state.ResumeTiming();
    }
  }
  state.counters["recall"] = score.found / score.made;
  state.counters["precision"] = score.found / score.results;
  state.counters["position"] = score.distance / score.found;
  state.counters["width"] = 100 * score.width / score.found;
  state.counters["failed"] = score.failed;
  state.SetLabel(std::to_string(kSpectraMade) + " spectra");
}

// Background and the coefficient that goes with it; the last rows are without noise, where the
// coefficient need not hold it off.
#define FAMILY_ROWS(name, fit)                                       \
  BENCHMARK_CAPTURE(Family, name##_200, fit, 200, 5.0, true)         \
      ->Unit(benchmark::kMillisecond)                                \
      ->Iterations(1);                                               \
  BENCHMARK_CAPTURE(Family, name##_20, fit, 20, 0.2, true)           \
      ->Unit(benchmark::kMillisecond)                                \
      ->Iterations(1);                                               \
  BENCHMARK_CAPTURE(Family, name##_200_exact, fit, 200, 0.05, false) \
      ->Unit(benchmark::kMillisecond)                                \
      ->Iterations(1)
FAMILY_ROWS(Nax, FitNax);
FAMILY_ROWS(Express, FitExpress);

}  // namespace
}  // namespace dorvane
