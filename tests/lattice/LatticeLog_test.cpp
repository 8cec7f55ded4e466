#include "lattice/LatticeLog.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "CsvLines.h"
#include "lattice/CalLattice.h"

namespace dorvane {
namespace {

SpectrumRec Measurement() {
  SpectrumRec spectrum;
  spectrum.MsuName.Set("NaCl_01");
  spectrum.DataType = kNpdData;
  spectrum.Prop.TwoTheta = 5.98632;
  spectrum.Prop.EGC[0] = -0.123456;
  spectrum.Prop.EGC[1] = 0.0234567;
  spectrum.Prop.EGC[2] = 0.0000012;
  spectrum.Prop.Load = 120.5;
  spectrum.Prop.Temp = 27;
  return spectrum;
}

std::vector<PeakRow> TwoPeaks() {
  PeakRow first;
  first.ch = 1000.125;
  first.energy = 23.33325;
  first.d = 2.82014;
  first.intensity = 1234.4;
  first.fwhm_ch = 12.345;
  first.fwhm_kev = 0.28956;
  first.amplitude = 20345.6;
  first.fit_type = "A";
  first.two_theta = 5.98632;
  PeakRow second = first;
  second.ch = 1200;
  second.intensity = 0.2;
  second.fit_type = "M";
  return {first, second};
}

// d(obs) - d(cal) is 0.015625 and -0.5; the second line is excluded.
std::vector<MatchedRow> TwoLines() {
  MatchedRow first;
  first.h = first.k = first.l = 1;
  first.ch = 1000.125;
  first.energy = 23.33325;
  first.d_obs = 3.265625;
  first.d_cal = 3.25;
  first.d_r = 3.125;
  first.d_def = 0.0384615;
  first.fit_type = "A";
  first.two_theta = 9.5;
  MatchedRow second;
  second.use = false;
  second.h = 2;
  second.k = 0;
  second.l = -1;
  second.ch = 1200;
  second.energy = 28;
  second.d_obs = 2.5;
  second.d_cal = 3;
  second.d_r = 2.75;
  second.d_def = 0.0833333;
  second.fit_type = "M";
  second.two_theta = 12.25;
  return {first, second};
}

template <typename Row>
Row Filled(const std::vector<double>& values) {
  Row row;
  std::copy(values.begin(), values.end(), row.begin());
  return row;
}

SeedRecord Sodium() {
  return {"NACL B1", kCubic, Filled<SeedCell>({5.6402, 5.5, 5.25, 90, 91.5, 120})};
}

ResultBoxes Boxes() {
  return {{"5.640200+-0.000123", "5.500000+-0.000456", "12.992900+-0.000789", "91.000000+-0.010000",
           "92.000000+-0.020000", "93.000000+-0.030000"},
          "179.425000+-0.012000",
          "0.987654+-0.000066"};
}

TEST(LatticeLog, StartJoinsBannerAndNameIntoOneText) {
  EXPECT_EQ(
      CsvText(LogStart(Measurement())),
      CsvLines({"'*******************NaCl_01LatticeFitting Log Start**************************'",
                "''", "''"}));
}

TEST(LatticeLog, EndHasNoRecordBehindIt) {
  EXPECT_EQ(CsvText(LogEnd(Measurement())),
            CsvLines({"'*************NaCl_01LatticeFitting Log Ende************************'"}));
}

TEST(LatticeLog, TheNameIsTrimmed) {
  SpectrumRec spectrum;
  spectrum.MsuName.Set("  試料 1 ");
  EXPECT_EQ(CsvText(LogEnd(spectrum)),
            CsvLines({"'*************試料 1LatticeFitting Log Ende************************'"}));
}

TEST(LatticeLog, PropertyTellsAngleCalibrationLoadAndTemperature) {
  EXPECT_EQ(CsvText(LogProperty(Measurement().Prop)),
            CsvLines({"'********** Property      ********************'", "'2θ','5.98632'",
                      "'EV(0)','-0.123456'", "'EV(1)','0.023457'", "'EV(2)','0.000001'",
                      "'LOAD','120.50'", "'TEMP','27.00'", "''", "''"}));
}

TEST(LatticeLog, PeakListTellsEachPeak) {
  EXPECT_EQ(
      CsvText(LogPeakList(TwoPeaks())),
      CsvLines({"'**************PEAKS CURVE FITED LIST**********************'", "'Number=',2",
                "'Peak No.','Ch','Energy','DValue','Intensity','Amp','FWHM(Ch)','FWHM(KeV)','Fit "
                "Type','2Theta'",
                "1,'1000.13','23.3333','2.8201','1234','20346','12.35','0.2896','A','5.9863'",
                "2,'1200.00','23.3333','2.8201','0','20346','12.35','0.2896','M','5.9863'", "''"}));
}

TEST(LatticeLog, PeakListWithoutPeaksIsItsHeading) {
  EXPECT_EQ(
      CsvText(LogPeakList({})),
      CsvLines({"'**************PEAKS CURVE FITED LIST**********************'", "'Number=',0",
                "'Peak No.','Ch','Energy','DValue','Intensity','Amp','FWHM(Ch)','FWHM(KeV)','Fit "
                "Type','2Theta'",
                "''"}));
}

TEST(LatticeLog, ElementChangeTellsTagNameAndCell) {
  CrystalRec crystal;
  crystal.Name = "Al2O3";
  crystal.LatticeType = kHexagonal;
  crystal.Lat = Filled<Fixed<double, 0, 2>>({4.7587, 4.7587, 12.9929});
  crystal.Ang = Filled<Fixed<double, 0, 2>>({90, 90, 120});
  EXPECT_EQ(
      CsvText(LogElementChange(crystal)),
      CsvLines({"'********************* Element Changed!! **********'",
                "'*********** Element Reference Information *************'", "'','HEX','Al2O3'",
                "'','A     =',4.7587", "'','B     =',4.7587", "'','C     =',12.9929",
                "'','Alpha =',90", "'','Beta  =',90", "'','Gamma =',120", "''"}));
}

TEST(LatticeLog, ATetragonalElementIsMeantToHaveTheTagOfATriclinicOne) {
  CrystalRec crystal;
  crystal.LatticeType = kTetragonal;
  EXPECT_EQ(LogElementChange(crystal)[2][1], LogField("TRI"));
}

TEST(LatticeLog, EventsOfOneLineHaveAnEmptyRecordBehindThem) {
  EXPECT_EQ(CsvText(LogLatticeTypeChanged()),
            CsvLines({"'********************* Lattice Type Changed!! **********'", "''"}));
  EXPECT_EQ(CsvText(LogFitModeChanged()),
            CsvLines({"'********************* Lattice Fit Mode Changed!! **********'", "''"}));
  EXPECT_EQ(CsvText(LogSeedInput()),
            CsvLines({"'************ New Seed Inputed!!!!!! **************'", "''"}));
  EXPECT_EQ(CsvText(LogUseFlagChanged()),
            CsvLines({"'********************* UseFlag Changed!! **********'", "''"}));
}

TEST(LatticeLog, ANewTwoThetaIsMeantToHaveNoEmptyRecord) {
  EXPECT_EQ(CsvText(LogTwoThetaChanged()),
            CsvLines({"'********************* 2θChanged!! **********'"}));
}

TEST(LatticeLog, SeedCompareTellsTheSeedsAndEachLine) {
  EXPECT_EQ(
      CsvText(LogSeedCompare(Sodium(), TwoLines())),
      CsvLines({"'************  Seed Infomation       ************************'",
                "'NACL B1','CUB',90,91.5,120,5.6402,5.5,5.25", "''",
                "'************  Compare to Seed Caluclate   ******************'",
                "'PK#','HKL','CH','E(KEV)','D(OBS)','D(CAL)','DEV'",
                "'1 ','(1 1 1)','1000.125000','23.333250','3.265625','3.250000','0.015625','A'",
                "'2*','(2 0 -1)','1200.000000','28.000000','2.500000','3.000000','-0.500000','M'",
                "''", "''"}));
}

TEST(LatticeLog, CompareTellsEachLine) {
  EXPECT_EQ(
      CsvText(LogCompare(TwoLines())),
      CsvLines({"''", "'************  Compare to Caluclate      ********************'",
                "'PK#','HKL','CH','E(KEV)','DO','DC','DR'",
                "'1 ','(1 1 1)','1000.125000','23.333250','3.265625','3.250000','0.015625','A'",
                "'2*','(2 0 -1)','1200.000000','28.000000','2.500000','3.000000','-0.500000','M'",
                "''", "''"}));
}

TEST(LatticeLog, ACompareWithoutRowsIsItsHeading) {
  EXPECT_EQ(CsvText(LogCompare({})),
            CsvLines({"''", "'************  Compare to Caluclate      ********************'",
                      "'PK#','HKL','CH','E(KEV)','DO','DC','DR'", "''", "''"}));
  EXPECT_EQ(LogSeedCompare(Sodium(), {}).size(), 7u);
  EXPECT_EQ(LogCompareDetail({}, kNpdData).size(), 5u);
}

TEST(LatticeLog, CompareDetailTellsEachLineAgainstTheRefinedCell) {
  EXPECT_EQ(
      CsvText(LogCompareDetail(TwoLines(), kNpdData)),
      CsvLines({"''", "'*********Compare to Caluclate   **********************'",
                "'PK#','HKL','CH','E(KEV)','DOBS','DCAL','DR','DDEF to Initial','FIT TYPE'",
                "'1 ','(1 1 "
                "1)','1000.125000','23.333250','3.265625','3.250000','3.125000','0.038462','A'",
                "'2*','(2 0 "
                "-1)','1200.000000','28.000000','2.500000','3.000000','2.750000','0.083333','M'",
                "''", "''"}));
}

TEST(LatticeLog, CompareDetailOfAnAngleDispersiveSpectrumTellsTheAngles) {
  EXPECT_EQ(
      CsvText(LogCompareDetail(TwoLines(), kDacData)),
      CsvLines({"''", "'*********Compare to Caluclate   **********************'",
                "'PK#','HKL','CH','2Theta','DOBS','DCAL','DR','DDEF to Initial','FIT TYPE'",
                "'1 ','(1 1 "
                "1)','1000.125000','09.500000','3.265625','3.250000','3.125000','0.038462','A'",
                "'2*','(2 0 "
                "-1)','1200.000000','12.250000','2.500000','3.000000','2.750000','0.083333','M'",
                "''", "''"}));
}

TEST(LatticeLog, ResultOfACubicCellIsA) {
  EXPECT_EQ(
      CsvText(LogResult(kCubic, Boxes(), 5.98632)),
      CsvLines({"'************Caluclate Result   *****************************'",
                "'','LATTICE CONSTANTS'", "'','CUBIC'", "'','A    =','5.640200','+-','0.000123'",
                "'','V    =','179.425000','+-','0.012000'", "'','V/V0 =','0.987654','+-',0",
                "'','2θ = ',5.98632", "''"}));
}

TEST(LatticeLog, ResultOfATriclinicCellIsAllSix) {
  EXPECT_EQ(
      CsvText(LogResult(kTriclinic, Boxes(), 6)),
      CsvLines(
          {"'************Caluclate Result   *****************************'",
           "'','LATTICE CONSTANTS'", "'','TRICLINIC'", "'','A    =','5.640200','+-','0.000123'",
           "'','B    =','5.500000','+-','0.000456'", "'','C    =','12.992900','+-','0.000789'",
           "'','ALPHA=','91.000000','+-','0.010000'", "'','BETA =','92.000000','+-','0.020000'",
           "'','GAMMA=','93.000000','+-','0.030000'", "'','V    =','179.425000','+-','0.012000'",
           "'','V/V0 =','0.987654','+-',0", "'','2θ = ',6", "''"}));
}

TEST(LatticeLog, ResultNamesTheSystemAndWhatItRefines) {
  struct Case {
    std::int16_t lattice_type;
    const char* name;
    std::vector<const char*> keys;
  };
  const std::vector<Case> cases{
      {kCubic, "CUBIC", {"A    ="}},
      {kTetragonal, "TETRAGONAL", {"A    =", "C    ="}},
      {kHexagonal, "HEXAGONAL", {"A    =", "C    ="}},
      {kOrthorhombic, "ORTHORHOMBIC", {"A    =", "B    =", "C    ="}},
      {kMonoclinic, "MONOCLINIC", {"A    =", "B    =", "C    =", "BETA ="}},
      {kTriclinic, "TRICLINIC", {"A    =", "B    =", "C    =", "ALPHA=", "BETA =", "GAMMA="}}};
  for (const Case& expected : cases) {
    const LogRecords records = LogResult(expected.lattice_type, Boxes(), 6);
    EXPECT_EQ(records[2][1], LogField(expected.name));
    ASSERT_EQ(records.size(), 7 + expected.keys.size()) << expected.name;
    for (std::size_t i = 0; i < expected.keys.size(); ++i) {
      EXPECT_EQ(records[3 + i][1], LogField(expected.keys[i])) << expected.name;
    }
  }
}

TEST(LatticeLog, MonoclinicBetaComesFromItsOwnBox) {
  EXPECT_EQ(LogResult(kMonoclinic, Boxes(), 6)[6],
            (LogRecord{"", "BETA =", "92.000000", "+-", "0.020000"}));
  EXPECT_EQ(LogResult(kHexagonal, Boxes(), 6)[4],
            (LogRecord{"", "C    =", "12.992900", "+-", "0.000789"}));
}

TEST(LatticeLog, TheErrorOfTheVolumeRatioIsMeantToBeTheNumberZero) {
  EXPECT_EQ(CsvText({LogResult(kCubic, Boxes(), 6)[5]}),
            CsvLines({"'','V/V0 =','0.987654','+-',0"}));
}

TEST(LatticeLog, ABoxWithoutAnErrorIsAllValue) {
  EXPECT_EQ(LogResult(kCubic, {}, 6)[3], (LogRecord{"", "A    =", "", "+-", ""}));
  ResultBoxes boxes;
  boxes.txtLatticeLength[0] = "90.000000";
  EXPECT_EQ(LogResult(kCubic, boxes, 6)[3], (LogRecord{"", "A    =", "90.000000", "+-", ""}));
}

TEST(LatticeLog, ANegativeErrorKeepsItsSign) {
  ResultBoxes boxes;
  boxes.txtVol = "1.5+--0.25";
  EXPECT_EQ(LogResult(kCubic, boxes, 6)[4], (LogRecord{"", "V    =", "1.5", "+-", "-0.25"}));
}

TEST(LatticeLog, AnUnknownSystemHasNoNameAndNoLengths) {
  for (const std::int16_t type : {-1, 6}) {
    const LogRecords records = LogResult(type, Boxes(), 6);
    EXPECT_EQ(records[2], (LogRecord{"", ""}));
    EXPECT_EQ(records[3][1], LogField("V    ="));
  }
}

class SummaryTest : public testing::Test {
 protected:
  SummaryInput Input() const {
    return {spectrum, peaks, rows, Sodium(), Boxes(), "5.1+-0.1", "27.0"};
  }

  SpectrumRec spectrum = Measurement();
  std::vector<PeakRow> peaks = TwoPeaks();
  std::vector<MatchedRow> rows = TwoLines();
};

TEST_F(SummaryTest, TellsTheWholeWork) {
  EXPECT_EQ(CsvText(SummaryRecords(Input(), "CUB")),
            CsvLines({"'NaCl_01                                                         "
                      "','LatticeFitting Log'",
                      "''",
                      "'2θ','5.9863'",
                      "'EV(0)','-0.123456'",
                      "'EV(1)','0.023457'",
                      "'EV(2)','0.000001'",
                      "'LOAD','120.50'",
                      "'TEMP','27.00'",
                      "''",
                      "''",
                      "''",
                      "' ','PEAKS CURVE FITED'",
                      "'Peak No.','Ch','Energy','DValue','Amp','Width'",
                      "1,'1000.1250','23.333','2.8201','20346','12.35'",
                      "2,'1200.0000','23.333','2.8201','20346','12.35'",
                      "''",
                      "''",
                      "'NACL B1','CUB',90,91.5,120,5.6402,5.5,5.25",
                      "''",
                      "'PK#','H','K','L','CH','D(OBS)','D(CAL)','DEV'",
                      "1,1,1,1,1000.125,3.265625,3.25,'0.015625'",
                      "2,2,0,-1,1200,2.5,3,'-0.5'",
                      "''",
                      "''",
                      "'NACL B1','CUB',90,91.5,120,5.6402,5.5,5.25,179.425",
                      "''",
                      "'','LATTICE CONSTANTS'",
                      "'','A    =',5.6402,'+-',0.000123",
                      "'','V    =',179.425",
                      "'','V/V0 =',0.987654",
                      "''",
                      "'NO','H','K','L','CH','E','DO','DC','DR'",
                      "1,1,1,1,1000.125,23.33325,3.265625,3.25,3.125",
                      "2,2,0,-1,1200,28,2.5,3,2.75",
                      "''",
                      "''",
                      "'*** JAMIESON SCALE AT T=27.0℃ ***'",
                      "'P(GPA)= ','5.1+-0.1'"}));
}

TEST_F(SummaryTest, TellsKelvinByItsSign) {
  SummaryInput input = Input();
  input.unit_index = 1;
  const LogRecords records = SummaryRecords(input, "CUB");
  EXPECT_EQ(records[records.size() - 2], LogRecord{"*** JAMIESON SCALE AT T=27.0Ｋ ***"});
}

TEST_F(SummaryTest, AnotherScaleIsMeantToHaveTheSameHeading) {
  SummaryInput input = Input();
  input.sample.name = "Au";
  const LogRecords records = SummaryRecords(input, "CUB");
  EXPECT_EQ(records[records.size() - 2], LogRecord{"*** JAMIESON SCALE AT T=27.0℃ ***"});
}

TEST_F(SummaryTest, BeforeACalculationTheNumbersAreZero) {
  SummaryInput input = Input();
  input.boxes = {};
  const std::string text = CsvText(SummaryRecords(input, "CUB"));
  EXPECT_THAT(text, testing::HasSubstr("5.6402,5.5,5.25,0\r\n"));
  EXPECT_THAT(text, testing::HasSubstr("\"A    =\",0,\"+-\",0\r\n"));
}

TEST_F(SummaryTest, WithoutPeaksAndLinesHeadingsAreLeft) {
  peaks.clear();
  rows.clear();
  EXPECT_EQ(SummaryRecords(Input(), "CUB").size(), 32u);
}

TEST(SummaryTag, TheFirstThreeSystemsHaveTags) {
  EXPECT_EQ(SummaryTag(kCubic, "HEX"), "CUB");
  EXPECT_EQ(SummaryTag(kTetragonal, "HEX"), "TRI");
  EXPECT_EQ(SummaryTag(kHexagonal, ""), "HEX");
}

TEST(SummaryTag, OtherSystemsAreMeantToLeaveTheTagOfBefore) {
  for (const std::int16_t type : {kOrthorhombic, kMonoclinic, kTriclinic}) {
    EXPECT_EQ(SummaryTag(type, "HEX"), "HEX");
    EXPECT_EQ(SummaryTag(type, ""), "");
  }
}

}  // namespace
}  // namespace dorvane
