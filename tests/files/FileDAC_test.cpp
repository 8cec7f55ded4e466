// Lines are those of docs/formats/dac.md, put together here by hand.
#include "files/FileDAC.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/ReaderFixture.h"

namespace dorvane {
namespace {

using testing::Each;
using testing::ElementsAre;

// Angles from 4 on in steps of 0.5; count k is k + 1.
Lines DacLines(int records) {
  Lines lines;
  for (int k = 0; k < records; ++k) {
    lines.push_back(std::to_string(4 + k / 2) + (k % 2 == 0 ? ".0," : ".5,") +
                    std::to_string(k + 1));
  }
  return lines;
}

class FileDacTest : public ReaderTest {
 protected:
  void ReadGood(const Lines& lines, const std::string& line_end = "\r\n") {
    ASSERT_EQ(Read(Joined(lines, line_end), "a.raw"), -1);
  }
  void ExpectFailed(const std::string& text) { ExpectRefused(text, "a.raw", "File Write Error"); }
  void ExpectAngles(double offset, double slope) {
    EXPECT_DOUBLE_EQ(angles_.DacAngleOffset, offset);
    EXPECT_DOUBLE_EQ(angles_.DacAngleSlope, slope);
  }
};

TEST_F(FileDacTest, TwoLinesSetTheScaleAndTwoCounts) {
  ReadGood({"4.25,120", "4.75,131"});
  ExpectAngles(4.25, 0.5);
  EXPECT_THAT(block_.Used().first(3), ElementsAre(120, 131, 0));
  EXPECT_EQ(block_.Count, 4096);
}

TEST_F(FileDacTest, TheExampleOfTheFormatsPage) {
  const Lines lines = {"4.00,120", "4.02,131", "4.04,127"};
  EXPECT_EQ(WorkedExample("dac.md"), lines);
  ReadGood(lines);
  EXPECT_EQ(angles_.DacAngleOffset, 4);
  EXPECT_NEAR(angles_.DacAngleSlope, 0.02, 1e-12);  // 4.02 - 4.00 loses digits
  EXPECT_EQ(block_.Count, 4096);
  EXPECT_THAT(block_.Used().first(3), ElementsAre(120, 131, 127));
  EXPECT_THAT(block_.Used().subspan(3), Each(0));
}

TEST_F(FileDacTest, TheTypesAre5AndTheModeIs0) {
  ReadGood(DacLines(3));
  EXPECT_EQ(record_.DataType, 5);
  EXPECT_EQ(last_data_type_, 5);
  EXPECT_EQ(record_.Prop.PropHead, 0);
}

TEST_F(FileDacTest, OtherFieldsOfTheRecordStay) {
  ReadGood(DacLines(3));
  SpectrumRec expected = SampleRecord();
  expected.DataType = 5;
  expected.Prop.PropHead = 0;
  EXPECT_EQ(record_, expected);
}

TEST_F(FileDacTest, LfLinesReadAsCrLfLines) {
  ReadGood(DacLines(100));
  const ChannelBlock block = block_;
  Reset();
  ReadGood(DacLines(100), "\n");
  EXPECT_EQ(block_, block);
  ExpectAngles(4, 0.5);
}

TEST_F(FileDacTest, TheLastLineMayLackItsEnd) {
  ASSERT_EQ(Read("4,1\r\n5,2\r\n6,3", "a.raw"), -1);
  EXPECT_EQ(block_.Counts[2], 3);
}

TEST_F(FileDacTest, TheAnglesOfLaterLinesAreNotRead) {
  ReadGood({"4,1", "5,2", "no number,3", "99,4"});
  ExpectAngles(4, 1);
  EXPECT_THAT(block_.Used().first(5), ElementsAre(1, 2, 3, 4, 0));
}

TEST_F(FileDacTest, NumbersMayHaveBlanksAboutThem) {
  ReadGood({" 4.5 , 10 ", "5.0,\t20", "5.5,   30"});
  ExpectAngles(4.5, 0.5);
  EXPECT_THAT(block_.Used().first(3), ElementsAre(10, 20, 30));
}

TEST_F(FileDacTest, CountsAreRoundedHalfToEven) {
  ReadGood({"4,2.5", "5,3.5", "6,-1.5"});
  EXPECT_THAT(block_.Used().first(3), ElementsAre(2, 4, -2));
}

TEST_F(FileDacTest, AnglesMayFall) {
  ReadGood({"8,1", "6,2"});
  ExpectAngles(8, -2);
}

TEST_F(FileDacTest, ALineWithoutACommaStopsAndKeepsWhatWasRead) {
  ReadGood({"4,1", "5,2", "6,3", "end", "7,4"});
  EXPECT_THAT(block_.Used().first(5), ElementsAre(1, 2, 3, 0, 0));
}

TEST_F(FileDacTest, ACommaInTheFirstPlaceStopsToo) {
  ReadGood({"4,1", "5,2", ",3", "7,4"});
  EXPECT_THAT(block_.Used().first(4), ElementsAre(1, 2, 0, 0));
}

TEST_F(FileDacTest, AnEmptyLineStopsToo) {
  ReadGood({"4,1", "5,2", "", "7,4"});
  EXPECT_THAT(block_.Used().first(4), ElementsAre(1, 2, 0, 0));
}

TEST_F(FileDacTest, AFirstLineWithoutAUsableCommaStopsThere) {
  for (const char* first : {"4", ",1", ""}) {
    Reset();
    ReadGood({first, "5,2", "6,3"});
    ExpectAngles(7.5, 0.25);  // as before
    EXPECT_THAT(block_.Used(), Each(0));
    EXPECT_EQ(block_.Count, 4096);
    EXPECT_EQ(record_.DataType, 5);
  }
}

TEST_F(FileDacTest, ASecondLineWithoutAUsableCommaStopsThere) {
  for (const char* second : {"5", ",2", ""}) {
    Reset();
    ReadGood({"4,1", second, "6,3"});
    ExpectAngles(4, 0.25);  // the slope as before
    EXPECT_THAT(block_.Used().first(3), ElementsAre(1, 0, 0));
    EXPECT_EQ(block_.Count, 4096);
  }
}

TEST_F(FileDacTest, ChannelsThatTheFileDoesNotGiveAre0) {
  block_.Counts.fill(77);
  ReadGood(DacLines(2));
  EXPECT_EQ(block_.Counts[2], 0);
  EXPECT_EQ(block_.Counts[8191], 0);
}

TEST_F(FileDacTest, TheChannelCountIsNeverBelow4096) {
  for (const int records : {2, 4095, 4096, 4097}) {
    ReadGood(DacLines(records));
    EXPECT_EQ(block_.Count, 4096) << records;
  }
}

TEST_F(FileDacTest, Above4096TheChannelCountIsOneShortOfTheLinesAsMeant) {
  for (const int records : {4098, 5000, 8192}) {
    ReadGood(DacLines(records));
    EXPECT_EQ(block_.Count, records - 1) << records;
    EXPECT_EQ(block_.Counts[records - 1], records);  // read, though the count leaves it out
  }
}

TEST_F(FileDacTest, MoreThan8192LinesFail) {
  ExpectFailed(Joined(DacLines(8193)));
}

TEST_F(FileDacTest, FewerThanTwoLinesFailWithTheMessageOfWritingAsMeant) {
  for (const char* text : {"", "4.0,1", "4.0,1\r\n", "\r\n", "no comma"}) ExpectFailed(text);
}

TEST_F(FileDacTest, APieceThatIsNoNumberFails) {
  for (const char* text : {"x,1\n5,2\n", "4,x\n5,2\n", "4,1\nx,2\n", "4,1\n5,\n", "4,1\n5,2\n6,x\n",
                           "4,1\n5,2\n6,3,9\n"}) {
    ExpectFailed(text);
  }
}

TEST_F(FileDacTest, NumbersOutOfRangeFail) {
  ExpectFailed("4,1\n5,2147483648\n");
  ExpectFailed("1E308,1\n-1E308,2\n");  // no step between them
}

TEST_F(FileDacTest, CutAtAnyByteIsReadOrRefused) {
  const std::string text = Joined({"4.0,1", "4.5,22", "5.0,333"});
  const std::vector<std::size_t> refused_at = {0,  1, 2, 3, 4, 5, 6, 7,  // less than two lines
                                               11,                       // "4.5," has no count
                                               19};                      // "5.0," neither
  for (std::size_t size = 0; size < text.size(); ++size) {
    const bool refused = std::ranges::count(refused_at, size) != 0;
    YesDialogs dialogs;
    FileContext context{system_, dialogs, last_data_type_};
    folder_.Put("a.raw", text.substr(0, size));
    EXPECT_EQ(ReadPath(context, folder_.Path("a.raw")), refused ? 0 : -1) << size;
    EXPECT_EQ(dialogs.messages, std::vector<std::string>(refused ? 1 : 0, "File Write Error"));
    if (refused) ExpectUntouched();
    Reset();
  }
}

TEST_F(FileDacTest, AFileThatCannotBeOpenedIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("none.raw")), 0);
  std::filesystem::create_directory(folder_.Path("folder.raw"));
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("folder.raw")), 0);
  ExpectUntouched();
}

TEST_F(FileDacTest, AReadThatFailsAtAnyCallIsOpenError) {
  ExpectOpenErrorAtEveryFailure(Joined(DacLines(3)), "a.raw");
}

}  // namespace
}  // namespace dorvane
