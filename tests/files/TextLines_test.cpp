#include "files/TextLines.h"

#include <gtest/gtest.h>

#include "support/Fault.h"

namespace dorvane {
namespace {

LineReader LinesOf(std::string_view text) {
  return LineReader(AsBytes(text));
}

TEST(TextLines, LinesEndInCrLfOrLf) {
  LineReader lines = LinesOf("a\r\nb\n\r\nc");
  EXPECT_EQ(lines.Next(), "a");
  EXPECT_EQ(lines.Next(), "b");
  EXPECT_EQ(lines.Next(), "");
  EXPECT_EQ(lines.Next(), "c");
}

TEST(TextLines, ReadPastTheEndFails) {
  LineReader lines = LinesOf("a\r\n");
  lines.Next();
  EXPECT_THROW(lines.Next(), Fault);
  EXPECT_THROW(LinesOf("").Next(), Fault);
  EXPECT_THROW(LinesOf("a\nb\n").Skip(3), Fault);
}

TEST(TextLines, SkipOfNothingOrLessSkipsNothing) {
  LineReader lines = LinesOf("a\n");
  lines.Skip(0);
  lines.Skip(-5);
  EXPECT_EQ(lines.Next(), "a");
}

TEST(TextLines, FieldsAreTrimmedAndMayBeMissing) {
  EXPECT_EQ(BehindComma("label, a b "), "a b");
  EXPECT_EQ(BehindComma("label,a,b"), "a,b");
  EXPECT_EQ(BehindComma("1,2.5, 7", 2), "7");
  EXPECT_EQ(BehindComma("1,2.5", 2), "");
  EXPECT_EQ(BehindComma("label"), "");
}

TEST(TextLines, WrittenLinesEndInCrLf) {
  LineWriter text;
  text.Line({"a", ",", "b"});
  text.Line({});
  EXPECT_EQ(AsText(text.Take()), "a,b\r\n\r\n");
}

TEST(TextLines, AControlCharacterInATextCannotBreakALine) {
  LineWriter text;
  text.Line({"a\r\nb\tc", std::string_view("\0", 1), "\x93\xFA"});
  EXPECT_EQ(AsText(text.Take()), "a  b c \x93\xFA\r\n");
}

}  // namespace
}  // namespace dorvane
