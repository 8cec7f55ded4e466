// Lines are those of docs/formats/npd.md, put together here by hand.
#include "files/FileNPD.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>

#include "files/FilesFixture.h"
#include "files/Samples.h"

namespace dorvane {
namespace {

using Lines = std::vector<std::string>;

// Three channels; line n of the format is element n - 1.
Lines GoodLines() {
  return {"Record length,27",
          "Sample name,run 12",
          "Operator name,Yamada",
          "Profile number,Al2O3",
          "Time,2016-11-04 09:05:03",
          "Measurement mode,Live",
          "EGC0,2.50000E-001",
          "EGC1,5.00000E-002",
          "EGC2,-1.00000E-007",
          "2Theta(deg),6.5116",
          "Live time(sec),287.94",
          "Real time(sec),300.01",
          "Dead time(%),4.02319",
          "Temperature(K),298.15",
          "Press load(ton),68.50",
          "Ring status,current(mA)=49.75",
          "Beam intensity,1.50",
          "Counting rate,2500.25",
          "Press conditions, X(mm)=1.125 Y(mm)=-2.250 Z(mm)=3.500 PHI(deg)=45.000",
          "Incident slit conditions, V(mm)=0.100 H(mm)=0.200",
          "Receiving slit conditions, V(mm)=0.300 H(mm)=0.400 Collimator(mm)=0.050",
          "Heating conditions, V(V)=1.25 C(A)=120.50 P(W)=150.75 R(OHM)=0.010",
          ",",
          ",",
          ",",
          ",",
          ",",
          "Data length, 3",
          "Counting sec, 287.940",
          "1,0.3000,10",
          "2,0.3500,200",
          "3,0.4000,3000"};
}

std::string Joined(const Lines& lines, const std::string& line_end = "\r\n") {
  std::string text;
  for (const std::string& line : lines) text += line + line_end;
  return text;
}

Lines Split(std::string_view text) {
  Lines lines;
  while (!text.empty()) {
    const auto end = text.find("\r\n");
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + 2);
  }
  return lines;
}

class FileNpdTest : public FilesTest {
 protected:
  std::int16_t Read(const std::string& text) {
    folder_.Put("a.npd", text);
    return ReadNpdFile(context_, folder_.Path("a.npd"), block_, record_);
  }
  // The good file with line `number` (from 1) told otherwise.
  std::int16_t ReadWith(std::size_t number, const std::string& line) {
    Lines lines = GoodLines();
    lines[number - 1] = line;
    return Read(Joined(lines));
  }
  void ExpectOpenError(std::size_t number, const std::string& line) {
    dialogs_.ExpectMessage("Open Error");
    block_.Count = 0;
    EXPECT_EQ(ReadWith(number, line), 0) << number << ": " << line;
    EXPECT_TRUE(dialogs_.Done()) << number << ": " << line;
    EXPECT_EQ(block_.Count, 0) << number << ": " << line;
  }
  Lines Written() { return Split(AsText(NpdImage(block_, record_))); }

  ChannelBlock block_;
  SpectrumRec record_;
};

TEST_F(FileNpdTest, TextsOfAGoodFile) {
  ASSERT_EQ(Read(Joined(GoodLines())), -1);
  EXPECT_EQ(record_.MsuName.Text(), "run 12");
  EXPECT_EQ(record_.OpName.Text(), "Yamada");
  EXPECT_EQ(record_.SampName.Text(), "Al2O3");
  EXPECT_EQ(record_.OpDate.Text(), "20161104");
  EXPECT_EQ(record_.OpTime.Text(), "090503");
  EXPECT_EQ(record_.DataType, 4);
  EXPECT_EQ(last_data_type_, 4);
}

TEST_F(FileNpdTest, ValuesOfAGoodFile) {
  ASSERT_EQ(Read(Joined(GoodLines())), -1);
  const MeasProp& prop = record_.Prop;
  EXPECT_EQ(prop.PropHead, 1);
  EXPECT_THAT(prop.EGC.All(), testing::ElementsAre(0.25, 0.05, -1e-7));
  EXPECT_EQ(prop.TwoTheta, 6.5116);
  EXPECT_EQ(prop.LiveTime, 287.94);
  EXPECT_EQ(prop.RealTime, 300.01);
  EXPECT_EQ(prop.NpdVal2, 4.02319);
  EXPECT_NEAR(prop.Temp, 25, 1e-12);
  EXPECT_EQ(prop.Load, 68.5);
  EXPECT_EQ(prop.Current, 49.75);
  EXPECT_EQ(prop.MiriVolt, 1.5);
  EXPECT_EQ(prop.CntRate, 2500.25);
}

TEST_F(FileNpdTest, ConditionsOfAGoodFile) {
  ASSERT_EQ(Read(Joined(GoodLines())), -1);
  const MeasProp& prop = record_.Prop;
  EXPECT_EQ(prop.PressX, 1.125);
  EXPECT_EQ(prop.PressY, -2.25);
  EXPECT_EQ(prop.PressZ, 3.5);
  EXPECT_EQ(prop.PressTZ, 45);
  EXPECT_EQ(prop.InV, 0.1);
  EXPECT_EQ(prop.InH, 0.2);
  EXPECT_EQ(prop.ReV, 0.3);
  EXPECT_EQ(prop.ReH, 0.4);
  EXPECT_EQ(prop.CollimeterSize, 0.05);
  EXPECT_EQ(prop.Volt, 1.25);
  EXPECT_EQ(prop.Current2, 120.5);
  EXPECT_EQ(prop.Power, 150.75);
  EXPECT_EQ(prop.Registance, 0.01);
}

TEST_F(FileNpdTest, CountsOfAGoodFileOnAZeroedArray) {
  block_.Counts.fill(7);
  ASSERT_EQ(Read(Joined(GoodLines())), -1);
  EXPECT_THAT(block_.Used(), testing::ElementsAre(10, 200, 3000));
  EXPECT_EQ(block_.Counts[3], 0);
  EXPECT_EQ(block_.Counts[8191], 0);
}

TEST_F(FileNpdTest, OtherFieldsOfTheRecordAreLeftAlone) {
  record_ = SampleRecord();
  ASSERT_EQ(Read(Joined(GoodLines())), -1);
  EXPECT_EQ(record_.Memo.Text(), "a comment");
  EXPECT_EQ(record_.Prop.Flags, SampleProp().Flags);
  EXPECT_EQ(record_.Prop.Press, SampleProp().Press);
  EXPECT_EQ(record_.Prop.InX, SampleProp().InX);
}

TEST_F(FileNpdTest, LfLinesReadAsCrLfLines) {
  ASSERT_EQ(Read(Joined(GoodLines(), "\n")), -1);
  EXPECT_THAT(block_.Used(), testing::ElementsAre(10, 200, 3000));
  EXPECT_EQ(record_.Prop.Registance, 0.01);
  EXPECT_EQ(record_.SampName.Text(), "Al2O3");
}

TEST_F(FileNpdTest, TheLastLineMayLackItsEnd) {
  std::string text = Joined(GoodLines());
  text.resize(text.size() - 2);
  ASSERT_EQ(Read(text), -1);
  EXPECT_EQ(block_.Counts[2], 3000);
}

TEST_F(FileNpdTest, WhatFollowsTheLastChannelIsNotRead) {
  EXPECT_EQ(Read(Joined(GoodLines()) + "4,0.4,7\r\nanything"), -1);
  EXPECT_EQ(block_.Count, 3);
  EXPECT_EQ(block_.Counts[3], 0);
}

TEST_F(FileNpdTest, LabelsOfTheLinesAreNotChecked) {
  EXPECT_EQ(ReadWith(11, "live,1.5"), -1);
  EXPECT_EQ(record_.Prop.LiveTime, 1.5);
}

TEST_F(FileNpdTest, TheRingsLabelIsDroppedAndTheCurrentStandsTwice) {
  for (const char* line : {"Ring status,current(mA)=49.75", "Ring status, 49.75",
                           "Ring status, current(mA)=49.75 ", "Ring status,current(mA)= 49.75"}) {
    record_ = {};
    ASSERT_EQ(ReadWith(16, line), -1) << line;
    EXPECT_EQ(record_.Prop.Current, 49.75) << line;
    EXPECT_EQ(record_.Prop.NpdVal1, 49.75) << line;
  }
}

TEST_F(FileNpdTest, OneDigitTimesGetALeadingZero) {
  ASSERT_EQ(ReadWith(5, "Time,2016-11-04 9:5:3"), -1);
  EXPECT_EQ(record_.OpDate.Text(), "20161104");
  EXPECT_EQ(record_.OpTime.Text(), "090503");
  ASSERT_EQ(ReadWith(5, "Time, 2016/11/04  19:05:3 "), -1);
  EXPECT_EQ(record_.OpDate.Text(), "20161104");
  EXPECT_EQ(record_.OpTime.Text(), "190503");
}

TEST_F(FileNpdTest, DateWithoutATimeAndNeitherOfThem) {
  ASSERT_EQ(ReadWith(5, "Time,2016-11-04"), -1);
  EXPECT_EQ(record_.OpDate.Text(), "20161104");
  EXPECT_EQ(record_.OpTime.Text(), "");
  for (const char* line : {"Time,", "Time", "Time,   ", ""}) {
    ASSERT_EQ(ReadWith(5, line), -1) << line;
    EXPECT_EQ(record_.OpDate.Text(), "") << line;
    EXPECT_EQ(record_.OpTime.Text(), "") << line;
  }
}

TEST_F(FileNpdTest, ModesByTheirWords) {
  const std::vector<std::pair<std::string, int>> modes = {
      {"Real", 2}, {"Live", 1}, {"Separate", 4}, {"live", 77}, {"", 77}, {"Real time", 77}};
  for (const auto& [word, mode] : modes) {
    record_.Prop.PropHead = 77;
    ASSERT_EQ(ReadWith(6, "Measurement mode, " + word + " "), -1);
    EXPECT_EQ(record_.Prop.PropHead, mode) << word;
  }
}

TEST_F(FileNpdTest, ALargerRecordLengthSkipsMoreLines) {
  Lines lines = GoodLines();
  lines[0] = "Record length,30";
  lines.insert(lines.begin() + 27, {"more", "Data length, 7", ""});
  ASSERT_EQ(Read(Joined(lines)), -1);
  EXPECT_EQ(block_.Count, 3);
}

TEST_F(FileNpdTest, ASmallerRecordLengthSkipsNothing) {
  for (const char* length : {"22", "10", "0", "-5"}) {
    Lines lines = GoodLines();
    lines[0] = std::string("Record length,") + length;
    lines.erase(lines.begin() + 22, lines.begin() + 27);
    ASSERT_EQ(Read(Joined(lines)), -1) << length;
    EXPECT_EQ(block_.Count, 3);
  }
}

TEST_F(FileNpdTest, ACountThatIsNoNumberLeaves0AndReadingGoesOn) {
  for (const char* line : {"2,0.3500", "2", "", "2,0.35,", "2,0.35,abc", "2,0.35,7,8"}) {
    ASSERT_EQ(ReadWith(31, line), -1) << line;
    EXPECT_THAT(block_.Used(), testing::ElementsAre(10, 0, 3000)) << line;
  }
}

TEST_F(FileNpdTest, ChannelsArePositional) {
  ASSERT_EQ(ReadWith(31, "900,77.7, 5 "), -1);
  EXPECT_THAT(block_.Used(), testing::ElementsAre(10, 5, 3000));
}

TEST_F(FileNpdTest, TheFilesEnergiesAreNotUsed) {
  ASSERT_EQ(ReadWith(31, "2,99999.9,200"), -1);
  EXPECT_THAT(record_.Prop.EGC.All(), testing::ElementsAre(0.25, 0.05, -1e-7));
}

TEST_F(FileNpdTest, CountsAre32BitIntegersRoundedHalfToEven) {
  ASSERT_EQ(ReadWith(31, "2,0.35,2147483647"), -1);
  EXPECT_EQ(block_.Counts[1], 2147483647);
  ASSERT_EQ(ReadWith(31, "2,0.35,-3"), -1);
  EXPECT_EQ(block_.Counts[1], -3);
  ASSERT_EQ(ReadWith(31, "2,0.35,2.5"), -1);
  EXPECT_EQ(block_.Counts[1], 2);
  ExpectOpenError(31, "2,0.35,2147483648");
}

TEST_F(FileNpdTest, TextThatIsNoNumberIsOpenError) {
  for (const std::size_t number : {1, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 28}) {
    for (const char* value : {"label,x", "label,", "label", "label,1;2", "label,1,2", ""}) {
      ExpectOpenError(number, value);
    }
  }
}

TEST_F(FileNpdTest, ABrokenConditionIsOpenError) {
  for (const char* line :
       {"Incident slit conditions, V(mm)=x H(mm)=1", "Incident slit conditions, V(mm)=1 H(mm)=",
        "Incident slit conditions, V(mm)=1", "Incident slit conditions,", "", "V(mm)=1 H(mm)=2"}) {
    ExpectOpenError(20, line);
  }
}

TEST_F(FileNpdTest, LengthsOutOf16BitsAreOpenError) {
  ExpectOpenError(1, "Record length,32768");
  ExpectOpenError(1, "Record length,32767");  // skips past the end
  ExpectOpenError(28, "Data length, 32768");
}

TEST_F(FileNpdTest, ANegativeDataLengthIsOpenError) {
  ExpectOpenError(28, "Data length, -1");
}

TEST_F(FileNpdTest, ADataLengthOf0IsASpectrumWithoutChannels) {
  block_.Count = 5;
  EXPECT_EQ(ReadWith(28, "Data length, 0"), -1);
  EXPECT_EQ(block_.Count, 0);
}

TEST_F(FileNpdTest, DataLengthsEndAt8192) {
  Lines lines = GoodLines();
  lines[27] = "Data length, 8192";
  for (int i = 3; i < 8192; ++i) lines.push_back("0,0,9");
  ASSERT_EQ(Read(Joined(lines)), -1);
  EXPECT_EQ(block_.Count, 8192);
  EXPECT_EQ(block_.Counts[8191], 9);
  block_.Count = 0;
  lines[27] = "Data length, 8193";
  lines.push_back("0,0,9");
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(Read(Joined(lines)), 0);
  EXPECT_EQ(block_.Count, 0);
  EXPECT_EQ(block_.Counts[8191], 9);  // what was read stays
}

TEST_F(FileNpdTest, CutAtAnyLineIsOpenErrorAndKeepsWhatWasRead) {
  const Lines lines = GoodLines();
  for (std::size_t kept = 0; kept < lines.size(); ++kept) {
    record_ = {};
    block_ = {};
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(Read(Joined({lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(kept)})), 0);
    EXPECT_EQ(block_.Count, 0) << kept;
    EXPECT_EQ(record_.Prop.TwoTheta, kept >= 10 ? 6.5116 : 0) << kept;
    EXPECT_EQ(block_.Counts[1], kept >= 31 ? 200 : 0) << kept;
  }
}

TEST_F(FileNpdTest, CutAtAnyByteIsReadOrOpenError) {
  const std::string text = Joined(GoodLines());
  const std::size_t last_line_at = text.size() - std::string("3,0.4000,3000\r\n").size();
  YesDialogs dialogs;
  FileContext context{system_, dialogs, last_data_type_};
  for (std::size_t size = 0; size < text.size(); ++size) {
    folder_.Put("a.npd", text.substr(0, size));
    const auto done = ReadNpdFile(context, folder_.Path("a.npd"), block_, record_);
    EXPECT_EQ(done, size > last_line_at ? -1 : 0) << size;
  }
  EXPECT_EQ(dialogs.messages, std::vector<std::string>(last_line_at + 1, "Open Error"));
}

TEST_F(FileNpdTest, AMissingFileIsOpenErrorAndChangesNothing) {
  block_.Counts.fill(7);
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadNpdFile(context_, folder_.Path("none.npd"), block_, record_), 0);
  EXPECT_EQ(block_.Counts[0], 7);
  EXPECT_EQ(record_.DataType, 0);
  EXPECT_EQ(last_data_type_, 0);
}

TEST_F(FileNpdTest, AReadThatFailsAtAnyCallIsOpenError) {
  folder_.Put("a.npd", Joined(GoodLines()));
  for (int n = 1; n <= 4; ++n) {  // look, open, read, close
    FailingFileLayer failing(system_, n);
    FileContext context{failing, dialogs_, last_data_type_};
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(ReadNpdFile(context, folder_.Path("a.npd"), block_, record_), 0) << n;
  }
}

TEST_F(FileNpdTest, AGoodFileIsWrittenBackByteForByte) {
  // Its energies by hand: 0.25 + 0.05 n - 1e-7 n^2 in four places.
  ASSERT_EQ(Read(Joined(GoodLines())), -1);
  EXPECT_EQ(Written(), GoodLines());
}

TEST_F(FileNpdTest, EnergiesAreThoseOfChannelNumbersFrom1) {
  block_.Count = 2;
  record_.Prop.EGC[0] = 1;
  record_.Prop.EGC[1] = 0.5;
  record_.Prop.EGC[2] = 0.25;
  const Lines lines = Written();
  ASSERT_EQ(lines.size(), 31u);
  EXPECT_EQ(lines[29], "1,1.7500,0");
  EXPECT_EQ(lines[30], "2,3.0000,0");
}

TEST_F(FileNpdTest, AnEmptyRecordIsWrittenAndReadBack) {
  ASSERT_EQ(WriteNpdFile(context_, folder_.Path("b.npd"), block_, record_), -1);
  SpectrumRec back;
  ASSERT_EQ(ReadNpdFile(context_, folder_.Path("b.npd"), block_, back), -1);
  EXPECT_EQ(back.OpDate.Bytes(), "        ");
  EXPECT_EQ(back.OpTime.Bytes(), "      ");
  EXPECT_EQ(back.MsuName, record_.MsuName);
  EXPECT_EQ(Split(folder_.Get("b.npd"))[4], "Time,    -  -     :  :  ");
}

TEST_F(FileNpdTest, DatesLeftBlankInPartComeBack) {
  for (const char* date :
       {"20161104", "1999    ", "199912  ", "    1231", "      31", "        "}) {
    for (const char* time : {"090503", "10    ", "10  12", "    12", "      "}) {
      SpectrumRec record;
      record.OpDate.Set(date);
      record.OpTime.Set(time);
      ParseNpd(NpdImage(block_, record), block_, record_);
      EXPECT_EQ(record_.OpDate.Bytes(), date) << date << '/' << time;
      EXPECT_EQ(record_.OpTime.Bytes(), time) << date << '/' << time;
    }
  }
}

TEST_F(FileNpdTest, ModesComeBackAsTheirWords) {
  const std::vector<std::pair<int, int>> modes = {{0, 2}, {1, 1}, {2, 2}, {3, 1}, {4, 4}, {9, 2}};
  for (const auto& [written, read] : modes) {
    record_.Prop.PropHead = static_cast<std::int16_t>(written);
    SpectrumRec back;
    ParseNpd(NpdImage(block_, record_), block_, back);
    EXPECT_EQ(back.Prop.PropHead, read) << written;
  }
}

TEST_F(FileNpdTest, CountingSecondsAreThoseOfTheMode) {
  record_.Prop.RealTime = 300.0125;
  record_.Prop.LiveTime = 287.5;
  const std::vector<std::pair<int, std::string>> modes = {
      {0, "300.013"}, {1, "287.500"}, {2, "300.013"}, {3, "287.500"}, {4, "300.013"}};
  for (const auto& [mode, seconds] : modes) {
    record_.Prop.PropHead = static_cast<std::int16_t>(mode);
    EXPECT_EQ(Written()[28], "Counting sec, " + seconds) << mode;
  }
}

TEST_F(FileNpdTest, TemperatureIsKelvinOnFileAndCelsiusInTheRecord) {
  record_.Prop.Temp = 25;
  EXPECT_EQ(Written()[13], "Temperature(K),298.15");
  SpectrumRec back;
  ParseNpd(NpdImage(block_, record_), block_, back);
  EXPECT_NEAR(back.Prop.Temp, 25, 1e-12);
}

TEST_F(FileNpdTest, OnlyTheCurrentIsWrittenNotItsSecondPlace) {
  record_.Prop.Current = 49.75;
  record_.Prop.NpdVal1 = 11;
  EXPECT_EQ(Written()[15], "Ring status,current(mA)=49.75");
}

TEST_F(FileNpdTest, JapaneseTextsComeBackWhole) {
  std::string name = "x";
  for (int i = 0; i < 40; ++i) name += "表";  // 955C: its trail byte is a backslash
  record_.SampName.Set(name);
  record_.MsuName.Set("測定，試料=甲");
  SpectrumRec back;
  ParseNpd(NpdImage(block_, record_), block_, back);
  EXPECT_EQ(back.SampName, record_.SampName);
  EXPECT_EQ(back.SampName.Text(), name.substr(0, 1 + 31 * 3));
  EXPECT_EQ(back.MsuName, record_.MsuName);
}

TEST_F(FileNpdTest, LongTextsOfOtherWritersAreCutAtACharactersBorder) {
  std::string name;
  for (int i = 0; i < 40; ++i) name += "\x8E\x8E";
  ASSERT_EQ(ReadWith(3, "Operator name,y" + name), -1);
  EXPECT_EQ(record_.OpName.Bytes(), "y" + name.substr(0, 28) + " ");
}

TEST_F(FileNpdTest, ACommaInATextComesBack) {
  record_.SampName.Set("MgO, heated");
  SpectrumRec back;
  ParseNpd(NpdImage(block_, record_), block_, back);
  EXPECT_EQ(back.SampName.Text(), "MgO, heated");
}

TEST_F(FileNpdTest, WritingTrimsTheTextsOfTheRecord) {
  record_.MsuName.SetBytes("  run 12");
  record_.OpName.Raw().fill('\0');
  record_.SampName.SetBytes(" Al2O3");
  record_.Memo.SetBytes("  memo");
  ASSERT_EQ(WriteNpdFile(context_, folder_.Path("b.npd"), block_, record_), -1);
  EXPECT_EQ(record_.MsuName.Bytes(), "run 12" + std::string(58, ' '));
  EXPECT_EQ(record_.OpName.Bytes(), std::string(30, ' '));
  EXPECT_EQ(record_.SampName.Bytes(), "Al2O3" + std::string(59, ' '));
  EXPECT_EQ(record_.Memo.Bytes().substr(0, 6), "  memo");
}

TEST_F(FileNpdTest, ReplacingAsksWithNoAsDefault) {
  folder_.Put("b.npd", "old");
  const std::string path = folder_.Path("b.npd");
  record_.MsuName.SetBytes(" x");
  dialogs_.ExpectQuestion("File already exist. Replace?(NPD)", false);
  EXPECT_EQ(WriteNpdFile(context_, path, block_, record_), 0);
  EXPECT_EQ(folder_.Get("b.npd"), "old");
  EXPECT_EQ(record_.MsuName.Bytes().substr(0, 2), " x");
  EXPECT_TRUE(dialogs_.LastQuestion().no_is_default);
  EXPECT_EQ(dialogs_.LastQuestion().icon, BoxIcon::Exclamation);
  dialogs_.ExpectQuestion("File already exist. Replace?(NPD)", true);
  EXPECT_EQ(WriteNpdFile(context_, path, block_, record_), -1);
  EXPECT_EQ(Split(folder_.Get("b.npd")).size(), 29u);
}

TEST_F(FileNpdTest, AFailedWriteIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(WriteNpdFile(context_, folder_.Path("missing folder/a.npd"), block_, record_), 0);
  block_.Count = 8193;
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(WriteNpdFile(context_, folder_.Path("a.npd"), block_, record_), 0);
  EXPECT_TRUE(folder_.Names().empty());
}

// A measured spectrum; numbers are read off the file by eye, the sum by another program.
TEST_F(FileNpdTest, CorundumSample) {
  const std::string path = std::string(DORVANE_SOURCE_DIR) + "/samples/corundum_ambient.npd";
  ASSERT_EQ(ReadNpdFile(context_, path, block_, record_), -1);
  EXPECT_EQ(record_.SampName.Text(), "Al2O3");
  EXPECT_EQ(record_.OpTime.Text(), "045252");
  EXPECT_THAT(record_.Prop.EGC.All(), testing::ElementsAre(2.26609e-2, 6.47732e-2, 3.87721e-8));
  EXPECT_EQ(record_.Prop.TwoTheta, 6.5116);
  EXPECT_EQ(block_.Count, 2048);
  EXPECT_EQ(block_.Counts[0], 0);
  EXPECT_EQ(block_.Counts[2043], 16);
  EXPECT_EQ(block_.Counts[2047], 16);
  EXPECT_EQ(std::accumulate(block_.Used().begin(), block_.Used().end(), 0), 354150);
}

// The samples' "Counting sec" and energies come of more digits than their headers give.
TEST_F(FileNpdTest, SamplesAreWrittenBackWithTheSameHeaderAndCounts) {
  constexpr std::ptrdiff_t kUpToDataLength = 28;
  for (const char* name : {"corundum_ambient.npd", "mgo_under_load.npd"}) {
    const auto image = ReadFile(system_, std::string(DORVANE_SOURCE_DIR) + "/samples/" + name);
    ParseNpd(image, block_, record_);
    const Lines expected = Split(AsText(image));
    const Lines written = Written();
    ASSERT_EQ(written.size(), expected.size());
    EXPECT_EQ(Lines(written.begin(), written.begin() + kUpToDataLength),
              Lines(expected.begin(), expected.begin() + kUpToDataLength));
    ChannelBlock back;
    ParseNpd(NpdImage(block_, record_), back, record_);
    EXPECT_EQ(back, block_);
  }
}

}  // namespace
}  // namespace dorvane
