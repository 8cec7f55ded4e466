#include "display/Marks.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace dorvane {
namespace {

std::vector<std::int16_t> ChannelsOf(const PeakLines& lines) {
  return {lines.Channels().begin(), lines.Channels().end()};
}

using Channels = std::vector<std::int16_t>;

TEST(PeakLines, AddSortsAndAnswersTheIndex) {
  PeakLines lines;
  EXPECT_EQ(lines.Add(500), 0);
  EXPECT_EQ(lines.Add(100), 0);
  EXPECT_EQ(lines.Add(300), 1);
  EXPECT_EQ(ChannelsOf(lines), (Channels{100, 300, 500}));
}

TEST(PeakLines, AddPutsEqualChannelsBehind) {
  PeakLines lines;
  lines.Add(100);
  EXPECT_EQ(lines.Add(100), 1);
}

TEST(PeakLines, AddRefusesWhatIsNoChannel) {
  PeakLines lines;
  EXPECT_EQ(lines.Add(-1), -1);
  EXPECT_EQ(lines.Add(8192), -1);
  EXPECT_EQ(lines.Add(8191), 0);
  EXPECT_EQ(lines.Count(), 1);
}

TEST(PeakLines, TheListEndsAtItsLimit) {
  PeakLines lines;
  for (int i = 0; i < 8192; ++i) EXPECT_EQ(lines.Add(10), i);
  EXPECT_EQ(lines.Add(10), -1);
  EXPECT_EQ(lines.Count(), 8192);
}

TEST(PeakLines, SetOverwritesWithoutSorting) {
  PeakLines lines;
  lines.Add(100);
  lines.Add(200);
  lines.Set(0, 900);
  EXPECT_EQ(ChannelsOf(lines), (Channels{900, 200}));
}

TEST(PeakLines, SetOfChannel8192IsIgnored) {
  PeakLines lines;
  lines.Add(100);
  lines.Set(0, 8192);
  EXPECT_EQ(ChannelsOf(lines), (Channels{100}));
  lines.Set(0, 8191);
  EXPECT_EQ(ChannelsOf(lines), (Channels{8191}));
}

TEST(PeakLines, SetBehindTheLastIsMeantToWriteAnUncountedEntry) {
  PeakLines lines;
  lines.Add(100);
  lines.Set(1, 700);
  EXPECT_EQ(lines.Count(), 1);
  EXPECT_EQ(lines.Entry(1), 700);
}

TEST(PeakLines, SetOutsideOfTheListIsIgnored) {
  PeakLines lines;
  lines.Add(100);
  lines.Set(-1, 700);
  lines.Set(2, 700);
  EXPECT_EQ(ChannelsOf(lines), (Channels{100}));
  EXPECT_EQ(lines.Entry(2), -1);
}

TEST(PeakLines, SetOnAFullListStaysInTheTable) {
  PeakLines lines;
  for (int i = 0; i < 8192; ++i) lines.Add(10);
  lines.Set(8192, 20);
  EXPECT_EQ(lines.Entry(8191), 10);
}

TEST(PeakLines, DeleteClosesTheGap) {
  PeakLines lines;
  for (const std::int16_t channel : {100, 200, 300}) lines.Add(channel);
  lines.Delete(1);
  EXPECT_EQ(ChannelsOf(lines), (Channels{100, 300}));
  EXPECT_EQ(lines.Entry(2), -1);
}

TEST(PeakLines, DeleteOfMinusOneEmptiesTheListAndFillsIt) {
  PeakLines lines;
  for (const std::int16_t channel : {100, 200, 300}) lines.Add(channel);
  lines.Set(3, 400);
  lines.Delete(-1);
  EXPECT_EQ(lines.Count(), 0);
  for (std::int16_t i = 0; i < 4; ++i) EXPECT_EQ(lines.Entry(i), -1);
}

TEST(PeakLines, DeleteOutsideOfTheListIsIgnored) {
  PeakLines lines;
  lines.Add(100);
  lines.Delete(1);
  lines.Delete(-2);
  EXPECT_EQ(lines.Count(), 1);
}

TEST(Mark, KeepsThirtyTwoBytesOfItsText) {
  const MarkRec mark = MakeMark(1, 2, std::string(40, 'x'), 3, 4);
  EXPECT_EQ(TextOf(mark), std::string(32, 'x'));
  EXPECT_EQ(mark.X, 1);
  EXPECT_EQ(mark.Y, 2);
  EXPECT_EQ(mark.Color, 3);
  EXPECT_EQ(mark.Size, 4);
}

TEST(Mark, ATextIsCutInFrontOfTheCharacterWithoutRoom) {
  // Eleven characters of three bytes: ten have room.
  const MarkRec mark = MakeMark(0, 0, "ああああああああああい", 0, 0);
  EXPECT_EQ(TextOf(mark), "ああああああああああ");
}

TEST(Mark, ATextThatJustFitsIsWhole) {
  const std::string text = std::string(29, 'x') + "あ";
  EXPECT_EQ(TextOf(MakeMark(0, 0, text, 0, 0)), text);
}

TEST(MarkList, RefusesMoreThanItsLimit) {
  MarkList<2> list;
  EXPECT_TRUE(list.Add(MakeMark(1, 0, "a", 0, 0)));
  EXPECT_TRUE(list.Add(MakeMark(2, 0, "b", 0, 0)));
  EXPECT_FALSE(list.Add(MakeMark(3, 0, "c", 0, 0)));
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(TextOf(list.Marks()[1]), "b");
}

}  // namespace
}  // namespace dorvane
