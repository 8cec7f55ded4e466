// Expected texts are worked out by hand from the picture rules.
#include "support/NumberText.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/Fault.h"

namespace dorvane {
namespace {

struct PictureCase {
  double value;
  const char* picture;
  const char* text;
};

class PictureRules : public testing::TestWithParam<PictureCase> {};

TEST_P(PictureRules, PrintsAsByHand) {
  EXPECT_EQ(Picture(GetParam().value, GetParam().picture), GetParam().text)
      << GetParam().picture << " of " << GetParam().value;
}

INSTANTIATE_TEST_SUITE_P(
    Fixed, PictureRules,
    testing::Values(PictureCase{0, "#0.000", "0.000"}, PictureCase{1.23456, "#0.000", "1.235"},
                    PictureCase{-1.5, "#0.000", "-1.500"},
                    PictureCase{123456, "#0.00", "123456.00"}, PictureCase{0.25, "##0.0", "0.3"},
                    PictureCase{7, "00", "07"}, PictureCase{1234567, "######0", "1234567"},
                    PictureCase{12345678, "######0", "12345678"}, PictureCase{0, "######0", "0"},
                    PictureCase{-5, "######0", "-5"}, PictureCase{12, "######", "12"},
                    PictureCase{0, "####", ""}, PictureCase{0.4, "####", ""},
                    PictureCase{99.96, "##0.0", "100.0"}, PictureCase{5, "0.##", "5."},
                    PictureCase{5.25, "0.####", "5.25"}, PictureCase{0.005, "0.00", "0.01"},
                    PictureCase{0.0049, "0.00", "0.00"}, PictureCase{9.5, "0", "10"},
                    PictureCase{0.5, "0", "1"}, PictureCase{1234567, "#,##0", "1,234,567"},
                    PictureCase{999.5, "#,##0", "1,000"}, PictureCase{12, "#,##0", "12"}));

INSTANTIATE_TEST_SUITE_P(Exponent, PictureRules,
                         testing::Values(PictureCase{0.0226609, "0.00000E+000", "2.26609E-002"},
                                         PictureCase{-3.87721e-8, "0.00000E+000", "-3.87721E-008"},
                                         PictureCase{0, "0.00000E+000", "0.00000E+000"},
                                         PictureCase{9.999999, "0.00000E+000", "1.00000E+001"},
                                         PictureCase{1e100, "0.00000E+000", "1.00000E+100"},
                                         PictureCase{1e100, "0.00000E+00", "1.00000E+100"},
                                         PictureCase{1234.5, "0.####e+000", "1.2345e+003"},
                                         PictureCase{1, "0.####e+000", "1.e+000"},
                                         PictureCase{1234.5, "00.0E+00", "12.3E+02"},
                                         PictureCase{1e-310, "0.0E+000", "1.0E-310"}));

INSTANTIATE_TEST_SUITE_P(Sections, PictureRules,
                         testing::Values(PictureCase{1.23456, "#0.000;(#0.000);Nothing", "1.235"},
                                         PictureCase{-1.5, "#0.000;(#0.000);Nothing", "(1.500)"},
                                         PictureCase{0, "#0.000;(#0.000);Nothing", "Nothing"},
                                         PictureCase{0.0004, "#0.000;(#0.000);Nothing", "Nothing"},
                                         PictureCase{-0.0004, "#0.000;(#0.000);Nothing", "Nothing"},
                                         PictureCase{0.0005, "#0.000;(#0.000);Nothing", "0.001"},
                                         PictureCase{-12, "0.0;-0.00", "-12.00"},
                                         PictureCase{0, "0.0;-0.00", "0.0"},
                                         PictureCase{-0.001, "0.0;-0.00", "0.0"}));

TEST(NumberText, HalvesOfTheFifteenDigitsGoAwayFromZero) {
  EXPECT_EQ(Picture(2.675, "0.00"), "2.68");  // as a double just below the half
  EXPECT_EQ(Picture(-2.675, "0.00"), "-2.68");
  EXPECT_EQ(Picture(1.005, "0.00"), "1.01");
  EXPECT_EQ(Picture(2.5, "0"), "3");
}

TEST(NumberText, AValueThatRoundsToZeroShowsNoSign) {
  EXPECT_EQ(Picture(-0.0004, "#0.000"), "0.000");
  EXPECT_EQ(Picture(-0.0, "0.0"), "0.0");
  EXPECT_EQ(Picture(-0.4, "####"), "");
}

TEST(NumberText, InfinitiesAndNanHaveWords) {
  EXPECT_EQ(Picture(std::numeric_limits<double>::infinity(), "0.0"), "Inf");
  EXPECT_EQ(Picture(-std::numeric_limits<double>::infinity(), "0.0"), "-Inf");
  EXPECT_EQ(Picture(std::nan(""), "0.0"), "NaN");
}

TEST(NumberText, PictureRightFillsButDoesNotCut) {
  EXPECT_EQ(PictureRight(42, "######0", 7), "     42");
  EXPECT_EQ(PictureRight(12345678, "######0", 7), "12345678");
}

TEST(NumberText, PlainNumbersHaveNoNeedlessExponent) {
  EXPECT_EQ(PlainNumber(100), "100");
  EXPECT_EQ(PlainNumber(10), "10");
  EXPECT_EQ(PlainNumber(1.5), "1.5");
  EXPECT_EQ(PlainNumber(-3), "-3");
  EXPECT_EQ(PlainNumber(0.1), "0.1");
  EXPECT_EQ(PlainNumber(0.0001), "0.0001");
  EXPECT_EQ(PlainNumber(123456789012345), "123456789012345");
  EXPECT_EQ(PlainNumber(-0.0), "0");
}

TEST(NumberText, PlainNumbersOutsideTheRangeHaveOne) {
  EXPECT_EQ(PlainNumber(2.5e-7), "2.5E-7");
  EXPECT_EQ(PlainNumber(0.00001), "1E-5");
  EXPECT_EQ(PlainNumber(1e15), "1E+15");
  EXPECT_EQ(PlainNumber(-1.25e-300), "-1.25E-300");
}

TEST(NumberText, DecimalNumbersHaveNoExponent) {
  EXPECT_EQ(DecimalNumber(2.5e-7), "0.00000025");
  EXPECT_EQ(DecimalNumber(-0.00001), "-0.00001");
  EXPECT_EQ(DecimalNumber(1e15), "1000000000000000");
  EXPECT_EQ(DecimalNumber(-1.25e17), "-125000000000000000");
}

TEST(NumberText, DecimalNumbersAreElsePlain) {
  EXPECT_EQ(DecimalNumber(0), "0");
  EXPECT_EQ(DecimalNumber(-0.0), "0");
  EXPECT_EQ(DecimalNumber(90), "90");
  EXPECT_EQ(DecimalNumber(12.5), "12.5");
  EXPECT_EQ(DecimalNumber(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(DecimalNumber(0.1 + 0.2), "0.3");
  EXPECT_EQ(DecimalNumber(std::numeric_limits<double>::infinity()), "Inf");
}

TEST(NumberText, PlainNumbersHaveFifteenDigits) {
  EXPECT_EQ(PlainNumber(1.0 / 3), "0.333333333333333");
  EXPECT_EQ(PlainNumber(0.1 + 0.2), "0.3");
}

TEST(NumberText, ParsesDecimalNumbers) {
  EXPECT_EQ(ParseNumber("12"), 12.0);
  EXPECT_EQ(ParseNumber("-1.5"), -1.5);
  EXPECT_EQ(ParseNumber("+2.E3"), 2000.0);
  EXPECT_EQ(ParseNumber("1D-3"), 0.001);
  EXPECT_EQ(ParseNumber("1e+003"), 1000.0);
  EXPECT_EQ(ParseNumber(".5"), 0.5);
  EXPECT_EQ(ParseNumber(" \t7 \r\n"), 7.0);
  EXPECT_EQ(ParseNumber("1e-400"), 0.0);
}

TEST(NumberText, WholeTextOrNothing) {
  for (const char* text :
       {"",  " ", "x",   "1x",  "1 2", "1,5", "0x10", "inf",   "nan",    "-",
        "+", ".", "+-1", "++1", "--1", "1e",  "e5",   "1e400", "-1e400", "1.2.3"}) {
    EXPECT_FALSE(ParseNumber(text).has_value()) << '"' << text << '"';
  }
  EXPECT_FALSE(ParseNumber(std::string(401, '1')).has_value());
}

TEST(NumberText, WhatAPictureShowsIsParsedBack) {
  constexpr std::string_view kSlit = "#0.000;(#0.000);Nothing";
  EXPECT_EQ(ParseByPicture("(1.5)", kSlit), -1.5);
  EXPECT_EQ(ParseByPicture(" Nothing ", kSlit), 0.0);
  EXPECT_EQ(ParseByPicture("-1.5", kSlit), -1.5);
  EXPECT_EQ(ParseByPicture("1.5", kSlit), 1.5);
  EXPECT_EQ(ParseByPicture("-0.25", "0.0;-0.00"), -0.25);
  for (const char* text : {"(-1.5)", "(1.5", "1.5)", "()", "nothing", ""}) {
    EXPECT_EQ(ParseByPicture(text, kSlit), std::nullopt) << text;
  }
  EXPECT_EQ(ParseByPicture("(1.5)", "#0.000"), std::nullopt);
}

TEST(NumberText, IntegersAreRoundedHalfToEvenAndChecked) {
  EXPECT_EQ(Int16Of("2.5"), 2);
  EXPECT_EQ(Int16Of("3.5"), 4);
  EXPECT_EQ(Int32Of("-2147483648"), -2147483647 - 1);
  EXPECT_THROW(Int16Of("32768"), Fault);
  EXPECT_THROW(Int32Of("2147483648"), Fault);
  EXPECT_THROW(Int16Of("seven"), Fault);
}

TEST(NumberText, TrimTakesBlanksTabsAndLineEnds) {
  EXPECT_EQ(Trim(" \t a b \r\n"), "a b");
  EXPECT_EQ(Trim("  "), "");
}

TEST(NumberText, PaddingFillsButDoesNotCut) {
  EXPECT_EQ(PadRight("ab", 4), "ab  ");
  EXPECT_EQ(PadLeft("ab", 4), "  ab");
  EXPECT_EQ(PadRight("abc", 2), "abc");
  EXPECT_EQ(PadLeft("abc", 2), "abc");
}

TEST(NumberText, LowerAsciiLeavesOtherBytes) {
  EXPECT_EQ(LowerAscii("A.XbM\xC3\x84"), "a.xbm\xC3\x84");
}

}  // namespace
}  // namespace dorvane
