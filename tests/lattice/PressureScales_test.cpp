#include "lattice/PressureScales.h"

#include <gtest/gtest.h>

#include <limits>

#include "lattice/PressureTables.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

// Simpson's rule on 3/x^3 * t^3/(e^t - 1), an independent computation. The march is by its nature
// up to 1.4e-5/x low.
TEST(Debye, IsTheIntegral) {
  constexpr double kPoints[][2] = {{0.0701, 0.97395819}, {0.5, 0.82496297}, {1, 0.67441556},
                                   {2, 0.44112847},      {5, 0.11759741},   {8, 0.03656030},
                                   {11, 0.01457050}};
  for (const auto& [x, integral] : kPoints) EXPECT_NEAR(DebyeFunc(x), integral, 1.4e-5 / x) << x;
}

// The march in decimal numbers of 60 digits, an independent computation.
TEST(Debye, MarchLosesNoDigits) {
  EXPECT_NEAR(DebyeFunc(0.0701), 0.9737664462605283, 1e-14);
  EXPECT_NEAR(DebyeFunc(1), 0.6744027880963247, 1e-14);
  EXPECT_NEAR(DebyeFunc(11), 0.01457029139137935, 1e-14);
}

TEST(Debye, IsOneUpToZero) {
  EXPECT_EQ(DebyeFunc(0), 1);
  EXPECT_EQ(DebyeFunc(-5), 1);
}

TEST(Debye, IsASeriesForSmallArguments) {
  EXPECT_NEAR(DebyeFunc(0.05), 0.981375, 1e-12);  // 1 - 0.05 * (0.375 - 0.0025)
  EXPECT_NEAR(DebyeFunc(0.07), 0.973995, 1e-12);
}

TEST(Debye, IsTheAsymptoteForLargeArguments) {
  EXPECT_NEAR(DebyeFunc(20), 0.00243522725, 1e-12);  // 19.481818 / 8000
  EXPECT_NEAR(DebyeFunc(20), 0.00243522007, 1e-8);   // the integral
}

TEST(Debye, StepsHardlyWhereTheBranchesMeet) {
  EXPECT_NEAR(DebyeFunc(0.07), DebyeFunc(0.070001), 2e-4);
  EXPECT_NEAR(DebyeFunc(11), DebyeFunc(11.000001), 1e-4);
}

TEST(Debye, NotANumberFaults) {
  EXPECT_THROW(DebyeFunc(std::numeric_limits<double>::quiet_NaN()), Fault);
}

TEST(SodiumChloride, HasItsThreeReferencePressures) {
  EXPECT_NEAR(PressNaCl(1.0, 298), 0.0017, 5e-5);
  EXPECT_NEAR(PressNaCl(0.9, 298), 3.2355, 5e-5);
  EXPECT_NEAR(PressNaCl(0.8, 298), 9.1279, 5e-5);
}

// The same model with a Debye function by Simpson's rule, an independent computation; the Debye
// march makes it less than 2e-4 low.
TEST(SodiumChloride, FollowsItsModelInTemperatureAndCompression) {
  EXPECT_NEAR(PressNaCl(0.95, 300.15), 1.38687014, 2e-4);
  EXPECT_NEAR(PressNaCl(0.85, 1000), 7.77895117, 2e-4);
  EXPECT_NEAR(PressNaCl(0.7, 300), 20.15702683, 2e-4);
  EXPECT_NEAR(PressNaCl(1.0, 1073), 2.25030412, 2e-4);
}

// Decimal numbers of 60 digits, an independent computation; an exact third gives 20.15701961663.
TEST(SodiumChloride, ExponentIsMeantToBeADecimalNumber) {
  EXPECT_NEAR(PressNaCl(0.7, 300), 20.15701961625287, 2e-11);
}

TEST(SodiumChloride, BadArgumentsFault) {
  EXPECT_THROW(PressNaCl(0, 300), Fault);
  EXPECT_THROW(PressNaCl(-0.5, 300), Fault);
  EXPECT_THROW(PressNaCl(1, 0), Fault);
}

// Birch-Murnaghan in the Eulerian strain, 3 K f (1 + 2f)^(5/2) (1 + 1.5 (K' - 4) f), K = 166.65, K'
// = 5.4823, an independent computation.
TEST(Gold, FollowsBirchMurnaghanWithAThermalTerm) {
  EXPECT_NEAR(PressAu(1, 300), 0, 1e-12);
  EXPECT_NEAR(PressAu(1, 1300), 7.14, 1e-9);
  EXPECT_NEAR(PressAu(0.95, 300), 9.838273830, 1e-8);
  EXPECT_NEAR(PressAu(0.9, 300.15), 23.436230163, 1e-8);
  EXPECT_NEAR(PressAu(0.8, 2000), 76.304233661, 1e-8);
}

TEST(Gold, BadArgumentsFault) {
  EXPECT_THROW(PressAu(0, 300), Fault);
  EXPECT_THROW(PressAu(-1, 300), Fault);
}

// Birch-Murnaghan in the Eulerian strain on a volume whose expansion is integrated by Simpson's
// rule, an independent computation.
TEST(PlatinumBirchMurnaghan, FollowsItsExpansionAndCompression) {
  EXPECT_NEAR(PressPtB(60.38, 60.38, 300), 0, 1e-12);
  EXPECT_NEAR(PressPtB(58, 60.38, 300), 12.089661876, 1e-8);
  EXPECT_NEAR(PressPtB(55, 60.38, 300), 32.293091388, 1e-8);
  EXPECT_NEAR(PressPtB(58, 60.38, 1500), 19.973565010, 1e-6);
  EXPECT_NEAR(PressPtB(60.38, 60.38, 1000), 4.608942001, 1e-6);
}

// No expansion at 300 K: the Eulerian form with K = 270.28 and K' = 5.29 at X = 1.1.
TEST(PlatinumBirchMurnaghan, HasItsConstantsUnchangedAt300Kelvin) {
  EXPECT_NEAR(PressPtB(50, 55, 300), 33.154076509, 1e-8);
}

TEST(PlatinumBirchMurnaghan, BadArgumentsFault) {
  EXPECT_THROW(PressPtB(0, 60, 300), Fault);
  EXPECT_THROW(PressPtB(60, 0, 300), Fault);
  EXPECT_THROW(PressPtB(60, 60, 0), Fault);
  EXPECT_THROW(PressPtB(-60, 60, 300), Fault);
}

// 798.31 * 0.02 / 0.98^2 * exp(7.2119 * 0.02) + 0.0069426 * 27, and so on; an independent
// computation.
TEST(PlatinumVinet, FollowsItsForm) {
  EXPECT_NEAR(PressPtH(1, 0), 0, 1e-12);
  EXPECT_NEAR(PressPtH(0.98, 27), 19.391427380, 1e-8);
  EXPECT_NEAR(PressPtH(0.95, 1000), 70.373194517, 1e-8);
}

TEST(PlatinumVinet, ThermalTermIsMeantToVanishAtZeroCelsius) {
  EXPECT_NEAR(PressPtH(1, 27), 0.1874502, 1e-10);
}

TEST(PlatinumVinet, BadArgumentsFault) {
  EXPECT_THROW(PressPtH(0, 27), Fault);
  EXPECT_THROW(PressPtH(-1000, 27), Fault);
}

// Birch-Murnaghan in the Eulerian strain with K' = 13.4984, an independent computation.
TEST(HexagonalBoronNitride, FollowsBirchMurnaghanOfItsAxis) {
  EXPECT_NEAR(PressHBN(6.6562, 26.85), 0, 1e-12);
  EXPECT_NEAR(PressHBN(6.5, 26.85), 0.751141738, 1e-8);
  EXPECT_NEAR(PressHBN(6.3, 27), 2.105630235, 1e-8);
  EXPECT_NEAR(PressHBN(6.3, 800), 3.161394110, 1e-8);
}

TEST(HexagonalBoronNitride, BadArgumentsFault) {
  EXPECT_THROW(PressHBN(0, 27), Fault);
  EXPECT_THROW(PressHBN(-6, 27), Fault);
}

// The values at nodes follow from a row by hand; between them from Neville's scheme on the four
// nodes, an independent computation.
TEST(PlatinumTable, GivesItsNodes) {
  EXPECT_NEAR(PressPtTable(1.0, 300), 0.0491882752, 1e-9);
  EXPECT_NEAR(PressPtTable(0.95, 300), 15.9055553666, 1e-9);
  EXPECT_NEAR(PressPtTable(0.82, 2000), 101.8900824, 1e-7);
}

TEST(PlatinumTable, InterpolatesAmongFourNodes) {
  EXPECT_NEAR(PressPtTable(0.9475, 300.15), 16.8386514267, 1e-9);
  EXPECT_NEAR(PressPtTable(0.883, 1000), 51.3111095234, 1e-9);
}

TEST(PlatinumTable, UsesTheOutermostCubicAtItsEnds) {
  EXPECT_NEAR(PressPtTable(0.8201, 300), 90.6433990583, 1e-8);
  EXPECT_NEAR(PressPtTable(1.0605, 300), -13.0677745300, 1e-8);
}

TEST(PlatinumTable, IsZeroOutsideItsRangeAndAtBothEnds) {
  EXPECT_EQ(PressPtTable(1.061, 300), 0);
  EXPECT_EQ(PressPtTable(0.819, 300), 0);
  EXPECT_EQ(PressPtTable(0, 300), 0);
  EXPECT_NE(PressPtTable(1.0609, 300), 0);
  EXPECT_NE(PressPtTable(0.8191, 300), 0);
}

TEST(MagnesiumOxideTable, GivesItsNodes) {
  EXPECT_NEAR(PressMgOTable(1.0, 300), 0.0455778047, 1e-9);
  EXPECT_NEAR(PressMgOTable(0.95, 300), 8.9333939891, 1e-9);
  EXPECT_NEAR(PressMgOTable(0.74, 300), 92.6460280665, 1e-8);
}

TEST(MagnesiumOxideTable, InterpolatesAmongFourNodes) {
  EXPECT_NEAR(PressMgOTable(0.9475, 300.15), 9.4449701347, 1e-9);
  EXPECT_NEAR(PressMgOTable(0.962, 300.15), 6.5727869067, 1e-9);
}

TEST(MagnesiumOxideTable, IsMeantToGoOnOutsideItsGrid) {
  EXPECT_NEAR(PressMgOTable(0.7, 300), 124.818276188, 1e-6);
  EXPECT_NEAR(PressMgOTable(1.12, 300), -13.0601960867, 1e-7);
  EXPECT_NEAR(PressMgOTable(0, 300), 2081.38332727, 1e-4);
}

// The neighbours ask for 22.1 GPa; the row that looks like a misprint stands.
TEST(MagnesiumOxideTable, RowThirtySevenIsMeantToStandAsItIs) {
  EXPECT_EQ(kMgONodes[36].E, 8.731078);
  EXPECT_NEAR(PressMgOTable(0.92, 1500), 21.5995812, 1e-6);
}

// Sums over the columns, added up independently from the printed tables.
TEST(PressureTables, HoldTheirColumns) {
  double pt[3] = {}, mgo[5] = {};
  for (const PtNode& n : kPtNodes) pt[0] += n.A, pt[1] += n.B, pt[2] += n.C;
  for (const MgONode& n : kMgONodes) {
    mgo[0] += n.A, mgo[1] += n.B, mgo[2] += n.C, mgo[3] += n.D, mgo[4] += n.E;
  }
  const double pt_sums[3] = {1189.0662995, 314.484262, 332.562514};
  const double mgo_sums[5] = {1668.4898370, 97.12392993, 441.77068177, -274.28338438, 639.16007741};
  for (int i = 0; i < 3; ++i) EXPECT_NEAR(pt[i], pt_sums[i], 1e-9) << i;
  for (int i = 0; i < 5; ++i) EXPECT_NEAR(mgo[i], mgo_sums[i], 1e-9) << i;
}

}  // namespace
}  // namespace dorvane
