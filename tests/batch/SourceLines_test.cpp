#include "batch/SourceLines.h"

#include <gtest/gtest.h>

#include "batch/BatchError.h"

namespace dorvane {
namespace {

TEST(SourceLines, TheStrongestLineHasTheShare) {
  const auto lines = SourceLinesOf("Co-57", 0.5);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].energy_kev, 122.06065);
  EXPECT_EQ(lines[0].share, 0.5);
  EXPECT_NEAR(lines[1].share, 0.065, 1e-12);
}

TEST(SourceLines, OtherNamesAreRefusedWithThoseThatThereAre) {
  try {
    SourceLinesOf("Co-60", 1);
    FAIL();
  } catch (const UsageError& error) {
    EXPECT_STREQ(error.what(), "no source \"Co-60\"; there are Am-241, Cd-109, Co-57");
  }
}

}  // namespace
}  // namespace dorvane
