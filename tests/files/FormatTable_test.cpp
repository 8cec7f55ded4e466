#include "files/FormatTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/ReaderFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

// A native image of two channels, 5 and 6 counts; `peaks` in a table behind them.
std::string NativeImage(int peaks = 0) {
  std::string image(2068 + 2 + 2 * 4 + 2 + 70 * static_cast<std::size_t>(peaks), '\0');
  PutText(image, 0, "00");
  PutBytes(image, 2, 1, 2);  // SaveFlag
  PutBytes(image, 2068, 2, 2);
  PutWord(image, 2070, 5);
  PutWord(image, 2074, 6);
  PutBytes(image, 2078, static_cast<std::uint32_t>(peaks), 2);
  return image;
}

std::string CnfImage() {
  std::string image(41984, ' ');
  image[11] = static_cast<char>(164);
  PutWord(image, 25604, 77);
  return image;
}

std::string ChnImage() {
  std::string image(32 + 4 + 12, '\0');
  image[30] = 1;
  PutWord(image, 32, 88);
  return image;
}

class FormatTableTest : public ReaderTest {
 protected:
  void ExpectRead(const std::string& name, const std::string& image, int data_type, int channels,
                  std::int32_t first) {
    Reset();
    EXPECT_EQ(Read(image, name), -1) << name;
    EXPECT_EQ(record_.DataType, data_type) << name;
    EXPECT_EQ(block_.Count, channels) << name;
    EXPECT_EQ(block_.Counts[0], first) << name;
  }
  std::string Written(const std::string& name) {
    EXPECT_EQ(WriteByExtension(context_, folder_.Path(name), {block_, record_, peaks_, angles_}),
              -1)
        << name;
    return folder_.Get(name);
  }
};

TEST_F(FormatTableTest, EveryReaderIsFoundByItsExtension) {
  ExpectRead("a.npd", Joined(WorkedExample("npd.md")), kNpdData, 3, 10);
  ExpectRead("a.rpt", Joined(WorkedExample("report.md")), kGenieData, 9, 0);
  ExpectRead("a.raw", Joined(WorkedExample("dac.md")), kDacData, 4096, 120);
  ExpectRead("a.cnf", CnfImage(), kGenieData, 4096, 77);
  ExpectRead("a.chn", ChnImage(), kNativeData, 1, 88);  // the type as it was
  ExpectRead("a.xbm", NativeImage(), kNativeData, 2, 5);
  ExpectRead("a.xba", NativeImage(), kNativeData, 2, 5);
}

TEST_F(FormatTableTest, UpperCaseIsTheSame) {
  ExpectRead("a.NPD", Joined(WorkedExample("npd.md")), kNpdData, 3, 10);
  ExpectRead("a.Rpt", Joined(WorkedExample("report.md")), kGenieData, 9, 0);
  ExpectRead("a.RAW", Joined(WorkedExample("dac.md")), kDacData, 4096, 120);
  ExpectRead("a.CNF", CnfImage(), kGenieData, 4096, 77);
  ExpectRead("a.cHn", ChnImage(), kNativeData, 1, 88);
  ExpectRead("a.XBM", NativeImage(), kNativeData, 2, 5);
  EXPECT_EQ(Written("b.GSA").substr(0, 7), " File: ");
}

TEST_F(FormatTableTest, AnExtensionOfDigitsIsNativeWhateverTheFileHolds) {
  for (const char* name : {"a.001", "a.0", "a.999", "a.20161104", "b.npd.7"}) {
    ExpectRead(name, NativeImage(), kNativeData, 2, 5);
  }
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(Read(Joined(WorkedExample("npd.md")), "a.002"), 0);
}

TEST_F(FormatTableTest, OnlyXbaCarriesThePeakTable) {
  Read(NativeImage(3), "a.xbm");
  EXPECT_EQ(peaks_.Count, 0);
  Read(NativeImage(3), "a.001");
  EXPECT_EQ(peaks_.Count, 0);
  Read(NativeImage(3), "a.xba");
  EXPECT_EQ(peaks_.Count, 3);
}

TEST_F(FormatTableTest, OnlyRawCarriesTheScaleOfAngles) {
  ExpectRead("a.xbm", NativeImage(), kNativeData, 2, 5);
  EXPECT_EQ(angles_.DacAngleOffset, kAnglesBefore.DacAngleOffset);
  ExpectRead("a.raw", Joined(WorkedExample("dac.md")), kDacData, 4096, 120);
  EXPECT_EQ(angles_.DacAngleOffset, 4);
}

TEST_F(FormatTableTest, AnUnknownExtensionReadsNothingAndSaysNothing) {
  for (const char* name :
       {"a.abc", "data.ABC", "a.0x1", "a.1b", "a", "a.", "a.csv", "a.gsa", "a.xta", "npd"}) {
    EXPECT_EQ(Read(NativeImage(), name), 0) << name;
    ExpectUntouched();
  }
}

TEST_F(FormatTableTest, EveryWriterIsFoundByItsExtension) {
  peaks_ = SamplePeaks(2);
  EXPECT_EQ(Written("a.xta").substr(0, 6), " 10 \r\n");
  EXPECT_EQ(Written("a.csv").substr(0, 8), "Press X,");
  EXPECT_EQ(Written("a.npd").substr(0, 16), "Record length,27");
  EXPECT_EQ(Written("a.rpt").substr(0, 7), "   10\r\n");
  EXPECT_EQ(Written("a.gsa").substr(0, 7), " File: ");
  EXPECT_EQ(Written("a.xbm").size(), 2070u + 4 * 10);
  EXPECT_EQ(Written("a.xba").size(), 2070u + 4 * 10 + 2 + 2 * 70);
}

TEST_F(FormatTableTest, AnExtensionWithoutAWriterWritesNothingAndSaysNothing) {
  for (const char* name : {"a.cnf", "a.chn", "a.raw", "a.001", "a.doc", "a", "a."}) {
    EXPECT_EQ(WriteByExtension(context_, folder_.Path(name), {block_, record_, peaks_, angles_}),
              0);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

TEST_F(FormatTableTest, WhatCanBeRead) {
  for (const char* extension : {"npd", "cnf", "rpt", "chn", "xbm", "xba", "raw", "001", "7"}) {
    EXPECT_TRUE(CanRead(extension)) << extension;
  }
  EXPECT_TRUE(CanRead("NPD"));
  for (const char* extension : {"csv", "gsa", "xta", "ABC", "", "0x1", ".npd"}) {
    EXPECT_FALSE(CanRead(extension)) << extension;
  }
}

TEST_F(FormatTableTest, WhatCanBeWritten) {
  for (const char* extension : {"xta", "xba", "csv", "npd", "rpt", "xbm", "gsa", "Npd"}) {
    EXPECT_TRUE(CanWrite(extension)) << extension;
  }
  for (const char* extension : {"cnf", "chn", "raw", "001", ""}) {
    EXPECT_FALSE(CanWrite(extension)) << extension;
  }
}

TEST_F(FormatTableTest, KindsForMessages) {
  EXPECT_EQ(ReadableKinds(), ".npd, .cnf, .rpt, .chn, .xbm, .xba, .raw or a number");
  EXPECT_THAT(WritableExtensions(), ElementsAre("xta", "xba", "csv", "npd", "rpt", "xbm", "gsa"));
}

}  // namespace
}  // namespace dorvane
