#include "program/PeakErrorText.h"

#include <gmock/gmock.h>

#include <memory>

#include "processing/Units.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// E = 0.5 + 0.02 n + 1E-6 n^2 keV; a peak at channel number 1501.25, 4.2469 channels wide.
class PeakErrorTextTest : public testing::Test {
 protected:
  PeakErrorTextTest() {
    workspace.DefaultProp.EGC[0] = 0.5;
    workspace.DefaultProp.EGC[1] = 0.02;
    workspace.DefaultProp.EGC[2] = 1e-6;
    workspace.DefaultProp.TwoTheta = 6;
    workspace.Peaks[kData].Count = 1;
    Peak().Center = 1500.25;
    Peak().HalfWidth = 2.1234567;
  }
  PeakErrorTexts Texts(int unit) {
    return PeakErrorsOf(workspace, Peak(), CalibrationOf(workspace, kData), unit);
  }
  PeakRec& Peak() { return workspace.Peaks[kData].Peaks[0]; }

  static constexpr int kData = 3;
  std::unique_ptr<Workspace> holder = std::make_unique<Workspace>();
  Workspace& workspace = *holder;
};

TEST_F(PeakErrorTextTest, UnknownErrorsAreEmpty) {
  EXPECT_THAT(Texts(kUnitKeV), ElementsAre("", "", "", "", "", ""));
  EXPECT_FALSE(AnyErrorKnown(workspace.Peaks[kData]));
}

TEST_F(PeakErrorTextTest, HaveTheUnitsOfTheirColumns) {
  Peak().Errors = {.Height = 31.25, .GaussRatio = 0.015, .HalfWidth = 0.25, .Center = 0.5};
  // dE/dn = 0.02 + 2E-6 n = 0.0230025 keV a channel at n = 1501.25; a width of w channels is
  // 0.02 w + 1E-6 w^2 keV, 0.02 + 2E-6 * 4.2469 a channel at its own.
  EXPECT_THAT(Texts(kUnitKeV), ElementsAre("0.5", "0.0115", "31.3", "0.5", "0.01", "1.5"));
  EXPECT_TRUE(AnyErrorKnown(workspace.Peaks[kData]));
}

TEST_F(PeakErrorTextTest, OfChannelsAreThoseOfTheFitInBothColumns) {
  Peak().Errors.Center = 0.0123456;
  EXPECT_EQ(Texts(kUnitCh)[kErrorPeakCh], "0.0123");
  EXPECT_EQ(Texts(kUnitCh)[kErrorPeakUnit], "0.0123");
}

// d = hc / (2 E sin theta), so that its error is d / E times that of the energy:
// 3.613538 / 32.7788 * 0.0230025 * 0.1.
TEST_F(PeakErrorTextTest, OfDAreCarriedOverByTheCalibrationThoughDFallsWithTheChannel) {
  Peak().Errors.Center = 0.1;
  EXPECT_EQ(Texts(kUnitD)[kErrorPeakUnit], "0.000254");
}

TEST_F(PeakErrorTextTest, HaveThreeDigitsAndNoExponent) {
  for (const auto& [error, text] : {std::pair(0.0000123456, "0.0000123"),
                                    std::pair(0.019996, "0.02"), std::pair(1234.5, "1230")}) {
    Peak().Errors.Height = error;
    EXPECT_EQ(Texts(kUnitCh)[kErrorIntensity], text);
  }
}

TEST_F(PeakErrorTextTest, OfDAreUnknownWithoutADetectorAngle) {
  workspace.DefaultProp.TwoTheta = 0;
  Peak().Errors.Center = 0.1;
  EXPECT_EQ(Texts(kUnitD)[kErrorPeakUnit], "");
}

TEST_F(PeakErrorTextTest, HeadingsAreThoseOfTheValues) {
  EXPECT_THAT(PeakErrorHeadings(kUnitKeV),
              ElementsAre("Peak(Ch)", "Peak(keV)", "Intensity", "FWHM(Ch)", "FWHM(keV)", "Gauss%"));
}

TEST_F(PeakErrorTextTest, LinesHaveEightFieldsAndTheUnknownEmpty) {
  workspace.Peaks[kData].Count = 2;
  workspace.Peaks[kData].Peaks[1].Center = 99.5;
  workspace.Peaks[kData].Peaks[1].FitEngine = kEngineExpress;
  Peak().Errors = {.Height = 31.25, .HalfWidth = 0.25, .Center = 0.5};
  const PeakText lines = BuildPeakErrorLines(workspace, kData, kUnitKeV);
  EXPECT_EQ(lines.header,
            "Peak(Ch),Error of Peak(Ch),Error of Peak(keV),Error of Intensity,Error of FWHM(Ch),"
            "Error of FWHM(keV),Error of Gauss(%),Type");
  EXPECT_THAT(lines.peaks,
              ElementsAre("1501.2500,0.5,0.0115,31.3,0.5,0.01,,N", "100.5000,,,,,,,E"));
}

}  // namespace
}  // namespace dorvane
