// The table export. Lines are those of docs/formats/native.md, put together here by hand.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/FileDorvane.h"
#include "files/FilesFixture.h"
#include "files/Images.h"

namespace dorvane {
namespace {

class CsvTest : public FilesTest {
 protected:
  CsvTest() {
    block_.Count = 2;
    block_.Counts[1] = 7;
    record_.Prop.EGC[0] = 0.25;
    record_.Prop.EGC[1] = 0.05;
  }
  Lines Written() { return LinesOf(AsText(CsvImage(block_, record_))); }
  std::int16_t Write(FileContext& context, const std::string& name) {
    return WriteCsv(context, folder_.Path(name), block_, record_);
  }

  ChannelBlock block_;
  SpectrumRec record_;
};

TEST_F(CsvTest, ConditionsThenChannels) {
  MeasProp& prop = record_.Prop;
  prop.PressX = 1.25;
  prop.PressY = -2.0005;
  prop.PressZ = 3;
  prop.Load = 68.5;
  prop.Press = 5.4321;
  prop.Temp = -25;
  prop.LiveTime = 287.945;
  prop.TwoTheta = 6.51161;
  EXPECT_EQ(Written(),
            (Lines{"Press X,1.250, ", "Press Y,-2.001, ", "Press Z,3.000, ", "Press Load,68.500, ",
                   "Pressure,5.432, ", "Temperature,-25.000, ", "Live Time,287.95, ",
                   "EGC(0),0.250000, ", "EGC(1),0.050000, ", "2\x83\xC6,6.51161, ", "", "", "2, , ",
                   "Channel,Energy,Count", "1,0.300,0", "2,0.350,7"}));
}

TEST_F(CsvTest, FieldsHaveNoPadding) {
  record_ = {};
  EXPECT_EQ(Written()[0], "Press X,0.000, ");
  EXPECT_EQ(Written()[6], "Live Time,0.00, ");
  EXPECT_EQ(Written()[12], "2, , ");
  EXPECT_EQ(Written()[14], "1,0.000,0");
}

TEST_F(CsvTest, LongValuesAreWhole) {
  record_.Prop.PressX = -123456.75;
  block_.Counts[0] = -2147483647 - 1;
  EXPECT_EQ(Written()[0], "Press X,-123456.750, ");
  EXPECT_EQ(Written()[14], "1,0.300,-2147483648");
}

TEST_F(CsvTest, TheThirdCoefficientIsInTheEnergiesAloneAsMeant) {
  record_.Prop.EGC[2] = 0.5;
  const Lines lines = Written();
  EXPECT_EQ(lines.size(), 16u);
  EXPECT_EQ(lines[14], "1,0.800,0");  // 0.25 + 0.05 + 0.5
  EXPECT_EQ(lines[15], "2,2.350,7");  // 0.25 + 0.1 + 2
  EXPECT_EQ(lines[9].substr(0, 1), "2");
}

TEST_F(CsvTest, AllChannelsInUseAreWritten) {
  block_.Count = 8192;
  EXPECT_EQ(Written().size(), 14u + 8192);
  EXPECT_EQ(Written()[12], "8192, , ");
  EXPECT_EQ(Written().back(), "8192,409.850,0");  // 0.25 + 0.05 * 8192
  block_.Count = 0;
  EXPECT_EQ(Written().size(), 14u);
  EXPECT_EQ(Written()[12], "0, , ");
}

TEST_F(CsvTest, ReplacesWithoutAQuestionAndLeavesNoOldTail) {
  folder_.Put("a.csv", std::string(100000, 'x'));
  EXPECT_EQ(Write(context_, "a.csv"), -1);
  EXPECT_EQ(folder_.Get("a.csv"), AsText(CsvImage(block_, record_)));
}

TEST_F(CsvTest, AnyFailureHasTheExportsOwnMessage) {
  dialogs_.ExpectMessage("CSV File Write Error");
  EXPECT_EQ(Write(context_, "missing folder/a.csv"), 0);
  for (int n = 1;; ++n) {
    folder_.Put("a.csv", "old");
    FailingFileLayer failing(system_, n);
    YesDialogs dialogs;
    FileContext context{failing, dialogs, last_data_type_};
    const std::int16_t done = Write(context, "a.csv");
    if (!failing.Hit()) break;
    EXPECT_EQ(done, 0) << n;
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{"CSV File Write Error"}) << n;
    EXPECT_EQ(folder_.Get("a.csv"), "old") << n;
  }
}

TEST_F(CsvTest, ChannelCountsOutOfRangeAreNotWritten) {
  for (const std::int16_t count : {-1, 8193}) {
    block_.Count = count;
    dialogs_.ExpectMessage("CSV File Write Error");
    EXPECT_EQ(Write(context_, "a.csv"), 0);
  }
  EXPECT_TRUE(folder_.Names().empty());
}

}  // namespace
}  // namespace dorvane
