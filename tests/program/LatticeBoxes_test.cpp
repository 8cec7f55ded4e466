#include "program/LatticeBoxes.h"

#include <gmock/gmock.h>

#include "lattice/CalLattice.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

const CellTexts kTexts{"4", "5", "6", "91", "92", "93"};
// As the form leaves the boxes of a cubic sample.
const CellTexts kOnlyA{"4", "", "", "", "", ""};

std::vector<double> Seeds(int lattice_type, const CellTexts& texts) {
  const SeedCell seed = SeedsOf(lattice_type, texts);
  return {seed.begin(), seed.end()};
}

TEST(LatticeBoxes, EachSystemHasItsConstants) {
  const std::string of_system[] = {"a", "ac", "ac", "abc", "abcB", "abcABC"};
  for (int type = kCubic; type <= kTriclinic; ++type) {
    std::string has;
    for (int k = 0; k < kCellConstants; ++k) {
      if (HasConstant(type, k)) has += "abcABC"[k];
    }
    EXPECT_EQ(has, of_system[type]);
  }
}

TEST(LatticeBoxes, WhatIsNoSystemHasNoConstant) {
  for (const int type : {-1, 6}) {
    EXPECT_FALSE(IsLatticeType(type));
    for (int k = 0; k < kCellConstants; ++k) EXPECT_FALSE(HasConstant(type, k));
  }
  EXPECT_FALSE(HasConstant(kTriclinic, 6));
}

TEST(LatticeBoxes, ConstantsThatASystemLacksTakeItsOwnValueWhateverTheirBoxHolds) {
  EXPECT_THAT(Seeds(kCubic, kTexts), ElementsAre(4, 4, 4, 90, 90, 90));
  EXPECT_THAT(Seeds(kCubic, kOnlyA), ElementsAre(4, 4, 4, 90, 90, 90));
  EXPECT_THAT(Seeds(kTetragonal, kTexts), ElementsAre(4, 4, 6, 90, 90, 90));
  EXPECT_THAT(Seeds(kHexagonal, kTexts), ElementsAre(4, 4, 6, 90, 90, 120));
  EXPECT_THAT(Seeds(kOrthorhombic, kTexts), ElementsAre(4, 5, 6, 90, 90, 90));
  EXPECT_THAT(Seeds(kMonoclinic, kTexts), ElementsAre(4, 5, 6, 90, 92, 90));
  EXPECT_THAT(Seeds(kTriclinic, kTexts), ElementsAre(4, 5, 6, 91, 92, 93));
  EXPECT_THAT(Seeds(-1, kOnlyA), ElementsAre(4, 4, 4, 90, 90, 90));
}

TEST(LatticeBoxes, ConstantThatASystemHasIsANumber) {
  for (int type = kTetragonal; type <= kTriclinic; ++type) {
    EXPECT_THROW(Seeds(type, kOnlyA), Fault) << type;
  }
  EXPECT_THROW(Seeds(kCubic, {"x", "4", "4", "90", "90", "90"}), Fault);
}

TEST(LatticeBoxes, ValueAndErrorHaveEachTheirPicture) {
  EXPECT_EQ(WithError({0.9985, 0.00012}, "#.0000", "0.000"), ".9985+-0.000");
}

}  // namespace
}  // namespace dorvane
