#include "program/EditText.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <memory>

#include "processing/Units.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Expected texts are composed from the formulas of the units by a Python computation of its own
// (decimal rounding half up), for E = 0.5 + 0.02 n + 1E-6 n^2 keV.
class EditTextTest : public testing::Test {
 protected:
  EditTextTest() {
    workspace.DefaultProp.EGC[0] = 0.5;
    workspace.DefaultProp.EGC[1] = 0.02;
    workspace.DefaultProp.EGC[2] = 1e-6;
    workspace.DefaultProp.TwoTheta = 6;
  }
  void Enter(double center, double half_width, double height, double area, double gauss,
             std::int16_t engine) {
    PeakTable& table = workspace.Peaks[kData];
    PeakRec& peak = table.Peaks[table.Count++];
    peak.Center = center;
    peak.HalfWidth = half_width;
    peak.Height = height;
    peak.Amplitude = area;
    peak.GaussRatio = gauss;
    peak.FitEngine = engine;
  }
  void EnterFirst() { Enter(99.5, 1.5, 1234.5, 5000.25, 0.75, kEngineExpress); }
  void EnterSecond() { Enter(1500.25, 2.1234567, 98765.4321, 1234567.891, 1, kEngineNax); }
  std::string FirstPeak(int unit) const {
    return BuildPeakLines(workspace, kData, unit).peaks.at(0);
  }

  static constexpr int kData = 3;
  std::unique_ptr<Workspace> holder = std::make_unique<Workspace>();
  Workspace& workspace = *holder;
};

TEST_F(EditTextTest, HeaderNamesTheUnitTwice) {
  EXPECT_EQ(BuildPeakLines(workspace, kData, kUnitKeV).header,
            "Peak(Ch),Peak(keV),Intensity,FWHM(Ch),FWHM(keV),FWHM(d),Amplitude,Gauss(%),Type");
}

TEST_F(EditTextTest, UnitOfChannelsIsChInBothPlaces) {
  EXPECT_EQ(BuildPeakLines(workspace, kData, kUnitCh).header,
            "Peak(Ch),Peak(Ch),Intensity,FWHM(Ch),FWHM(Ch),FWHM(d),Amplitude,Gauss(%),Type");
}

TEST_F(EditTextTest, EmptyTableHasTheHeaderAlone) {
  EXPECT_THAT(BuildPeakLines(workspace, kData, kUnitCh).peaks, IsEmpty());
}

TEST_F(EditTextTest, PeaksHaveNineFieldsPaddedToTheirPicture) {
  EnterFirst();
  EnterSecond();
  EXPECT_THAT(
      BuildPeakLines(workspace, kData, kUnitKeV).peaks,
      ElementsAre(" 100.5000,   2.5201,   1234.50,   3.00,   0.060,   1.130,   5000.25,  75.0,E",
                  "1501.2500,  32.7788,  98765.43,   4.25,   0.085,   0.011,1234567.89, 100.0,N"));
}

TEST_F(EditTextTest, NumbersWiderThanTheirPictureStayWhole) {
  EnterSecond();
  EXPECT_EQ(FirstPeak(kUnitEv),
            "1501.2500,32778.7516,  98765.43,   4.25,  84.956,   0.011,1234567.89, 100.0,N");
}

TEST_F(EditTextTest, WidthInTheUnitIsInChannelsForChannels) {
  EnterFirst();
  EXPECT_EQ(FirstPeak(kUnitCh),
            " 100.5000, 100.5000,   1234.50,   3.00,   3.000,   1.130,   5000.25,  75.0,E");
}

TEST_F(EditTextTest, WidthInTheUnitIsMeantToBeOneForDAndQAndZeroForTheWavelength) {
  EnterFirst();
  EXPECT_EQ(FirstPeak(kUnitD),
            " 100.5000,  47.0010,   1234.50,   3.00,   1.000,   1.130,   5000.25,  75.0,E");
  EXPECT_EQ(FirstPeak(kUnitWave),
            " 100.5000,   4.9197,   1234.50,   3.00,   0.000,   1.130,   5000.25,  75.0,E");
  EXPECT_EQ(FirstPeak(kUnitQ),
            " 100.5000,   0.1337,   1234.50,   3.00,   1.000,   1.130,   5000.25,  75.0,E");
}

TEST_F(EditTextTest, WidthInDIsZeroWithoutADetectorAngle) {
  workspace.DefaultProp.TwoTheta = 0;
  EnterFirst();
  EnterSecond();
  for (const std::string& line : BuildPeakLines(workspace, kData, kUnitCh).peaks) {
    EXPECT_THAT(line, testing::HasSubstr(",   0.000,"));
  }
}

TEST_F(EditTextTest, CalibrationIsTheOneThatIsChosen) {
  EnterFirst();
  workspace.Spectra[kData].Prop.EGC[0] = 0;
  workspace.Spectra[kData].Prop.EGC[1] = 0.1;
  workspace.Spectra[kData].Prop.EGC[2] = 0;
  workspace.Spectra[kData].Prop.TwoTheta = 0;
  workspace.UseFileEgc = -1;
  EXPECT_EQ(FirstPeak(kUnitKeV),
            " 100.5000,  10.0500,   1234.50,   3.00,   0.300,   0.000,   5000.25,  75.0,E");
}

TEST_F(EditTextTest, EveryEngineButNaxIsE) {
  Enter(10, 1, 1, 1, 1, 7);
  EXPECT_EQ(FirstPeak(kUnitCh).back(), 'E');
}

TEST_F(EditTextTest, PropertyBlockHasItsFourteenLinesInTheirPictures) {
  SpectrumRec& record = workspace.Spectra[kData];
  record.MsuName.Set("run 7");
  record.SampName.Set("MgO");
  record.OpDate.Set("20040105");
  record.OpTime.Set("093015");
  record.OpName.Set("K. S.");
  record.Memo.Set("after heating");
  record.Prop.RealTime = 300.014;
  record.Prop.LiveTime = 287.5;
  record.Prop.TwoTheta = 6.5116;
  record.Prop.Press = 12.3456;
  record.Prop.Temp = 25;
  record.Prop.MiriVolt = 1.5;
  record.Prop.Current = 450.25;
  record.Prop.CntRate = 12345.6789;
  std::vector<std::string> lines;
  for (const PropLine& line : BuildPropLines(workspace, kData)) {
    lines.push_back(line.label + "|" + line.text);
  }
  EXPECT_THAT(lines, ElementsAre("Measurement Name |run 7", "Sample Name      |MgO",
                                 "Operation Date   |2004/01/05", "Start Time       |09:30:15",
                                 "Operater Name    |K. S.", "Comment          |after heating",
                                 "Real Time (Sec)  |300.01", "Live Time (Sec)  |287.50",
                                 "2θ (Deg)        |6.51160", "Pressure(GPa) |12.346",
                                 "Temperature(℃)  |25.000", "Ion Chamber (mV) |1.500",
                                 "Ring Current (mA)     |450.250", "Count Rate (cps) |12345.679"));
}

TEST_F(EditTextTest, DateAndTimeThatAreNotWholeStandAsTheyAre) {
  workspace.Spectra[kData].OpDate.Set("2004");
  const auto lines = BuildPropLines(workspace, kData);
  EXPECT_EQ(lines[2].text, "2004");
  EXPECT_EQ(lines[3].text, "");
}

TEST(CellNumber, HasSevenSignificantDigitsAtMost) {
  EXPECT_EQ(CellNumber(0), "0");
  EXPECT_EQ(CellNumber(3), "3");
  EXPECT_EQ(CellNumber(100.5), "100.5");
  EXPECT_EQ(CellNumber(-1.23456789), "-1.234568");
  EXPECT_EQ(CellNumber(98765.4321), "98765.43");
  EXPECT_EQ(CellNumber(1234567.891), "1234568");
  EXPECT_EQ(CellNumber(123456789), "123456800");
  EXPECT_EQ(CellNumber(0.001234567891), "0.001234568");
}

TEST(CellNumber, TellsWhatIsNoNumber) {
  EXPECT_EQ(CellNumber(std::numeric_limits<double>::infinity()), "Inf");
  EXPECT_EQ(CellNumber(std::nan("")), "NaN");
}

}  // namespace
}  // namespace dorvane
