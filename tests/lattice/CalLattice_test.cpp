#include "lattice/CalLattice.h"

#include <gtest/gtest.h>

#include "lattice/CellGeometry.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

// The cell passes through 32-bit floats, with a relative error of 6e-8.
constexpr double kFloatD = 5e-7;

double D(std::int16_t type, int h, int k, int l, const Cell6& cell) {
  const auto f = [&](std::size_t i) { return static_cast<float>(cell[i]); };
  const auto i16 = [](int i) { return static_cast<std::int16_t>(i); };
  return CalcDSpacing(type, i16(h), i16(k), i16(l), f(0), f(1), f(2), f(3), f(4), f(5));
}

float V(std::int16_t type, const Cell6& cell) {
  const auto f = [&](std::size_t i) { return static_cast<float>(cell[i]); };
  return CalcVolume(f(0), f(1), f(2), f(3), f(4), f(5), type);
}

const Cell6 kSalt{5.6402, 5.6402, 5.6402, 90, 90, 90};
const Cell6 kRutile{4.594, 4.594, 2.959, 90, 90, 90};
const Cell6 kCorundum{4.7587, 4.7587, 12.9929, 90, 90, 120};
const Cell6 kForsterite{4.7535, 10.1943, 5.9807, 90, 90, 90};
const Cell6 kBaddeleyite{5.1505, 5.2116, 5.3173, 90, 99.23, 90};
const Cell6 kKyanite{7.1262, 7.8520, 5.5724, 89.99, 101.11, 106.03};

// The figures come from the lattice vectors, d = V / |h b x c + k c x a + l a x b|, in an
// independent computation.
TEST(DSpacing, Cubic) {
  EXPECT_NEAR(D(kCubic, 3, 1, 1, kSalt), 1.70058429, kFloatD);
}

TEST(DSpacing, Tetragonal) {
  EXPECT_NEAR(D(kTetragonal, 1, 0, 1, kRutile), 2.48763864, kFloatD);
  EXPECT_NEAR(D(kTetragonal, 2, 1, 1, kRutile), 1.68760067, kFloatD);
}

TEST(DSpacing, Hexagonal) {
  EXPECT_NEAR(D(kHexagonal, 1, 0, 4, kCorundum), 2.55107619, kFloatD);
  EXPECT_NEAR(D(kHexagonal, 1, 1, 3, kCorundum), 2.08536933, kFloatD);
}

TEST(DSpacing, Orthorhombic) {
  EXPECT_NEAR(D(kOrthorhombic, 1, 3, 1, kForsterite), 2.50930650, kFloatD);
}

TEST(DSpacing, Triclinic) {
  EXPECT_NEAR(D(kTriclinic, 1, 0, 0, kKyanite), 6.71011953, 2e-6);
  EXPECT_NEAR(D(kTriclinic, 1, 1, 0, kKyanite), 4.43005253, 2e-6);
  EXPECT_NEAR(D(kTriclinic, -1, 1, 2, kKyanite), 2.61278633, 2e-6);
  EXPECT_NEAR(D(kTriclinic, 2, -1, 3, kKyanite), 1.50139517, 2e-6);
}

// b / (2 sin(beta)) by hand; the lattice vectors give b / 2.
TEST(DSpacing, MonoclinicTermOfKIsMeantToCarryTheSineOfBetaAlone) {
  EXPECT_NEAR(D(kMonoclinic, 0, 2, 0, kBaddeleyite), 2.63998136, 2e-6);
}

// The form with a*b in the cross term and gamma in the leading factor, computed independently; the
// lattice vectors give 2.8417 for (1 1 1).
TEST(DSpacing, MonoclinicCrossTermIsMeantToBeDividedByAB) {
  EXPECT_NEAR(D(kMonoclinic, 1, 1, 1, kBaddeleyite), 2.87614369, 2e-6);
  EXPECT_NEAR(D(kMonoclinic, -1, 1, 1, kBaddeleyite), 3.21106220, 2e-6);
}

TEST(DSpacing, MonoclinicGammaIsMeantToScaleEveryD) {
  Cell6 skew = kBaddeleyite;
  skew[5] = 60;
  EXPECT_NEAR(D(kMonoclinic, 1, 1, 1, skew), 2.49081350, 2e-6);
}

TEST(DSpacing, AnUnknownSystemHasNone) {
  EXPECT_EQ(D(6, 1, 1, 1, kSalt), 0);
  EXPECT_EQ(D(-1, 1, 1, 1, kSalt), 0);
}

TEST(DSpacing, IndicesOfZeroFault) {
  for (std::int16_t type = 0; type <= 5; ++type) {
    EXPECT_THROW(D(type, 0, 0, 0, kKyanite), Fault) << type;
  }
}

TEST(DSpacing, ALengthOfZeroFaults) {
  EXPECT_THROW(D(kTetragonal, 1, 0, 1, {4, 4, 0, 90, 90, 90}), Fault);
  EXPECT_THROW(D(kOrthorhombic, 1, 0, 1, {4, 0, 4, 90, 90, 90}), Fault);
}

TEST(DSpacing, AnglesThatCloseNoCellFault) {
  EXPECT_THROW(D(kTriclinic, 1, 0, 0, {4, 4, 4, 60, 60, 150}), Fault);
}

TEST(DSpacing, ACrystalTakesItsSeedsIntoEveryLine) {
  CrystalRec crystal;
  crystal.LatticeType = kHexagonal;
  crystal.LineCount = 2;
  crystal.H[0] = 1, crystal.L[0] = 4;
  crystal.H[1] = 1, crystal.K[1] = 1, crystal.L[1] = 3;
  crystal.DCalc[2] = 7;
  SeedCell seed;
  for (int i = 0; i < 6; ++i) seed[i] = kCorundum[static_cast<std::size_t>(i)];
  CalcCrystalD(crystal, seed);
  EXPECT_NEAR(crystal.DCalc[0], 2.55107619, kFloatD);
  EXPECT_NEAR(crystal.DCalc[1], 2.08536933, kFloatD);
  EXPECT_EQ(crystal.DCalc[2], 7);
}

TEST(Volume, OfEachSystemIsThatOfTheLatticeVectors) {
  EXPECT_NEAR(V(kCubic, kSalt), VolumeOf(kSalt), 2e-5);
  EXPECT_NEAR(V(kTetragonal, kRutile), VolumeOf(kRutile), 1e-5);
  EXPECT_NEAR(V(kOrthorhombic, kForsterite), VolumeOf(kForsterite), 4e-5);
  EXPECT_NEAR(V(kMonoclinic, kBaddeleyite), VolumeOf(kBaddeleyite), 2e-5);
  EXPECT_NEAR(V(kTriclinic, kKyanite), VolumeOf(kKyanite), 6e-5);
}

TEST(Volume, HexagonalFactorIsMeantToBeSixDigits) {
  // 4.7587^2 * 12.9929 * 0.866025; the exact factor gives 254.80819.
  EXPECT_NEAR(V(kHexagonal, kCorundum), 254.808069, 4e-5);
}

TEST(Volume, AnUnknownSystemHasNone) {
  EXPECT_EQ(V(6, kSalt), 0);
}

TEST(Volume, AnglesThatCloseNoCellFault) {
  EXPECT_THROW(V(kTriclinic, {4, 4, 4, 60, 60, 150}), Fault);
}

TEST(LatticeTag, TetragonalIsMeantToShareTheTagOfTriclinic) {
  EXPECT_STREQ(LatticeTag(kTetragonal), "TRI");
  EXPECT_STREQ(LatticeTag(kTriclinic), "TRI");
}

TEST(LatticeTag, EachSystemHasItsOwnElse) {
  EXPECT_STREQ(LatticeTag(kCubic), "CUB");
  EXPECT_STREQ(LatticeTag(kHexagonal), "HEX");
  EXPECT_STREQ(LatticeTag(kOrthorhombic), "ORT");
  EXPECT_STREQ(LatticeTag(kMonoclinic), "MON");
  EXPECT_STREQ(LatticeTag(6), "UNK");
  EXPECT_STREQ(LatticeTag(-1), "UNK");
}

TEST(LatticeName, IsTheItemOfTheList) {
  EXPECT_STREQ(LatticeName(kTetragonal), "Tetragonal");
  EXPECT_STREQ(LatticeName(9), "");
}

}  // namespace
}  // namespace dorvane
