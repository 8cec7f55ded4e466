// The grids of the lattice form and the lines that are excluded through them.
#include <gmock/gmock.h>

#include "forms/PeakCalFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

constexpr const char* kTooFewLines = "計算するための回折線の数が少なすぎます。";
constexpr double kLength = 2e-5;  // angstrom, the rounding of 32-bit floats in the refinement

class PeakCalLinesTest : public PeakCalTest {};

// ---- grids

TEST_F(PeakCalLinesTest, ColumnsOfTheGrids) {
  EXPECT_THAT(form.sprPeakInf.Headings(),
              ElementsAre("Peak(Ch)", "Peak(keV)", "Peak(d)", "Intensity", "FWHM(Ch)", "FWHM(keV)",
                          "Amplitude", "Use", "FitType"));
  EXPECT_THAT(form.sprPeakInf2.Headings(), ElementsAre("Peak(Ch)", "Peak(keV)", "D(Obs)", "D(Cal)",
                                                       "DEV", "Miller Indices", "Use", "FitType"));
  EXPECT_THAT(form.sprPeakInf3.Headings(),
              ElementsAre("D(Obs)", "D(Cal)", "D(R)", "Miller indices", "Use", "FitType"));
  EXPECT_THAT(form.sprPeakInf4.Headings(),
              ElementsAre("Peak(Ch)", "Peak(keV)", "D(Obs)", "D(Cal)", "D(R)", "DDef(Initial)",
                          "Miller Indi.", "Use", "FitType", "2Theta"));
  EXPECT_EQ(form.sprPeakInf.Caption(), "Peak No.");
}

// Channel number 1000 has 20 keV, d = 12.3981 / (40 sin(3 degrees)) by hand.
TEST_F(PeakCalLinesTest, PeaksAreListedInTheirPictures) {
  AddPeakAt(999);
  AddPeakAt(1999);
  workspace.Peaks[data_no].Peaks[1].FitEngine = kEngineNax;
  AddPeakAt(2999);
  workspace.Peaks[data_no].Peaks[2].FitEngine = 7;
  Work([&] {
    EXPECT_THAT(RowOf(form.sprPeakInf, 1),
                ElementsAre("1000.000", "20.00000", "5.92236", "101.000", "10.000", "0.20000",
                            "1000.000", "[x]", "M"));
    EXPECT_EQ(form.sprPeakInf.RowTitle(1), "Peak(1)");
    EXPECT_EQ(form.sprPeakInf.Text(2, 9), "A");
    EXPECT_EQ(form.sprPeakInf.Text(3, 9), "UNK");
  });
}

TEST_F(PeakCalLinesTest, CopyWithAModeRenewsTheDValuesAlone) {
  AddPeakAt(999);
  Work([&] {
    SetUse(form.sprPeakInf, 1, false);
    workspace.Peaks[data_no].Peaks[0].Center = 1999;
    form.CopyPeakInfo(1);
    // Channel number 2000 has 40 keV, d = 12.3981 / (80 sin(3 degrees)) by hand.
    EXPECT_EQ(form.sprPeakInf.Text(1, 3), "2.96118");
    EXPECT_EQ(form.sprPeakInf.Text(1, 1), "1000.000");
    EXPECT_FALSE(form.sprPeakInf.Cell(1, 8).checked);
    form.CopyPeakInfo(0);
    EXPECT_EQ(form.sprPeakInf.Text(1, 1), "2000.000");
    EXPECT_TRUE(form.sprPeakInf.Cell(1, 8).checked);
  });
}

TEST_F(PeakCalLinesTest, IndexedLinesAreListedInTheirPictures) {
  WorkOn(kMgO, 1.0005, [&] {
    Execute();
    EXPECT_THAT(RowOf(form.sprPeakInf2, 1),
                ElementsAre("2434.628", "48.69256", "2.43255", "2.43134", "0.00122", "(1 1 1)",
                            "[x]", "M"));
    EXPECT_THAT(RowOf(form.sprPeakInf3, 1),
                ElementsAre("2.43255", "2.43134", "2.43255", "(1 1 1)", "[x]", "M"));
    EXPECT_THAT(RowOf(form.sprPeakInf4, 1),
                ElementsAre("2434.628", "48.69256", "2.43255", "2.43134", "2.43255", "-0.00050",
                            "(1 1 1)", "[x]", "M", "6.00000"));
    EXPECT_EQ(form.sprPeakInf4.RowTitle(5), "5");
  });
}

TEST_F(PeakCalLinesTest, PeaksWithoutALineHaveNoRow) {
  AddPeak(3);
  WorkOn(kCu, 1, [&] {
    Execute();
    EXPECT_EQ(form.sprPeakInf.MaxRows(), 6);
    for (const Grid* grid : {&form.sprPeakInf2, &form.sprPeakInf3, &form.sprPeakInf4}) {
      EXPECT_EQ(grid->MaxRows(), 5);
    }
  });
}

TEST_F(PeakCalLinesTest, FirstTabShowsThePeaks) {
  Work([&] {
    EXPECT_TRUE(form.sprPeakInf.Visible());
    EXPECT_FALSE(form.sprPeakInf3.Visible() || form.sprPeakInf4.Visible());
  });
}

TEST_F(PeakCalLinesTest, SecondTabShowsTheGridOfTheMode) {
  Work([&] {
    form.tabLatticeFit.SetIndex(1);
    EXPECT_FALSE(form.sprPeakInf.Visible());
    EXPECT_TRUE(form.sprPeakInf3.Visible());
    EXPECT_FALSE(form.sprPeakInf4.Visible());
    form.optSelectMode.SetIndex(1);
    EXPECT_FALSE(form.sprPeakInf3.Visible());
    EXPECT_TRUE(form.sprPeakInf4.Visible());
  });
}

TEST_F(PeakCalLinesTest, SecondGridIsFilledAndNeverSeenAsMeant) {
  WorkOn(kCu, 1, [&] {
    Execute();
    EXPECT_EQ(form.sprPeakInf2.MaxRows(), 5);
    for (const int tab : {1, 0}) {
      form.tabLatticeFit.SetIndex(tab);
      EXPECT_FALSE(form.sprPeakInf2.Visible());
    }
  });
}

// ---- exclusion

TEST_F(PeakCalLinesTest, UncheckedLineIsExcludedFromTheNextCalculation) {
  for (Grid* grid : {&form.sprPeakInf, &form.sprPeakInf2, &form.sprPeakInf3, &form.sprPeakInf4}) {
    workspace.Peaks[data_no] = {};
    AddLines(kCu);
    workspace.Peaks[data_no].Peaks[2].Center += 8;  // 220 is off
    workspace.Settings.JudgeRange = 0.02;
    Work([&] {
      Fit(kCu);
      EXPECT_GT(std::fabs(ValueIn(form.txtLatticeLength[0]) - 3.615), 1e-4);
      SetUse(*grid, 3, false);
      EXPECT_EQ(form.State().Lines[2].Unused, kTrue);
      Execute();
      EXPECT_NEAR(ValueIn(form.txtLatticeLength[0]), 3.615, kLength);
      SetUse(*grid, 3, true);
      EXPECT_EQ(form.State().Lines[2].Unused, kFalse);
    });
    EXPECT_EQ(Logged("\"********************* UseFlag Changed!! **********\"\r\n\"\"\r\n"), 2);
  }
}

TEST_F(PeakCalLinesTest, OtherGridsFollowAtTheNextCalculation) {
  WorkOn(kCu, 1, [&] {
    Execute();
    SetUse(form.sprPeakInf3, 2, false);
    EXPECT_TRUE(form.sprPeakInf2.Cell(2, 7).checked);
    EXPECT_FALSE(form.sprPeakInf3.Cell(2, 1).greyed);
    Execute();
    EXPECT_FALSE(form.sprPeakInf2.Cell(2, 7).checked);
    EXPECT_FALSE(form.sprPeakInf.Cell(2, 8).checked);
    EXPECT_TRUE(form.sprPeakInf3.Cell(2, 1).greyed && form.sprPeakInf.Cell(2, 1).greyed);
    EXPECT_FALSE(form.sprPeakInf3.Cell(1, 1).greyed);
  });
  EXPECT_EQ(Logged("\"2*\",\"(2 0 0)\""), 2);  // against the seeds and against the cell
}

// The first peak has no line: row 2 of all peaks is the second line, which is the third peak.
TEST_F(PeakCalLinesTest, RowOfAllPeaksCountsTheIndexedLinesAsMeant) {
  AddPeak(3);
  WorkOn(kCu, 1, [&] {
    Execute();
    SetUse(form.sprPeakInf, 2, false);
    EXPECT_EQ(form.State().Lines[1].Unused, kFalse);
    EXPECT_EQ(form.State().Lines[2].Unused, kTrue);
    Execute();
    EXPECT_FALSE(form.sprPeakInf.Cell(2, 8).checked);
    EXPECT_TRUE(form.sprPeakInf.Cell(3, 1).greyed);
  });
}

TEST_F(PeakCalLinesTest, UseWithoutAnIndexedLineDoesNothing) {
  AddLines(kCu);
  Work([&] { SetUse(form.sprPeakInf, 1, false); });
  EXPECT_EQ(Logged("UseFlag"), 0);
}

TEST_F(PeakCalLinesTest, FewerLinesThanParametersAreTold) {
  WorkOn(kKyanite, 1, [&] {
    Execute();
    for (int r = 1; r <= 5; ++r) SetUse(form.sprPeakInf3, r, false);
    dialogs.ExpectMessage(kTooFewLines);
    Execute();
    EXPECT_EQ(form.sprPeakInf3.MaxRows(), 10);
  });
}

}  // namespace
}  // namespace dorvane
