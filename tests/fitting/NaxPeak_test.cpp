#include "fitting/NaxPeak.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "support/Fault.h"

namespace dorvane {
namespace {

class FitBackTest : public testing::Test {
 protected:
  static NaxPeak Peak(double position, double fwhm, const NaxBackground& background) {
    NaxPeak peak;
    peak.position = position;
    peak.fwhm = fwhm;
    peak.background = background;
    return peak;
  }
  bool IsEmpty() const {
    return std::all_of(table.begin(), table.end(), [](std::int32_t y) { return y == 0; });
  }

  std::unique_ptr<FitBackTable> holder = std::make_unique<FitBackTable>();
  FitBackTable& table = *holder;
};

// Numbers 97.6 to 102.6 round to 98 and 103, indices 97 to 102; u = index - 100.1.
TEST_F(FitBackTest, ReachesOneWidthToBothSidesOfThePeak) {
  WriteFitBack(Peak(100.1, 2.5, {50, 0, 0}), OutsideFitBack::Fault, table);
  EXPECT_EQ(table[96], 0);
  EXPECT_EQ(table[97], 50);
  EXPECT_EQ(table[102], 50);
  EXPECT_EQ(table[103], 0);
}

TEST_F(FitBackTest, EndsAreRoundedHalfToEven) {
  WriteFitBack(Peak(100, 2.5, {50, 0, 0}), OutsideFitBack::Fault, table);
  EXPECT_EQ(table[96], 0);
  EXPECT_EQ(table[97], 50);   // 97.5 is 98
  EXPECT_EQ(table[101], 50);  // 102.5 is 102
  EXPECT_EQ(table[102], 0);
}

TEST_F(FitBackTest, TheParabolaIsTakenAboutThePeakAsMeant) {
  WriteFitBack(Peak(100, 3, {50, 2, 0.25}), OutsideFitBack::Fault, table);
  EXPECT_EQ(table[96], 46);   // 50 - 8 + 4
  EXPECT_EQ(table[99], 48);   // 50 - 2 + 0.25 = 48.25
  EXPECT_EQ(table[102], 55);  // 50 + 4 + 1
}

TEST_F(FitBackTest, CountsAreRoundedHalfToEvenAndCanBeNegative) {
  WriteFitBack(Peak(100, 1, {-2.5, 0, 0}), OutsideFitBack::Fault, table);
  EXPECT_EQ(table[99], -2);
}

TEST_F(FitBackTest, AWidthOfZeroOrLessWritesNothing) {
  WriteFitBack(Peak(100, 0, {50, 0, 0}), OutsideFitBack::Fault, table);
  WriteFitBack(Peak(100, -3, {50, 0, 0}), OutsideFitBack::Fault, table);
  EXPECT_TRUE(IsEmpty());
}

TEST_F(FitBackTest, FirstAndLastChannelHaveAPlace) {
  WriteFitBack(Peak(2, 1, {50, 0, 0}), OutsideFitBack::Fault, table);
  WriteFitBack(Peak(4095, 1, {60, 0, 0}), OutsideFitBack::Fault, table);
  EXPECT_EQ(table[0], 50);
  EXPECT_EQ(table[4095], 60);
}

TEST_F(FitBackTest, AChannelOutsideIsAFaultOrSkipped) {
  const NaxPeak low = Peak(1, 1, {50, 0, 0});
  const NaxPeak high = Peak(4096, 1, {60, 0, 0});
  EXPECT_THROW(WriteFitBack(low, OutsideFitBack::Fault, table), Fault);
  EXPECT_TRUE(IsEmpty());
  EXPECT_THROW(WriteFitBack(high, OutsideFitBack::Fault, table), Fault);
  EXPECT_EQ(table[4095], 60);  // what lies below the fault
  WriteFitBack(low, OutsideFitBack::Skip, table);
  EXPECT_EQ(table[0], 50);
  EXPECT_EQ(table[1], 50);
}

TEST_F(FitBackTest, AValueThatIsNoCountIsAFaultOrSkipped) {
  const NaxPeak peak = Peak(100, 1, {3e9, 0, 0});
  EXPECT_THROW(WriteFitBack(peak, OutsideFitBack::Fault, table), Fault);
  WriteFitBack(peak, OutsideFitBack::Skip, table);
  EXPECT_TRUE(IsEmpty());
}

TEST_F(FitBackTest, AWidthOfAnySizeEnds) {
  WriteFitBack(Peak(100, 1e300, {50, 0, 0}), OutsideFitBack::Skip, table);
  EXPECT_EQ(table[0], 50);
  EXPECT_EQ(table[4095], 50);
}

}  // namespace
}  // namespace dorvane
