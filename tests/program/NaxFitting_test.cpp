#include "program/NaxFitting.h"

#include <gmock/gmock.h>

#include <cmath>

#include "processing/Units.h"
#include "program/OpenSave.h"
#include "program/PeakFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class NaxFittingTest : public PeakFitTest {
 protected:
  void SetUp() override { workspace.Settings.BgCoef = 5; }

  const PeakTable& Table(int data_no) const { return workspace.Peaks[data_no]; }
  // A result at a channel number.
  static NaxPeak At(double position, double height = 1000, double fwhm = 10) {
    NaxPeak peak;
    peak.position = position;
    peak.height = height;
    peak.fwhm = fwhm;
    peak.background = {50, 2, 0};
    return peak;
  }
  void Store(const std::vector<NaxPeak>& peaks) { NaxScanStore(program, 0, 0, peaks); }
};

// ---- the command

TEST_F(NaxFittingTest, PeaksOfTheSpectrumComeToItsTable) {
  const auto data_no = Show(Spectrum(600, 200, {{5000, 150.3, 6}, {8000, 400.7, 9}}));
  NaxFitting(program, 0, data_no);
  ASSERT_EQ(Table(data_no).Count, 2);
  const PeakRec& first = Table(data_no).Peaks[0];
  EXPECT_NEAR(first.Center, 150.3, 0.01);
  EXPECT_NEAR(first.HalfWidth, 6, 0.05);
  EXPECT_NEAR(first.Height, 5000, 50);
  EXPECT_NEAR(Table(data_no).Peaks[1].Center, 400.7, 0.01);
}

TEST_F(NaxFittingTest, TheCurveFitIsMade) {
  const auto data_no = Show(Spectrum(600, 200, {{5000, 150, 6}}));
  NaxFitting(program, 0, data_no);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
  EXPECT_EQ(FlagsOf(0) & FlagFit, FlagFit);
  EXPECT_NEAR(workspace.Channels[Row(0).DataNo].Counts[150], 5000, 50);
  EXPECT_EQ(Table(Row(0).DataNo), Table(data_no));
}

TEST_F(NaxFittingTest, WithoutAPeakABoxSaysSo) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  dialogs.ExpectMessage("NO PEAKS ARE FOUND");
  NaxFitting(program, 0, data_no);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(NaxFittingTest, ASecondScanReplacesTheFirst) {
  const auto data_no = Show(Spectrum(600, 200, {{5000, 150, 6}, {8000, 400, 9}}));
  NaxFitting(program, 0, data_no);
  NaxFitting(program, 0, data_no);
  EXPECT_EQ(Table(data_no).Count, 2);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "a.npd"));
}

TEST_F(NaxFittingTest, PeaksFromBeforeGoAlsoWhereNoneIsFound) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  Enter(data_no, {1000, 300, 6}, 280, 320);
  dialogs.ExpectMessage("NO PEAKS ARE FOUND");
  NaxFitting(program, 0, data_no);
  EXPECT_EQ(Table(data_no).Count, 0);
}

TEST_F(NaxFittingTest, SettingsOfTheAnalysisSteerTheScan) {
  const auto data_no = Show(Spectrum(600, 200, {{2000, 300, 12}}));
  workspace.Settings.BgCoef = 100;
  dialogs.ExpectMessage("NO PEAKS ARE FOUND");
  NaxFitting(program, 0, data_no);
  workspace.Settings.BgCoef = 5;
  workspace.Settings.PeakWidthCh = 500;  // no group is closed before the buffer is full
  dialogs.ExpectMessage("NO PEAKS ARE FOUND");
  NaxFitting(program, 0, data_no);
}

TEST_F(NaxFittingTest, OnlyTheFirst4096ChannelsAreScanned) {
  const auto data_no = Show(Spectrum(8192, 200, {{5000, 1000, 6}, {5000, 6000, 6}}));
  NaxFitting(program, 0, data_no);
  ASSERT_EQ(Table(data_no).Count, 1);
  EXPECT_NEAR(Table(data_no).Peaks[0].Center, 1000, 0.01);
}

TEST_F(NaxFittingTest, ASpectrumThatIsInNoRowIsLeftAlone) {
  Show(Spectrum(600, 200, {{5000, 150, 6}}));
  NaxFitting(program, 0, 7);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(NaxFittingTest, MoreThan100PeaksAreNotStored) {
  std::vector<Line> lines;
  for (int i = 0; i < 130; ++i) lines.push_back({5000, 60.0 + 30 * i, 5});
  const auto data_no = Show(Spectrum(4096, 200, lines));
  NaxFitting(program, 0, data_no);
  EXPECT_EQ(Table(data_no).Count, 0);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
  EXPECT_THAT(log.lines,
              ElementsAre("MORE THAN 100 PEAKS: NONE IS STORED, TRY A GREATER BG COEFFICIENT"));
}

// Two groups, of which the second is never closed: with the peak at 200 it fills the buffer.
TEST_F(NaxFittingTest, AGroupThatFillsTheBufferIsToldInTheLogAndThePeaksBeforeItStay) {
  std::vector<Line> lines{{5000, 200, 6}};
  for (int i = 0; i < 60; ++i) lines.push_back({5000, 400.0 + 90 * i, 6});
  const auto data_no = Show(Spectrum(4096, 200, lines));
  workspace.Settings.PeakWidthCh = 120;
  NaxFitting(program, 0, data_no);
  EXPECT_EQ(Table(data_no).Count, 1);
  EXPECT_THAT(log.lines,
              ElementsAre("SCAN ENDED EARLY: A GROUP OF PEAKS OVER MORE THAN 500 CHANNELS"));
}

TEST_F(NaxFittingTest, AWholeScanWritesNothingToTheLog) {
  const auto data_no = Show(Spectrum(600, 200, {{5000, 150, 6}}));
  NaxFitting(program, 0, data_no);
  EXPECT_TRUE(log.lines.empty());
}

// ---- stopped, and faults

class StoppedScanTest : public NaxFittingTest {
 protected:
  void SetUp() override {
    NaxFittingTest::SetUp();
    data_no = Show(Spectrum(600, 200, {{5000, 150, 6}, {8000, 400, 9}}));
    Enter(data_no, {1000, 300, 6}, 280, 320);
    workspace.FitBack[77] = 5;
    table = Table(data_no);
  }
  void ExpectAllAsBefore() {
    EXPECT_EQ(Table(data_no), table);
    EXPECT_EQ(workspace.FitBack[77], 5);
    EXPECT_THAT(Titles(), ElementsAre("a.npd"));
  }

  std::int16_t data_no = 0;
  PeakTable table;
};

TEST_F(StoppedScanTest, TheUserStopsItBetweenGroupsAndAllIsAsBefore) {
  progress.cancel_after = 0;
  dialogs.ExpectMessage("Failed to fit");
  NaxFitting(program, 0, data_no);
  EXPECT_EQ(progress.reports, 1);
  ExpectAllAsBefore();
}

TEST_F(StoppedScanTest, APeakWidthThatIsNo16BitNumberFaultsBeforeAnythingIsChanged) {
  workspace.Settings.PeakWidthCh = 1e6;
  EXPECT_THROW(NaxFitting(program, 0, data_no), Fault);
  ExpectAllAsBefore();
}

// ---- the store

TEST_F(NaxFittingTest, RecordsAreThoseOfAPureGaussian) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  workspace.FitParam.FuncType = kMix;
  Store({At(151.5, 900, 12)});
  const PeakRec& peak = Table(data_no).Peaks[0];
  EXPECT_EQ(peak.FitDone, -1);
  EXPECT_EQ(peak.Height, 900);
  EXPECT_EQ(peak.Center, 150.5);
  EXPECT_EQ(peak.HalfWidth, 6);
  EXPECT_EQ(peak.GaussRatio, 1);
  EXPECT_EQ(peak.BackConst, 0);
  EXPECT_EQ(peak.BackSlope, 0);
  EXPECT_EQ(peak.FuncType, kMix);
  EXPECT_EQ(peak.FitEngine, 0);
  // 900 * 6 * sqrt(pi / ln 2), the area of a Gaussian
  EXPECT_NEAR(peak.Amplitude, 11496.24, 0.01);
}

TEST_F(NaxFittingTest, TheAreaIsMeantToBeTakenAtThePlaceOfTheResult) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  Store({At(300), At(100)});  // the second comes before the first, whose area is taken twice
  ASSERT_EQ(Table(data_no).Count, 2);
  EXPECT_EQ(Table(data_no).Peaks[0].Center, 99);
  EXPECT_EQ(Table(data_no).Peaks[0].Amplitude, 0);
  EXPECT_GT(Table(data_no).Peaks[1].Amplitude, 10000);
}

TEST_F(NaxFittingTest, AFirstResultOf0WritesNothing) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  Store({At(0), At(100)});
  Store({});
  EXPECT_EQ(Table(data_no).Count, 0);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(NaxFittingTest, HundredResultsAreStoredAndOneMoreWritesNothing) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  std::vector<NaxPeak> peaks;
  for (int i = 0; i < 101; ++i) peaks.push_back(At(10 + 5 * i));
  Store(peaks);
  EXPECT_EQ(Table(data_no).Count, 0);
  peaks.pop_back();
  Store(peaks);
  EXPECT_EQ(Table(data_no).Count, 100);
}

TEST_F(NaxFittingTest, BackgroundUnderAPeakIsWrittenOneWidthToEitherSide) {
  Show(Spectrum(600, 200, {}));
  Store({At(100, 1000, 10)});  // 50 + 2 t from channel 90 - 1 to 110 - 1, t = channel - 100
  EXPECT_EQ(workspace.FitBack[88], 0);
  EXPECT_EQ(workspace.FitBack[89], 28);
  EXPECT_EQ(workspace.FitBack[100], 50);
  EXPECT_EQ(workspace.FitBack[109], 68);
  EXPECT_EQ(workspace.FitBack[110], 0);
}

TEST_F(NaxFittingTest, BackgroundOutsideOfTheTableIsSkippedAndTheResultStays) {
  const auto data_no = Show(Spectrum(4096, 200, {}));
  Store({At(3), At(4094)});
  EXPECT_EQ(Table(data_no).Count, 2);
  EXPECT_EQ(workspace.FitBack[0], 44);
  EXPECT_EQ(workspace.FitBack[4095], 52);
}

TEST_F(NaxFittingTest, BackgroundOfAnEarlierFitGoes) {
  const auto data_no = Show(Spectrum(600, 200, {}));
  workspace.FitBack[77] = 5;
  dialogs.ExpectMessage("NO PEAKS ARE FOUND");
  NaxFitting(program, 0, data_no);
  EXPECT_EQ(workspace.FitBack[77], 0);
}

// ---- a measured spectrum

// Corundum with a = 4.760, c = 12.994 angstrom: 1/d^2 = 4 (h^2 + hk + k^2) / (3 a^2) + l^2 / c^2.
// The first line, at the lowest energy, stands 0.0014 below that, a fifth of a channel, for both
// families of fits.
TEST_F(NaxFittingTest, TheStrongLinesOfMeasuredCorundumAreFound) {
  ReadGraph(program, 0, 0, std::string(DORVANE_SOURCE_DIR) + "/samples/corundum_ambient.npd");
  const std::int16_t data_no = Row(0).DataNo;
  NaxFitting(program, 0, data_no);
  const PeakTable& table = Table(data_no);
  ASSERT_GE(table.Count, 8);
  const int planes[8][3] = {{0, 1, 2}, {1, 0, 4}, {1, 1, 0}, {1, 1, 3},
                            {0, 2, 4}, {1, 1, 6}, {2, 1, 4}, {3, 0, 0}};
  int i = 0;
  for (const auto& [h, k, l] : planes) {
    const double square =
        4 * (h * h + h * k + k * k) / (3 * 4.760 * 4.760) + l * l / (12.994 * 12.994);
    const double d =
        ChToUnit(kUnitD, table.Peaks[i].Center, workspace.Spectra[data_no].Prop, workspace.Dac);
    EXPECT_NEAR(d, 1 / std::sqrt(square), i == 0 ? 0.0015 : 0.001) << h << k << l;
    ++i;
  }
}

}  // namespace
}  // namespace dorvane
