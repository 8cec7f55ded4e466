// Lines are those of docs/formats/gsas.md, put together here by hand.
#include "files/FileGSA.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/FilesFixture.h"
#include "files/Images.h"

namespace dorvane {
namespace {

Lines ExampleLines() {
  return {Columns(" File: run12", 27) + "Date: 2016-11-04 09:05:03" + std::string(13, ' ') +
              "2theta = 6.5116",
          "BANK 1 12    2   EDS   2.50000E-01  5.00000E-02 -1.00000E-07  0.00000E+00 STD   ",
          "       1       2       3       4       5       6       7       8       9      10",
          "      11      12       0       0       0       0       0       0       0       0"};
}

class FileGsaTest : public FilesTest {
 protected:
  FileGsaTest() {
    block_.Count = 12;
    for (int i = 0; i < 12; ++i) block_.Counts[i] = i + 1;
    record_.MsuName.Set("run12");
    record_.OpDate.Set("20161104");
    record_.OpTime.Set("090503");
    record_.Prop.TwoTheta = 6.5116;
    record_.Prop.EGC[0] = 0.25;
    record_.Prop.EGC[1] = 0.05;
    record_.Prop.EGC[2] = -1e-7;
  }
  Lines Written() { return LinesOf(AsText(GsaImage(block_, record_))); }
  std::string Title() { return Written()[0]; }
  std::string Bank() { return Written()[1]; }
  std::int16_t Write(FileContext& context, const std::string& name) {
    return WriteGsaFile(context, folder_.Path(name), block_, record_);
  }

  ChannelBlock block_;
  SpectrumRec record_;
};

TEST_F(FileGsaTest, TheExampleIsWritten) {
  EXPECT_EQ(Written(), ExampleLines());
}

TEST_F(FileGsaTest, TheExampleOfTheFormatsPageIsThisOne) {
  Lines page = WorkedExample("gsas.md");
  page[1] = Columns(page[1], 80);
  EXPECT_EQ(page, ExampleLines());
}

TEST_F(FileGsaTest, HeaderLinesHave80Columns) {
  EXPECT_EQ(Title().size(), 80u);
  EXPECT_EQ(Bank().size(), 80u);
  record_ = {};
  EXPECT_EQ(Title().size(), 80u);
  EXPECT_EQ(Bank().size(), 80u);
}

TEST_F(FileGsaTest, TheNameEndsInColumn27) {
  record_.MsuName.Set(std::string(64, 'n'));
  EXPECT_EQ(Title().substr(0, 33), " File: " + std::string(20, 'n') + "Date: ");
}

TEST_F(FileGsaTest, ACutNameSplitsNoCharacter) {
  record_.MsuName.Set("x試料試料試料試料試料試料");  // the tenth has columns 27 and 28
  EXPECT_EQ(Title().substr(24, 4), "\x8E\x8E D");
}

TEST_F(FileGsaTest, HoursShowTwoDigits) {
  record_.OpTime.Set(" 90503");
  EXPECT_EQ(Title().substr(27, 25), "Date: 2016-11-04 09:05:03");
}

TEST_F(FileGsaTest, AnAbsentDateLeavesItsColumnsBlank) {
  record_.OpDate.Clear();
  record_.OpTime.Clear();
  EXPECT_EQ(Title().substr(27, 25), "Date:     -  -     :  :  ");
}

TEST_F(FileGsaTest, TheAngleBeginsInColumn66WithFourPlaces) {
  record_.Prop.TwoTheta = 0.00005;
  EXPECT_EQ(Title().substr(65), "2theta = 0.0001");
  record_.Prop.TwoTheta = 12.5;
  EXPECT_EQ(Title().substr(65), "2theta = 12.500");  // the last place is column 81
}

TEST_F(FileGsaTest, AnExponentOfThreeDigitsFillsTheColumns) {
  record_.Prop.EGC[0] = -1.5e-123;
  EXPECT_EQ(Bank().substr(21, 13), "-1.50000E-123");
  EXPECT_EQ(Bank().size(), 80u);
}

TEST_F(FileGsaTest, TenCountsToALineAndTheLastFilledWithZeros) {
  block_.Count = 4096;
  block_.Counts[4095] = 5;
  const Lines lines = Written();
  ASSERT_EQ(lines.size(), 2u + 410);
  EXPECT_EQ(Bank().substr(0, 21), "BANK 1 4096  410 EDS ");
  for (std::size_t i = 2; i < lines.size(); ++i) ASSERT_EQ(lines[i].size(), 80u);
  EXPECT_EQ(lines.back(),
            "       0       0       0       0       0       5"
            "       0       0       0       0");
}

TEST_F(FileGsaTest, FullLinesLeaveTheHeaderPromisingOneMoreAsMeant) {
  block_.Count = 8190;
  EXPECT_EQ(Bank().substr(0, 21), "BANK 1 8190  820 EDS ");
  EXPECT_EQ(Written().size(), 2u + 819);
  block_.Count = 10;
  EXPECT_EQ(Bank().substr(0, 21), "BANK 1 10    2   EDS ");
  EXPECT_EQ(Written().size(), 2u + 1);
}

TEST_F(FileGsaTest, NoChannelsHaveHeadersOnly) {
  block_.Count = 0;
  EXPECT_EQ(Bank().substr(0, 21), "BANK 1 0     1   EDS ");
  EXPECT_EQ(Written().size(), 2u);
}

TEST_F(FileGsaTest, OneWideCountDividesAllByTenAndTheFileDoesNotTellAsMeant) {
  const Lines before = Written();
  block_.Counts[0] = 12345678;
  block_.Counts[1] = 19;
  block_.Counts[2] = -19;
  EXPECT_EQ(Written()[2].substr(0, 40), " 1234567       1      -1       0       0");
  EXPECT_EQ(Written()[3].substr(0, 24), "       1       1       0");
  EXPECT_EQ(Title(), before[0]);
  EXPECT_EQ(Bank(), before[1]);
}

TEST_F(FileGsaTest, DivisionBeginsAtTenMillion) {
  block_.Counts[0] = 9999999;
  EXPECT_EQ(Written()[2].substr(0, 16), " 9999999       2");
  block_.Counts[0] = 10000000;
  EXPECT_EQ(Written()[2].substr(0, 16), " 1000000       0");
}

TEST_F(FileGsaTest, CountsBehindTheLastChannelDivideNothing) {
  block_.Counts[12] = 12345678;
  EXPECT_EQ(Written(), ExampleLines());
}

TEST_F(FileGsaTest, ReplacingAsksWithNoAsDefault) {
  folder_.Put("a.gsa", "old");
  dialogs_.ExpectQuestion("File already exist. Replace?(GSA)", false);
  EXPECT_EQ(Write(context_, "a.gsa"), 0);
  EXPECT_TRUE(dialogs_.LastQuestion().no_is_default);
  EXPECT_EQ(folder_.Get("a.gsa"), "old");
  dialogs_.ExpectQuestion("File already exist. Replace?(GSA)", true);
  EXPECT_EQ(Write(context_, "a.gsa"), -1);
  EXPECT_EQ(folder_.Get("a.gsa"), Joined(ExampleLines()));
}

TEST_F(FileGsaTest, ANewFileAsksNothing) {
  EXPECT_EQ(Write(context_, "a.gsa"), -1);
}

TEST_F(FileGsaTest, AFileThatCannotBeCreatedIsOpenError) {
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(Write(context_, "missing folder/a.gsa"), 0);
}

TEST_F(FileGsaTest, AFailedWriteIsFileWriteError) {
  folder_.Put("a.gsa", "old");
  FailingFileLayer failing(system_, 4);  // look for the question; look, create, then write
  FileContext context{failing, dialogs_, last_data_type_};
  dialogs_.ExpectQuestion("File already exist. Replace?(GSA)", true);
  dialogs_.ExpectMessage("File Write Error");
  EXPECT_EQ(Write(context, "a.gsa"), 0);
  EXPECT_EQ(folder_.Get("a.gsa"), "old");
}

TEST_F(FileGsaTest, ChannelCountsOutOfRangeAreNotWritten) {
  for (const std::int16_t count : {-1, 8193}) {
    block_.Count = count;
    dialogs_.ExpectMessage("File Write Error");
    EXPECT_EQ(Write(context_, "a.gsa"), 0);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

}  // namespace
}  // namespace dorvane
