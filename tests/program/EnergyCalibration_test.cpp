#include "program/EnergyCalibration.h"

#include <array>
#include <cmath>
#include <filesystem>
#include <random>

#include "files/FilePara.h"
#include "processing/Units.h"
#include "program/Cursor.h"
#include "program/ProgramFixture.h"
#include "program/StartEnd.h"
#include "support/FailingFileLayer.h"
#include "support/YesDialogs.h"

namespace dorvane {
namespace {

constexpr double kRounding = 1e-12;

using Rows = std::vector<CalibRow>;

CalibTable TableOf(Rows rows, CalibForm form = CalibForm::Line) {
  CalibTable table;
  table.rows = std::move(rows);
  table.form = form;
  for (int j = 0; j < 3; ++j) table.ImConst[j] = 10 + j;
  return table;
}

Rows Fitted() {
  return {{"1", "1", "a", "f"}, {"2", "3", "b", "f"}, {"3", "4", "", ""}, {"4", "8", "", ""}};
}

// ---- points

TEST(CalibPoints, AbscissaeAreChannelIndices) {
  const CalibPoints points = PointsOf(Rows{{"1", "2.5", "", ""}, {" 100.25 ", "7", "", ""}});
  EXPECT_EQ(points.x, (std::vector<double>{0, 99.25}));
  EXPECT_EQ(points.y, (std::vector<double>{2.5, 7}));
}

TEST(CalibPoints, AGapEndsTheList) {
  const Rows rows{{"1", "1", "", ""}, {"", "", "", ""}, {"3", "3", "", ""}};
  EXPECT_EQ(PointsOf(rows).x.size(), 1u);
}

TEST(CalibPoints, ARowWithoutEnergyOrChannelEndsTheList) {
  EXPECT_EQ(PointsOf(Rows{{"1", "", "a", "b"}, {"2", "2", "", ""}}).x.size(), 0u);
  EXPECT_EQ(PointsOf(Rows{{" ", "1", "a", "b"}, {"2", "2", "", ""}}).x.size(), 0u);
}

TEST(CalibPoints, ThirtyRowsCount) {
  EXPECT_EQ(PointsOf(Rows(31, {"1", "1", "", ""})).x.size(), 30u);
}

TEST(CalibPoints, ACellThatIsNoNumberFaultsWithItsRow) {
  try {
    PointsOf(Rows{{"1", "1", "", ""}, {"2", "Cu Ka", "", ""}});
    FAIL();
  } catch (const Fault& fault) {
    EXPECT_EQ(fault.Code(), FaultCode::NotANumber);
    EXPECT_NE(std::string(fault.what()).find("row 2, \"Cu Ka\""), std::string::npos);
  }
}

TEST(CalibPoints, ATextBehindTheGapIsNotLookedAt) {
  EXPECT_EQ(PointsOf(Rows{{"1", "1", "", ""}, {}, {"x", "y", "", ""}}).x.size(), 1u);
}

// ---- the line

// Least squares of 1, 3, 4, 8 on 1, 2, 3, 4 in fractions.
TEST(CalibrationLine, HoldsForChannelNumbersThroughItsLastStepAsIsMeant) {
  const CalibFit fit = FitCalibration(PointsOf(Fitted()), CalibForm::Line);
  EXPECT_EQ(fit.status, kFitted);
  EXPECT_NEAR(fit.coefficients[0], -1.5, kRounding);
  EXPECT_NEAR(fit.coefficients[1], 2.2, kRounding);
  EXPECT_EQ(fit.coefficients[2], 0);
}

TEST(CalibrationLine, ResidualsAreKnownLessFittedInEv) {
  const CalibFit fit = FitCalibration(PointsOf(Fitted()), CalibForm::Line);
  ASSERT_EQ(fit.residuals_ev.size(), 4u);
  const double expected[] = {300, 100, -1100, 700};
  for (std::size_t i = 0; i < 4; ++i) EXPECT_NEAR(fit.residuals_ev[i], expected[i], 1e-9);
}

// Variance of the residuals 0.9 (two degrees of freedom) times the inverse normal matrix of the
// channel numbers, whose diagonal is 3/2 and 1/5.
TEST(CalibrationLine, StandardErrorsAreThoseOfTheChannelNumbers) {
  const CalibFit fit = FitCalibration(PointsOf(Fitted()), CalibForm::Line);
  EXPECT_NEAR(fit.errors[0], std::sqrt(0.9 * 1.5), kRounding);
  EXPECT_NEAR(fit.errors[1], std::sqrt(0.9 * 0.2), kRounding);
  EXPECT_EQ(fit.errors[2], 0);
}

TEST(CalibrationLine, TwoPointsAreMetWithoutStandardErrors) {
  const CalibFit fit = FitCalibration({{9, 19}, {5, 10}}, CalibForm::Line);
  EXPECT_NEAR(fit.coefficients[0], 0, kRounding);
  EXPECT_NEAR(fit.coefficients[1], 0.5, kRounding);
  EXPECT_EQ(fit.errors, EgcCoef{});
}

TEST(CalibrationLine, FewerThanTwoDifferentChannelsAreSingular) {
  EXPECT_EQ(FitCalibration({{9}, {5}}, CalibForm::Line).status, kSingular);
  EXPECT_EQ(FitCalibration({{99.3, 99.3, 99.3}, {5, 6, 8}}, CalibForm::Line).status, kSingular);
  EXPECT_EQ(FitCalibration({{0.1, 0.1, 0.1}, {5, 6, 8}}, CalibForm::Line).status, kSingular);
}

TEST(CalibrationLine, ADeterminantThatRoundsTo0IsSingular) {
  // 2^27 and 2^27 + 1, whose squares leave the 53 bits of a number.
  const CalibPoints close{{134217728, 134217729}, {1, 2}};
  EXPECT_EQ(FitCalibration(close, CalibForm::Line).status, kSingular);
}

TEST(CalibrationLine, WhatLeavesTheNumbersIsSingular) {
  EXPECT_EQ(FitCalibration({{1e200, 2e200, 4e200}, {1, 2, 3}}, CalibForm::Line).status, kSingular);
}

// ---- the parabola

TEST(CalibrationParabola, HoldsForIndicesOneChannelBesideTheNumbersAsIsMeant) {
  // E = 1 + 2 i + 3 i^2 at the indices 0 to 3, which are channels 1 to 4.
  const CalibFit fit = FitCalibration(
      PointsOf(
          Rows{{"1", "1", "", ""}, {"2", "6", "", ""}, {"3", "17", "", ""}, {"4", "34", "", ""}}),
      CalibForm::Parabola);
  EXPECT_NEAR(fit.coefficients[0], 1, kRounding);
  EXPECT_NEAR(fit.coefficients[1], 2, kRounding);
  EXPECT_NEAR(fit.coefficients[2], 3, kRounding);
  EXPECT_NEAR(ChToEnergy(3, fit.coefficients), 34, 1e-9);  // the energy of channel 4
}

// Coefficients, residuals and inverse normal matrix in fractions; two degrees of freedom.
TEST(CalibrationParabola, ResidualsAndStandardErrorsAreThoseOfTheIndices) {
  const CalibFit fit = FitCalibration({{0, 1, 2, 3, 4}, {1, 0, 2, 1, 5}}, CalibForm::Parabola);
  const double expected[] = {0, -400, 1200, -1200, 400};
  for (std::size_t i = 0; i < 5; ++i) EXPECT_NEAR(fit.residuals_ev[i], expected[i], 1e-9);
  const double variance = 1.6;
  EXPECT_NEAR(fit.errors[0], std::sqrt(variance * 31 / 35), kRounding);
  EXPECT_NEAR(fit.errors[1], std::sqrt(variance * 87 / 70), kRounding);
  EXPECT_NEAR(fit.errors[2], std::sqrt(variance / 14), kRounding);
}

TEST(CalibrationParabola, ThreePointsHaveNoStandardErrors) {
  const CalibFit fit = FitCalibration({{0, 1, 2}, {1, 6, 17}}, CalibForm::Parabola);
  EXPECT_NEAR(fit.coefficients[2], 3, kRounding);
  EXPECT_EQ(fit.errors, EgcCoef{});
}

TEST(CalibrationParabola, FewerThanThreeDifferentChannelsAreSingular) {
  EXPECT_EQ(FitCalibration({{1, 2, 1, 2}, {1, 2, 3, 4}}, CalibForm::Parabola).status, kSingular);
}

// ---- both

// Lines at 20 channels whose energies scatter by 15 eV, as seen at channel numbers (the line) or
// indices (the parabola).
CalibPoints Scattered(const EgcCoef& truth, int first, std::mt19937& random) {
  std::normal_distribution<double> noise(0, 0.015);
  CalibPoints points;
  for (int i = 0; i < 20; ++i) {
    const double index = 80.25 + 97.3 * i;
    points.x.push_back(index);
    points.y.push_back(ChToEnergy(index + first, truth) + noise(random));
  }
  return points;
}

struct Coverage {
  int within_one = 0;
  int beyond_three = 0;
};

// Of 1000 values of Student's t distribution with 17 or 18 degrees of freedom 669 +- 15 lie within
// one standard error and 8 +- 3 beyond three.
constexpr int kSeeds = 1000;

std::array<Coverage, 3> CoverageOf(CalibForm form, const EgcCoef& truth, int first) {
  std::mt19937 random(7);
  std::array<Coverage, 3> coverage{};
  for (int seed = 0; seed < kSeeds; ++seed) {
    const CalibFit fit = FitCalibration(Scattered(truth, first, random), form);
    for (std::size_t j = 0; j < 3; ++j) {
      const int k = static_cast<int>(j);
      const double off = std::abs(fit.coefficients[k] - truth[k]);
      if (off <= fit.errors[k]) ++coverage[j].within_one;
      if (off > 3 * fit.errors[k]) ++coverage[j].beyond_three;
    }
  }
  return coverage;
}

TEST(EnergyCalibration, TheLineIsWithinThreeStandardErrorsOfTheTruth) {
  EgcCoef truth;
  truth[0] = 0.0227;
  truth[1] = 0.0648;
  const auto coverage = CoverageOf(CalibForm::Line, truth, 1);
  for (std::size_t j = 0; j < 2; ++j) {
    EXPECT_NEAR(coverage[j].within_one, 670, 60);
    EXPECT_LE(coverage[j].beyond_three, 20);
  }
}

TEST(EnergyCalibration, TheParabolaIsWithinThreeStandardErrorsOfTheTruthInTheIndex) {
  EgcCoef truth;
  truth[0] = 0.0227;
  truth[1] = 0.0648;
  truth[2] = 3.9e-8;
  const auto coverage = CoverageOf(CalibForm::Parabola, truth, 0);
  for (const Coverage& each : coverage) {
    EXPECT_NEAR(each.within_one, 670, 60);
    EXPECT_LE(each.beyond_three, 20);
  }
}

TEST(EnergyCalibration, FittedEnergyGoesThroughThePointsForEitherForm) {
  const CalibPoints points{{0, 10, 20}, {1, 2, 3}};
  for (const CalibForm form : {CalibForm::Line, CalibForm::Parabola}) {
    const CalibFit fit = FitCalibration(points, form);
    EXPECT_NEAR(FittedEnergy(10, fit.coefficients, form), 2, kRounding);
  }
}

// ---- Calculate

TEST(Calculate, TheLineSetsTheThirdBoxTo0) {
  CalibTable table = TableOf(Fitted());
  EXPECT_EQ(Calculate(table).status, kFitted);
  EXPECT_NEAR(table.ImConst[1], 2.2, kRounding);
  EXPECT_EQ(table.ImConst[2], 0);
}

// E = 1 + 2 x + 3 x^2 at the indices 0 to 2.
TEST(Calculate, TheParabolaSetsAllThreeBoxesInTheOrderOfThePowers) {
  CalibTable table = TableOf(Rows{{"1", "1", "", ""}, {"2", "6", "", ""}, {"3", "17", "", ""}},
                             CalibForm::Parabola);
  EXPECT_EQ(Calculate(table).status, kFitted);
  for (int j = 0; j < 3; ++j) EXPECT_NEAR(table.ImConst[j], j + 1, kRounding) << j;
}

TEST(Calculate, AfterALineEnergyGoesBackToChannelByTheLinearBranch) {
  CalibTable table = TableOf(Fitted());
  Calculate(table);
  EXPECT_NEAR(EnergyToCh(2.2 * 7 - 1.5, table.ImConst), 7, 1e-9);
}

TEST(Calculate, WithoutPointsNothingHappens) {
  CalibTable table = TableOf({});
  EXPECT_EQ(Calculate(table).status, kNoPoints);
  EXPECT_EQ(table.ImConst, TableOf({}).ImConst);
}

TEST(Calculate, AFitThatFailsKeepsTheFirstTwoBoxesAndTheThirdIs0) {
  for (const CalibForm form : {CalibForm::Line, CalibForm::Parabola}) {
    CalibTable table = TableOf({{"5", "1", "", ""}}, form);
    EXPECT_EQ(Calculate(table).status, kSingular);
    EXPECT_EQ(table.ImConst[0], 10);
    EXPECT_EQ(table.ImConst[1], 11);
    EXPECT_EQ(table.ImConst[2], 0);
  }
}

TEST(Calculate, ACellThatIsNoNumberLeavesTheBoxes) {
  CalibTable table = TableOf({{"five", "1", "", ""}});
  EXPECT_THROW(Calculate(table), Fault);
  EXPECT_EQ(table.ImConst, TableOf({}).ImConst);
}

// ---- texts

TEST(CalibTexts, BoxesShowSixDecimalsAndThousands) {
  EXPECT_EQ(CoefficientText(0.0226609), "0.022661");
  EXPECT_EQ(CoefficientText(-1234567.25), "-1,234,567.250000");
  EXPECT_EQ(CoefficientText(3.9e-8), "0.000000");
}

TEST(CalibTexts, TheMemoOfALineHasTwoCoefficients) {
  CalibTable table = TableOf({});
  table.ImConst[0] = -0.5;
  table.ImConst[1] = 0.0647732;
  EXPECT_EQ(CalibMemo(table), "Energy(keV) = (-5.e-001) + (6.4773e-002)*Ch");
}

TEST(CalibTexts, TheMemoOfAParabolaHasThree) {
  CalibTable table = TableOf({}, CalibForm::Parabola);
  table.ImConst[2] = 3.87721e-8;
  EXPECT_EQ(CalibMemo(table), "Energy(keV) = (1.e+001) + (1.1e+001)*Ch + (3.8772e-008)*Ch^2");
}

TEST(CalibTexts, DataOfALineAreItsRowsAndTwoCoefficients) {
  const CalibTable table = TableOf({{"1.5", "2.25", "Cu Ka1", "ref"}, {"7", "8", "", ""}});
  EXPECT_EQ(CalibDataText(table),
            "1.5,  2.25,  Cu Ka1,  ref,  \r\n \r\n"
            "7,  8,  ,  ,  \r\n \r\n"
            "E = A + Bx\r\n \r\n10.000000\r\n11.000000\r\n");
}

TEST(CalibTexts, DataOfAParabolaHaveThreeCoefficients) {
  EXPECT_EQ(CalibDataText(TableOf({}, CalibForm::Parabola)),
            "E = A + Bx + Cx^2\r\n \r\n10.000000\r\n11.000000\r\n12.000000\r\n");
}

TEST(CalibTexts, RowsUpToTheLastOneWithAnyTextAreWritten) {
  const std::string text = CalibDataText(TableOf({{}, {"", "", "", "x"}, {}, {}}));
  EXPECT_TRUE(text.starts_with(",  ,  ,  ,  \r\n \r\n,  ,  ,  x,  \r\n \r\nE = "));
}

// ---- rows

TEST(CalibRows, DeletingARowMovesThoseBelowUp) {
  Rows rows = Fitted();
  DeleteCalibRow(rows, 1);
  EXPECT_EQ(rows, (Rows{Fitted()[0], Fitted()[2], Fitted()[3], {}}));
}

TEST(CalibRows, TheFirstAndTheLastRowCanBeDeleted) {
  Rows rows = Fitted();
  DeleteCalibRow(rows, 0);
  EXPECT_EQ(rows, (Rows{Fitted()[1], Fitted()[2], Fitted()[3], {}}));
  rows = Fitted();
  DeleteCalibRow(rows, 3);
  EXPECT_EQ(rows, (Rows{Fitted()[0], Fitted()[1], Fitted()[2], {}}));
}

TEST(CalibRows, DeletingOutsideOfTheRowsDoesNothing) {
  Rows rows = Fitted();
  DeleteCalibRow(rows, -1);
  DeleteCalibRow(rows, 4);
  EXPECT_EQ(rows, Fitted());
}

// ---- with a program

class EnergyCalibrationTest : public ProgramTest {
 protected:
  void ExpectSaved() {
    dialogs.ExpectMessage("Parameter saved as " + folder.Path("Calib_Data.txt"));
  }
  EgcCoef Stored() {
    auto other = std::make_unique<Workspace>();
    FileContext context = program.FileAccess();
    ParaFileRead(context, folder.Path("syspara_a.xpr"), *other);
    return other->DefaultProp.EGC;
  }
};

TEST_F(EnergyCalibrationTest, TheDialogOpensWithTheCalibrationOfTheFirstSpectrum) {
  CalibTable table = TableOf({}, CalibForm::Parabola);
  workspace.Spectra[0].Prop.EGC[1] = 0.065;
  DispKeisu(program, table);
  EXPECT_EQ(table.ImConst, workspace.Spectra[0].Prop.EGC);
  EXPECT_EQ(table.form, CalibForm::Line);
  workspace.Spectra[0].Prop.EGC[2] = 1e-8;
  DispKeisu(program, table);
  EXPECT_EQ(table.form, CalibForm::Parabola);
}

TEST_F(EnergyCalibrationTest, UpdateCalculatesShowsAndStores) {
  CalibTable table = TableOf(Fitted());
  ExpectSaved();
  UpdateCalibration(program, table);
  EXPECT_NEAR(workspace.DefaultProp.EGC[1], 2.2, kRounding);
  EXPECT_EQ(workspace.DefaultProp.EGC, table.ImConst);
  EXPECT_EQ(Stored(), table.ImConst);
  EXPECT_EQ(listener.Count("calibration"), 1);
  EXPECT_EQ(listener.Count("axis"), 1);
  EXPECT_EQ(listener.Count("cursor"), 1);  // the energy at the cursor
  EXPECT_EQ(folder.Get("Calib_Data.txt"), CalibDataText(table));
}

TEST_F(EnergyCalibrationTest, UpdateWithoutPointsStoresWhatStandsInTheBoxes) {
  CalibTable table = TableOf({});
  ExpectSaved();
  UpdateCalibration(program, table);
  EXPECT_EQ(Stored(), TableOf({}).ImConst);
}

TEST_F(EnergyCalibrationTest, UpdateOfACellThatIsNoNumberStoresNothing) {
  CalibTable table = TableOf({{"1", "x", "", ""}});
  EXPECT_THROW(UpdateCalibration(program, table), Fault);
  EXPECT_EQ(workspace.DefaultProp.EGC, EgcCoef{});
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(EnergyCalibrationTest, TheCalibrationIsThereAtTheNextStart) {
  CalibTable table = TableOf(Fitted());
  ExpectSaved();
  UpdateCalibration(program, table);
  auto next =
      std::make_unique<Program>(Ports{dialogs, files, log, progress, listener}, folder.Path(""));
  Form_Load(*next, "");
  EXPECT_EQ(next->workspace.DefaultProp.EGC, table.ImConst);
  CalibTable opened;
  DispKeisu(*next, opened);
  EXPECT_EQ(opened.ImConst, table.ImConst);
}

TEST_F(EnergyCalibrationTest, TheTableIsWrittenInTheCodePage) {
  CalibTable table = TableOf({{"1", "2", "K\xCE\xB1", ""}});  // Greek alpha
  ExpectSaved();
  EXPECT_EQ(SaveCalibData(program, table), kTrue);
  EXPECT_NE(folder.Get("Calib_Data.txt").find("K\x83\xBF,"), std::string::npos);
}

TEST_F(EnergyCalibrationTest, ATableThatCannotBeWrittenIsToldAndTheParametersAreStoredAllTheSame) {
  std::filesystem::create_directory(folder.Path("Calib_Data.txt"));
  CalibTable table = TableOf(Fitted());
  dialogs.ExpectMessage("Open Error");
  UpdateCalibration(program, table);
  EXPECT_EQ(Stored(), table.ImConst);
}

TEST_F(EnergyCalibrationTest,
       ParametersThatCannotBeWrittenAreToldAndTheCalibrationIsInUseAllTheSame) {
  std::filesystem::create_directory(folder.Path("syspara_a.xpr"));
  CalibTable table = TableOf(Fitted());
  ExpectSaved();
  dialogs.ExpectMessage("Para File Write (Open Error)");
  UpdateCalibration(program, table);
  EXPECT_EQ(workspace.DefaultProp.EGC, table.ImConst);
  EXPECT_EQ(folder.Get("Calib_Data.txt"), CalibDataText(table));
}

// Every call of the file layer fails once, or the program dies there.
TEST_F(EnergyCalibrationTest, UpdateWritesTheParametersWholeOrNotAtAllWhereverItFails) {
  for (const auto mode : {FailingFileLayer::Mode::FailingOnce, FailingFileLayer::Mode::FailingOn,
                          FailingFileLayer::Mode::Killing}) {
    int n = 0;
    for (bool hit = true; hit;) {
      CalibTable old_table = TableOf({});
      YesDialogs quiet;
      auto before =
          std::make_unique<Program>(Ports{quiet, files, log, progress, listener}, folder.Path(""));
      UpdateCalibration(*before, old_table);
      const std::string old_file = folder.Get("syspara_a.xpr");

      FailingFileLayer failing(files, ++n, mode);
      auto hurt = std::make_unique<Program>(Ports{quiet, failing, log, progress, listener},
                                            folder.Path(""));
      CalibTable table = TableOf(Fitted());
      try {
        UpdateCalibration(*hurt, table);
      } catch (const Killed&) {
      }
      hit = failing.Hit();
      if (folder.Get("syspara_a.xpr") != old_file) {
        EXPECT_EQ(Stored(), table.ImConst) << n;
      }
      const std::string text = folder.Get("Calib_Data.txt");
      EXPECT_TRUE(text == CalibDataText(old_table) || text == CalibDataText(table)) << n;
    }
    EXPECT_GT(n, 10);
  }
}

TEST_F(EnergyCalibrationTest, ThePeakNearestToTheCursorIsTakenAsChannelNumberWithItsSource) {
  const std::int16_t data_no = Show(std::vector<std::int32_t>(1000, 1));
  workspace.Spectra[data_no].MsuName.Set("am241");
  workspace.Peaks[data_no].Count = 1;
  workspace.Peaks[data_no].Peaks[0].Center = 300.12344;
  CalibRow row{"", "59.5409", "Am", ""};
  TakePeak(program, row);
  EXPECT_EQ(row, (CalibRow{"301.1234", "59.5409", "Am", "am241"}));
  EXPECT_EQ(view.CursorCh, 300);
}

TEST_F(EnergyCalibrationTest, APeakAtIndex0IsOne) {
  const std::int16_t data_no = Show(std::vector<std::int32_t>(1000, 1));
  workspace.Spectra[data_no].MsuName.Set("  am241 ");
  workspace.Peaks[data_no].Count = 1;
  CalibRow row;
  TakePeak(program, row);
  EXPECT_EQ(row.channel, "1.0000");
  EXPECT_EQ(row.source, "am241");
}

TEST_F(EnergyCalibrationTest, WithoutAPeakTheChannelOfTheCursorIsTakenAndTheSourceStays) {
  Show(std::vector<std::int32_t>(1000, 1));
  CsrX_Change(program, 210);
  CalibRow row{"7", "", "", "before"};
  TakePeak(program, row);
  EXPECT_EQ(row, (CalibRow{"211", "", "", "before"}));
}

}  // namespace
}  // namespace dorvane
