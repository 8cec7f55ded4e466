#include "program/EngineBinding.h"

#include <gmock/gmock.h>

#include "processing/PeakOpe.h"
#include "program/MoveGraph.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

constexpr Color kOwn = Rgb(1, 2, 3);

class EngineBindingTest : public ProgramTest {};

TEST_F(EngineBindingTest, ARecolouredGraphIsDrawnInItsNewColour) {
  const std::int16_t data_no = Show({1, 2, 3});
  listener.notices.clear();
  ChgStrColor_chkGrp(list, 0, 0, kOwn);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, kOwn);
  EXPECT_EQ(listener.Count("colour 0 0"), 1);
}

TEST_F(EngineBindingTest, ARecolouredGraphKeepsItsPointsAndItsSwitch) {
  const std::int16_t data_no = Show({1, 2, 3});
  ChgValue_chkGrp(list, 0, 0, false);
  ChgStrColor_chkGrp(list, 0, 0, kOwn);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Shown, kFalse);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Counts[1], 2);
}

TEST_F(EngineBindingTest, AGraphTakesItsOwnColourToTheOtherWindow) {
  const std::int16_t data_no = Show({1, 2, 3});
  ChgStrColor_chkGrp(list, 0, 0, kOwn);
  MoveGraph(program, 0, 1);
  EXPECT_EQ(program.spect.CurveOf(1, data_no).Color, kOwn);
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Valid, kFalse);
}

TEST_F(EngineBindingTest, ANewSpectrumIsDrawnInThePresetColourOfItsNumber) {
  Show({1, 2, 3}, "a.npd");
  const std::int16_t data_no = Show({1, 2, 3}, "b.npd");
  EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, workspace.ColorTbl[1]);
}

TEST_F(EngineBindingTest, ARemovedGraphTakesItsPeakLinesAlongAndThoseOfOthersStay) {
  const std::int16_t removed = Show(std::vector<std::int32_t>(300, 1), "a.npd");
  const std::int16_t other = Show(std::vector<std::int32_t>(300, 1), "b.npd");
  PeakRec peak;
  peak.Center = 100;
  PeakInsert(list, 0, 0, peak);
  peak.Center = 200;
  PeakInsert(list, 0, 1, peak);
  ASSERT_EQ(workspace.Peaks[removed].Count, 1);
  ASSERT_EQ(workspace.Peaks[other].Count, 1);
  RemoveGraph(list, 0);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), testing::ElementsAre(200));
}

// A fitted curve has the peaks of its source in its table; the lines are those of the source.
TEST_F(EngineBindingTest, ARemovedGraphWithUnmarkedPeaksLeavesTheLinesOfItsSource) {
  Show(std::vector<std::int32_t>(300, 1), "a.npd");
  const std::int16_t copy = Show(std::vector<std::int32_t>(300, 1), "b.npd");
  PeakRec peak;
  peak.Center = 100;
  PeakInsert(list, 0, 0, peak);
  workspace.Peaks[copy] = workspace.Peaks[0];
  RemoveGraph(list, 1);
  EXPECT_THAT(program.spect.PeakLinesOf(0).Channels(), testing::ElementsAre(100));
}

}  // namespace
}  // namespace dorvane
