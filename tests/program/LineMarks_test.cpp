#include "program/LineMarks.h"

#include <gmock/gmock.h>

#include <cmath>

#include "processing/Units.h"
#include "program/MoveGraph.h"
#include "program/ProgramFixture.h"
#include "program/View.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// One keV for 100 channels: channel number 641 has 6.41 keV.
class LineMarksTest : public ProgramTest {
 protected:
  LineMarksTest() {
    views.Add(marks);
    workspace.DefaultProp.EGC[1] = 0.01;
    data_no = Show(std::vector<std::int32_t>(1000, 5));
    listener.notices.clear();
  }
  std::vector<int> ChannelsIn(int win_no) const {
    std::vector<int> channels;
    for (const MarkRec& line : program.spect.NamedLines(win_no)) channels.push_back(line.X);
    return channels;
  }
  std::vector<std::string> TextsIn(int win_no) const {
    std::vector<std::string> texts;
    for (const MarkRec& line : program.spect.NamedLines(win_no)) texts.emplace_back(TextOf(line));
    return texts;
  }

  LineMarks marks{program};
  std::int16_t data_no = 0;
};

TEST_F(LineMarksTest, ALineStandsAtTheChannelThatReadsItsEnergy) {
  marks.Set("Atom", data_no, {{6.41, "Fe Ka1"}});
  ASSERT_THAT(ChannelsIn(0), ElementsAre(640));
  EXPECT_NEAR(ChToUnit(kUnitKeV, 640, workspace.DefaultProp, workspace.Dac), 6.41, 1e-9);
  EXPECT_THAT(TextsIn(0), ElementsAre("Fe Ka1"));
  EXPECT_EQ(program.spect.NamedLines(0)[0].Color, workspace.ColorTbl[kColorElementMark]);
  EXPECT_EQ(listener.Count("redraw 0"), 1);
}

TEST_F(LineMarksTest, TheCalibrationThatIsChosenCounts) {
  workspace.Spectra[data_no].Prop.EGC[1] = 0.02;
  marks.Set("Atom", data_no, {{6.42, "Fe Ka1"}});
  optEGC_Click(program, 1);
  EXPECT_THAT(ChannelsIn(0), ElementsAre(320));
}

TEST_F(LineMarksTest, ANewCalibrationMovesTheLines) {
  marks.Set("Atom", data_no, {{6.41, "Fe Ka1"}});
  workspace.DefaultProp.EGC[0] = 0.4;
  listener.notices.clear();
  SetEGCParam(program, 0);
  EXPECT_THAT(ChannelsIn(0), ElementsAre(600));
  EXPECT_GE(listener.Count("redraw 0"), 1);
}

TEST_F(LineMarksTest, ALineWithAChannelOfItsOwnStaysThereWhateverTheCalibration) {
  LineMark line{0, "111"};
  line.channel = 300.4;  // a channel number
  marks.Set("hkl", data_no, {line});
  EXPECT_THAT(ChannelsIn(0), ElementsAre(299));
  workspace.DefaultProp.EGC = {};
  SetEGCParam(program, 0);
  EXPECT_THAT(ChannelsIn(0), ElementsAre(299));
}

TEST_F(LineMarksTest, AChannelOutsideOfTheEngineIsNotDrawn) {
  for (const double channel : {0.4, -3.0, 8193.0, 1e300, std::nan("")}) {
    LineMark line{0, "111"};
    line.channel = channel;
    marks.Set("hkl", data_no, {line});
    EXPECT_THAT(ChannelsIn(0), IsEmpty()) << channel;
  }
}

TEST_F(LineMarksTest, AnEnergyWithoutAChannelIsNotDrawn) {
  for (const double energy : {-1.0, 0.0, 0.004, 81.93, 1e300}) {
    marks.Set("Atom", data_no, {{energy, "X"}});
    EXPECT_THAT(ChannelsIn(0), IsEmpty()) << energy;
  }
  workspace.DefaultProp.EGC = {};
  marks.Set("Atom", data_no, {{6.41, "Fe Ka1"}});
  EXPECT_THAT(ChannelsIn(0), IsEmpty());
}

TEST_F(LineMarksTest, AnOwnerReplacesItsOwnLinesOnly) {
  marks.Set("Atom", data_no, {{1, "a"}, {2, "b"}});
  marks.Set("hkl", data_no, {{3, "c"}});
  marks.Set("Atom", data_no, {{4, "d"}});
  EXPECT_THAT(TextsIn(0), ElementsAre("d", "c"));
  marks.Set("Atom", data_no, {});
  EXPECT_THAT(TextsIn(0), ElementsAre("c"));
}

TEST_F(LineMarksTest, LinesGoWithTheirGraphToTheOtherWindow) {
  marks.Set("Atom", data_no, {{1, "a"}});
  MoveGraph(program, 0, 1);
  EXPECT_THAT(TextsIn(0), IsEmpty());
  EXPECT_THAT(TextsIn(1), ElementsAre("a"));
}

TEST_F(LineMarksTest, LinesEndWithTheirGraph) {
  Show({1, 2, 3}, "b.npd");
  marks.Set("Atom", data_no, {{1, "a"}});
  DeleteGraph(list, 0);
  EXPECT_THAT(TextsIn(0), IsEmpty());
  EXPECT_EQ(Show({1, 2, 3}, "c.npd"), data_no);
  EXPECT_THAT(TextsIn(0), IsEmpty());
}

TEST_F(LineMarksTest, LinesStayWhenAnotherGraphGoes) {
  Show({1, 2, 3}, "b.npd");
  marks.Set("Atom", data_no, {{1, "a"}});
  DeleteGraph(list, 1);
  EXPECT_THAT(TextsIn(0), ElementsAre("a"));
}

TEST_F(LineMarksTest, AHiddenGraphHidesItsLines) {
  marks.Set("Atom", data_no, {{1, "a"}});
  ChgValue_chkGrp(list, 0, 0, false);
  EXPECT_THAT(TextsIn(0), IsEmpty());
  ChgValue_chkGrp(list, 0, 0, true);
  EXPECT_THAT(TextsIn(0), ElementsAre("a"));
}

TEST_F(LineMarksTest, ASpectrumWithoutARowTakesNone) {
  marks.Set("Atom", data_no + 1, {{1, "a"}});
  Show({1, 2, 3}, "b.npd");
  EXPECT_THAT(TextsIn(0), IsEmpty());
}

TEST_F(LineMarksTest, AnExpansionShowsTheLinesOfItsWindowOnce) {
  marks.Set("Atom", data_no, {{1, "a"}});
  view.ExpandOn = kTrue;
  program.Listener().WindowStyleChanged();
  EXPECT_THAT(TextsIn(0), ElementsAre("a"));
  EXPECT_THAT(TextsIn(1), ElementsAre("a"));
  view.ExpandOn = kFalse;
  program.Listener().WindowStyleChanged();
  EXPECT_THAT(TextsIn(0), ElementsAre("a"));
  EXPECT_THAT(TextsIn(1), IsEmpty());
}

TEST_F(LineMarksTest, LinesBeyondAHundredAreTold) {
  dialogs.ExpectMessage("A window shows 100 named lines at most: 20 left out.");
  marks.Set("Atom", data_no, std::vector<LineMark>(120, LineMark{1, "a"}));
  EXPECT_EQ(program.spect.NamedLines(0).size(), 100u);
}

TEST_F(LineMarksTest, AHundredLinesHaveRoom) {
  marks.Set("Atom", data_no, std::vector<LineMark>(100, LineMark{1, "a"}));
  EXPECT_EQ(program.spect.NamedLines(0).size(), 100u);
}

TEST_F(LineMarksTest, LinesLeftOutAreToldOnceUntilAllHaveRoomAgain) {
  const std::vector<LineMark> many(101, LineMark{1, "a"});
  dialogs.ExpectMessage("A window shows 100 named lines at most: 1 left out.");
  marks.Set("Atom", data_no, many);
  marks.Set("hkl", data_no, {{2, "b"}});
  SetEGCParam(program, 0);
  marks.Set("Atom", data_no, {});
  dialogs.ExpectMessage("A window shows 100 named lines at most: 2 left out.");
  marks.Set("Atom", data_no, many);
}

TEST_F(LineMarksTest, LinesWithoutAChannelTakeNoRoom) {
  std::vector<LineMark> lines(100, LineMark{1, "a"});
  lines.insert(lines.begin(), 50, LineMark{-1, "x"});
  marks.Set("Atom", data_no, lines);
  EXPECT_EQ(program.spect.NamedLines(0).size(), 100u);
}

}  // namespace
}  // namespace dorvane
