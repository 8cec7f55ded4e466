#include "batch/ElementLines.h"

#include <gtest/gtest.h>

#include "batch/BatchError.h"

namespace dorvane {
namespace {

constexpr std::string_view kTable =
    "Num,Symbol,Element,KAve,Ka1,Ka2,Kb1,La1,Lb1,Lg1,AbsEdge\n"
    "1,H,Hydrogen,,,,,,,,0.0136\n"
    "5,B,Boron,0.1833,0.1833,0.1833,,,,,0.1880\n"
    "99,Xx,Example,10.0,10.1,9.8,11.5,,,,12\n";

// The average divides the way from Ka2 to Ka1 as 2 to 1: Ka1 is twice as strong as Ka2.
TEST(ElementLines, SharesComeFromTheAveragedEnergy) {
  const auto lines = KLinesOf(kTable, "Xx", 0.4);
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0].name, "Xx Ka1");
  EXPECT_DOUBLE_EQ(lines[0].share, 0.4);
  EXPECT_NEAR(lines[1].share, 0.2, 1e-12);
  EXPECT_NEAR(lines[2].share, 0.08, 1e-12);
  EXPECT_DOUBLE_EQ(lines[2].energy_kev, 11.5);
}

TEST(ElementLines, OneLineWhereBothHaveOneEnergy) {
  EXPECT_EQ(KLinesOf(kTable, "B", 0.4).size(), 1u);
}

TEST(ElementLines, ElementsWithoutLinesAndUnknownOnesAreRefused) {
  EXPECT_THROW(KLinesOf(kTable, "H", 0.4), UsageError);
  EXPECT_THROW(KLinesOf(kTable, "Au", 0.4), UsageError);
  EXPECT_THROW(KLinesOf("", "Au", 0.4), UsageError);
}

}  // namespace
}  // namespace dorvane
