#include "batch/LineMatch.h"

#include <gtest/gtest.h>

#include <limits>

namespace dorvane {
namespace {

using Values = std::vector<double>;

constexpr std::size_t kNone = 99;

// The peak of each line.
std::vector<std::size_t> Match(const Values& lines, const Values& peaks, double within = 20) {
  std::vector<std::size_t> found;
  for (const LineMatch& match : MatchLines(lines, peaks, within)) {
    found.push_back(match.peak.value_or(kNone));
  }
  return found;
}

using Peaks = std::vector<std::size_t>;

TEST(LineMatch, ALineHasThePeakNearestToIt) {
  EXPECT_EQ(Match({100, 200}, {212, 95, 103, 191}), (Peaks{2, 3}));
}

TEST(LineMatch, APeakAtTheLimitCountsAndOneBeyondItDoesNot) {
  EXPECT_EQ(Match({100}, {120}), Peaks{0});
  EXPECT_EQ(Match({100}, {80}), Peaks{0});
  EXPECT_EQ(Match({100}, {120.01}), Peaks{kNone});
}

TEST(LineMatch, OfTwoLinesThatClaimOnePeakTheNearerHasItInAnyOrder) {
  EXPECT_EQ(Match({103, 101}, {100}), (Peaks{kNone, 0}));
  EXPECT_EQ(Match({101, 103}, {100}), (Peaks{0, kNone}));
}

TEST(LineMatch, TheLoserTakesItsNextChoice) {
  EXPECT_EQ(Match({103, 101}, {100, 110}), (Peaks{1, 0}));
  EXPECT_EQ(Match({103, 101}, {100, 130}), (Peaks{kNone, 0}));
}

TEST(LineMatch, ALineThatTakesItsNextChoiceCanLoseThatToo) {
  EXPECT_EQ(Match({100, 102, 108}, {100.5, 107, 117}), (Peaks{0, 2, 1}));
}

TEST(LineMatch, OfPairsAsNearTheEarlierLineAndTheEarlierPeakComeFirst) {
  EXPECT_EQ(Match({90, 110}, {100}), (Peaks{0, kNone}));
  EXPECT_EQ(Match({100}, {110, 90}), Peaks{0});
}

TEST(LineMatch, ALineThatLostItsPeaksIsToldFromOneWithoutAny) {
  const auto matches = MatchLines(Values{101, 103, 500}, Values{100}, 20);
  EXPECT_FALSE(matches[0].lost);
  EXPECT_TRUE(matches[1].lost);
  EXPECT_FALSE(matches[2].lost);
  EXPECT_FALSE(MatchLines(Values{103, 101}, Values{100, 110}, 20)[0].lost);
}

TEST(LineMatch, NothingIsNearToWhatIsNoNumber) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Match({nan, 100}, {nan, 101}), (Peaks{kNone, 1}));
}

TEST(LineMatch, WithoutLinesOrPeaksThereIsNoPair) {
  EXPECT_EQ(Match({}, {100}), Peaks{});
  EXPECT_EQ(Match({100}, {}), Peaks{kNone});
}

}  // namespace
}  // namespace dorvane
