// Offsets, sizes and texts are those of docs/formats/native.md; images are put together byte by
// byte here, not with the writers.
#include "files/FileDorvane.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <random>

#include "files/FilesFixture.h"
#include "files/Samples.h"
#include "support/ImageFileLayer.h"

namespace dorvane {
namespace {

constexpr std::size_t kHeader = 2068;
constexpr std::size_t kProp = 1404;
constexpr std::size_t kPeakSize = 70;

template <typename T>
void PutAt(std::string& image, std::size_t offset, T value) {
  std::memcpy(image.data() + offset, &value, sizeof value);
}

void PutCount(std::string& image, int count) {
  PutAt(image, kHeader, static_cast<std::int16_t>(count));
}

// `channels` counts of 5, in a record of blanks and zeros.
std::string XbmOf(int channels) {
  std::string image(kHeader + 2 + 4 * static_cast<std::size_t>(channels), '\0');
  image.replace(0, 2, "00");
  PutAt(image, 2, std::int16_t{1});
  std::fill_n(image.begin() + 4, 278, ' ');
  PutCount(image, channels);
  for (int i = 0; i < channels; ++i) {
    PutAt(image, kHeader + 2 + 4 * static_cast<std::size_t>(i), std::int32_t{5});
  }
  return image;
}

std::string XbaOf(int channels, int peaks) {
  std::string image = XbmOf(channels);
  const std::size_t at = image.size();
  image.resize(at + 2 + kPeakSize * static_cast<std::size_t>(peaks));
  PutAt(image, at, static_cast<std::int16_t>(peaks));
  return image;
}

std::string Text(const ByteVector& bytes) {
  return std::string(AsText(bytes));
}

class FileDorvaneTest : public FilesTest {
 protected:
  std::int16_t Read(const std::string& image) {
    folder_.Put("a.xbm", image);
    return ReadXbm(context_, folder_.Path("a.xbm"), block_, record_);
  }
  std::int16_t ReadWithPeaks(const std::string& image) {
    folder_.Put("a.xba", image);
    return ReadXba(context_, folder_.Path("a.xba"), block_, record_, peaks_);
  }
  std::int16_t Write(const std::string& name) {
    return WriteXbm(context_, folder_.Path(name), block_, record_);
  }
  std::vector<std::string> XtaLines() {
    std::string text = Text(XtaImage(block_, record_));
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < text.size();) {
      const auto end = text.find("\r\n", at);
      lines.push_back(text.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }

  ChannelBlock block_;
  SpectrumRec record_;
  PeakTable peaks_;
};

TEST_F(FileDorvaneTest, GoodFileIsRead) {
  EXPECT_EQ(Read(XbmOf(3)), -1);
  EXPECT_EQ(block_.Count, 3);
  EXPECT_THAT(block_.Used(), testing::Each(5));
  EXPECT_EQ(last_data_type_, 1);
}

TEST_F(FileDorvaneTest, NumberedSeriesAreReadAsXbm) {
  folder_.Put("a.123", XbmOf(2));
  EXPECT_EQ(ReadXbm(context_, folder_.Path("a.123"), block_, record_), -1);
  EXPECT_EQ(block_.Count, 2);
}

TEST_F(FileDorvaneTest, TextsStandAtTheirOffsets) {
  std::string image = XbmOf(0);
  const std::vector<std::pair<std::size_t, std::string>> texts = {
      {4, "name"},       {68, "sample"}, {132, "20031231"}, {140, "090503"}, {146, "111213"},
      {152, "operator"}, {182, "memo"},  {304, "first"},    {1304, "last"}};
  for (const auto& [offset, text] : texts) image.replace(offset, text.size(), text);
  ASSERT_EQ(Read(image), -1);
  EXPECT_EQ(record_.MsuName.Text(), "name");
  EXPECT_EQ(record_.SampName.Text(), "sample");
  EXPECT_EQ(record_.OpDate.Text(), "20031231");
  EXPECT_EQ(record_.OpTime.Text(), "090503");
  EXPECT_EQ(record_.OpTime2.Text(), "111213");
  EXPECT_EQ(record_.OpName.Text(), "operator");
  EXPECT_EQ(record_.Memo.Text(), "memo");
  EXPECT_EQ(record_.ExtText[0].Text(), "first");
  EXPECT_EQ(record_.ExtText[10].Text(), "last");
}

TEST_F(FileDorvaneTest, IntegersStandAtTheirOffsets) {
  std::string image = XbmOf(0);
  PutAt(image, 2, std::int16_t{-7});
  PutAt(image, 284, std::int16_t{11});
  PutAt(image, 302, std::int16_t{12});
  PutAt(image, kProp + 0, std::int16_t{13});
  PutAt(image, kProp + 110, std::int16_t{14});
  PutAt(image, kProp + 128, std::int16_t{26});
  ASSERT_EQ(Read(image), -1);
  EXPECT_EQ(record_.SaveFlag, -7);
  EXPECT_EQ(record_.ExtInt[0], 11);
  EXPECT_EQ(record_.ExtInt[9], 12);
  EXPECT_EQ(record_.Prop.PropHead, 13);
  EXPECT_EQ(record_.Prop.PropRes2, 14);
  EXPECT_EQ(record_.Prop.Flags, 26);
}

TEST_F(FileDorvaneTest, MeasurementValuesStandAtTheirOffsets) {
  const std::vector<std::pair<std::size_t, double MeasProp::*>> fields = {
      {54, &MeasProp::TwoTheta},      {62, &MeasProp::Volt},
      {70, &MeasProp::Current},       {78, &MeasProp::Press},
      {86, &MeasProp::Temp},          {94, &MeasProp::MiriVolt},
      {102, &MeasProp::CntRate},      {112, &MeasProp::RealTime},
      {120, &MeasProp::LiveTime},     {130, &MeasProp::PressX},
      {138, &MeasProp::PressY},       {146, &MeasProp::PressZ},
      {154, &MeasProp::PressTZ},      {162, &MeasProp::HGonioX},
      {170, &MeasProp::HGonioY},      {178, &MeasProp::HGonioZ},
      {186, &MeasProp::HGonioRes},    {194, &MeasProp::VGonioX},
      {202, &MeasProp::VGonioY},      {210, &MeasProp::VGonioZ},
      {218, &MeasProp::VGonioDAngle}, {226, &MeasProp::Load},
      {234, &MeasProp::RamStroke},    {242, &MeasProp::Power},
      {250, &MeasProp::Registance},   {258, &MeasProp::NpdVal1},
      {266, &MeasProp::NpdVal2},      {274, &MeasProp::InV},
      {282, &MeasProp::InH},          {290, &MeasProp::InX},
      {298, &MeasProp::InZ},          {306, &MeasProp::InTY},
      {314, &MeasProp::ReV},          {322, &MeasProp::ReH},
      {330, &MeasProp::ReX},          {338, &MeasProp::ReZ},
      {346, &MeasProp::ReTY},         {354, &MeasProp::CollimeterSize},
      {362, &MeasProp::Current2}};
  std::string image = XbmOf(0);
  double value = 0.5;
  for (const auto& field : fields) PutAt(image, kProp + field.first, value++);
  for (int i = 0; i < 3; ++i) PutAt(image, kProp + 30 + 8 * static_cast<std::size_t>(i), 900.0 + i);
  ASSERT_EQ(Read(image), -1);
  value = 0.5;
  for (const auto& field : fields) EXPECT_EQ(record_.Prop.*field.second, value++) << field.first;
  for (int i = 0; i < 3; ++i) EXPECT_EQ(record_.Prop.EGC[i], 900.0 + i);
}

TEST_F(FileDorvaneTest, PeaksAreSeventyBytesEach) {
  std::string image = XbaOf(1, 2);
  const std::size_t second = kHeader + 2 + 4 + 2 + kPeakSize;
  PutAt(image, second + 0, std::int16_t{-1});
  PutAt(image, second + 2, std::int16_t{3});
  for (std::size_t i = 0; i < 6; ++i)
    PutAt(image, second + 4 + 8 * i, 0.5 + static_cast<double>(i));
  PutAt(image, second + 52, std::int16_t{90});
  PutAt(image, second + 54, std::int16_t{110});
  PutAt(image, second + 56, 9500.0);
  PutAt(image, second + 64, std::int32_t{-99});
  PutAt(image, second + 68, std::int16_t{1});
  ASSERT_EQ(ReadWithPeaks(image), -1);
  EXPECT_EQ(peaks_.Count, 2);
  EXPECT_EQ(peaks_.Peaks[0], PeakRec());
  const PeakRec expected{-1, 3, 0.5, 1.5, 2.5, 3.5, 4.5, 5.5, 90, 110, 9500.0, -99, 1, {}};
  EXPECT_EQ(peaks_.Peaks[1], expected);
}

TEST_F(FileDorvaneTest, TheMarkIsWrittenAndNotChecked) {
  std::string image = XbmOf(1);
  image.replace(0, 2, "XY");
  EXPECT_EQ(Read(image), -1);
  EXPECT_EQ(Text(XbmImage(block_, record_)).substr(0, 2), "00");
}

TEST_F(FileDorvaneTest, TheDataTypeOfTheFileDoesNotSurvive) {
  std::string image = XbmOf(1);
  PutAt(image, 282, std::int16_t{5});
  EXPECT_EQ(Read(image), -1);
  EXPECT_EQ(record_.DataType, 1);
  EXPECT_EQ(last_data_type_, 1);
}

TEST_F(FileDorvaneTest, NoChannelsMake2070Bytes) {
  EXPECT_EQ(XbmImage(block_, record_).size(), 2070u);
}

TEST_F(FileDorvaneTest, ReadThenWriteGivesTheSameBytes) {
  std::mt19937 random(20240601);
  for (int round = 0; round < 20; ++round) {
    std::string image = XbaOf(50, 7);
    const std::size_t counts_at = image.size() - 7 * kPeakSize - 2;
    for (std::size_t i = 4; i < image.size(); ++i) {
      const bool is_count =
          (i >= kHeader && i < kHeader + 2) || (i >= counts_at && i < counts_at + 2);
      if (!is_count) image[i] = static_cast<char>(random());
    }
    PutAt(image, 282, std::int16_t{1});
    const std::string xbm = image.substr(0, kHeader + 2 + 4 * 50);
    ASSERT_EQ(Read(xbm), -1);
    EXPECT_EQ(Text(XbmImage(block_, record_)), xbm);
    ASSERT_EQ(ReadWithPeaks(image), -1);
    EXPECT_EQ(Text(XbaImage(block_, record_, peaks_)), image);
  }
}

TEST_F(FileDorvaneTest, WriteThenReadGivesTheSameRecords) {
  ASSERT_EQ(WriteXba(context_, folder_.Path("b.xba"), SampleBlock(4096), SampleRecord(),
                     SamplePeaks(100)),
            -1);
  ASSERT_EQ(ReadXba(context_, folder_.Path("b.xba"), block_, record_, peaks_), -1);
  EXPECT_EQ(block_, SampleBlock(4096));
  EXPECT_EQ(record_, SampleRecord());
  EXPECT_EQ(peaks_, SamplePeaks(100));
}

TEST_F(FileDorvaneTest, FittingFlagsSurviveASaveAndLoad) {
  SpectrumRec record;
  record.Prop.Flags = FlagSmooth | FlagFit;
  ASSERT_EQ(WriteXbm(context_, folder_.Path("b.xbm"), block_, record), -1);
  ASSERT_EQ(ReadXbm(context_, folder_.Path("b.xbm"), block_, record_), -1);
  EXPECT_EQ(record_.Prop.Flags, 18);
}

TEST_F(FileDorvaneTest, JapaneseTextsAreKeptAndCutAtTheirLastByte) {
  std::string name = "x";
  for (int i = 0; i < 40; ++i) name += "試";  // 81 bytes in the code page; 64 fit, the 32nd not
  record_.SampName.Set(name);
  const std::string image = Text(XbmImage(block_, record_));
  EXPECT_EQ(image.substr(68, 3), "x\x8E\x8E");
  EXPECT_EQ(image[131], ' ');
  EXPECT_EQ(image.substr(129, 2), "\x8E\x8E");
  ASSERT_EQ(Read(image), -1);
  EXPECT_EQ(record_.SampName.Text(), name.substr(0, 1 + 31 * 3));
}

TEST_F(FileDorvaneTest, CutAtAnyByteIsOpenError) {
  const std::string image = XbmOf(3);
  for (std::size_t size = 0; size < image.size(); ++size) {
    block_.Count = 0;
    dialogs_.ExpectMessage("Open Error");
    ImageFileLayer files(std::string_view(image).substr(0, size));
    FileContext context{files, dialogs_, last_data_type_};
    EXPECT_EQ(ReadXbm(context, "a.xbm", block_, record_), 0) << size;
    EXPECT_TRUE(dialogs_.Done()) << size;
    EXPECT_LE(block_.Count, 3);
  }
  EXPECT_EQ(last_data_type_, 0);
}

TEST_F(FileDorvaneTest, XbaCutAtAnyByteIsOpenError) {
  const std::string image = XbaOf(1, 2);
  for (std::size_t size = 0; size < image.size(); ++size) {
    dialogs_.ExpectMessage("Open Error");
    ImageFileLayer files(std::string_view(image).substr(0, size));
    FileContext context{files, dialogs_, last_data_type_};
    EXPECT_EQ(ReadXba(context, "a.xba", block_, record_, peaks_), 0) << size;
    EXPECT_LE(block_.Count, 1) << size;
    EXPECT_EQ(peaks_.Count, size < image.size() - kPeakSize ? 0 : 1) << size;
  }
}

TEST_F(FileDorvaneTest, WhatWasReadBeforeTheCutStays) {
  record_ = SampleRecord();
  std::string image = XbmOf(3);
  image.replace(4, 4, "name");
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(Read(image.substr(0, 100)), 0);
  EXPECT_EQ(record_.MsuName.Text(), "name");
  EXPECT_EQ(record_.SampName.Text(), "");  // texts are dropped before they are read
  EXPECT_EQ(record_.Memo.Text(), "");
  EXPECT_EQ(record_.Prop, SampleProp());
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(Read(image.substr(0, image.size() - 1)), 0);
  EXPECT_EQ(block_.Counts[1], 5);
  EXPECT_EQ(block_.Counts[2], 0);
}

TEST_F(FileDorvaneTest, ChannelCountsEndAt8192) {
  EXPECT_EQ(Read(XbmOf(8192)), -1);
  EXPECT_EQ(block_.Count, 8192);
}

TEST_F(FileDorvaneTest, ChannelCountsOutOfRangeAreOpenError) {
  std::string image(kHeader + 2 + 4 * 40000, '\0');
  for (const int count : {-1, -32768, 8193, 32767}) {
    PutCount(image, count);
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(Read(image), 0) << count;
    EXPECT_EQ(block_.Count, 0);
  }
}

TEST_F(FileDorvaneTest, PeakCountsEndAt100) {
  EXPECT_EQ(ReadWithPeaks(XbaOf(1, 100)), -1);
  EXPECT_EQ(peaks_.Count, 100);
}

TEST_F(FileDorvaneTest, PeakCountsOutOfRangeAreOpenError) {
  std::string image = XbaOf(1, 120);
  for (const int count : {-1, -32768, 101, 32767}) {
    PutAt(image, kHeader + 2 + 4, static_cast<std::int16_t>(count));
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(ReadWithPeaks(image), 0) << count;
    EXPECT_EQ(peaks_.Count, 0);
  }
}

TEST_F(FileDorvaneTest, PeaksAreReadOnlyWhereTheSaveFlagIs1) {
  peaks_ = SamplePeaks(5);
  std::string image = XbaOf(1, 2);
  for (const int flag : {0, 2, -1}) {
    PutAt(image, 2, static_cast<std::int16_t>(flag));
    EXPECT_EQ(ReadWithPeaks(image), -1);
    EXPECT_EQ(peaks_, SamplePeaks(5)) << flag;
  }
}

TEST_F(FileDorvaneTest, PeaksAreWrittenOnlyWhereTheSaveFlagIs1) {
  record_.SaveFlag = 2;
  EXPECT_EQ(XbaImage(block_, record_, SamplePeaks(3)).size(), 2070u);
  record_.SaveFlag = 1;
  EXPECT_EQ(XbaImage(block_, record_, SamplePeaks(3)).size(), 2070u + 2 + 3 * 70);
}

TEST_F(FileDorvaneTest, AMissingFileIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadXbm(context_, folder_.Path("none.xbm"), block_, record_), 0);
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadXba(context_, folder_.Path("none.xba"), block_, record_, peaks_), 0);
}

TEST_F(FileDorvaneTest, AFolderIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadXbm(context_, folder_.Path(""), block_, record_), 0);
}

TEST_F(FileDorvaneTest, AReadThatFailsAtAnyCallIsOpenError) {
  folder_.Put("a.xbm", XbmOf(3));
  for (int n = 1; n <= 4; ++n) {  // look, open, read, close
    FailingFileLayer failing(system_, n);
    FileContext context{failing, dialogs_, last_data_type_};
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(ReadXbm(context, folder_.Path("a.xbm"), block_, record_), 0) << n;
  }
}

TEST_F(FileDorvaneTest, ReplacingAnXbmAsksWithNoAsDefault) {
  folder_.Put("a.xbm", "old");
  dialogs_.ExpectQuestion("File already exist. Replace?(xbm)", false);
  EXPECT_EQ(Write("a.xbm"), 0);
  EXPECT_EQ(folder_.Get("a.xbm"), "old");
  EXPECT_TRUE(dialogs_.LastQuestion().no_is_default);
  EXPECT_EQ(dialogs_.LastQuestion().icon, BoxIcon::Exclamation);
  dialogs_.ExpectQuestion("File already exist. Replace?(xbm)", true);
  EXPECT_EQ(Write("a.xbm"), -1);
  EXPECT_EQ(folder_.Get("a.xbm").size(), 2070u);
}

TEST_F(FileDorvaneTest, ANewXbmAsksNothing) {
  EXPECT_EQ(Write("a.xbm"), -1);
}

TEST_F(FileDorvaneTest, ScratchFileAndNumberedSeriesAreReplacedWithoutAQuestion) {
  for (const char* name : {"temp00.xbm", "a.0x1", "a.001", "a.b9"}) {
    folder_.Put(name, "old");
    EXPECT_EQ(Write(name), -1) << name;
    EXPECT_EQ(folder_.Get(name).size(), 2070u) << name;
  }
}

TEST_F(FileDorvaneTest, OtherNamesNearTheExceptionsAsk) {
  for (const char* name : {"temp00.xba", "xtemp00.xbm", "a9.xbm", "a.1x", "noextension9"}) {
    folder_.Put(name, "old");
    dialogs_.ExpectQuestion("File already exist. Replace?(xbm)", false);
    EXPECT_EQ(Write(name), 0) << name;
    EXPECT_TRUE(dialogs_.Done()) << name;
  }
}

TEST_F(FileDorvaneTest, ReplacingAnXbaAsksAlwaysInItsOwnSpelling) {
  for (const char* name : {"a.xba", "a.001", "temp00.xbm"}) {
    folder_.Put(name, "old");
    dialogs_.ExpectQuestion("File alrady exist. Replace?", false);
    EXPECT_EQ(WriteXba(context_, folder_.Path(name), block_, record_, peaks_), 0);
    EXPECT_EQ(folder_.Get(name), "old");
    EXPECT_TRUE(dialogs_.LastQuestion().no_is_default);
  }
  dialogs_.ExpectQuestion("File alrady exist. Replace?", true);
  EXPECT_EQ(WriteXba(context_, folder_.Path("a.xba"), block_, record_, peaks_), -1);
}

TEST_F(FileDorvaneTest, BytesOfALongerOldFileStayBehindTheNewOnes) {
  const std::string old = XbmOf(10);
  folder_.Put("a.001", old);
  block_.Count = 2;
  ASSERT_EQ(Write("a.001"), -1);
  const std::string now = folder_.Get("a.001");
  EXPECT_EQ(now.size(), old.size());
  EXPECT_EQ(now.substr(2078), old.substr(2078));
  ASSERT_EQ(ReadXbm(context_, folder_.Path("a.001"), block_, record_), -1);
  EXPECT_EQ(block_.Count, 2);
  EXPECT_EQ(block_.Counts[0], 0);
}

TEST_F(FileDorvaneTest, BytesOfALongerOldXbaStayToo) {
  const std::string old = XbaOf(10, 3);
  folder_.Put("a.xba", old);
  record_.SaveFlag = 1;
  dialogs_.ExpectQuestion("File alrady exist. Replace?", true);
  ASSERT_EQ(WriteXba(context_, folder_.Path("a.xba"), block_, record_, peaks_), -1);
  EXPECT_EQ(folder_.Get("a.xba").size(), old.size());
  EXPECT_EQ(folder_.Get("a.xba").substr(2072), old.substr(2072));
}

TEST_F(FileDorvaneTest, CountsOutOfRangeAreNotWritten) {
  for (const int count : {-1, 8193}) {
    block_.Count = static_cast<std::int16_t>(count);
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(Write("a.xbm"), 0);
    dialogs_.ExpectMessage("Open Error");
    EXPECT_EQ(WriteXta(context_, folder_.Path("a.xta"), block_, record_), 0);
  }
  block_.Count = 0;
  record_.SaveFlag = 1;
  peaks_.Count = 101;
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(WriteXba(context_, folder_.Path("a.xba"), block_, record_, peaks_), 0);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FileDorvaneTest, AFailedOpeningOfAnXbmPassesToTheSaveCommand) {
  EXPECT_THROW(Write("missing folder/a.xbm"), Fault);
}

TEST_F(FileDorvaneTest, AFailedOpeningOfTheOthersIsOpenError) {
  const std::string path = folder_.Path("missing folder/a");
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(WriteXba(context_, path, block_, record_, peaks_), 0);
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(WriteXta(context_, path, block_, record_), 0);
}

TEST_F(FileDorvaneTest, AFailedWriteOfAnXbmIsOpenError) {
  // look for the question and for old bytes; look, link, create, then write
  FailingFileLayer failing(system_, 6);
  FileContext context{failing, dialogs_, last_data_type_};
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(WriteXbm(context, folder_.Path("new.xbm"), block_, record_), 0);
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FileDorvaneTest, XtaOfSixteenChannelsHasTwoValueLines) {
  block_ = SampleBlock(16);
  const auto lines = XtaLines();
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[0], " 16 ");
  EXPECT_EQ(lines[1], "     10     13     16     19     22     25     28     31");
  EXPECT_EQ(lines[2], "     34     37     40     43     46     49     52      0");
  EXPECT_EQ(lines[3].size(), 20u + 40 + 1 + 8 + 3);  // the blank date leaves its place empty
}

TEST_F(FileDorvaneTest, XtaLastValueLineMayBeShort) {
  block_ = SampleBlock(9);
  block_.Counts[8] = -12345678;
  const auto lines = XtaLines();
  ASSERT_EQ(lines.size(), 9u);
  EXPECT_EQ(lines[2], "-12345678");
}

TEST_F(FileDorvaneTest, XtaOfNoChannelsHasNoValueLine) {
  const auto lines = XtaLines();
  ASSERT_EQ(lines.size(), 7u);
  EXPECT_EQ(lines[0], " 0 ");
}

TEST_F(FileDorvaneTest, XtaSummary) {
  block_ = SampleBlock(1);
  record_.SampName.Set("Al2O3");
  record_.MsuName.Set("run 12");
  record_.OpDate.Set("20031231");
  record_.OpTime.Set("090503");
  record_.Prop.Press = 5.25;
  record_.Prop.Temp = -3;
  record_.Prop.TwoTheta = 6.5116;
  record_.Prop.EGC[0] = 0.0226609;
  record_.Prop.EGC[1] = 0.0647732;
  const auto lines = XtaLines();
  ASSERT_EQ(lines.size(), 8u);
  EXPECT_EQ(lines[2], "Al2O3" + std::string(15, ' ') + "run 12" + std::string(34, ' ') +
                          "03/12/31 09:05:03   ");
  EXPECT_EQ(lines[3], "5.3,-3.0");
  EXPECT_EQ(lines[4], "6.5,0,0,0,0,0");
  EXPECT_EQ(lines[5], "0,0,0");
  EXPECT_EQ(lines[6], "0,0,0");
  EXPECT_EQ(lines[7], "0.023,0.06477");
}

TEST_F(FileDorvaneTest, XtaDates) {
  const std::vector<std::pair<std::string, std::string>> dates = {
      {"20031231", "03/12/31"}, {"19991231", "99/12/31"}, {"20000101", "00/01/01"},
      {"20240229", "24/02/29"}, {"21051231", "05/12/31"}, {"19050607", "05/06/07"}};
  for (const auto& [date, shown] : dates) {
    record_.OpDate.Set(date);
    EXPECT_EQ(XtaLines()[1].substr(60, 8), shown) << date;
  }
}

TEST_F(FileDorvaneTest, XtaDateIsEmptyWhereTheYearIsNone) {
  record_.OpDate.Set("abcd1231");
  record_.OpTime.Set("090503");
  EXPECT_EQ(XtaLines()[1].substr(60), " 09:05:03   ");
}

TEST_F(FileDorvaneTest, XtaTextsAreCutInBytesAndSplitNoCharacter) {
  record_.SampName.Set(
      "x試料試料試料試料試料試料");  // the tenth character would need bytes 20 and 21
  record_.MsuName.Set(std::string(50, 'n'));
  const std::string line = XtaLines()[1];
  EXPECT_EQ(line.substr(17, 2), "\x8E\x8E");
  EXPECT_EQ(line[19], ' ');
  EXPECT_EQ(line.substr(20, 40), std::string(40, 'n'));
  EXPECT_EQ(line.size(), 72u);
}

TEST_F(FileDorvaneTest, XtaReplacesWithoutAQuestionAndLeavesNoOldTail) {
  folder_.Put("a.xta", std::string(100000, 'x'));
  EXPECT_EQ(WriteXta(context_, folder_.Path("a.xta"), block_, record_), -1);
  EXPECT_EQ(folder_.Get("a.xta"), Text(XtaImage(block_, record_)));
}

}  // namespace
}  // namespace dorvane
