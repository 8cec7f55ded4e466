#include "program/SpectrumPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "display/RecordingSurface.h"
#include "program/LineMarks.h"
#include "program/ProgramFixture.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::Not;

// Hands the strokes on to a surface that outlives the panel.
class Panel : public RecordingSurface {
 public:
  explicit Panel(RecordingSurface& kept) : kept_(kept) {}
  ~Panel() override { kept_.strokes.insert(kept_.strokes.end(), strokes.begin(), strokes.end()); }

 private:
  RecordingSurface& kept_;
};

class SpectrumPageTest : public ProgramTest {
 protected:
  SpectrumPageTest() {
    std::vector<std::int32_t> counts(400, 10);
    counts[100] = 900;
    counts[104] = 850;
    counts[300] = 500;
    content.data_no = Show(counts);
    content.title = "a.npd";
    content.details = "Al2O3";
  }

  // Panels in the order: page, graph, count axis, unit axis.
  void Draw() {
    panels.clear();
    panels.resize(4);
    std::size_t next = 0;
    DrawSpectrumPage(program, content, 1000, 600, [&](double, double, double, double) {
      return std::make_unique<Panel>(panels.at(next++));
    });
  }

  std::vector<std::string> TextsOf(std::size_t panel) const {
    std::vector<std::string> texts;
    for (const Stroke& stroke : panels[panel].Texts()) texts.push_back(stroke.text);
    return texts;
  }

  void AddFittedPeak() {
    PeakTable& table = workspace.Peaks[content.data_no];
    table.Count = 1;
    PeakRec& peak = table.Peaks[0];
    peak.FitDone = kTrue;
    peak.FuncType = kGauss;
    peak.GaussRatio = 1;
    peak.Height = 890;
    peak.Center = 100;
    peak.HalfWidth = 2;
    peak.BackConst = 10;
    peak.RegionStart = 95;
    peak.RegionEnd = 105;
  }

  std::vector<Stroke> FitStrokes() const {
    std::vector<Stroke> found;
    for (const Stroke& stroke : panels[1].Lines()) {
      if (stroke.color == workspace.ColorTbl[kColorFitCurve]) found.push_back(stroke);
    }
    return found;
  }

  SpectrumPage content;
  std::vector<RecordingSurface> panels;
};

// 0.1 keV a channel: 6.4 keV is channel number 64.
TEST_F(SpectrumPageTest, LinesOfElementsStandOnThePage) {
  workspace.DefaultProp.EGC[1] = 0.1;
  LineMarks marks(program);
  marks.Set("Atom", content.data_no, {{6.4, "Fe Ka1"}});
  Draw();
  EXPECT_THAT(TextsOf(1), Contains("Fe Ka1"));
  const auto boxes = panels[1].Boxes();
  const auto line = std::find_if(boxes.begin(), boxes.end(), [&](const Stroke& stroke) {
    return stroke.color == workspace.ColorTbl[kColorElementMark];
  });
  ASSERT_NE(line, boxes.end());
  EXPECT_EQ(line->from.x, 63);
  EXPECT_EQ(line->to.x, 63);
}

TEST_F(SpectrumPageTest, HeadTellsTitleDetailsAndCounts) {
  Draw();
  EXPECT_THAT(TextsOf(0), testing::UnorderedElementsAre("a.npd", "Al2O3", "counts"));
}

TEST_F(SpectrumPageTest, CountsAreDots) {
  Draw();
  EXPECT_EQ(panels[1].Dots().size(), 399u);
}

TEST_F(SpectrumPageTest, AxesHaveLabels) {
  Draw();
  EXPECT_FALSE(panels[2].Texts().empty());
  EXPECT_THAT(TextsOf(3), Contains("keV"));
}

TEST_F(SpectrumPageTest, FittedLineStaysInItsRegion) {
  AddFittedPeak();
  Draw();
  EXPECT_EQ(FitStrokes().size(), 40u);  // ten channels in quarters
}

TEST_F(SpectrumPageTest, FittedLineStandsOnItsBackground) {
  AddFittedPeak();
  Draw();
  double top = 1e9;
  for (const Stroke& stroke : FitStrokes()) top = std::min(top, stroke.from.y);
  const double highest_dot = 600 * (1 - 900.0 / 2000);  // the axis is 2000 counts high
  EXPECT_LT(top, highest_dot);
}

TEST_F(SpectrumPageTest, LineOfAGroupIsDrawnOneFwhmToEitherSide) {
  AddFittedPeak();
  PeakRec& peak = workspace.Peaks[content.data_no].Peaks[0];
  peak.RegionStart = peak.RegionEnd = 0;
  peak.HalfWidth = 2.5;
  Draw();
  EXPECT_EQ(FitStrokes().size(), 40u);  // ten channels in quarters
}

TEST_F(SpectrumPageTest, LineOfAGroupStandsOnWhatTheLinesLeaveOfTheCounts) {
  AddFittedPeak();
  PeakTable& table = workspace.Peaks[content.data_no];
  PeakRec& peak = table.Peaks[0];
  peak.RegionStart = peak.RegionEnd = 0;
  peak.BackConst = 0;
  peak.Center = 200;
  peak.HalfWidth = 3;
  peak.Height = 1e-9;  // on counts of 10 everywhere about it
  Draw();
  const double flat = FitStrokes().front().from.y;
  // thirteen channels are drawn: 40 counts more of each, in one of them and then in two
  workspace.Channels[content.data_no].Counts[199] += 13 * 40;
  Draw();
  const double rise = flat - FitStrokes().front().from.y;
  EXPECT_GT(rise, 0);
  workspace.Channels[content.data_no].Counts[198] += 13 * 40;
  Draw();
  EXPECT_NEAR(flat - FitStrokes().front().from.y, 2 * rise, 1e-6);
}

TEST_F(SpectrumPageTest, PeakWithoutAFitIsNotDrawn) {
  AddFittedPeak();
  workspace.Peaks[content.data_no].Peaks[0].FitDone = 0;
  Draw();
  EXPECT_TRUE(FitStrokes().empty());
}

// The graph is 916 by 481 pixels here, drawn on a surface of 1000 by 600.
TEST_F(SpectrumPageTest, LabelsNeverOverlap) {
  constexpr double kCharWidth = 8 * 0.916;
  constexpr double kCharHeight = 16 * 481.0 / 600;
  content.labels = {{100, "1 0 4"}, {104, "1 1 0"}, {106, "1 1 3"}, {300, "0 0 12"}};
  Draw();
  const std::vector<Stroke> texts = panels[1].Texts();
  ASSERT_EQ(texts.size(), 4u);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      const double width_i = kCharWidth * static_cast<double>(texts[i].text.size());
      const double width_j = kCharWidth * static_cast<double>(texts[j].text.size());
      const bool beside = texts[i].from.x + width_i <= texts[j].from.x ||
                          texts[j].from.x + width_j <= texts[i].from.x;
      const bool above = std::abs(texts[i].from.y - texts[j].from.y) >= kCharHeight;
      EXPECT_TRUE(beside || above) << texts[i].text << " and " << texts[j].text;
    }
  }
}

TEST_F(SpectrumPageTest, LabelOutsideTheChannelsShownIsLeftOut) {
  content.labels = {{100, "1 0 4"}, {300, "1 1 0"}};
  content.first_channel = 200;
  content.last_channel = 399;
  Draw();
  EXPECT_THAT(TextsOf(1), Not(Contains("1 0 4")));
  EXPECT_THAT(TextsOf(1), Contains("1 1 0"));
}

TEST_F(SpectrumPageTest, LabelsWithoutRoomAreLeftOut) {
  for (int i = 0; i < 200; ++i) content.labels.push_back({100, "1 0 4"});
  Draw();
  EXPECT_LT(panels[1].Texts().size(), 200u);
  for (const Stroke& text : panels[1].Texts()) EXPECT_GE(text.from.y, 0);
}

TEST_F(SpectrumPageTest, LogarithmicPageHasSevenDecades) {
  content.log_scale = true;
  Draw();
  EXPECT_THAT(TextsOf(2), Contains(" 10M"));
}

TEST_F(SpectrumPageTest, ViewIsAsBefore) {
  Draw();
  EXPECT_EQ(view.LogScale, kFalse);
  EXPECT_EQ(program.spect.Scale(0).DrawMode, 0);
  EXPECT_EQ(program.spect.AliasView(), 2);
}

TEST_F(SpectrumPageTest, SpectrumOfOneChannelDoesNotBreakThePage) {
  content.data_no = Show({5});
  Draw();
  EXPECT_EQ(TextsOf(0).size(), 3u);
}

TEST_F(SpectrumPageTest, CountsWithoutBoundDoNotBreakThePage) {
  content.data_no = Show({5, 2147483647, 7, -9});
  content.labels = {{1, "1 0 0"}};
  Draw();
  EXPECT_EQ(TextsOf(0).size(), 3u);
}

TEST_F(SpectrumPageTest, WhatIsNoNumberIsNotDrawn) {
  AddFittedPeak();
  workspace.Peaks[content.data_no].Peaks[0].BackConst = std::nan("");
  content.labels = {{std::nan(""), "nowhere"}};
  Draw();
  EXPECT_TRUE(FitStrokes().empty());
  EXPECT_THAT(TextsOf(1), Not(Contains("nowhere")));
}

}  // namespace
}  // namespace dorvane
