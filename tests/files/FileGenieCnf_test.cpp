// The binary file of the analyser. Images are put together byte by byte from docs/formats/cnf.md.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "files/FileGenie.h"
#include "files/ReaderFixture.h"

namespace dorvane {
namespace {

constexpr std::size_t kPlainSize = 41984;
constexpr std::size_t kShift = 4608;
constexpr std::size_t kWordsAt = 25600;

// Word i is 10 * i; the last of the 4096 counts lacks. `base` is 0 or 4608.
std::string CnfOf(std::size_t base = 0) {
  std::string image(base + kPlainSize, '\xEE');
  image[11] = static_cast<char>(base == 0 ? 164 : 182);
  PutText(image, base + 16944, Columns("run 12", 64));
  PutText(image, base + 17008, Columns("Al2O3", 16));
  PutText(image, base + 17622, Columns("30.0, 25.0", 24));
  PutText(image, base + 17774, Columns("6.5116", 24));
  PutText(image, base + 17966, Columns("0.25 0.05", 64));
  for (int i = 0; i < 4096; ++i) {
    PutWord(image, base + kWordsAt + 4 * static_cast<std::size_t>(i), 10 * i);
  }
  return image;
}

class CnfTest : public ReaderTest {
 protected:
  static std::string With(std::size_t offset, std::string_view text) {
    std::string image = CnfOf();
    PutText(image, offset, text);
    return image;
  }
  void ReadGood(const std::string& image) { ASSERT_EQ(Read(image, "a.cnf"), -1); }
  void ExpectFileError(const std::string& image) { ExpectRefused(image, "a.cnf", "File Error"); }
  void ExpectGood() {
    EXPECT_EQ(record_.MsuName.Text(), "run 12");
    EXPECT_EQ(record_.SampName.Text(), "Al2O3");
    EXPECT_EQ(record_.Prop.Load, 30);
    EXPECT_EQ(record_.Prop.Temp, 25);
    EXPECT_EQ(record_.Prop.TwoTheta, 6.5116);
    EXPECT_EQ(record_.Prop.EGC[0], 0.25);
    EXPECT_EQ(record_.Prop.EGC[1], 0.05);
    EXPECT_EQ(record_.Prop.EGC[2], 0);
    EXPECT_EQ(block_.Count, 4096);
    EXPECT_EQ(block_.Counts[1], 10);
    EXPECT_EQ(block_.Counts[4095], 40950);
  }
};

TEST_F(CnfTest, AGoodFileIsRead) {
  ReadGood(CnfOf());
  ExpectGood();
}

TEST_F(CnfTest, ALayoutByteOf182MovesAllBy4608) {
  ReadGood(CnfOf(kShift));
  ExpectGood();
}

TEST_F(CnfTest, TheExampleOfTheFormatsPage) {
  static_assert(kPlainSize == 0xA400);
  std::string image = CnfOf();
  for (int i = 0; i < 4; ++i) PutWord(image, kWordsAt + 4 * static_cast<std::size_t>(i), 10 * i);
  ReadGood(image);
  EXPECT_THAT(block_.Used().first(4), testing::ElementsAre(10, 10, 20, 30));
  EXPECT_EQ(record_.Prop.Load, 30);
  EXPECT_EQ(record_.Prop.Temp, 25);
}

TEST_F(CnfTest, CountsMoveUpByOneSoThatTheFirstStandsTwiceAsMeant) {
  ReadGood(CnfOf());
  EXPECT_EQ(block_.Counts[0], 10);
  for (int i = 1; i < 4096; ++i) ASSERT_EQ(block_.Counts[i], 10 * i) << i;
}

TEST_F(CnfTest, TheFirstWordIsSkipped) {
  std::string image = CnfOf();
  PutWord(image, kWordsAt, 999);
  ReadGood(image);
  EXPECT_THAT(block_.Used(), testing::Not(testing::Contains(999)));
}

TEST_F(CnfTest, TheLastWordIsDroppedWhereItIsThereAsMeant) {
  ReadGood(CnfOf() + "\x01\x02\x03\x04");
  ExpectGood();
  ReadGood(CnfOf(kShift) + "\x01\x02\x03\x04 and more");
  ExpectGood();
}

TEST_F(CnfTest, CountsAreSigned32BitWords) {
  std::string image = CnfOf();
  PutText(image, kWordsAt + 8, std::string_view("\xFE\xFF\xFF\xFF\x01\x02\x03\x04", 8));
  ReadGood(image);
  EXPECT_EQ(block_.Counts[2], -2);
  EXPECT_EQ(block_.Counts[3], 67305985);  // 1 + 2 * 256 + 3 * 65536 + 4 * 16777216
}

TEST_F(CnfTest, TheTypesAre3AndTheOperatorIsCleared) {
  ReadGood(CnfOf());
  EXPECT_EQ(record_.DataType, 3);
  EXPECT_EQ(last_data_type_, 3);
  EXPECT_EQ(record_.OpName.Text(), "");
}

TEST_F(CnfTest, FieldsThatTheFormatHasNotStay) {
  ReadGood(CnfOf());
  SpectrumRec expected = SampleRecord();
  expected.MsuName = record_.MsuName;
  expected.SampName = record_.SampName;
  expected.OpName.Clear();
  expected.DataType = 3;
  expected.Prop.Load = 30;
  expected.Prop.Temp = 25;
  expected.Prop.TwoTheta = 6.5116;
  expected.Prop.EGC = record_.Prop.EGC;
  EXPECT_EQ(record_, expected);
}

TEST_F(CnfTest, NamesFillTheirBlocks) {
  ReadGood(With(16944, std::string(64, 'n') + std::string(16, 's')));
  EXPECT_EQ(record_.MsuName.Text(), std::string(64, 'n'));
  EXPECT_EQ(record_.SampName.Text(), std::string(16, 's'));
}

TEST_F(CnfTest, NumbersOfABlockEndWithIt) {
  ReadGood(With(17622, "30" + std::string(20, ' ') + "259"));  // the 9 is the 25th character
  EXPECT_EQ(record_.Prop.Temp, 25);
  ReadGood(With(17966, "1" + std::string(61, ' ') + "259"));  // the 9 is the 65th
  EXPECT_EQ(record_.Prop.EGC[1], 25);
}

TEST_F(CnfTest, NumbersOfABlockEndAtAZeroByte) {
  ReadGood(With(17622, std::string_view("30,25\0rest", 10)));
  EXPECT_EQ(record_.Prop.Load, 30);
  EXPECT_EQ(record_.Prop.Temp, 25);
}

TEST_F(CnfTest, MissingNumbersAre0) {
  ReadGood(With(17622, std::string(24, '\0')));
  EXPECT_EQ(record_.Prop.Load, 0);
  EXPECT_EQ(record_.Prop.Temp, 0);
  ReadGood(With(17774, std::string(24, ' ')));
  EXPECT_EQ(record_.Prop.TwoTheta, 0);
  ReadGood(With(17966, Columns("0.5", 64)));
  EXPECT_EQ(record_.Prop.EGC[0], 0.5);
  EXPECT_EQ(record_.Prop.EGC[1], 0);
}

TEST_F(CnfTest, APieceThatIsNoNumberIsFileError) {
  for (const std::size_t offset : {17622u, 17774u, 17966u}) ExpectFileError(With(offset, "x"));
}

TEST_F(CnfTest, AMissingFileIsToldInItsOwnSpelling) {
  dialogs_.ExpectMessage("Fine NotFound");
  EXPECT_EQ(ReadPath(folder_.Path("none.cnf")), 0);
  ExpectUntouched();
}

TEST_F(CnfTest, AnotherLayoutByteIsToldAsAMissingFile) {
  for (const int layout : {0, 163, 165, 181, 183, 255}) {
    ExpectRefused(With(11, std::string(1, static_cast<char>(layout))), "a.cnf", "Fine NotFound");
  }
}

TEST_F(CnfTest, CutAtAnyByteIsFileErrorUntilOnlyTheLastWordLacks) {
  ExpectCutIsReadOrRefused(CnfOf() + "1234", "a.cnf", kPlainSize, "File Error");
}

TEST_F(CnfTest, AShiftedFileCutAtAnyByteIsFileErrorToo) {
  const std::string image = CnfOf(kShift);
  for (const std::size_t size : {12u, 4607u, 4608u, 4609u, 41984u, 46591u}) {
    ExpectFileError(image.substr(0, size));
  }
}

TEST_F(CnfTest, AFolderIsOpenError) {
  std::filesystem::create_directory(folder_.Path("folder.cnf"));
  dialogs_.ExpectMessage("Open Error");
  EXPECT_EQ(ReadPath(folder_.Path("folder.cnf")), 0);
  ExpectUntouched();
}

TEST_F(CnfTest, AReadThatFailsAtAnyCallIsOpenError) {
  ExpectOpenErrorAtEveryFailure(CnfOf(), "a.cnf");
}

}  // namespace
}  // namespace dorvane
