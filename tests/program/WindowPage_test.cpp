#include "program/WindowPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "display/RecordingPage.h"
#include "processing/Units.h"
#include "program/EditText.h"
#include "program/LineMarks.h"
#include "program/ProgramFixture.h"
#include "program/RoiCommands.h"
#include "program/View.h"
#include "program/WindowStyle.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsSupersetOf;
using testing::Not;

constexpr Color kBlack = Rgb(0, 0, 0);
constexpr Color kWhite = Rgb(255, 255, 255);

class WindowPageTest : public ProgramTest {
 protected:
  WindowPageTest() {
    SetStartValues(program);
    std::vector<std::int32_t> counts(1000, 10);
    counts[500] = 900;
    data_no = Show(counts, "a.npd");
    SetSpanCh(program, 1000);
    workspace.Spectra[data_no].MsuName.Set("run 7");
    workspace.Spectra[data_no].Prop.Press = 12.5;
  }
  RecordingPage Printed(PictureSize size = {1000, 600, 1}, std::int16_t dot_size = 1) {
    RecordingPage page(size);
    WindowSheet sheet = *CurrentSheet(program);
    sheet.dot_size = dot_size;
    DrawWindowSheet(program, sheet, page);
    return page;
  }
  RecordingPage Drawn(int win_no = 0) {
    RecordingPage page;
    DrawWindowPicture(program, win_no, page);
    return page;
  }
  static std::vector<Stroke> Of(const RecordingPage& page, Stroke::Kind kind) {
    std::vector<Stroke> found;
    for (const Stroke& stroke : page.Strokes()) {
      if (stroke.kind == kind) found.push_back(stroke);
    }
    return found;
  }
  static double TopOf(const RecordingPage& page, const std::string& text) {
    for (const RecordingPage::Part& part : page.parts) {
      for (const Stroke& stroke : part.strokes) {
        if (stroke.text == text) return part.box.y + stroke.from.y;
      }
    }
    return -1;
  }

  std::int16_t data_no = 0;
};

TEST_F(WindowPageTest, SheetHasTheFileNameAndAllFourteenProperties) {
  const RecordingPage page = Printed();
  EXPECT_THAT(page.Texts(), IsSupersetOf({"a.npd", "Counts", "Measurement Name ", "run 7",
                                          "Pressure(GPa) ", "12.500", "Count Rate (cps) "}));
  for (const PropLine& line : BuildPropLines(workspace, data_no)) {
    EXPECT_THAT(page.Texts(), Contains(line.label)) << line.label;
  }
}

TEST_F(WindowPageTest, SheetIsAllBlackOnWhite) {
  UseColors(program, DarkColors());
  const RecordingPage page = Printed();
  for (const Stroke& stroke : page.Strokes()) {
    EXPECT_EQ(stroke.color, stroke.kind == Stroke::Kind::Clear ? kWhite : kBlack);
  }
}

TEST_F(WindowPageTest, DotSizeIsTheWidthOfTheCurve) {
  EXPECT_THAT(Of(Printed({1000, 600, 1}, 3), Stroke::Kind::Line), Each(Field(&Stroke::width, 3)));
}

// Channels 1, 5, 9 ... of 0..999 are 250.
TEST_F(WindowPageTest, DotsStandSoManyChannelsApartAsTheDotSize) {
  EXPECT_EQ(Of(Printed({1000, 600, 1}, 4), Stroke::Kind::Dot).size(), 250u);
}

TEST_F(WindowPageTest, CountsGrowUpwardsOnPaperWhereTheScaleRunsDown) {
  const RecordingPage page = Printed();
  const auto& graph = page.PartWith(Stroke::Kind::Dot);
  EXPECT_LT(graph.top, graph.bottom);
  const auto peak = std::find_if(graph.strokes.begin(), graph.strokes.end(), [](const Stroke& s) {
    return s.kind == Stroke::Kind::Dot && s.from.x == 500;
  });
  ASSERT_NE(peak, graph.strokes.end());
  EXPECT_EQ(peak->from.y, graph.bottom - 900);
}

TEST_F(WindowPageTest, AWideSheetHasItsPropertiesInTwoColumnsAndAHighOneInOne) {
  const RecordingPage wide = Printed({1000, 600, 1});
  EXPECT_EQ(TopOf(wide, "Measurement Name "), TopOf(wide, "Live Time (Sec)  "));
  EXPECT_LT(TopOf(wide, "Measurement Name "), TopOf(wide, "Sample Name      "));
  const RecordingPage high = Printed({600, 1000, 1});
  EXPECT_LT(TopOf(high, "Measurement Name "), TopOf(high, "Live Time (Sec)  "));
}

TEST_F(WindowPageTest, PropertiesStandBelowTheGraphAndOnTheSheet) {
  for (const PictureSize size : {PictureSize{1000, 600, 1}, {600, 1000, 1}, {500, 400, 1}}) {
    const RecordingPage page = Printed(size);
    const auto& graph = page.PartWith(Stroke::Kind::Dot);
    const auto& block = page.parts.back();
    EXPECT_GE(block.box.y, graph.box.y + graph.box.height);
    for (const Stroke& stroke : block.strokes) {
      EXPECT_LE(block.box.y + stroke.from.y + RecordingSurface::kCharHeight, size.height_px + 0.01);
    }
  }
}

TEST_F(WindowPageTest, ALongCommentEndsInItsColumnOnAWholeCharacter) {
  std::string comment;
  for (int i = 0; i < 50; ++i) comment += "θ";
  workspace.Spectra[data_no].Memo.Set(comment);
  const auto texts = Printed({600, 1000, 1}).Texts();
  const auto found = std::find_if(texts.begin(), texts.end(),
                                  [](const std::string& text) { return text.starts_with("θθ"); });
  ASSERT_NE(found, texts.end());
  EXPECT_LT(found->size(), comment.size());
  EXPECT_EQ(found->size() % 2, 0u);
}

TEST_F(WindowPageTest, MarksAndRegionsAreOnTheSheet) {
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 500;
  program.Listener().PeakMarked(0, data_no, workspace.Peaks[data_no].Peaks[0]);
  program.spect.AddText(0, 300, 5, "104", kBlack, 10, kFalse);
  const std::size_t without = Of(Printed(), Stroke::Kind::Box).size();
  view.RoiStart = 100;
  view.RoiEnd = 200;
  AddRoi(program);
  const RecordingPage page = Printed();
  EXPECT_THAT(page.Texts(), Contains("104"));
  EXPECT_GT(Of(page, Stroke::Kind::Box).size(), without);
}

TEST_F(WindowPageTest, SheetShowsTheRangeOfItsWindow) {
  SetSpanCh(program, 100);
  SetStartCh(program, 450);
  const RecordingPage page = Printed();
  const auto& graph = page.PartWith(Stroke::Kind::Dot);
  EXPECT_EQ(graph.left, 450);
  EXPECT_EQ(graph.right, 549);
}

TEST_F(WindowPageTest, AnExpansionIsPrintedWithTheRangeAndTheCurvesThatItShows) {
  ckbExpand_Click(program, true);
  SetSpanCh(program, 100);
  SetStartCh(program, 450);
  ChangeActiveWin(list, 1);
  const RecordingPage part = Printed();
  const auto& part_graph = part.PartWith(Stroke::Kind::Dot);
  EXPECT_EQ(part_graph.left, 450);
  EXPECT_EQ(part_graph.right, 549);
  ChangeActiveWin(list, 0);
  const RecordingPage whole = Printed();
  EXPECT_EQ(whole.PartWith(Stroke::Kind::Dot).left, 0);
}

TEST_F(WindowPageTest, APileIsPrintedWithTheGraphsOfBothWindows) {
  Show({1, 2, 3}, "b.npd");
  workspace.Slots[1].WinNo = 1;
  EXPECT_THAT(Drawn().Texts(), Not(Contains("b.npd")));
  chkWinStyle_Click(program, true);
  ckbExpand_Click(program, false);
  EXPECT_THAT(Drawn().Texts(), IsSupersetOf({"a.npd", "b.npd"}));
}

TEST_F(WindowPageTest, UnitAxisHasTheDisplayUnit) {
  workspace.UseFileEgc = kFalse;
  workspace.DefaultProp.EGC[0] = 2;
  workspace.DefaultProp.EGC[1] = 0.05;
  EXPECT_THAT(Printed().Texts(), IsSupersetOf({"Ch", "1", "251"}));
  view.DispUnit = kUnitKeV;
  // Channels number 1, 251 and 1001, the end of the last one.
  EXPECT_THAT(Printed().Texts(), IsSupersetOf({"keV", "2.1", "14.6", "52.1"}));
}

TEST_F(WindowPageTest, UnitAxisHasTheCalibrationOfTheGraphSelectedInItsWindow) {
  workspace.UseFileEgc = kTrue;
  view.DispUnit = kUnitKeV;
  const std::int16_t other = Show(std::vector<std::int32_t>(1000, 10), "b.npd");
  workspace.Spectra[data_no].Prop.EGC[1] = 0.04;
  workspace.Spectra[other].Prop.EGC[1] = 0.1;
  Change_cboGrphSel(list, 0, 1);
  EXPECT_THAT(Printed().Texts(), Contains("100.1"));  // of channel number 1001
  Change_cboGrphSel(list, 0, 0);
  EXPECT_THAT(Printed().Texts(), Contains("40.0"));
}

TEST_F(WindowPageTest, LogarithmicSheetHasSevenDecadesFromTheTopDown) {
  SetLogScale(program, true);
  const RecordingPage page = Printed();
  EXPECT_THAT(page.Texts(), IsSupersetOf({" 10M", " 1K", " 1"}));
  const auto& graph = page.PartWith(Stroke::Kind::Dot);
  EXPECT_EQ(graph.top, 0);
  EXPECT_EQ(graph.bottom, 7);
  // Ten counts are one decade above the bottom.
  const auto dot = std::find_if(graph.strokes.begin(), graph.strokes.end(), [](const Stroke& s) {
    return s.kind == Stroke::Kind::Dot && s.from.x == 499;
  });
  ASSERT_NE(dot, graph.strokes.end());
  EXPECT_DOUBLE_EQ(dot->from.y, 6);
}

// The height of 1000 counts has five divisions, and so four lines between them.
TEST_F(WindowPageTest, DivisionsOfTheCountAxisAreRuledOnPaper) {
  program.spect.SetDivisions(0, 0);
  const RecordingPage page = Printed();
  const auto& graph = page.PartWith(Stroke::Kind::Dot);
  std::vector<double> rulings;
  for (const Stroke& stroke : graph.strokes) {
    if (stroke.kind == Stroke::Kind::Box && stroke.from.y == stroke.to.y) {
      rulings.push_back(stroke.from.y);
    }
  }
  EXPECT_THAT(rulings, ElementsAre(800, 600, 400, 200));
}

TEST_F(WindowPageTest, PropertiesAreThoseOfTheCurrentGraph) {
  const std::int16_t other = Show({1, 2, 3}, "b.npd");
  workspace.Spectra[other].MsuName.Set("高圧 8");
  EXPECT_THAT(Printed().Texts(), IsSupersetOf({"b.npd", "高圧 8"}));
  EXPECT_THAT(Printed().Texts(), Not(Contains("run 7")));
}

TEST_F(WindowPageTest, TheActiveWindowIsPrintedAndTheOtherOneWhereItIsEmpty) {
  EXPECT_EQ(CurrentSheet(program)->win_no, 0);
  ChangeActiveWin(list, 1);
  EXPECT_EQ(CurrentSheet(program)->win_no, 0);
  ckbExpand_Click(program, true);
  ChangeActiveWin(list, 1);
  EXPECT_EQ(CurrentSheet(program)->win_no, 1);
}

TEST_F(WindowPageTest, ADerivedGraphIsPrintedByTheNameOfItsFile) {
  Show({1, 2, 3}, "Smooth");
  EXPECT_EQ(CurrentSheet(program)->title, "a.npd");
}

TEST_F(WindowPageTest, WithoutAGraphThereIsNoSheet) {
  RemoveGraph(list, 0);
  EXPECT_FALSE(CurrentSheet(program));
}

TEST_F(WindowPageTest, WindowIsAsBeforeAfterwards) {
  const ViewScale before = program.spect.Scale(0);
  Printed();
  RecordingSurface screen;
  program.spect.SetSurface(0, &screen);
  program.spect.Redraw(0);
  EXPECT_EQ(program.spect.Scale(0), before);
  EXPECT_EQ(screen.Of(Stroke::Kind::Clear).at(0).color, workspace.ColorTbl[kColorWindowBack]);
  EXPECT_EQ(screen.Lines().at(0).color, Row(0).Color);
  EXPECT_GT(screen.top, screen.bottom);  // counts grow upwards again
  program.spect.SetSurface(0, nullptr);
}

TEST_F(WindowPageTest, PictureHasTheColoursOfTheScreenAndTheNamesOfTheCurves) {
  Show({1, 2, 3}, "b.npd");
  const RecordingPage page = Drawn();
  EXPECT_THAT(page.Texts(), IsSupersetOf({"a.npd", "b.npd"}));
  EXPECT_THAT(page.Texts(), Not(Contains("Measurement Name ")));
  EXPECT_THAT(Of(page, Stroke::Kind::Clear),
              Each(Field(&Stroke::color, workspace.ColorTbl[kColorWindowBack])));
  EXPECT_THAT(Of(page, Stroke::Kind::Line), Contains(Field(&Stroke::color, Row(0).Color)));
}

TEST_F(WindowPageTest, PictureHasItsAxesInTheirColourAndASampleOfEachCurveInItsOwn) {
  workspace.ColorTbl[kColorAxis] = Rgb(1, 2, 3);
  ChgStrColor_chkGrp(list, 0, 0, Rgb(4, 5, 6));
  const RecordingPage page = Drawn();
  for (const Stroke& stroke : Of(page, Stroke::Kind::Text)) {
    EXPECT_EQ(stroke.color, Rgb(1, 2, 3)) << stroke.text;
  }
  EXPECT_THAT(Of(page, Stroke::Kind::Box), Contains(Field(&Stroke::color, Rgb(4, 5, 6))));
}

TEST_F(WindowPageTest, UnitAxisEndsWithTheLastChannelOfAPictureAndBehindItOnPaper) {
  EXPECT_THAT(Drawn().Texts(), Contains("1000"));
  EXPECT_THAT(Printed().Texts(), Contains("1001"));
}

TEST_F(WindowPageTest, NamesTooLongForThePictureAreCutAtItsEdge) {
  Show({1, 2, 3}, std::string(300, 'b'));
  const RecordingPage page = Drawn();
  const auto& legend = page.parts.back();
  for (const Stroke& stroke : legend.strokes) EXPECT_GE(stroke.from.x, 0) << stroke.text;
  EXPECT_GT(legend.strokes.back().text.size(), 50u);
  EXPECT_LT(legend.strokes.back().text.size(), 300u);
}

TEST_F(WindowPageTest, AHiddenCurveIsNotNamed) {
  Show({1, 2, 3}, "b.npd");
  workspace.Slots[1].Disp = kFalse;
  EXPECT_THAT(Drawn().Texts(), Not(Contains("b.npd")));
}

TEST_F(WindowPageTest, PagesTooSmallForAGraphFaultNowhere) {
  for (const int side : {1, 20, 60}) {
    EXPECT_NO_THROW(Printed({side, side, 1}));
    RecordingPage page({side, side, 1});
    EXPECT_NO_THROW(DrawWindowPicture(program, 0, page));
  }
}

}  // namespace
}  // namespace dorvane
