#include "files/SplitNumbers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<double> Numbers(std::string_view text, std::size_t places = 20) {
  std::vector<double> out(places, -1);
  out.resize(SplitNumbers(text, out));
  return out;
}

std::vector<std::string_view> Fields(std::string_view text, std::size_t places = 30) {
  std::vector<std::string_view> out(places);
  out.resize(SplitFields(text, out));
  return out;
}

std::string Repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

TEST(SplitNumbers, CommasAndBlanksSeparate) {
  EXPECT_THAT(Numbers("1.5, 2.5  3.5"), ElementsAre(1.5, 2.5, 3.5));
  EXPECT_THAT(Numbers("1,-2,3E2"), ElementsAre(1, -2, 300));
}

TEST(SplitNumbers, ACommaWithBlanksAboutItIsOneSeparator) {
  for (const char* text : {"1,2", "1, 2", "1 ,2", "1 , 2", "1  ,   2"}) {
    EXPECT_THAT(Numbers(text), ElementsAre(1, 2)) << text;
  }
}

TEST(SplitNumbers, ARunOfBlanksIsOneSeparator) {
  EXPECT_THAT(Numbers("1     2\t 3"), ElementsAre(1, 2, 3));
}

TEST(SplitNumbers, BlanksAtTheEndsSeparateNothing) {
  EXPECT_THAT(Numbers("  1 2   "), ElementsAre(1, 2));
}

TEST(SplitNumbers, NoTextHasNoNumbers) {
  EXPECT_THAT(Numbers(""), IsEmpty());
  EXPECT_THAT(Numbers("     "), IsEmpty());
}

TEST(SplitNumbers, AnEmptyPieceBetweenCommasIs0) {
  EXPECT_THAT(Numbers("1,,3"), ElementsAre(1, 0, 3));
  EXPECT_THAT(Numbers("1, ,3"), ElementsAre(1, 0, 3));
  EXPECT_THAT(Numbers(",2"), ElementsAre(0, 2));
}

TEST(SplitNumbers, ACommaBehindTheLastNumberEndsThem) {
  EXPECT_THAT(Numbers("1,2,"), ElementsAre(1, 2));
  EXPECT_THAT(Numbers("1,2 , "), ElementsAre(1, 2));
}

TEST(SplitNumbers, NinetyNineCharactersAreScanned) {
  EXPECT_THAT(Numbers(std::string(97, ' ') + "123"), ElementsAre(12));
  EXPECT_THAT(Numbers(std::string(98, ' ') + "1 2"), ElementsAre(1));
  EXPECT_THAT(Numbers("7" + std::string(98, ' ') + "8"), ElementsAre(7));
  EXPECT_THAT(Numbers(std::string(99, ' ') + "x"), IsEmpty());
}

TEST(SplitNumbers, ElevenNumbersAreTaken) {
  EXPECT_EQ(Numbers(Repeated("5 ", 11)).size(), 11u);
  EXPECT_EQ(Numbers(Repeated("5,", 12)).size(), 11u);
  EXPECT_EQ(Numbers(Repeated("5 ", 11) + "x").size(), 11u);  // what follows is not looked at
}

TEST(SplitNumbers, NoMoreNumbersAreTakenThanThereArePlaces) {
  EXPECT_THAT(Numbers("1,2,3", 2), ElementsAre(1, 2));
  EXPECT_THAT(Numbers("1,2,3", 0), IsEmpty());
}

TEST(SplitNumbers, PlacesBehindTheNumbersBecome0) {
  std::array<double, 4> out = {9, 9, 9, 9};
  EXPECT_EQ(SplitNumbers("1,2", out), 2u);
  EXPECT_THAT(out, ElementsAre(1, 2, 0, 0));
}

TEST(SplitNumbers, APieceThatIsNoNumberFails) {
  for (const char* text : {"1,x", "1;2", "0x10", "1.5.2", "nan", "12a"}) {
    std::array<double, 4> out{};
    EXPECT_THROW(SplitNumbers(text, out), Fault) << text;
  }
}

TEST(SplitFields, CommasSemicolonsAndBlanksSeparate) {
  EXPECT_THAT(Fields("a,b;c d  e ; f"), ElementsAre("a", "b", "c", "d", "e", "f"));
}

TEST(SplitFields, AnEmptyFieldBetweenSeparatorsCounts) {
  EXPECT_THAT(Fields("a,;c"), ElementsAre("a", "", "c"));
}

TEST(SplitFields, TwentyOneFieldsAreTaken) {
  EXPECT_EQ(Fields(Repeated("x ", 21)).size(), 21u);
  EXPECT_EQ(Fields(Repeated("x ", 22)).size(), 21u);
  EXPECT_THAT(Fields("a b c", 2), ElementsAre("a", "b"));
}

TEST(SplitFields, NinetyNineCharactersAreScanned) {
  EXPECT_THAT(Fields(std::string(97, ' ') + "abc"), ElementsAre("ab"));
}

TEST(DateFromYmd, YearsBelow30Are20) {
  EXPECT_EQ(DateFromYmd("16/11/04"), "20161104");
  EXPECT_EQ(DateFromYmd("00/01/02"), "20000102");
  EXPECT_EQ(DateFromYmd("29/12/31"), "20291231");
}

TEST(DateFromYmd, YearsFrom30OnAre19) {
  EXPECT_EQ(DateFromYmd("30/01/01"), "19300101");
  EXPECT_EQ(DateFromYmd("99/12/31"), "19991231");
}

TEST(DateFromYmd, MonthAndDayStandByPosition) {
  EXPECT_EQ(DateFromYmd("16-11.04"), "20161104");
  EXPECT_EQ(DateFromYmd("16/ 1/ 4"), "2016 1 4");
}

TEST(DateFromYmd, ATextThatBeginsWithNoYearIsEmpty) {
  for (const char* text : {"", "        ", "ab/11/04", "1x/11/04", "-1/11/04"}) {
    EXPECT_EQ(DateFromYmd(text), "") << text;
  }
}

TEST(DateFromYmd, AYearOfOneDigitGetsALeadingZero) {
  EXPECT_EQ(DateFromYmd(" 5/11/04"), "20051104");
}

TEST(TimeFromHms, StandsByPosition) {
  EXPECT_EQ(TimeFromHms("09:05:03"), "090503");
  EXPECT_EQ(TimeFromHms("09.05-03"), "090503");
}

TEST(TimeFromHms, WhatIsMissingIsBlank) {
  EXPECT_EQ(TimeFromHms("09:05"), "0905  ");
  EXPECT_EQ(TimeFromHms(""), "      ");
}

TEST(DateToYmd, ShowsTheLastTwoDigitsOfTheYear) {
  EXPECT_EQ(DateToYmd("20161104"), "16/11/04");
  EXPECT_EQ(DateToYmd("19991231"), "99/12/31");
}

TEST(DateToYmd, ADateWithoutAYearIsEmpty) {
  EXPECT_EQ(DateToYmd("        "), "");
  EXPECT_EQ(DateToYmd("abcd1231"), "");
  EXPECT_EQ(DateToYmd(""), "");
}

TEST(TimeToHms, StandsByPosition) {
  EXPECT_EQ(TimeToHms("090503"), "09:05:03");
  EXPECT_EQ(TimeToHms("      "), "  :  :  ");
}

}  // namespace
}  // namespace dorvane
