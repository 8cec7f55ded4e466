#include "forms/RangeHint.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

TEST(RangeHint, BothEndsAreMeant) {
  constexpr MeantRange range{.words = "1 to 20", .least = 1, .most = 20};
  for (const char* text : {"1", "20", " 7.5 "}) EXPECT_TRUE(IsMeant(text, range)) << text;
  for (const char* text : {"0.99", "20.01", "-1"}) EXPECT_FALSE(IsMeant(text, range)) << text;
}

TEST(RangeHint, WhatIsNoNumberIsNotMeant) {
  for (const char* text : {"", "abc", "1 2", "1,5", "nan", "inf", "0x1"}) {
    EXPECT_FALSE(IsMeant(text, MeantRange{.words = "any number"})) << text;
  }
}

TEST(RangeHint, AnyNumberIsMeantWithoutEnds) {
  for (const char* text : {"-1e300", "0", "1e300"}) {
    EXPECT_TRUE(IsMeant(text, MeantRange{.words = "any number"})) << text;
  }
}

TEST(RangeHint, TheLowerEndCanBeLeftOut) {
  constexpr MeantRange range{.words = "above 0", .least = 0, .above_least = true};
  EXPECT_FALSE(IsMeant(0.0, range));
  EXPECT_TRUE(IsMeant(1e-9, range));
}

TEST(RangeHint, WholeNumbersCanBeAskedFor) {
  constexpr MeantRange range{.words = "whole", .whole = true};
  EXPECT_TRUE(IsMeant(-3.0, range));
  EXPECT_FALSE(IsMeant(2.5, range));
}

TEST(RangeHint, TheLineSaysTheRangeAndWarnsOutsideOfIt) {
  constexpr MeantRange range{.words = "1 to 20", .least = 1, .most = 20};
  ControlList controls;
  TextBox box(controls, "txtThres");
  Label hint(controls, "lblThres");
  box.SetText("21");
  ShowRange(hint, box, range);
  EXPECT_EQ(hint.Caption(), "1 to 20");
  EXPECT_TRUE(hint.Warning());
  box.SetText("20");
  ShowRange(hint, box, range);
  EXPECT_EQ(hint.Caption(), "1 to 20");
  EXPECT_FALSE(hint.Warning());
}

}  // namespace
}  // namespace dorvane
