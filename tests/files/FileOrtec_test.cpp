// Images are put together byte by byte from docs/formats/chn.md.
#include "files/FileOrtec.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "files/ReaderFixture.h"

namespace dorvane {
namespace {

// Count i is i + 1; EGC 0.25 and 0.5.
std::string ChnOf(int channels) {
  const auto n = static_cast<std::size_t>(channels);
  std::string image(32 + 4 * n + 12, '\xEE');
  PutText(image, 16, "0411160905  ");
  PutBytes(image, 30, static_cast<std::uint32_t>(channels), 2);
  for (std::size_t i = 0; i < n; ++i) {
    PutWord(image, 32 + 4 * i, static_cast<std::int32_t>(i) + 1);
  }
  PutFloat(image, 32 + 4 * n + 4, 0.25F);
  PutFloat(image, 32 + 4 * n + 8, 0.5F);
  return image;
}

class FileOrtecTest : public ReaderTest {
 protected:
  void ReadGood(const std::string& image) { ASSERT_EQ(Read(image, "a.chn"), -1); }
  void ExpectCoefficients() {
    EXPECT_EQ(record_.Prop.EGC[0], 0.25);
    EXPECT_EQ(record_.Prop.EGC[1], 0.5);
    EXPECT_EQ(record_.Prop.EGC[2], 0);
  }
};

TEST_F(FileOrtecTest, AGoodFileIsRead) {
  ReadGood(ChnOf(5));
  EXPECT_THAT(block_.Used(), testing::ElementsAre(1, 2, 3, 4, 5));
  ExpectCoefficients();
}

TEST_F(FileOrtecTest, TheExampleOfTheFormatsPage) {
  ReadGood(std::string(30, ' ') + std::string("\x02\x00"
                                              "\x05\x00\x00\x00\x02\x01\x00\x00"
                                              "\x9A\xFF\x00\x00"
                                              "\x00\x00\x80\x3E\x00\x00\x00\x3F",
                                              22));
  EXPECT_THAT(block_.Used(), testing::ElementsAre(5, 258));
  ExpectCoefficients();
}

TEST_F(FileOrtecTest, AllButCountsAndCoefficientsStays) {
  ReadGood(ChnOf(5));
  SpectrumRec expected = SampleRecord();
  expected.Prop.EGC[0] = 0.25;
  expected.Prop.EGC[1] = 0.5;
  expected.Prop.EGC[2] = 0;
  EXPECT_EQ(record_, expected);
}

TEST_F(FileOrtecTest, TheTypesStayAsTheyAre) {
  record_.DataType = 5;
  ReadGood(ChnOf(5));
  EXPECT_EQ(record_.DataType, 5);
  EXPECT_EQ(last_data_type_, 9);
}

TEST_F(FileOrtecTest, CountsAre32BitWords) {
  std::string image = ChnOf(2);
  PutText(image, 32, "\x01\x02\x03\x04\xFE\xFF\xFF\xFF");
  ReadGood(image);
  // 1 + 2 * 256 + 3 * 65536 + 4 * 16777216
  EXPECT_THAT(block_.Used(), testing::ElementsAre(67305985, -2));
}

TEST_F(FileOrtecTest, CoefficientsAreFloatsWidened) {
  std::string image = ChnOf(1);
  PutFloat(image, 40, 0.1F);
  ReadGood(image);
  EXPECT_EQ(record_.Prop.EGC[0], 0.100000001490116119384765625);  // the float next to 0.1
}

TEST_F(FileOrtecTest, TheTwoWordsInFrontOfTheCoefficientsAreIgnored) {
  std::string image = ChnOf(1);
  PutText(image, 36, std::string_view("\x00\x80\x01\x00", 4));
  ReadGood(image);
  ExpectCoefficients();
}

TEST_F(FileOrtecTest, OfMoreThan8192ChannelsThoseAreKeptAndTheCoefficientsFound) {
  for (const int n : {8192, 8193, 16384}) {
    Reset();
    ReadGood(ChnOf(n));
    EXPECT_EQ(block_.Count, 8192);
    EXPECT_EQ(block_.Counts[8191], 8192);
    ExpectCoefficients();
  }
}

TEST_F(FileOrtecTest, TheCountIsUnsigned) {
  ReadGood(ChnOf(65535));
  EXPECT_EQ(block_.Count, 8192);
  ExpectCoefficients();
}

TEST_F(FileOrtecTest, NoChannelsHaveCoefficientsOnly) {
  ReadGood(ChnOf(0));
  EXPECT_EQ(block_.Count, 0);
  ExpectCoefficients();
}

TEST_F(FileOrtecTest, WhatFollowsIsNotUsed) {
  ReadGood(ChnOf(3) + std::string(500, 'x'));
  EXPECT_EQ(block_.Count, 3);
  ExpectCoefficients();
}

TEST_F(FileOrtecTest, CutAtAnyByteIsFileError) {
  const std::string image = ChnOf(60);
  ExpectCutIsReadOrRefused(image, "a.chn", image.size(), "File Error");
}

TEST_F(FileOrtecTest, AMissingTrailerBehindDroppedChannelsIsFileError) {
  const std::string image = ChnOf(16384);
  ExpectRefused(image.substr(0, image.size() - 1), "a.chn", "File Error");
  ExpectRefused(image.substr(0, 32 + 4 * 8192 + 12), "a.chn", "File Error");
}

TEST_F(FileOrtecTest, CoefficientsThatAreNoNumbersAreFileError) {
  using Limits = std::numeric_limits<float>;
  for (const float value : {Limits::infinity(), -Limits::infinity(), Limits::quiet_NaN()}) {
    for (const std::size_t offset : {40u, 44u}) {
      std::string image = ChnOf(1);
      PutFloat(image, offset, value);
      ExpectRefused(image, "a.chn", "File Error");
    }
  }
}

TEST_F(FileOrtecTest, AFileThatCannotBeOpenedIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("none.chn")), 0);
  std::filesystem::create_directory(folder_.Path("folder.chn"));
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("folder.chn")), 0);
  ExpectUntouched();
}

TEST_F(FileOrtecTest, AReadThatFailsAtAnyCallIsOpenError) {
  ExpectOpenErrorAtEveryFailure(ChnOf(3), "a.chn");
}

}  // namespace
}  // namespace dorvane
