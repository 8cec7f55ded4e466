#include "lattice/LatticeRows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

// 0.01 keV a channel, 2-theta 5 degrees: channel number 5000 is 50 keV and
// d = 12.3981 / (100 sin(2.5 degrees)) = 2.842337 angstrom, by an independent computation.
class LatticeRowsTest : public testing::Test {
 protected:
  static constexpr int kDataNo = 2;

  LatticeRowsTest() {
    workspace->UseFileEgc = 1;
    MeasProp& prop = workspace->Spectra[kDataNo].Prop;
    prop.EGC[1] = 0.01;
    prop.TwoTheta = 5;
    PeakTable& table = workspace->Peaks[kDataNo];
    table.Count = 1;
    table.Peaks[0].Center = 4999;
    table.Peaks[0].Height = 1234.5;
    table.Peaks[0].HalfWidth = 1.5;
    table.Peaks[0].Amplitude = 5678;
  }

  LineRec& Match(int peak, int h, int k, int l, double d_obs, double d_cal) {
    LineRec& line = state->Lines[peak];
    line.H = static_cast<std::int16_t>(h);
    line.K = static_cast<std::int16_t>(k);
    line.L = static_cast<std::int16_t>(l);
    line.Ch = 4999;
    line.DObs = d_obs;
    line.DCalc = d_cal;
    line.Matched = kTrue;
    return line;
  }

  std::vector<PeakRow> Peaks() const { return PeakRowsOf(*workspace, kDataNo); }
  std::vector<MatchedRow> Rows(const CellVector* cell = nullptr) const {
    return MatchedRowsOf(*state, *workspace, kDataNo, kCubic, cell);
  }

  std::unique_ptr<Workspace> workspace = std::make_unique<Workspace>();
  std::unique_ptr<LatticeState> state = std::make_unique<LatticeState>();
};

TEST_F(LatticeRowsTest, APeakShowsChannelNumberEnergyAndD) {
  ASSERT_THAT(Peaks(), SizeIs(1));
  const PeakRow row = Peaks()[0];
  EXPECT_EQ(row.ch, 5000);
  EXPECT_NEAR(row.energy, 50, 1e-9);
  EXPECT_NEAR(row.d, 2.842337, 1e-6);
}

TEST_F(LatticeRowsTest, APeakShowsIntensityAreaAndFullWidths) {
  const PeakRow row = Peaks()[0];
  EXPECT_EQ(row.intensity, 1234.5);
  EXPECT_EQ(row.amplitude, 5678);
  EXPECT_EQ(row.fwhm_ch, 3);
  EXPECT_NEAR(row.fwhm_kev, 0.03, 1e-12);
}

TEST_F(LatticeRowsTest, ASpectrumWithoutPeaksHasNoRows) {
  workspace->Peaks[kDataNo].Count = 0;
  EXPECT_THAT(Peaks(), IsEmpty());
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(LatticeRowsTest, TheCalibrationIsTheOneThatUseFileEgcPicks) {
  workspace->UseFileEgc = 0;
  workspace->DefaultProp.EGC[1] = 0.02;
  EXPECT_NEAR(Peaks()[0].energy, 100, 1e-9);
}

TEST_F(LatticeRowsTest, TheFitTypeIsALetter) {
  EXPECT_STREQ(FitTypeLetter(0), "A");
  EXPECT_STREQ(FitTypeLetter(1), "M");
  EXPECT_STREQ(FitTypeLetter(2), "UNK");
  EXPECT_STREQ(FitTypeLetter(-1), "UNK");
}

TEST_F(LatticeRowsTest, TwoThetaIsTheSpectrumsOwn) {
  EXPECT_EQ(Peaks()[0].two_theta, 5);
  Match(0, 1, 1, 1, 2.3, 2.3);
  EXPECT_EQ(Rows()[0].two_theta, 5);
}

TEST_F(LatticeRowsTest, TwoThetaOfAnAngleDispersiveSpectrumIsThePeaks) {
  workspace->Spectra[kDataNo].DataType = kDacData;
  workspace->Dac = {0.002, 5};
  Match(0, 1, 1, 1, 2.3, 2.3);
  EXPECT_NEAR(Peaks()[0].two_theta, 14.998, 1e-9);
  EXPECT_NEAR(Rows()[0].two_theta, 14.998, 1e-9);
}

TEST_F(LatticeRowsTest, MatchedLinesAloneAreRows) {
  Match(0, 1, 1, 1, 2.3, 2.31);
  Match(7, -2, 0, 0, 2.0, 2.01).Unused = kTrue;
  const auto rows = Rows();
  ASSERT_THAT(rows, SizeIs(2));
  EXPECT_EQ(rows[0].peak, 0);
  EXPECT_TRUE(rows[0].use);
  EXPECT_EQ(rows[1].peak, 7);
  EXPECT_FALSE(rows[1].use);
  EXPECT_EQ(MillerText(rows[1]), "(-2 0 0)");
}

TEST_F(LatticeRowsTest, AMatchedLineShowsItsChannelNumberAndSpacings) {
  Match(0, 1, 1, 1, 2.3, 2.31);
  const MatchedRow row = Rows()[0];
  EXPECT_EQ(row.ch, 5000);
  EXPECT_NEAR(row.energy, 50, 1e-9);
  EXPECT_EQ(row.d_obs, 2.3);
  EXPECT_EQ(row.d_cal, 2.31);
  EXPECT_EQ(row.fit_type, "A");
}

TEST_F(LatticeRowsTest, WithoutARefinedCellThereIsNoRefinedSpacing) {
  Match(0, 1, 1, 1, 2.3, 2.31);
  EXPECT_EQ(Rows()[0].d_r, 0);
  EXPECT_EQ(Rows()[0].d_def, 0);
}

// d(111) of a = 4 is 4 / sqrt(3) = 2.309401; (2.31 - 2.309401) / 2.31 = 2.593e-4.
TEST_F(LatticeRowsTest, TheRefinedCellGivesItsSpacingAndTheChangeFromTheSeeds) {
  Match(0, 1, 1, 1, 2.3, 2.31);
  CellVector cell;
  for (int i = 1; i <= 3; ++i) cell[i] = 4;
  for (int i = 4; i <= 6; ++i) cell[i] = 90;
  EXPECT_NEAR(Rows(&cell)[0].d_r, 2.309401, 1e-6);
  EXPECT_NEAR(Rows(&cell)[0].d_def, 2.593e-4, 1e-6);
}

TEST_F(LatticeRowsTest, ACellThatGivesNoSpacingShowsNone) {
  Match(0, 1, 1, 1, 2.3, 2.31);
  const CellVector nothing;
  EXPECT_EQ(Rows(&nothing)[0].d_r, 0);
}

}  // namespace
}  // namespace dorvane
