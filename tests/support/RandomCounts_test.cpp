#include "support/RandomCounts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>

#include "support/Fault.h"

namespace dorvane {
namespace {

struct Moments {
  double mean = 0;
  double variance = 0;
};

Moments MomentsOf(double mean, int draws) {
  RandomCounts random(5);
  double sum = 0, squares = 0;
  for (int i = 0; i < draws; ++i) {
    const double count = random.Poisson(mean);
    sum += count;
    squares += (count - mean) * (count - mean);
  }
  return {sum / draws, squares / draws};
}

// Computed from the published generators in whole-number arithmetic of another language. The words
// that fill the state for this seed are the test values that circulate for splitmix64.
TEST(RandomCounts, FollowsThePublishedGenerator) {
  RandomCounts random(1234567);
  EXPECT_EQ(random.Next(), 3504822795582309479u);
  EXPECT_EQ(random.Next(), 1819558768956484042u);
  EXPECT_EQ(random.Next(), 1250851346055027673u);
  EXPECT_EQ(random.Next(), 16940231675099994102u);
}

TEST(RandomCounts, UniformStaysBelowOne) {
  RandomCounts random(1);
  for (int i = 0; i < 100000; ++i) {
    const double u = random.Uniform();
    ASSERT_GE(u, 0);
    ASSERT_LT(u, 1);
  }
}

// Mean and variance of a Poisson process are equal; the bounds are five standard errors.
TEST(RandomCounts, PoissonHasEqualMeanAndVariance) {
  constexpr int kDraws = 200000;
  for (const double mean : {0.3, 3.0, 9.99, 10.0, 55.0, 1000.0, 1e6}) {
    const Moments moments = MomentsOf(mean, kDraws);
    EXPECT_NEAR(moments.mean, mean, 5 * std::sqrt(mean / kDraws)) << mean;
    const double variance_error = std::sqrt((mean + 2 * mean * mean) / kDraws);
    EXPECT_NEAR(moments.variance, mean, 5 * variance_error) << mean;
  }
}

// Probabilities of 6, 12 and 18 for a mean of 12, from tables of the distribution.
TEST(RandomCounts, RejectionFollowsTheDistribution) {
  constexpr int kDraws = 400000;
  RandomCounts random(9);
  std::map<int, int> seen;
  for (int i = 0; i < kDraws; ++i) ++seen[random.Poisson(12)];
  EXPECT_NEAR(seen[6] / double{kDraws}, 0.025481, 0.0013);
  EXPECT_NEAR(seen[12] / double{kDraws}, 0.114368, 0.0026);
  EXPECT_NEAR(seen[18] / double{kDraws}, 0.025550, 0.0013);
}

TEST(RandomCounts, NoCountsWithoutAMean) {
  RandomCounts random(1);
  EXPECT_EQ(random.Poisson(0), 0);
  EXPECT_EQ(random.Poisson(-3), 0);
}

TEST(RandomCounts, MeansWithoutBoundAreFaults) {
  RandomCounts random(1);
  EXPECT_THROW(random.Poisson(2e9), Fault);
  EXPECT_THROW(random.Poisson(std::numeric_limits<double>::quiet_NaN()), Fault);
}

}  // namespace
}  // namespace dorvane
