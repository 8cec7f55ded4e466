// The report. Lines are those of docs/formats/report.md, put together here by hand.
#include "files/FileGenie.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/ReaderFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// The example of the format's page: nine channels. Text line n is element 2 + n.
Lines GoodLines() {
  return {"    9",
          "      0      1      2      3      4      5      6      7",
          "1234567",
          Columns("Al2O3", 20) + Columns("run12", 40) + "16/11/04 09:05:03   ",
          Columns("1.5,25.0", 30) + "  300.0",
          Columns("6.51160,0,1.000,2.000,-3.000,0.500", 65),
          Columns("0,0,0", 65),
          Columns("0,0,0", 65),
          Columns("0.023,0.064773", 65)};
}

// What it holds.
ChannelBlock GoodBlock() {
  ChannelBlock block;
  block.Count = 9;
  for (int i = 0; i < 8; ++i) block.Counts[i] = i;
  block.Counts[8] = 1234567;
  return block;
}

SpectrumRec GoodRecord() {
  SpectrumRec record;
  record.SampName.Set("Al2O3");
  record.MsuName.Set("run12");
  record.OpDate.Set("20161104");
  record.OpTime.Set("090503");
  record.Prop.Press = 1.5;
  record.Prop.Temp = 25;
  record.Prop.RealTime = 300;
  record.Prop.TwoTheta = 6.5116;
  record.Prop.PressX = 1;
  record.Prop.PressY = 2;
  record.Prop.PressZ = -3;
  record.Prop.PressTZ = 0.5;
  record.Prop.EGC[0] = 0.023;
  record.Prop.EGC[1] = 0.064773;
  record.Prop.EGC[2] = 1e-7;
  return record;
}

class ReportTest : public ReaderTest {
 protected:
  static constexpr std::size_t kText = 2;  // text line n stands at kText + n

  // The good report with a text line told otherwise.
  static std::string With(std::size_t text_line, const std::string& line) {
    Lines lines = GoodLines();
    lines[kText + text_line] = line;
    return Joined(lines);
  }
  // The good report with other lines of counts, the channel count in front.
  static std::string WithCounts(const Lines& count_lines, const std::string& line_end = "\r\n") {
    Lines lines = GoodLines();
    lines.erase(lines.begin(), lines.begin() + 3);
    lines.insert(lines.begin(), count_lines.begin(), count_lines.end());
    return Joined(lines, line_end);
  }
  void ReadGood(const std::string& text) { ASSERT_EQ(Read(text, "a.rpt"), -1) << text; }
  void ExpectCounts(const Lines& count_lines, const std::vector<std::int32_t>& counts) {
    ReadGood(WithCounts(count_lines));
    EXPECT_THAT(block_.Used(), testing::ElementsAreArray(counts));
    EXPECT_EQ(record_.SampName.Text(), "Al2O3");
  }
  void ExpectFileError(const std::string& text) { ExpectRefused(text, "a.rpt", "File Error"); }

  Lines Written() { return LinesOf(AsText(RptImage(block_, record_))); }
  std::int16_t Write(FileContext& context, const std::string& name) {
    return WriteRptFile(context, folder_.Path(name), GoodBlock(), GoodRecord());
  }
};

TEST_F(ReportTest, TheExampleOfTheFormatsPageIsThisOne) {
  EXPECT_EQ(WorkedExample("report.md"), GoodLines());
}

TEST_F(ReportTest, CountsOfAGoodFile) {
  ReadGood(Joined(GoodLines()));
  EXPECT_THAT(block_.Used(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 1234567));
}

TEST_F(ReportTest, TextsOfAGoodFile) {
  ReadGood(Joined(GoodLines()));
  EXPECT_EQ(record_.SampName.Text(), "Al2O3");
  EXPECT_EQ(record_.MsuName.Text(), "run12");
  EXPECT_EQ(record_.OpDate.Text(), "20161104");
  EXPECT_EQ(record_.OpTime.Text(), "090503");
}

TEST_F(ReportTest, ValuesOfAGoodFile) {
  ReadGood(Joined(GoodLines()));
  const MeasProp& prop = record_.Prop;
  EXPECT_EQ(prop.Press, 1.5);
  EXPECT_EQ(prop.Temp, 25);
  EXPECT_EQ(prop.TwoTheta, 6.5116);
  EXPECT_EQ(prop.PressX, 1);
  EXPECT_EQ(prop.PressY, 2);
  EXPECT_EQ(prop.PressZ, -3);
  EXPECT_EQ(prop.PressTZ, 0.5);
  EXPECT_EQ(prop.EGC[0], 0.023);
  EXPECT_EQ(prop.EGC[1], 0.064773);
}

TEST_F(ReportTest, TheTypesAre3AndTheModeIsLive) {
  record_.Prop.PropHead = 4;
  ReadGood(Joined(GoodLines()));
  EXPECT_EQ(record_.DataType, 3);
  EXPECT_EQ(last_data_type_, 3);
  EXPECT_EQ(record_.Prop.PropHead, 1);
}

TEST_F(ReportTest, MemoOperatorAndTheThirdCoefficientAreCleared) {
  ReadGood(Joined(GoodLines()));
  EXPECT_EQ(record_.Memo.Text(), "");
  EXPECT_EQ(record_.OpName.Text(), "");
  EXPECT_EQ(record_.Prop.EGC[2], 0);
}

TEST_F(ReportTest, TheNumberBehindTheTemperatureIsTheLiveTimeAsMeant) {
  const double real_time = record_.Prop.RealTime;
  ReadGood(Joined(GoodLines()));
  EXPECT_EQ(record_.Prop.LiveTime, 300);
  EXPECT_EQ(record_.Prop.RealTime, real_time);
}

TEST_F(ReportTest, FieldsThatTheFormatHasNotStay) {
  ReadGood(Joined(GoodLines()));
  SpectrumRec expected = SampleRecord();
  expected.SampName = record_.SampName;
  expected.MsuName = record_.MsuName;
  expected.OpDate = record_.OpDate;
  expected.OpTime = record_.OpTime;
  expected.Memo.Clear();
  expected.OpName.Clear();
  expected.DataType = 3;
  expected.Prop.PropHead = 1;
  expected.Prop.EGC = record_.Prop.EGC;
  for (double MeasProp::*field :
       {&MeasProp::Press, &MeasProp::Temp, &MeasProp::LiveTime, &MeasProp::TwoTheta,
        &MeasProp::PressX, &MeasProp::PressY, &MeasProp::PressZ, &MeasProp::PressTZ}) {
    expected.Prop.*field = record_.Prop.*field;
  }
  EXPECT_EQ(record_, expected);
}

TEST_F(ReportTest, EightCharactersOfTheNameAreReadAsMeant) {
  ReadGood(With(1, Columns("sample", 20) + Columns("run 12345 of the day", 40) + "16/11/04"));
  EXPECT_EQ(record_.MsuName.Text(), "run 1234");
}

TEST_F(ReportTest, ACutNameSplitsNoCharacter) {
  // "x" and four characters of two bytes: the fourth has its second byte in the ninth place.
  ReadGood(With(1, Columns("sample", 20) + Columns("x\x8E\x8E\x97\xBF\x8E\x8E\x97\xBF", 40)));
  EXPECT_EQ(record_.MsuName.Text(), "x試料試");
  EXPECT_EQ(record_.MsuName.Bytes()[7], ' ');
}

TEST_F(ReportTest, TheSampleEndsInColumn20) {
  ReadGood(With(1, std::string(20, 's') + "NAME"));
  EXPECT_EQ(record_.SampName.Text(), std::string(20, 's'));
  EXPECT_EQ(record_.MsuName.Text(), "NAME");
}

TEST_F(ReportTest, NamesAreTrimmed) {
  ReadGood(With(1, Columns("  Al2O3", 20) + Columns("  run", 40)));
  EXPECT_EQ(record_.SampName.Bytes().substr(0, 6), "Al2O3 ");
  EXPECT_EQ(record_.MsuName.Bytes().substr(0, 4), "run ");
}

TEST_F(ReportTest, JapaneseNamesAreCodePageText) {
  ReadGood(With(1, Columns("\x8E\x8E\x97\xBF", 20) + Columns("\xB1\xB2", 40)));
  EXPECT_EQ(record_.SampName.Text(), "試料");
  EXPECT_EQ(record_.MsuName.Text(), "ｱｲ");
}

TEST_F(ReportTest, ABlankDateIsNone) {
  ReadGood(With(1, Columns("", 60) + Columns("", 8) + " 09:05:03   "));
  EXPECT_EQ(record_.OpDate.Text(), "");
  EXPECT_EQ(record_.OpTime.Text(), "090503");
}

TEST_F(ReportTest, DatesChangeTheCenturyAt30) {
  for (const auto& [shown, date] :
       {std::pair{"99/12/31", "19991231"}, {"29/01/02", "20290102"}, {"30/01/02", "19300102"}}) {
    ReadGood(With(1, Columns("", 60) + shown + " 00:00:00   "));
    EXPECT_EQ(record_.OpDate.Text(), date);
  }
}

TEST_F(ReportTest, AShortFirstTextLineLeavesBlanks) {
  ReadGood(With(1, "Al"));
  EXPECT_EQ(record_.SampName.Text(), "Al");
  EXPECT_EQ(record_.MsuName.Text(), "");
  EXPECT_EQ(record_.OpDate.Text(), "");
  EXPECT_EQ(record_.OpTime.Text(), "");
}

TEST_F(ReportTest, TheSecondNumberOfTheThirdLineIsSkipped) {
  ReadGood(With(3, "6.5,99,1,2,3,4"));
  EXPECT_EQ(record_.Prop.PressX, 1);
  EXPECT_EQ(record_.Prop.PressTZ, 4);
}

TEST_F(ReportTest, TheFourthAndFifthLineAreIgnored) {
  Lines lines = GoodLines();
  lines[kText + 4] = "no number";
  lines[kText + 5] = "";
  ReadGood(Joined(lines));
  EXPECT_EQ(record_.Prop.EGC[1], 0.064773);
}

TEST_F(ReportTest, NumbersMayBeSeparatedByBlanksAlone) {
  ReadGood(With(2, "1.25 30  299.5"));
  EXPECT_EQ(record_.Prop.Press, 1.25);
  EXPECT_EQ(record_.Prop.Temp, 30);
  EXPECT_EQ(record_.Prop.LiveTime, 299.5);
}

TEST_F(ReportTest, MissingNumbersAre0) {
  ReadGood(With(2, "1.5"));
  EXPECT_EQ(record_.Prop.Temp, 0);
  EXPECT_EQ(record_.Prop.LiveTime, 0);
  ReadGood(With(3, ""));
  EXPECT_EQ(record_.Prop.TwoTheta, 0);
  EXPECT_EQ(record_.Prop.PressTZ, 0);
  ReadGood(With(6, "0.5"));
  EXPECT_EQ(record_.Prop.EGC[0], 0.5);
  EXPECT_EQ(record_.Prop.EGC[1], 0);
}

TEST_F(ReportTest, LfLinesReadAsCrLfLines) {
  ReadGood(Joined(GoodLines(), "\n"));
  EXPECT_THAT(block_.Used(), ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 1234567));
  EXPECT_EQ(record_.Prop.EGC[1], 0.064773);
}

TEST_F(ReportTest, TheLastLineMayLackItsEndAndMayBeFollowed) {
  const std::string text = Joined(GoodLines());
  ReadGood(text.substr(0, text.size() - 2));
  EXPECT_EQ(record_.Prop.EGC[1], 0.064773);
  ReadGood(text + "more\r\n");
}

TEST_F(ReportTest, LineBreaksDoNotMatterAmongCounts) {
  ExpectCounts({"3", "1", "2", "3"}, {1, 2, 3});
  ExpectCounts({"3 1", "", "   ", "2 3"}, {1, 2, 3});
  ExpectCounts({"", "3", "1,2, 3 "}, {1, 2, 3});
  ExpectCounts({"3\t1\t2", "3"}, {1, 2, 3});
  ExpectCounts({"12", "1 2 3 4 5 6 7 8 9 10 11 12"}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
}

TEST_F(ReportTest, CountsOfSevenColumnsNeedNoBlanks) {
  ExpectCounts({"3", "123456723456783456789"}, {1234567, 2345678, 3456789});
  ExpectCounts({"4", "      11234567      23456789"}, {1, 1234567, 2, 3456789});
  ExpectCounts({"2", "      5-123456"}, {5, -123456});
  ExpectCounts({"9", "12345671234567      0      0      0      0      09999999", "9999999"},
               {1234567, 1234567, 0, 0, 0, 0, 0, 9999999, 9999999});
}

TEST_F(ReportTest, LongerCountsAreReadWhereBlanksSeparateThem) {
  ExpectCounts({"2", "12345678 1"}, {12345678, 1});
  ExpectCounts({"2", "12345678 23456"}, {12345678, 23456});  // twice seven characters by chance
  ExpectCounts({"1", "2147483647"}, {2147483647});
}

TEST_F(ReportTest, CountsAreRoundedHalfToEven) {
  ExpectCounts({"3", "2.5 3.5 -1.4"}, {2, 4, -1});
}

TEST_F(ReportTest, NoChannelsAreASpectrumWithoutCounts) {
  ExpectCounts({"    0"}, {});
}

TEST_F(ReportTest, ChannelCountsEndAt8192) {
  std::string ones;
  for (int i = 0; i < 8192; ++i) ones += "1 ";
  ReadGood(WithCounts({"8192", ones}));
  EXPECT_EQ(block_.Count, 8192);
  Reset();
  ExpectFileError(WithCounts({"8193", ones + "1"}));
  ExpectFileError(WithCounts({"-1"}));
  ExpectFileError(WithCounts({"70000", ones}));
}

TEST_F(ReportTest, ACountThatIsNoNumberIsFileError) {
  ExpectFileError(WithCounts({"x", "1"}));
  ExpectFileError(WithCounts({"2", "1 x"}));
  ExpectFileError(WithCounts({"2", "1 0x2"}));
}

TEST_F(ReportTest, CountsOutOf32BitsAreFileError) {
  ExpectFileError(WithCounts({"1", "2147483648"}));
  ExpectFileError(WithCounts({"1", "-2147483649"}));
}

TEST_F(ReportTest, MoreCountsThanChannelsAreFileError) {
  ExpectFileError(WithCounts({"2", "1 2 3"}));
}

TEST_F(ReportTest, FewerCountsThanChannelsAreFileError) {
  ExpectFileError(WithCounts({"3", "1 2"}));
}

TEST_F(ReportTest, APieceThatIsNoNumberIsFileError) {
  for (const std::size_t line : {2u, 3u, 6u}) ExpectFileError(With(line, "1.5,x"));
}

TEST_F(ReportTest, AMissingLineIsFileError) {
  Lines lines = GoodLines();
  while (!lines.empty()) {
    lines.pop_back();
    ExpectFileError(Joined(lines));
  }
}

TEST_F(ReportTest, CutAtAnyByteIsReadOrFileError) {
  const std::string text = Joined(GoodLines());
  const std::size_t sixth_line_at = text.size() - 67;  // 65 columns and the line's end
  ExpectCutIsReadOrRefused(text, "a.rpt", sixth_line_at + 1, "File Error");
}

TEST_F(ReportTest, AFileThatCannotBeOpenedIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("none.rpt")), 0);
  std::filesystem::create_directory(folder_.Path("folder.rpt"));
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("folder.rpt")), 0);
  ExpectUntouched();
}

TEST_F(ReportTest, AReadThatFailsAtAnyCallIsOpenError) {
  ExpectOpenErrorAtEveryFailure(Joined(GoodLines()), "a.rpt");
}

TEST_F(ReportTest, AnEmptyFileIsFileError) {
  ExpectFileError("");
}

TEST_F(ReportTest, TheExampleIsWritten) {
  EXPECT_EQ(AsText(RptImage(GoodBlock(), GoodRecord())), Joined(GoodLines()));
}

TEST_F(ReportTest, WrittenChannelsStandEightToALine) {
  block_.Count = 4096;
  EXPECT_EQ(Written().size(), 1u + 512 + 6);
  EXPECT_EQ(Written()[0], " 4096");
  EXPECT_EQ(Written()[512].size(), 8u * 7);
  block_.Count = 17;
  EXPECT_EQ(Written().size(), 1u + 3 + 6);
  EXPECT_EQ(Written()[3].size(), 7u);
  block_.Count = 0;
  EXPECT_EQ(Written().size(), 1u + 6);
}

TEST_F(ReportTest, AReportOf4096ChannelsComesBack) {
  const ChannelBlock written = SampleBlock(4096);
  SpectrumRec record = SampleRecord();
  record.MsuName.Set("a name of many characters");
  record.Prop.RealTime = 287.9;
  ASSERT_EQ(WriteRptFile(context_, folder_.Path("b.rpt"), written, record), -1);
  ASSERT_EQ(ReadPath(folder_.Path("b.rpt")), -1);
  EXPECT_EQ(block_.Count, 4096);
  EXPECT_TRUE(std::ranges::equal(block_.Used(), written.Used()));
  EXPECT_EQ(record_.Prop.LiveTime, 287.9);
  EXPECT_EQ(record_.MsuName.Text(), "a name o");
}

TEST_F(ReportTest, CountsBelowTenMillionComeBack) {
  block_.Count = 10;
  for (int i = 0; i < 10; ++i) block_.Counts[i] = 9999999 - i;
  block_.Counts[4] = 0;
  block_.Counts[7] = -999999;
  const ChannelBlock written = block_;
  ReadGood(std::string(AsText(RptImage(block_, record_))));
  EXPECT_TRUE(std::ranges::equal(block_.Used(), written.Used()));
}

TEST_F(ReportTest, CountsOfEightDigitsAreWrittenWhole) {
  block_.Count = 2;
  block_.Counts[0] = 12345678;
  block_.Counts[1] = 9;
  EXPECT_EQ(Written()[1], "12345678      9");
}

TEST_F(ReportTest, WrittenNamesFillTheirColumns) {
  record_.SampName.Set(std::string(30, 's'));
  record_.MsuName.Set(std::string(64, 'n'));
  const std::string line = Written()[3];
  EXPECT_EQ(line.substr(0, 60), std::string(20, 's') + std::string(40, 'n'));
  EXPECT_EQ(line.size(), 20u + 40 + 8 + 1 + 8 + 3);
}

TEST_F(ReportTest, WrittenNamesSplitNoCharacter) {
  record_.SampName.Set("x試料試料試料試料試料試料");  // the tenth has columns 20 and 21
  EXPECT_EQ(Written()[3].substr(17, 3), "\x8E\x8E ");
}

TEST_F(ReportTest, AnAbsentDateLeavesItsColumnsBlank) {
  record_.OpDate.Clear();
  EXPECT_EQ(Written()[3].substr(60), "         09:05:03   ");
  record_.OpTime.Clear();
  EXPECT_EQ(Written()[3].substr(60), "           :  :     ");
}

TEST_F(ReportTest, LongNumbersPushTheirNeighbours) {
  record_.Prop.Press = 12345.67;
  record_.Prop.Temp = -1234.56;
  record_.Prop.RealTime = 123456.78;
  EXPECT_EQ(Written()[4], Columns("12345.7,-1234.6", 30) + "123456.8");
}

TEST_F(ReportTest, ControlCharactersInANameBreakNoLine) {
  record_.SampName.Set("a\r\nb");
  EXPECT_EQ(Written().size(), 1u + 2 + 6);
  EXPECT_EQ(Written()[3].substr(0, 5), "a  b ");
}

TEST_F(ReportTest, ReplacingAsksWithNoAsDefault) {
  folder_.Put("b.rpt", "old");
  dialogs_.ExpectQuestion("File already exist. Replace?(RPT)", false);
  EXPECT_EQ(Write(context_, "b.rpt"), 0);
  EXPECT_TRUE(dialogs_.LastQuestion().no_is_default);
  EXPECT_EQ(folder_.Get("b.rpt"), "old");
  dialogs_.ExpectQuestion("File already exist. Replace?(RPT)", true);
  EXPECT_EQ(Write(context_, "b.rpt"), -1);
  EXPECT_EQ(folder_.Get("b.rpt"), Joined(GoodLines()));
}

TEST_F(ReportTest, ANewFileAsksNothingAndWritingLeavesTheLastType) {
  EXPECT_EQ(Write(context_, "b.rpt"), -1);
  EXPECT_EQ(last_data_type_, 9);
}

TEST_F(ReportTest, AFileThatCannotBeCreatedIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(Write(context_, "missing folder/b.rpt"), 0);
}

TEST_F(ReportTest, AFailedWriteIsFileError) {
  folder_.Put("b.rpt", "old");
  FailingFileLayer failing(system_, 4);  // look for the question; look, create, then write
  FileContext context{failing, dialogs_, last_data_type_};
  dialogs_.ExpectQuestion("File already exist. Replace?(RPT)", true);
  dialogs_.ExpectMessage("File Error");
  EXPECT_EQ(Write(context, "b.rpt"), 0);
  EXPECT_EQ(folder_.Get("b.rpt"), "old");
}

TEST_F(ReportTest, ChannelCountsOutOfRangeAreNotWritten) {
  for (const std::int16_t count : {-1, 8193}) {
    block_.Count = count;
    dialogs_.ExpectMessage("File Error");
    EXPECT_EQ(WriteRptFile(context_, folder_.Path("b.rpt"), block_, record_), 0);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

}  // namespace
}  // namespace dorvane
