#include "program/EngineBinding.h"

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

}  // namespace
}  // namespace dorvane
