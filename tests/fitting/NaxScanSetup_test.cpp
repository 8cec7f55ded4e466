#include "fitting/NaxScanSetup.h"

#include <gtest/gtest.h>

#include "support/Fault.h"

namespace dorvane {
namespace {

TEST(NaxScanSetup, WindowHasTenPointsOnEitherSide) {
  EXPECT_EQ(ScanSetup(20, 0.2, 4096).ScanInt[kHalfWindow], 10);
}

TEST(NaxScanSetup, GroupsReachFourChannelsBeyondThePeakWidth) {
  EXPECT_EQ(ScanSetup(20, 0.2, 4096).ScanInt[kGroupReach], 24);
  EXPECT_EQ(ScanSetup(31, 0.2, 4096).ScanInt[kGroupReach], 35);
  EXPECT_EQ(ScanSetup(-20, 0.2, 4096).ScanInt[kGroupReach], -16);
}

TEST(NaxScanSetup, AFractionOfThePeakWidthIsRoundedToEven) {
  EXPECT_EQ(ScanSetup(20.5, 0.2, 4096).ScanInt[kGroupReach], 24);
  EXPECT_EQ(ScanSetup(21.5, 0.2, 4096).ScanInt[kGroupReach], 26);
}

TEST(NaxScanSetup, APeakWidthThatIsNo16BitNumberFaults) {
  EXPECT_THROW(ScanSetup(40000, 0.2, 4096), Fault);
}

TEST(NaxScanSetup, ChannelsAreThoseOfTheSpectrum) {
  const ScanControl control = ScanSetup(20, 0.2, 2048);
  EXPECT_EQ(control.ScanInt[kFirstChannel], 1);
  EXPECT_EQ(control.ScanInt[kLastChannel], 2048);
}

TEST(NaxScanSetup, FixedValuesAreThoseOfTheTable) {
  const ScanControl control = ScanSetup(20, 5, 4096);
  EXPECT_EQ(control.ScanInt[kListingLevel], 3);
  EXPECT_EQ(control.ScanInt[kRunBase], 4);
  EXPECT_EQ(control.ScanInt[kIterationLimit], 50);
  EXPECT_EQ(control.ScanInt[kRestartLimit], 20);
  EXPECT_EQ(control.ScanInt[kBackgroundColumns], 3);
  EXPECT_EQ(control.ScanReal[kErrorShare], 0.5);
  EXPECT_EQ(control.ScanReal[kFoundWidth], 1.0);
  EXPECT_EQ(control.ScanReal[kSmallest], 1e-6);
  EXPECT_EQ(control.ScanReal[kLargestChange], 5e-4);
  EXPECT_EQ(control.ScanReal[kNoiseCurvature], 5);
  EXPECT_EQ(control.ScanReal[kSharpening], 3.75);
  EXPECT_EQ(control.ScanReal[kSharpeningStep], 0.25);
  EXPECT_EQ(control.ScanReal[kZone], 1.0);
}

}  // namespace
}  // namespace dorvane
