#include "support/FixedText.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

TEST(FixedText, StartsBlank) {
  EXPECT_EQ(FixedText<3>().Bytes(), "   ");
  EXPECT_EQ(FixedText<3>().Text(), "");
}

TEST(FixedText, PadsAndCutsToItsSize) {
  EXPECT_EQ(FixedText<4>("ab").Bytes(), "ab  ");
  EXPECT_EQ(FixedText<4>("abcdef").Bytes(), "abcd");
}

TEST(FixedText, CutsAtACharactersBorder) {
  const FixedText<5> text("日本語");
  EXPECT_EQ(text.Bytes(), "\x93\xFA\x96\x7B ");
  EXPECT_EQ(text.Text(), "日本");
}

TEST(FixedText, TextIsTrimmed) {
  FixedText<6> text(" a b ");
  EXPECT_EQ(text.Text(), "a b");
  text.Raw() = {'x', ' ', '\0', '\0', '\0', '\0'};
  EXPECT_EQ(text.Text(), "x");
}

TEST(FixedText, RawBytesAreKept) {
  FixedText<3> text;
  text.Raw() = {'\x93', '\0', ' '};
  EXPECT_EQ(text.Bytes(), std::string_view("\x93\0 ", 3));
}

TEST(FixedText, SetBytesOfItsOwnTrimmedTextMovesItToTheFront) {
  FixedText<6> text;
  text.Raw() = {' ', ' ', 'a', 'b', 'c', 'd'};
  text.SetBytes(text.TrimmedBytes());
  EXPECT_EQ(text.Bytes(), "abcd  ");
}

TEST(FixedText, ClearBlanksIt) {
  FixedText<2> text("ab");
  text.Clear();
  EXPECT_EQ(text, FixedText<2>());
}

}  // namespace
}  // namespace dorvane
