// Codes are those of the published code page 932 table.
#include "support/CodePage.h"

#include <gtest/gtest.h>

namespace dorvane {
namespace {

TEST(CodePage, AsciiStaysAsItIs) {
  EXPECT_EQ(ToCodePage("Al2O3 ~\\"), "Al2O3 ~\\");
  EXPECT_EQ(FromCodePage("Al2O3 ~\\"), "Al2O3 ~\\");
}

TEST(CodePage, KanjiAndKanaAreDoubleByte) {
  EXPECT_EQ(ToCodePage("日本"), "\x93\xFA\x96\x7B");
  EXPECT_EQ(FromCodePage("\x93\xFA\x96\x7B"), "日本");
  EXPECT_EQ(ToCodePage("グラフ表示"), "\x83\x4F\x83\x89\x83\x74\x95\x5C\x8E\xA6");
}

TEST(CodePage, HalfWidthKatakanaIsOneByte) {
  EXPECT_EQ(ToCodePage("ｱ"), "\xB1");
  EXPECT_EQ(FromCodePage("\xB1"), "ｱ");
}

TEST(CodePage, BothAngstromSignsAreOne) {
  EXPECT_EQ(ToCodePage("\u00C5"), "\x81\xF0");
  EXPECT_EQ(ToCodePage("\u212B"), "\x81\xF0");
  EXPECT_EQ(FromCodePage("\x81\xF0"), "\u212B");
}

TEST(CodePage, SymbolsOfTheField) {
  EXPECT_EQ(ToCodePage("2θ°±"), "2\x83\xC6\x81\x8B\x81\x7D");
}

TEST(CodePage, CharactersWithTwoCodesAreWrittenByTheCodeOfThePagesOwnSystem) {
  EXPECT_EQ(ToCodePage("∪"), "\x81\xBE");   // not 879B
  EXPECT_EQ(ToCodePage("Ⅰ"), "\x87\x54");   // not FA4A
  EXPECT_EQ(ToCodePage("髙"), "\xFB\xFC");  // not EEE0
  EXPECT_EQ(FromCodePage("\xEE\xE0"), "髙");
}

TEST(CodePage, WhatHasNoPlaceIsAQuestionMark) {
  EXPECT_EQ(ToCodePage("a©b😀c"), "a?b?c");
}

TEST(CodePage, BrokenUtf8IsAQuestionMarkAByte) {
  EXPECT_EQ(ToCodePage("a\xFF"), "a?");
  EXPECT_EQ(ToCodePage("a\xE6\x97"), "a??");
  EXPECT_EQ(ToCodePage("\xED\xA0\x80"), "?");  // a surrogate is well-formed but no character
}

TEST(CodePage, OverlongUtf8DoesNotSmuggleControlCharacters) {
  EXPECT_EQ(ToCodePage("\xE0\x80\x8A"), "???");  // a line feed in three bytes
  EXPECT_EQ(ToCodePage("\xF0\x80\x80\x8A"), "????");
  EXPECT_EQ(ToCodePage("\xC0\x8A"), "??");
}

TEST(CodePage, AByteThatStartsNoCharacterIsReplaced) {
  EXPECT_EQ(FromCodePage("a\x93"), "a\uFFFD");
  EXPECT_EQ(FromCodePage("\x93 b"), "\uFFFD b");
}

TEST(CodePage, EveryCharacterComesBack) {
  int characters = 0;
  for (int lead = 0x81; lead <= 0xFC; ++lead) {
    if (lead >= 0xA0 && lead <= 0xDF) continue;
    for (int trail = 0x40; trail <= 0xFC; ++trail) {
      const std::string bytes{static_cast<char>(lead), static_cast<char>(trail)};
      const std::string text = FromCodePage(bytes);
      if (text.find("\uFFFD") != std::string::npos) continue;
      ++characters;
      EXPECT_EQ(FromCodePage(ToCodePage(text)), text);
    }
  }
  // The standard's, NEC's row 13, NEC's selection of the IBM extensions, the IBM extensions.
  EXPECT_GE(characters, 6879 + 83 + 374 + 388);
}

TEST(CodePage, CutFillsWithBlanks) {
  EXPECT_EQ(CutCodePage("ab", 4), "ab  ");
  EXPECT_EQ(CutCodePage("abcdef", 4), "abcd");
  EXPECT_EQ(CutCodePage("", 2), "  ");
}

TEST(CodePage, CutSplitsNoDoubleByteCharacter) {
  const std::string text = ToCodePage("a日本");
  EXPECT_EQ(CutCodePage(text, 5), text);
  EXPECT_EQ(CutCodePage(text, 4), text.substr(0, 3) + " ");
  EXPECT_EQ(CutCodePage(text, 3), text.substr(0, 3));
  EXPECT_EQ(CutCodePage(text, 2), "a ");
}

TEST(CodePage, CutCountsTrailBytesThatLookLikeLeads) {
  const std::string text = "\x83\x83\x83\x83";  // two characters, every byte a lead byte
  EXPECT_EQ(CutCodePage(text, 3), text.substr(0, 2) + " ");
}

}  // namespace
}  // namespace dorvane
