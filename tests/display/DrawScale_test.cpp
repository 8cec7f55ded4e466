#include "display/DrawScale.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "display/RecordingSurface.h"
#include "processing/Units.h"

namespace dorvane {
namespace {

constexpr Color kInk = Rgb(10, 20, 30);

std::vector<std::string> TextsOn(const RecordingSurface& surface) {
  std::vector<std::string> texts;
  for (const Stroke& text : surface.Texts()) texts.push_back(text.text);
  return texts;
}

// A panel of another size: pixels and characters keep theirs.
class SmallPanel : public RecordingSurface {
 public:
  SmallPanel(double width, double height) : width_(width), height_(height) {}
  Point PixelSize() const override {
    return {std::abs(right - left) / width_, std::abs(bottom - top) / height_};
  }

 private:
  double width_;
  double height_;
};

TEST(ScaleTables, TheHeightsAreSevenMantissasInFiveDecades) {
  const ScaleTables tables = InitScale();
  const std::vector<std::int32_t> heights(tables.ScaleStep.begin(), tables.ScaleStep.end());
  EXPECT_THAT(heights, testing::ElementsAre(10, 20, 30, 40, 50, 60, 80, 100, 200, 300, 400, 500,
                                            600, 800, 1000, 2000, 3000, 4000, 5000, 6000, 8000,
                                            10000, 20000, 30000, 40000, 50000, 60000, 80000, 100000,
                                            200000, 300000, 400000, 500000, 600000, 800000));
}

TEST(ScaleTables, TheDivisionsAreTheIndexButForFour) {
  const ScaleTables tables = InitScale();
  const std::vector<std::int16_t> divisions(tables.ScaleDiv.begin(), tables.ScaleDiv.end());
  EXPECT_THAT(divisions, testing::ElementsAre(0, 5, 4, 3, 4, 5, 3, 7, 4, 9, 10));
}

TEST(ScaleValue, TheLastEntryIs800000) {
  EXPECT_EQ(ScaleValue(34), 800000);
}

TEST(ScaleValue, EntriesOutsideOfTheTableAre7) {
  EXPECT_EQ(ScaleValue(35), 7);
  EXPECT_EQ(ScaleValue(-1), 7);
}

TEST(ScaleText, ShowsWholeNumbersBelowAThousand) {
  EXPECT_EQ(ScaleText(0), "0");
  EXPECT_EQ(ScaleText(1), "1");
  EXPECT_EQ(ScaleText(60), "60");
  EXPECT_EQ(ScaleText(997), "997");
}

TEST(ScaleText, ShowsThousands) {
  EXPECT_EQ(ScaleText(1000), "1K");
  EXPECT_EQ(ScaleText(1500), "1.5K");
  EXPECT_EQ(ScaleText(800000), "800K");
  EXPECT_EQ(ScaleText(12345), "12.3K");
}

TEST(ScaleText, ValuesJustBelowAThousandAreMeantToBeThousands) {
  EXPECT_EQ(ScaleText(998), "1.0K");
}

TEST(ScaleText, ARemainderBelow11CountsAsAWholeThousand) {
  EXPECT_EQ(ScaleText(2010), "2K");
  EXPECT_EQ(ScaleText(2011), "2.0K");
}

TEST(ScaleText, ShowsMillions) {
  EXPECT_EQ(ScaleText(1000000), "1M");
  EXPECT_EQ(ScaleText(10000000), "10M");
  EXPECT_EQ(ScaleText(100000000), "100M");
}

TEST(ScaleText, IsEmptyOutsideOfItsTable) {
  EXPECT_EQ(ScaleText(1e9), "");
  EXPECT_EQ(ScaleText(0.01), "");
  EXPECT_EQ(ScaleText(-5), "");
}

TEST(CountTicks, AHeightOf300Has3DivisionsOf100) {
  const CountTicks ticks = CountTicksOf(300);
  EXPECT_EQ(ticks.Divisions, 3);
  EXPECT_EQ(ticks.Values[0], 0);
  EXPECT_EQ(ticks.Values[1], 100);
  EXPECT_EQ(ticks.Values[3], 300);
}

TEST(CountTicks, AHeightOf8000Has4DivisionsOf2000) {
  const CountTicks ticks = CountTicksOf(8000);
  EXPECT_EQ(ticks.Divisions, 4);
  EXPECT_EQ(ticks.Values[1], 2000);
}

TEST(CountTicks, AHeightOf7IsALogAxisOfSevenDecades) {
  const CountTicks ticks = CountTicksOf(7);
  EXPECT_EQ(ticks.Divisions, 7);
  EXPECT_EQ(ticks.Values[0], 1);
  EXPECT_EQ(ticks.Values[7], 10000000);
}

TEST(CountTicks, TheLogAxisIsMeantToHaveSevenDecadesForAnyHeightBelow10) {
  EXPECT_EQ(CountTicksOf(3).Divisions, 7);
  EXPECT_EQ(CountTicksOf(0).Divisions, 7);
  EXPECT_EQ(CountTicksOf(9).Divisions, 7);
  EXPECT_EQ(CountTicksOf(10).Divisions, 5);
}

TEST(CountAxis, LabelsStandAtTheirTicksAndWithinTheEdges) {
  // 600 pixels high, so that a text of 16 pixels is 8/3 of the 100 units.
  RecordingSurface panel;
  EXPECT_EQ(DrawCountAxis(panel, 8000, kInk).Divisions, 4);
  EXPECT_THAT(TextsOn(panel), testing::ElementsAre(" 8K", " 6K", " 4K", " 2K", " 0"));
  const auto texts = panel.Texts();
  EXPECT_DOUBLE_EQ(texts[0].from.y, 100);            // under the top edge
  EXPECT_NEAR(texts[2].from.y, 50 + 4.0 / 3, 1e-9);  // centred
  EXPECT_NEAR(texts[4].from.y, 8.0 / 3, 1e-9);       // on the bottom edge
  EXPECT_EQ(texts[0].font_size, 10);
}

TEST(CountAxis, LabelsAreRightAlignedBeforeTheTicks) {
  RecordingSurface panel;
  DrawCountAxis(panel, 8000, kInk);
  // One pixel is 0.1 units; ticks are 5 pixels long, labels 2 pixels apart from them.
  EXPECT_DOUBLE_EQ(panel.Boxes()[0].from.x, 99.5);
  EXPECT_DOUBLE_EQ(panel.Boxes()[0].to.x, 100);
  for (const Stroke& text : panel.Texts()) {
    EXPECT_NEAR(text.from.x + 0.8 * static_cast<double>(text.text.size()), 99.3, 1e-9);
  }
}

TEST(CountAxis, EveryDivisionHasItsTick) {
  RecordingSurface panel;
  DrawCountAxis(panel, 300, kInk);
  const auto ticks = panel.Boxes();
  ASSERT_EQ(ticks.size(), 4u);
  EXPECT_DOUBLE_EQ(ticks[0].from.y, 100);
  EXPECT_NEAR(ticks[1].from.y, 200.0 / 3, 1e-9);
  EXPECT_DOUBLE_EQ(ticks[3].from.y, 0);
}

TEST(CountAxis, TheLogAxisNamesItsDecades) {
  RecordingSurface panel;
  DrawCountAxis(panel, 7, kInk);
  EXPECT_THAT(TextsOn(panel),
              testing::ElementsAre(" 10M", " 1M", " 100K", " 10K", " 1K", " 100", " 10", " 1"));
}

TEST(CountAxis, ALowPanelSkipsLabelsButKeepsTicks) {
  SmallPanel panel(60, 70);  // a division of the log axis is 10 pixels, a label 16
  DrawCountAxis(panel, 7, kInk);
  EXPECT_EQ(panel.Boxes().size(), 8u);
  EXPECT_THAT(TextsOn(panel), testing::ElementsAre(" 10M", " 10K", " 10"));
}

TEST(CountAxis, LabelsNeverOverlapAtAnyHeightOfThePanel) {
  for (int height = 1; height <= 400; ++height) {
    for (const std::int32_t scale : {7, 10, 70, 90, 100, 300, 8000}) {
      SmallPanel panel(60, height);
      DrawCountAxis(panel, scale, kInk);
      const auto texts = panel.Texts();
      for (std::size_t i = 1; i < texts.size(); ++i) {
        EXPECT_LE(texts[i].from.y, texts[i - 1].from.y - panel.TextHeight() + 1e-9) << height;
      }
    }
  }
}

TEST(CountAxis, APageIsBlackAndRunsDownwards) {
  RecordingSurface panel;
  EXPECT_EQ(DrawCountAxisPrint(panel, 8000).Divisions, 4);
  EXPECT_EQ(panel.top, 0);
  EXPECT_EQ(panel.bottom, 100);
  EXPECT_EQ(panel.Texts()[0].text, " 8K");
  EXPECT_DOUBLE_EQ(panel.Texts()[0].from.y, 0);
  EXPECT_DOUBLE_EQ(panel.Boxes()[0].from.y, 0);
  EXPECT_EQ(panel.Texts()[0].color, Rgb(0, 0, 0));
}

class UnitAxisTest : public testing::Test {
 protected:
  UnitAxisTest() : workspace(std::make_unique<Workspace>()) {
    workspace->UseFileEgc = 1;
    MeasProp& prop = workspace->Spectra[3].Prop;
    prop.EGC[1] = 0.05;  // 20 channels a keV
    prop.TwoTheta = 60;
    workspace->DefaultProp.EGC[1] = 0.1;
    workspace->DefaultProp.TwoTheta = 60;
  }
  std::vector<UnitTick> Ticks(int unit, int divisions, double width, double start,
                              AxisMedium medium = AxisMedium::Screen) {
    return UnitTicksOf(*workspace, 3, unit, divisions, width, start, medium);
  }
  static std::vector<std::string> Labels(const std::vector<UnitTick>& ticks) {
    std::vector<std::string> labels;
    for (const UnitTick& tick : ticks) labels.push_back(tick.Label);
    return labels;
  }
  std::unique_ptr<Workspace> workspace;
};

TEST_F(UnitAxisTest, PositionsDivideTheWidthAndTheLastIsTheLastChannel) {
  const auto ticks = Ticks(kUnitCh, 4, 400, 100);
  ASSERT_EQ(ticks.size(), 5u);
  EXPECT_EQ(ticks[0].Position, 100);
  EXPECT_EQ(ticks[1].Position, 200);
  EXPECT_EQ(ticks[4].Position, 499);
}

TEST_F(UnitAxisTest, OnAPageTheLastPositionIsWhole) {
  EXPECT_EQ(Ticks(kUnitCh, 4, 400, 100, AxisMedium::Page)[4].Position, 500);
}

TEST_F(UnitAxisTest, TheLastTickOfAPageStandsOnTheEdgeWhereAChannelIsLessThanAPixel) {
  // 1000 pixels of a recording surface for 4000 channels, then for 100.
  for (const auto& [width, last] : {std::pair{4000.0, 3999.0}, {100.0, 100.0}}) {
    RecordingSurface panel;
    DrawUnitAxis(panel, *workspace, 3, kUnitCh, 4, width, 0, kInk, AxisMedium::Page);
    EXPECT_EQ(panel.Boxes().back().from.x, last);
  }
}

TEST_F(UnitAxisTest, ChannelsAreShownByTheirNumbers) {
  EXPECT_THAT(Labels(Ticks(kUnitCh, 4, 400, 0)),
              testing::ElementsAre("1", "101", "201", "301", "400"));
}

TEST_F(UnitAxisTest, ANegativeUnitCountsAsChannel) {
  EXPECT_EQ(Labels(Ticks(-1, 4, 400, 0)), Labels(Ticks(kUnitCh, 4, 400, 0)));
}

TEST_F(UnitAxisTest, EnergiesHaveOneDecimal) {
  // Channel number 1 at 0.05 keV: 0.05 is rounded up; number 2001 at 100.05.
  EXPECT_THAT(Labels(Ticks(1, 2, 4000, 0)), testing::ElementsAre("0.1", "100.1", "200.0"));
  EXPECT_EQ(Labels(Ticks(2, 2, 4000, 0))[1], "100050.0");
}

TEST_F(UnitAxisTest, OtherUnitsHaveFourDecimals) {
  // 60 degrees: d = 12.3981 / (2 E sin 30) = 12.3981 / E, and E of channel number 1000 is 50 keV.
  EXPECT_EQ(Ticks(3, 1, 1, 999)[0].Label, "0.2480");
  EXPECT_EQ(Ticks(4, 1, 1, 999)[0].Label, "0.2480");
}

TEST_F(UnitAxisTest, FromUnit3OnTheKeptValueIsMeantToBeTheChannel) {
  EXPECT_DOUBLE_EQ(Ticks(1, 1, 1, 999)[0].Value, 50);
  EXPECT_EQ(Ticks(3, 1, 1, 999)[0].Value, 999);
}

TEST_F(UnitAxisTest, TheDefaultCalibrationIsTakenWhenItIsSelected) {
  workspace->UseFileEgc = 0;
  EXPECT_EQ(Ticks(1, 1, 1, 999)[0].Label, "100.0");
}

TEST_F(UnitAxisTest, WithATwoThetaOf0TheWavelengthAxisShowsChannels) {
  workspace->Spectra[3].Prop.TwoTheta = 0;
  EXPECT_EQ(AxisUnit(*workspace, 3, 4), 0);
  EXPECT_EQ(Labels(Ticks(4, 4, 400, 0)), Labels(Ticks(kUnitCh, 4, 400, 0)));
  EXPECT_EQ(AxisUnit(*workspace, 3, 3), 3);
}

TEST_F(UnitAxisTest, TheSpectrumsAngleIsMeantToDecideUnderTheDefaultCalibrationToo) {
  workspace->UseFileEgc = 0;
  workspace->Spectra[3].Prop.TwoTheta = 0;
  EXPECT_EQ(AxisUnit(*workspace, 3, 4), 0);
}

TEST_F(UnitAxisTest, NoDivisionsNoTicks) {
  EXPECT_TRUE(Ticks(0, 0, 400, 0).empty());
  EXPECT_TRUE(Ticks(0, -2, 400, 0).empty());
}

TEST_F(UnitAxisTest, ADataNoOutsideOfTheTableFaults) {
  EXPECT_THROW(UnitTicksOf(*workspace, 14, 0, 10, 400, 0, AxisMedium::Screen), Fault);
}

TEST_F(UnitAxisTest, TicksAndLabelsStandAtTheirChannels) {
  RecordingSurface panel;
  DrawUnitAxis(panel, *workspace, 3, 0, 4, 1001, 0, kInk);
  EXPECT_EQ(panel.left, 0);
  EXPECT_EQ(panel.right, 1000);
  const auto ticks = panel.Boxes();
  ASSERT_EQ(ticks.size(), 5u);
  EXPECT_EQ(ticks[2].from.x, 500.5);
  EXPECT_EQ(ticks[4].from.x, 1000);
  const auto texts = panel.Texts();
  // A channel is a pixel: labels of 3 characters are 24 wide.
  EXPECT_EQ(texts[0].from.x, 0);  // kept within the left edge
  EXPECT_EQ(texts[1].from.x, 250.25 - 12);
  EXPECT_EQ(texts[4].from.x, 1000 - 32);  // kept within the right edge
}

TEST_F(UnitAxisTest, TheUnitsNameStandsBelowTheLabels) {
  RecordingSurface panel;
  DrawUnitAxis(panel, *workspace, 3, 1, 4, 1001, 0, kInk);
  const Stroke name = panel.Texts().back();
  EXPECT_EQ(name.text, "keV");
  EXPECT_EQ(name.from.x, 500 - 12);
  EXPECT_GT(name.from.y, panel.Texts().front().from.y);
}

TEST_F(UnitAxisTest, OnALowPanelTheNameStandsAtTheEndOfTheLabels) {
  SmallPanel panel(1000, 24);
  DrawUnitAxis(panel, *workspace, 3, 1, 4, 1001, 0, kInk);
  const auto texts = panel.Texts();
  EXPECT_EQ(texts.back().text, "keV");
  EXPECT_EQ(texts.back().from.x, 1000 - 24);
  EXPECT_EQ(texts.back().from.y, texts.front().from.y);
}

TEST_F(UnitAxisTest, LabelsNeverOverlapAtAnyWidthOfThePanel) {
  for (int width = 1; width <= 1200; width += 7) {
    for (const double height : {24.0, 60.0}) {
      SmallPanel panel(width, height);
      DrawUnitAxis(panel, *workspace, 3, 3, 10, 4096, 0, kInk);
      EXPECT_EQ(panel.Boxes().size(), 11u);
      auto texts = panel.Texts();
      if (height > 50) texts.pop_back();  // the name has its own line
      for (std::size_t i = 1; i < texts.size() && width > 150; ++i) {
        EXPECT_LE(texts[i - 1].from.x + panel.TextWidth(texts[i - 1].text), texts[i].from.x)
            << width;
      }
    }
  }
}

TEST(PrintFrame, TheAxesTouchTheGraphAndStayOnThePage) {
  RecordingSurface page;
  const PrintFrame frame = DrawPrintFrame(page, "title", kInk);
  EXPECT_EQ(frame.count_axis.x + frame.count_axis.width, frame.plot.x);
  EXPECT_EQ(frame.count_axis.y, frame.plot.y);
  EXPECT_EQ(frame.count_axis.height, frame.plot.height);
  EXPECT_EQ(frame.unit_axis.y, frame.plot.y + frame.plot.height);
  EXPECT_EQ(frame.unit_axis.width, frame.plot.width);
  EXPECT_GT(frame.count_axis.x, 0);
  EXPECT_LT(frame.unit_axis.y + frame.unit_axis.height, 600);
  EXPECT_LT(frame.plot.x + frame.plot.width, 1000);
}

TEST(PrintFrame, NamesTheCountAxisAndTheGraph) {
  RecordingSurface page;
  DrawPrintFrame(page, "corundum", kInk);
  EXPECT_THAT(TextsOn(page), testing::ElementsAre("Counts", "corundum"));
  EXPECT_EQ(page.Boxes().size(), 4u);
}

// Characters are 8 pixels wide.
TEST(PrintFrame, ATitleWiderThanTheGraphIsCut) {
  RecordingSurface page;
  const PrintFrame frame = DrawPrintFrame(page, std::string(300, 't'), kInk);
  const Stroke title = page.Texts().back();
  EXPECT_GE(title.from.x, frame.plot.x);
  EXPECT_LE(title.text.size() * 8.0, frame.plot.width);
  EXPECT_GT(title.text.size() * 8.0, frame.plot.width - 8);
}

TEST(PrintFrame, ATinyPageHasAnEmptyGraph) {
  SmallPanel page(20, 20);
  const PrintFrame frame = DrawPrintFrame(page, "title", kInk);
  EXPECT_EQ(frame.plot.width, 0);
  EXPECT_EQ(frame.plot.height, 0);
}

}  // namespace
}  // namespace dorvane
