#include "processing/Units.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace dorvane {
namespace {

// Formulas are evaluated in another order than here only in their last bits.
constexpr double kLastBits = 1e-12;

EgcCoef Egc(double constant, double linear, double quadratic) {
  EgcCoef egc;
  egc[0] = constant;
  egc[1] = linear;
  egc[2] = quadratic;
  return egc;
}

MeasProp Source(const EgcCoef& egc, double two_theta_deg) {
  MeasProp source;
  source.EGC = egc;
  source.TwoTheta = two_theta_deg;
  return source;
}

const DacAngles kNoDac;

// Energy and back.

TEST(Units, EnergyIsAQuadraticOfTheChannelNumber) {
  EXPECT_NEAR(ChToEnergy(10, Egc(1, 0.5, 0.001)), 6.1, kLastBits);  // 1 + 5 + 0.1
}

TEST(Units, ChannelOfAnEnergyOnALine) {
  EXPECT_NEAR(EnergyToCh(6, Egc(1, 0.5, 0)), 10, kLastBits);
}

TEST(Units, ChannelOfAnEnergyOnAParabolaIsThePositiveRoot) {
  EXPECT_NEAR(EnergyToCh(6.1, Egc(1, 0.5, 0.001)), 10, 1e-9);
  // 1 + n - 0.01 n^2 = 10: n = 10 and n = 90; the root with +sqrt is 10.
  EXPECT_NEAR(EnergyToCh(10, Egc(1, 1, -0.01)), 10, 1e-9);
}

TEST(Units, ChannelOfAnEnergyIsZeroWithoutSlopeAndCurvature) {
  EXPECT_EQ(EnergyToCh(6, Egc(1, 0, 0)), 0);
}

TEST(Units, ChannelOfAnEnergyIsZeroWhereTheDiscriminantIsNegative) {
  EXPECT_EQ(EnergyToCh(1, Egc(2, 0, 1)), 0);  // 2 + n^2 never is 1
}

// Wavelength, d and Q.

TEST(Units, WavelengthOfTwelvePointThreeNineEightOneKevIsOneAngstrom) {
  EXPECT_NEAR(ChToWave(1, Egc(0, 12.3981, 0)), 1, kLastBits);
}

TEST(Units, WavelengthIsZeroWithoutEnergy) {
  EXPECT_EQ(ChToWave(1, Egc(0, 0, 0)), 0);
  EXPECT_EQ(ChToWave(1, Egc(-3, 1, 0)), 0);
}

TEST(Units, ChannelOfAWavelength) {
  EXPECT_NEAR(WaveToCh(0.5, Egc(0, 12.3981, 0)), 2, kLastBits);
}

TEST(Units, ChannelOfAWavelengthThatIsNotPositiveIsZero) {
  EXPECT_EQ(WaveToCh(0, Egc(1, 1, 0)), 0);
  EXPECT_EQ(WaveToCh(-1, Egc(1, 1, 0)), 0);
}

TEST(Units, DValueFollowsBragg) {
  // sin(30 degrees) = 1/2, so that d = hc / E.
  EXPECT_NEAR(ChToD(1, Egc(0, 12.3981, 0), 60), 1, kLastBits);
  EXPECT_NEAR(ChToD(4, Egc(0, 12.3981, 0), 60), 0.25, kLastBits);
}

TEST(Units, DValueWithoutAngleIsZero) {
  EXPECT_EQ(ChToD(1, Egc(0, 1, 0), 0), 0);
  EXPECT_EQ(ChToD(1, Egc(0, 1, 0), -5), 0);
}

TEST(Units, DValueWithoutEnergyIsZero) {
  EXPECT_EQ(ChToD(1, Egc(-1, 1, 0), 6), 0);
}

TEST(Units, DValueAfterAnArithmeticFaultIsZero) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(ChToD(1, Egc(nan, 1, 0), 6), 0);
  EXPECT_EQ(ChToD(1, Egc(1e-300, 0, 0), 1e-12), 0);  // overflow
}

TEST(Units, DToChTakesTheHalfAngleUnconvertedAsIsMeant) {
  // sin(2.99316 rad) = 0.1478882027556559 by Python, 12.3981 / (2 * that) = 41.917136624090325.
  EXPECT_NEAR(DToCh(1, Egc(0, 1, 0), 5.98632), 41.917136624090325, 1e-9);
}

TEST(Units, DToChDoesNotComeBackToTheChannelOfChToD) {
  const EgcCoef egc = Egc(0, 0.03, 0);
  const double d = ChToD(1000, egc, 5.98632);
  EXPECT_GT(std::abs(DToCh(d, egc, 5.98632) - 1000), 100);
}

TEST(Units, DToChIsZeroWithoutDOrAngle) {
  EXPECT_EQ(DToCh(0, Egc(0, 1, 0), 6), 0);
  EXPECT_EQ(DToCh(1, Egc(0, 1, 0), 0), 0);
}

TEST(Units, QHasItsOwnHcAsIsMeant) {
  // 4 pi sin(30 degrees) for an energy of 12.399 keV.
  EXPECT_NEAR(ChToQ(1, Egc(0, 12.399, 0), 60), 6.28318530717958, 1e-12);
}

TEST(Units, QWithoutAngleIsZeroByItsSine) {
  EXPECT_EQ(ChToQ(1, Egc(0, 1, 0), 0), 0);
}

TEST(Units, QWithoutEnergyIsZero) {
  EXPECT_EQ(ChToQ(1, Egc(-1, 1, 0), 6), 0);
}

// The angle-dispersive model.

TEST(Units, DacAngleCountsFromTheFirstChannel) {
  const DacPoint point = ChTo2Theta(11, {0.5, 55}, 0.4);
  EXPECT_NEAR(point.two_theta_deg, 60, kLastBits);
  EXPECT_NEAR(point.d, 0.4, kLastBits);  // 0.4 / (2 * 1/2)
}

TEST(Units, DacDValueAtAngleZeroIsZero) {
  EXPECT_EQ(ChTo2Theta(1, {0.5, 0}, 0.4).d, 0);
}

// Units, forward and backward.

TEST(Units, ForwardEveryUnitTakesTheChannelNumberBehindTheIndex) {
  const MeasProp source = Source(Egc(0, 12.3981, 0), 60);
  EXPECT_EQ(ChToUnit(kUnitCh, 1, source, kNoDac), 2);
  EXPECT_NEAR(ChToUnit(kUnitKeV, 1, source, kNoDac), 24.7962, kLastBits);
  EXPECT_NEAR(ChToUnit(kUnitEv, 1, source, kNoDac), 24796.2, 1e-9);
  EXPECT_NEAR(ChToUnit(kUnitD, 1, source, kNoDac), 0.5, kLastBits);
  EXPECT_NEAR(ChToUnit(kUnitWave, 1, source, kNoDac), 0.5, kLastBits);
  // 4 pi * 12.3981 / 12.399 by exact fractions
  EXPECT_NEAR(ChToUnit(kUnitQ, 1, source, kNoDac), 12.565458465512243, 1e-9);
  EXPECT_NEAR(ChToUnit(kUnit2Theta, 1, source, {0.25, 3}), 3.25, kLastBits);
}

TEST(Units, UnknownUnitsAreZero) {
  const MeasProp source = Source(Egc(1, 1, 0), 60);
  EXPECT_EQ(ChToUnit(7, 5, source, {1, 1}), 0);
  EXPECT_EQ(ChToUnit(-1, 5, source, {1, 1}), 0);
  EXPECT_EQ(UnitToCh(7, 5, source), 0);
  EXPECT_EQ(UnitToCh(-1, 5, source), 0);
}

TEST(Units, EnergyOfIndexZeroIsThatOfChannelNumberOne) {
  EXPECT_NEAR(ChToUnit(kUnitKeV, 0, Source(Egc(1, 0.5, 0), 6), kNoDac), 1.5, kLastBits);
}

TEST(Units, BackwardOnlyTheChannelTakesTheOneOffAsIsMeant) {
  const MeasProp source = Source(Egc(1, 0.5, 0), 6);
  EXPECT_EQ(UnitToCh(kUnitCh, ChToUnit(kUnitCh, 7, source, kNoDac), source), 7);
  for (const int unit : {kUnitKeV, kUnitEv, kUnitWave}) {
    EXPECT_NEAR(UnitToCh(unit, ChToUnit(unit, 7, source, kNoDac), source), 8, 1e-9) << unit;
  }
}

TEST(Units, BackwardDUsesDToCh) {
  EXPECT_NEAR(UnitToCh(kUnitD, 1, Source(Egc(0, 1, 0), 5.98632)), 41.917136624090325, 1e-9);
}

TEST(Units, BackwardQAndTwoThetaAreZero) {
  const MeasProp source = Source(Egc(1, 1, 0), 6);
  EXPECT_EQ(UnitToCh(kUnitQ, 3, source), 0);
  EXPECT_EQ(UnitToCh(kUnit2Theta, 3, source), 0);
}

// Widths.

TEST(Units, WidthInKevIsMeasuredFromChannelZero) {
  EXPECT_NEAR(WidthToCh(kUnitKeV, 0.5, Source(Egc(2, 0.05, 0), 6)), 10, 1e-9);
}

TEST(Units, WidthInEvAddsTheOffsetInKevBeforeTheDivisionAsIsMeant) {
  // (2 + 500) / 1000 = 0.502 keV, (0.502 - 2) / 0.05 = -29.96
  EXPECT_NEAR(WidthToCh(kUnitEv, 500, Source(Egc(2, 0.05, 0), 6)), -29.96, 1e-9);
}

TEST(Units, WidthInOtherUnitsStays) {
  const MeasProp source = Source(Egc(2, 0.05, 0), 6);
  for (const int unit : {kUnitCh, kUnitD, kUnitWave, kUnitQ, kUnit2Theta}) {
    EXPECT_EQ(WidthToCh(unit, 12.5, source), 12.5) << unit;
  }
}

TEST(Units, ChannelsToAWidth) {
  const MeasProp source = Source(Egc(2, 0.05, 0.001), 6);
  EXPECT_EQ(ChToWidth(kUnitCh, 10, source), 10);
  EXPECT_NEAR(ChToWidth(kUnitKeV, 10, source), 0.6, kLastBits);  // 0.5 + 0.1
  EXPECT_NEAR(ChToWidth(kUnitEv, 10, source), 600, 1e-9);
}

TEST(Units, ChannelsToAWidthInAngstromAreOneOrZeroAsIsMeant) {
  const MeasProp source = Source(Egc(2, 0.05, 0), 6);
  for (const double n : {0.0, 1.0, 500.0}) {
    EXPECT_EQ(ChToWidth(kUnitD, n, source), 1);
    EXPECT_EQ(ChToWidth(kUnitWave, n, source), 0);
    EXPECT_EQ(ChToWidth(kUnitQ, n, source), 1);
    EXPECT_EQ(ChToWidth(kUnit2Theta, n, source), 1);
    EXPECT_EQ(ChToWidth(7, n, source), 1);
  }
}

// Copper angle.

TEST(Units, CopperThetaOfADValueEqualToTheWavelengthIsThirtyDegrees) {
  // E = hc / 1.5418 in every channel, and 2-theta = 60 degrees makes d = 1.5418.
  const MeasProp source = Source(Egc(12.3981 / 1.5418, 0, 0), 60);
  EXPECT_NEAR(ChToCuTheta(5, 60, source), 30, 1e-9);
}

TEST(Units, CopperThetaTakesTheDValueOneChannelFurtherThanTheTestedEnergyAsIsMeant) {
  // Number 0 has no energy, number 1 has one.
  EXPECT_EQ(ChToCuTheta(0, 60, Source(Egc(0, 5, 0), 60)), 0);
  // d of number 2: E = 12.3981 / 1.5418.
  const MeasProp source = Source(Egc(0, 12.3981 / 1.5418 / 2, 0), 60);
  EXPECT_NEAR(ChToCuTheta(1, 60, source), 30, 1e-9);
}

TEST(Units, CopperThetaIsZeroWhereDIsTooSmall) {
  EXPECT_EQ(ChToCuTheta(5, 60, Source(Egc(24.7962, 0, 0), 60)), 0);  // d = 0.5
}

TEST(Units, CopperThetaIsZeroWithoutAngleOrEnergy) {
  EXPECT_EQ(ChToCuTheta(5, 0, Source(Egc(8, 0, 0), 60)), 0);
  EXPECT_EQ(ChToCuTheta(5, 60, Source(Egc(-8, 0, 0), 60)), 0);
  EXPECT_EQ(ChToCuTheta(5, 60, Source(Egc(8, 0, 0), 0)), 0);
}

// Texts.

struct UnitTexts {
  int unit;
  const char* label;
  const char* name;
  const char* pattern;
};

TEST(Units, TextsOfTheUnits) {
  const UnitTexts table[] = {
      {0, "Ch", "Channel", "####"},
      {1, "keV", "Enargy", "##0.000"},
      {2, "eV", "Enargy", "##0.000"},
      {3, "d:\xE2\x84\xAB", "d Value", "0.0000"},
      {4, "\xE2\x84\xAB", "Wavelength", "0.0000"},
      {5, "Q\xE2\x84\xAB", "", "0.0000"},
      {6, "2\xCE\xB8", "", "0.0000"},
      {7, "", "", "#####"},
      {-1, "", "", "#####"},
  };
  for (const UnitTexts& row : table) {
    EXPECT_EQ(UnitLabel(row.unit), row.label) << row.unit;
    EXPECT_EQ(UnitName(row.unit), row.name) << row.unit;
    EXPECT_EQ(UnitPattern(row.unit), row.pattern) << row.unit;
  }
}

TEST(Units, TheUnitBoxSpellsTheEnergiesInItsOwnWayAsIsMeant) {
  const std::array<std::string_view, 7> texts = {
      "Ch", "Kev", "Ev", "d:\xE2\x84\xAB", "\xE2\x84\xAB", "Q\xE2\x84\xAB", "2\xCE\xB8"};
  EXPECT_EQ(UnitComboTexts(), texts);
}

TEST(Units, ReadOutsHaveThePictureOfTheirUnit) {
  EXPECT_EQ(FormatUnitVal(1024, kUnitCh), "1024");
  EXPECT_EQ(FormatUnitVal(59.5409, kUnitKeV), "59.5");
  EXPECT_EQ(FormatUnitVal(59540.97, kUnitEv), "59541.0");
  EXPECT_EQ(FormatUnitVal(2.08834, kUnitD), "2.0883");
  EXPECT_EQ(FormatUnitVal(0.49576, kUnitWave), "0.4958");
  EXPECT_EQ(FormatUnitVal(3.00001, kUnitQ), "3.0000");
  EXPECT_EQ(FormatUnitVal(5.98632, kUnit2Theta), "5.9863");
}

TEST(Units, ChannelsAreRoundedTwiceAsIsMeant) {
  EXPECT_EQ(FormatUnitVal(12.44, kUnitCh), "12");
  EXPECT_EQ(FormatUnitVal(12.46, kUnitCh), "13");  // 12.5 first, then 13
}

TEST(Units, ReadOutOfChannelZeroIsEmpty) {
  EXPECT_EQ(FormatUnitVal(0, kUnitCh), "");
}

TEST(Units, ReadOutOfAnUnknownUnitIsNotRoundedFirst) {
  EXPECT_EQ(FormatUnitVal(12.46, 7), "12");
}

TEST(Units, CalibrationTextRunsAgainstTheFormulaAsIsMeant) {
  EXPECT_EQ(EgcLabel(Egc(-0.5, 0.0301, 0.0000012)), "-0.500000Ch^2+0.030100Ch+0.000001");
}

// Rounding.

TEST(Units, RoundToDecadeGoesUpToTheNearestOrDown) {
  EXPECT_DOUBLE_EQ(RoundToDecade(1234, 2, 1), 1300);
  EXPECT_DOUBLE_EQ(RoundToDecade(1250, 2, 0), 1300);
  EXPECT_DOUBLE_EQ(RoundToDecade(1249, 2, 0), 1200);
  EXPECT_DOUBLE_EQ(RoundToDecade(1299, 2, -1), 1200);
  EXPECT_DOUBLE_EQ(RoundToDecade(0.1234, -2, 1), 0.13);
}

TEST(Units, RoundToDecadeLeavesWholeMultiples) {
  EXPECT_DOUBLE_EQ(RoundToDecade(1200, 2, 1), 1200);
  EXPECT_DOUBLE_EQ(RoundToDecade(1200, 2, -1), 1200);
  EXPECT_NEAR(RoundToDecade(0.3, -1, -1), 0.3, kLastBits);  // 0.3 / 0.1 is below 3
}

TEST(Units, RoundSigKeepsDigits) {
  EXPECT_DOUBLE_EQ(RoundSig(123.4, 1, 1), 200);
  EXPECT_DOUBLE_EQ(RoundSig(123.4, 1, 0), 100);
  EXPECT_DOUBLE_EQ(RoundSig(123.4, 2, -1), 120);
  EXPECT_NEAR(RoundSig(0.01234, 2, 0), 0.012, kLastBits);
}

TEST(Units, RoundStepIsAWholeDigitAboveTheShare) {
  EXPECT_DOUBLE_EQ(RoundStep(4096, 10), 500);  // 409.6
  EXPECT_DOUBLE_EQ(RoundStep(100, 10), 10);
  EXPECT_NEAR(RoundStep(0.7, 10), 0.07, kLastBits);
}

TEST(Units, RoundStepWithoutDivisionsFaults) {
  EXPECT_THROW(RoundStep(10, 0), Fault);
}

TEST(Units, DecadeIsTheExponentOfTheLeadingDigit) {
  EXPECT_EQ(Decade(1), 0);
  EXPECT_EQ(Decade(9.99), 0);
  EXPECT_EQ(Decade(10), 1);
  EXPECT_EQ(Decade(1000), 3);
  EXPECT_EQ(Decade(0.5), -1);
  EXPECT_EQ(Decade(0.1), -1);
  EXPECT_EQ(Decade(0.05), -2);
  EXPECT_EQ(Decade(0.001), -3);
}

TEST(Units, DecadeOfZeroIsItsGuard) {
  EXPECT_EQ(Decade(0), -9);
}

TEST(Units, DecadeOfANegativeNumberIsThatOfOne) {
  EXPECT_EQ(Decade(-5), 0);
}

TEST(Units, DecadeOfInfinityFaults) {
  EXPECT_THROW(Decade(std::numeric_limits<double>::infinity()), Fault);
  EXPECT_THROW(Decade(std::numeric_limits<double>::quiet_NaN()), Fault);
}

}  // namespace
}  // namespace dorvane
