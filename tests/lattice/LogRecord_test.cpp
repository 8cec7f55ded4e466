#include "lattice/LogRecord.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

TEST(LogRecord, TextsStandInQuotesAndNumbersBare) {
  EXPECT_EQ(CsvText({{"A     =", 5.6402}, {7, "", -3}}), "\"A     =\",5.6402\r\n7,\"\",-3\r\n");
}

TEST(LogRecord, AnEmptyRecordIsALineOfTwoQuotes) {
  EXPECT_EQ(CsvText({{""}}), "\"\"\r\n");
}

TEST(LogRecord, NumbersHaveUpToFifteenDigitsAndNoZerosBehind) {
  EXPECT_EQ(CsvText({{1.0 / 3, 90.0, 0.1 + 0.2}}), "0.333333333333333,90,0.3\r\n");
}

TEST(LogRecord, NumbersNeverHaveAnExponent) {
  EXPECT_EQ(CsvText({{0.000012, -2.5e-7, 1e15}}), "0.000012,-0.00000025,1000000000000000\r\n");
}

TEST(LogRecord, ATextThatLooksLikeANumberStaysAText) {
  EXPECT_EQ(CsvText({{"90"}}), "\"90\"\r\n");
}

TEST(LogRecord, AQuoteWithinATextIsDoubled) {
  EXPECT_EQ(CsvText({{"a\"b,c"}}), "\"a\"\"b,c\"\r\n");
}

// Bytes of code page 932: theta 83 C6, degree Celsius 81 8E, wide K 82 6A.
TEST(LogRecord, TextIsInTheSystemsCodePage) {
  EXPECT_EQ(CsvText({{"2θ", "℃", "Ｋ"}}), "\"2\x83\xC6\",\"\x81\x8E\",\"\x82\x6A\"\r\n");
}

TEST(LogRecord, NoRecordsMakeNoText) {
  EXPECT_EQ(CsvText({}), "");
}

}  // namespace
}  // namespace dorvane
