// Random regions through the Nax fit: every fit ends in one of its ways, and nothing that is no
// number gets anywhere. A region is made by its number alone.

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <iostream>
#include <limits>
#include <memory>

#include "program/NaxManualFit.h"
#include "support/RandomCounts.h"

namespace dorvane {
namespace {

constexpr int kRegions = 4000;
constexpr std::int32_t kGreatest = std::numeric_limits<std::int32_t>::max();

int FromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

// Notes what is said.
class AnyDialogs : public Dialogs {
 public:
  std::string last;
  void Message(std::string_view text) override { last = text; }
  void CaptionedMessage(std::string_view, std::string_view) override {}
  bool AskYesNo(const Question&) override { return false; }
  std::optional<FilesChoice> ChooseFilesToOpen(const FileRequest&) override { return {}; }
  std::optional<FileChoice> ChooseFileToSave(const FileRequest&) override { return {}; }
  std::optional<Color> ChooseColor(Color) override { return {}; }
};

class Lines : public LogSink {
 public:
  std::string text;
  void PutLog(std::string_view line) override { text.append(line).append("\n"); }
};

class NoStop : public Progress {
 public:
  void Report(int, int) override {}
  bool Cancelled() override { return false; }
};

class Dice {
 public:
  explicit Dice(int number) : random_(static_cast<std::uint64_t>(number)) {}
  int Int(int from, int to) { return from + static_cast<int>(random_.Uniform() * (to - from + 1)); }
  double Real(double from, double to) { return from + random_.Uniform() * (to - from); }
  bool Chance(double share) { return random_.Uniform() < share; }
  std::int32_t Poisson(double mean) { return random_.Poisson(std::min(mean, 1e9)); }

 private:
  RandomCounts random_;
};

// What a region is made of.
struct Scene {
  std::vector<std::int32_t> counts;
  ManualFitList list;
};

std::vector<std::int32_t> PeaksAndNoise(Dice& dice, int channels, const ManualFitList& list) {
  const bool as_listed = dice.Chance(0.7);
  const double background = std::pow(10.0, as_listed ? dice.Real(0, 3) : dice.Real(-1, 5));
  const double reach = std::pow(10.0, as_listed ? dice.Real(0.3, 1) : dice.Real(-0.5, 2));
  const bool noisy = dice.Chance(0.8);
  std::vector<double> means(static_cast<std::size_t>(channels), background);
  for (int k = 0; k < list.PeakNum; ++k) {
    const double height =
        as_listed ? list.MaxCount[k] * dice.Real(0.7, 1.5) : std::pow(10.0, dice.Real(0, 8));
    const double center = list.CenterCh[k] - 1 + dice.Real(-4, 4);
    for (int i = 0; i < channels; ++i) {
      const double u = (i - center) / reach;
      means[static_cast<std::size_t>(i)] += height * std::exp2(-u * u);
    }
  }
  std::vector<std::int32_t> counts;
  for (const double mean : means) {
    const double height = std::min<double>(mean, kGreatest);
    counts.push_back(noisy ? dice.Poisson(height) : static_cast<std::int32_t>(height));
  }
  return counts;
}

std::vector<std::int32_t> CountsOf(Dice& dice, int channels, const ManualFitList& list) {
  std::vector<std::int32_t> counts(static_cast<std::size_t>(channels));
  switch (dice.Int(0, 9)) {
    case 0:
      break;
    case 1:
      std::fill(counts.begin(), counts.end(), dice.Int(0, 1) == 0 ? 100 : kGreatest);
      break;
    case 2:
      for (std::int32_t& count : counts) count = dice.Int(0, dice.Chance(0.5) ? 3 : kGreatest - 1);
      break;
    case 3:
      for (int i = dice.Int(1, 4); i > 0; --i) {
        counts[static_cast<std::size_t>(dice.Int(0, channels - 1))] =
            dice.Chance(0.5) ? kGreatest : dice.Int(1, 1000);
      }
      break;
    case 4:
      for (std::int32_t& count : counts) count = dice.Int(-1000, 1000);
      break;
    default:
      return PeaksAndNoise(dice, channels, list);
  }
  return counts;
}

Scene SceneOf(int number) {
  Dice dice(number);
  const int channels = dice.Chance(0.05) ? dice.Int(1, 30) : dice.Int(64, 512);
  Scene scene;
  ManualFitList& list = scene.list;
  const int length = dice.Chance(0.2) ? dice.Int(1, 25) : dice.Int(20, channels);
  const int start = dice.Int(dice.Chance(0.05) ? -2 : 1, std::max(1, channels - length + 1));
  const int end = start + length - 1;
  list.StartCh = static_cast<std::int16_t>(start);
  list.EndCh = static_cast<std::int16_t>(end);
  list.PeakNum = static_cast<std::int16_t>(dice.Chance(0.02) ? dice.Int(-1, 6) : dice.Int(1, 5));
  const bool spread = dice.Chance(0.7);
  for (int k = 0; k < kMaxManualPeaks; ++k) {
    if (spread && k < list.PeakNum) {
      list.CenterCh[k] =
          static_cast<std::int16_t>(start + length * (2 * k + 1) / (2 * list.PeakNum));
      list.MaxCount[k] = static_cast<std::int32_t>(std::pow(10.0, dice.Real(2, 7)));
      continue;
    }
    const int center = dice.Chance(0.1) ? (dice.Chance(0.5) ? start : end) : dice.Int(start, end);
    list.CenterCh[k] = static_cast<std::int16_t>(dice.Chance(0.01) ? -1 : center);
    list.MaxCount[k] = static_cast<std::int32_t>(std::pow(10.0, dice.Real(0, 9)));
    if (dice.Chance(0.05)) list.MaxCount[k] = dice.Chance(0.5) ? 0 : kGreatest;
    list.ChWidth[k] = static_cast<std::int16_t>(dice.Chance(0.01) ? -1 : 10);
  }
  ManualFitList drawn = list;
  drawn.PeakNum = static_cast<std::int16_t>(std::clamp<int>(list.PeakNum, 0, kMaxManualPeaks));
  scene.counts = CountsOf(dice, channels, drawn);
  return scene;
}

class NaxSoak : public testing::Test {
 protected:
  void Fit(int number) {
    Restore(SceneOf(number));
    const std::int16_t result = NaxManualFit(program, 0, 0, scene.list);
    const bool told = dialogs.last == "Error in Function COND" || dialogs.last == "Failed to fit" ||
                      dialogs.last == "Can not fit";
    EXPECT_EQ(result == -1, told) << dialogs.last;
    EXPECT_TRUE(result == 0 || result == -1);
    if (result == 0) ++fitted;
    CheckTable(workspace.Peaks[0]);
    for (const char* word : {"nan", "NaN", "inf", "Inf"}) {
      EXPECT_EQ(log.text.find(word), std::string::npos) << log.text;
    }
    for (int row = 0; row < kRows; ++row) {
      if (HoldsGraph(workspace, row)) CheckTable(workspace.Peaks[workspace.Slots[row].DataNo]);
    }
  }

  // The one graph of the list, without peaks.
  void Restore(Scene next) {
    scene = std::move(next);
    dialogs.last.clear();
    log.text.clear();
    for (int row = 0; row < kRows; ++row) workspace.Slots[row] = {};
    workspace.GrpCount = 0;
    workspace.DataUse.fill(0);
    const GraphList list = program.List();
    const std::int16_t data_no = GetGraphSpace(list, -1);
    ASSERT_EQ(data_no, 0);
    workspace.Peaks[0].Count = 0;
    ChannelBlock& block = workspace.Channels[0];
    block.Count = ToInt16(static_cast<std::int64_t>(scene.counts.size()));
    std::copy(scene.counts.begin(), scene.counts.end(), block.Counts.begin());
    SetGraph(list, 0, 0, 0, "a.npd");
    Change_cboGrphSel(list, 0, 0);
  }

  static void CheckTable(const PeakTable& table) {
    for (int i = 0; i < table.Count; ++i) {
      const PeakRec& peak = table.Peaks[i];
      for (const double value : {peak.Height, peak.Center, peak.HalfWidth, peak.Amplitude,
                                 peak.GaussRatio, peak.BackConst, peak.BackSlope}) {
        EXPECT_TRUE(std::isfinite(value)) << "peak " << i;
      }
    }
  }

  AnyDialogs dialogs;
  Lines log;
  NoStop progress;
  WorkspaceListener listener;
  SystemFileLayer files;
  std::unique_ptr<Program> holder =
      std::make_unique<Program>(Ports{dialogs, files, log, progress, listener}, "");
  Program& program = *holder;
  Workspace& workspace = program.workspace;
  Scene scene;
  int fitted = 0;
};

// DORVANE_SOAK_REGIONS and DORVANE_SOAK_FIRST play other regions; the slowest is told then.
TEST_F(NaxSoak, EveryRandomRegionEnds) {
  using Clock = std::chrono::steady_clock;
  const int regions = FromEnvironment("DORVANE_SOAK_REGIONS", kRegions);
  const int first = FromEnvironment("DORVANE_SOAK_FIRST", 1);
  Clock::duration slowest{};
  int slowest_number = first;
  for (int number = first; number < first + regions; ++number) {
    const auto begin = Clock::now();
    Fit(number);
    if (const auto time = Clock::now() - begin; time > slowest) {
      slowest = time;
      slowest_number = number;
    }
    ASSERT_FALSE(HasFailure()) << "region " << number;
  }
  if (regions > 100) {
    EXPECT_GT(fitted, regions / 4);
  }
  if (std::getenv("DORVANE_SOAK_REGIONS") != nullptr) {
    const std::chrono::duration<double, std::milli> milliseconds = slowest;
    std::cout << regions << " regions, " << fitted << " fitted; the slowest, " << slowest_number
              << ", took " << milliseconds.count() << " ms\n";
  }
}

}  // namespace
}  // namespace dorvane
