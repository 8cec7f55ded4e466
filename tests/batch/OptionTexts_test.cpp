#include "batch/OptionTexts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "batch/BatchError.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

TEST(OptionTexts, RangeOfChannelNumbersBecomesIndices) {
  const ChannelSpan span = ParseChannelSpan("1:8192");
  EXPECT_EQ(span.first, 0);
  EXPECT_EQ(span.last, 8191);
}

TEST(OptionTexts, RangeThatIsNoneIsRefused) {
  for (const char* text :
       {"", "5", "0:10", "10:8193", "20:10", "7:7", "1:2:3", "a:b", "1.5:9", "1:"}) {
    EXPECT_THROW(ParseChannelSpan(text), UsageError) << text;
  }
}

TEST(OptionTexts, MillerIndicesAreTriples) {
  EXPECT_THAT(ParseHklList("2 0 0, 2  2 0,-1 0 12"),
              ElementsAre(Hkl{2, 0, 0}, Hkl{2, 2, 0}, Hkl{-1, 0, 12}));
}

TEST(OptionTexts, SingleDigitsMayStandTogether) {
  EXPECT_THAT(ParseHklList("200,220"), ElementsAre(Hkl{2, 0, 0}, Hkl{2, 2, 0}));
}

TEST(OptionTexts, MillerIndicesThatAreNoneAreRefused) {
  for (const char* text :
       {"", "2 0", "2 0 0 0", "2000", "2 0 0,", "a b c", "2 0 1.5", "9999 0 0", "-11"}) {
    EXPECT_THROW(ParseHklList(text), UsageError) << text;
  }
}

TEST(OptionTexts, BackgroundIsIntervalAndTimes) {
  EXPECT_EQ(ParseBackground("20, 30"), (std::pair<std::int16_t, std::int16_t>{20, 30}));
  for (const char* text : {"", "20", "0,20", "20,0", "-1,20", "9000,20", "20,20,20", "a,b"}) {
    EXPECT_THROW(ParseBackground(text), UsageError) << text;
  }
}

TEST(OptionTexts, SmoothingIsTheNumberOfItsPoints) {
  EXPECT_EQ(ParseSmoothing("5"), 0);
  EXPECT_EQ(ParseSmoothing("11"), 3);
  EXPECT_EQ(ParseSmoothing("none"), -1);
  for (const char* text : {"", "3", "6", "13", "seven"})
    EXPECT_THROW(ParseSmoothing(text), UsageError) << text;
}

TEST(OptionTexts, NumbersAreCounted) {
  EXPECT_THAT(ParseNumbers("1, 2.5,-3e2", 3, "three numbers"), ElementsAre(1, 2.5, -300));
  EXPECT_THROW(ParseNumbers("1,2", 3, "three numbers"), UsageError);
  EXPECT_THROW(ParseNumbers("1,x,3", 3, "three numbers"), UsageError);
}

TEST(OptionTexts, ErrorSaysWhatIsExpected) {
  try {
    ParseChannelSpan("5-9");
    FAIL();
  } catch (const UsageError& error) {
    EXPECT_STREQ(error.what(), "\"5-9\" is not a range of channels A:B with 1 <= A < B <= 8192");
  }
}

}  // namespace
}  // namespace dorvane
