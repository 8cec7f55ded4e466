// Expected bytes and texts come from the tables of docs/formats/parameters.md, offsets added up by
// hand: 2 + 664 + 164 + 3536 + 300 (+ 664).
#include "files/FilePara.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <memory>

#include "files/FilesFixture.h"
#include "files/Samples.h"

namespace dorvane {
namespace {

constexpr std::size_t kShortSize = 4666;
constexpr std::size_t kLongSize = 5330;
constexpr const char* kReadMessage = "Para File Read (Open Error)";

// A value of its own in every field.
ParaBlock SamplePara() {
  ParaBlock block;
  block.DefaultProp = SampleProp();
  for (int i = 0; i < kColors; ++i) block.ColorTbl[i] = Rgb(i, 100 + i, 200);
  block.DisplayDefaults.fill('d');
  block.FitParam = {
      .FuncType = 3, .SmoothKind = 2, .PeakThres = 7, .BackInterval = 15, .BackTimes = 31};
  block.FitParam.Tail.fill('t');
  block.LastProp = SampleProp();
  block.LastProp.TwoTheta = 12.5;
  return block;
}

std::string ParaText(const ParaBlock& block, std::int16_t skip_last_prop) {
  return std::string(AsText(ParaImage(block, skip_last_prop)));
}

template <typename Number>
Number At(const std::string& image, std::size_t offset) {
  static_assert(std::endian::native == std::endian::little);
  Number number;
  std::memcpy(&number, image.data() + offset, sizeof number);
  return number;
}

class FileParaTest : public FilesTest {
 protected:
  void Fill(const ParaBlock& block) {
    workspace_->DefaultProp = block.DefaultProp;
    workspace_->ColorTbl = block.ColorTbl;
    workspace_->DisplayDefaults = block.DisplayDefaults;
    workspace_->FitParam = block.FitParam;
    workspace_->LastProp = block.LastProp;
  }
  ParaBlock Held() const {
    return {workspace_->DefaultProp, workspace_->ColorTbl, workspace_->DisplayDefaults,
            workspace_->FitParam, workspace_->LastProp};
  }
  std::int16_t Read() { return ParaFileRead(context_, folder_.Path("para"), *workspace_); }
  std::int16_t Write() { return ParaFileWrite(context_, folder_.Path("para"), *workspace_); }

  std::unique_ptr<Workspace> workspace_ = std::make_unique<Workspace>();
};

TEST_F(FileParaTest, FileEndsWithTheSettingsOrWithLastProp) {
  EXPECT_EQ(ParaText(SamplePara(), 1).size(), kShortSize);
  EXPECT_EQ(ParaText(SamplePara(), 0).size(), kLongSize);
}

TEST_F(FileParaTest, FieldsStandAtTheirOffsets) {
  const std::string image = ParaText(SamplePara(), 0);
  EXPECT_EQ(image.substr(0, 2), "00");
  EXPECT_EQ(At<double>(image, 32), 0.0226609);  // 2 + 30: EGC(0)
  EXPECT_EQ(At<double>(image, 56), 1.25);       // 2 + 54: TwoTheta
  EXPECT_EQ(At<std::int32_t>(image, 666), 200 * 65536 + 100 * 256);
  EXPECT_EQ(At<std::int32_t>(image, 826), 200 * 65536 + 140 * 256 + 40);
  EXPECT_EQ(image.substr(830, 3536), std::string(3536, 'd'));
  for (const auto& [offset, value] : {std::pair{4366u, 3}, {4368, 2}, {4370, 7}, {4372, 15}}) {
    EXPECT_EQ(At<std::int16_t>(image, offset), value);
  }
  EXPECT_EQ(At<std::int16_t>(image, 4374), 31);
  EXPECT_EQ(image.substr(4376, 290), std::string(290, 't'));
  EXPECT_EQ(At<double>(image, 4666 + 54), 12.5);
}

TEST_F(FileParaTest, EveryFieldComesBack) {
  Fill(SamplePara());
  EXPECT_EQ(Write(), kTrue);
  Fill(ParaBlock{});
  EXPECT_EQ(Read(), kTrue);
  EXPECT_EQ(Held(), SamplePara());
}

TEST_F(FileParaTest, EveryByteBehindTheMarkComesBackUnchanged) {
  std::string bytes = "00";
  for (std::size_t i = 2; i < kShortSize; ++i) bytes += static_cast<char>(i * 7 % 251);
  folder_.Put("para", bytes);
  workspace_->SkipLastProp = 1;
  EXPECT_EQ(Read(), kTrue);
  EXPECT_EQ(Write(), kTrue);
  EXPECT_EQ(folder_.Get("para"), bytes);
}

TEST_F(FileParaTest, MarkIsNoVersionAndIsMeantToBeIgnored) {
  std::string bytes = ParaText(SamplePara(), 0);
  bytes.replace(0, 2, "\xFF\x01");
  folder_.Put("para", bytes);
  EXPECT_EQ(Read(), kTrue);
  EXPECT_EQ(Held(), SamplePara());
}

TEST_F(FileParaTest, SkippedLastPropIsLeftUnread) {
  folder_.Put("para", ParaText(SamplePara(), 0));
  workspace_->SkipLastProp = 1;
  workspace_->LastProp.TwoTheta = 3;
  EXPECT_EQ(Read(), kTrue);
  EXPECT_EQ(workspace_->DefaultProp, SampleProp());
  EXPECT_EQ(workspace_->LastProp.TwoTheta, 3);
}

TEST_F(FileParaTest, WriteLeavesNothingOfALongerFile) {
  folder_.Put("para", ParaText(SamplePara(), 0) + "more");
  Fill(SamplePara());
  workspace_->SkipLastProp = 1;
  EXPECT_EQ(Write(), kTrue);
  EXPECT_EQ(folder_.Get("para"), ParaText(SamplePara(), 1));
}

TEST_F(FileParaTest, FileWithoutLastPropIsCutShortWhereItIsNotSkipped) {
  folder_.Put("para", ParaText(SamplePara(), 1));
  dialogs_.ExpectMessage(kReadMessage);
  EXPECT_EQ(Read(), kFalse);
  EXPECT_EQ(Held(), ParaBlock{});
}

TEST_F(FileParaTest, MissingFileIsToldAndLeavesTheDefaults) {
  dialogs_.ExpectMessage(kReadMessage);
  EXPECT_EQ(Read(), kFalse);
  EXPECT_EQ(Held(), ParaBlock{});
}

TEST_F(FileParaTest, FileCutAtAnyByteGivesNothingOfItsBlock) {
  for (const std::int16_t skip : {0, 1}) {
    const ByteVector image = ParaImage(SamplePara(), skip);
    ParaBlock block;
    for (std::size_t size = 0; size < image.size(); ++size) {
      EXPECT_THROW(ParsePara(std::span(image).first(size), skip, block), Fault);
      ASSERT_EQ(block, ParaBlock{}) << "cut at " << size;
    }
  }
}

TEST_F(FileParaTest, CutFileIsTold) {
  folder_.Put("para", ParaText(SamplePara(), 1).substr(0, kShortSize - 1));
  workspace_->SkipLastProp = 1;
  dialogs_.ExpectMessage(kReadMessage);
  EXPECT_EQ(Read(), kFalse);
  EXPECT_EQ(Held(), ParaBlock{});
}

TEST_F(FileParaTest, FailedTransferIsToldAndGivesNothing) {
  folder_.Put("para", ParaText(SamplePara(), 0));
  for (int n = 1;; ++n) {
    FailingFileLayer failing(system_, n);
    YesDialogs dialogs;
    FileContext context{failing, dialogs, last_data_type_};
    const std::int16_t read = ParaFileRead(context, folder_.Path("para"), *workspace_);
    if (!failing.Hit()) break;
    EXPECT_EQ(read, kFalse);
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{kReadMessage});
    EXPECT_EQ(Held(), ParaBlock{});
  }
  EXPECT_EQ(Held(), SamplePara());
}

TEST_F(FileParaTest, ColoursComeBackAsTheyAreEvenAllBlack) {
  ParaBlock black = SamplePara();
  black.ColorTbl.fill(0);
  folder_.Put("para", ParaText(black, 0));
  EXPECT_EQ(Read(), kTrue);
  EXPECT_EQ(workspace_->ColorTbl, ColorTable{});
}

class IniFileTest : public FilesTest {
 protected:
  IniFileTest() {
    workspace_->Settings = {1, 2, 3, 4};
    workspace_->FilterIndex = 7;
  }
  void Read() { IniFileRead(context_, folder_.Path("ini"), *workspace_); }
  void Read(const std::string& text) {
    folder_.Put("ini", text);
    Read();
  }

  std::unique_ptr<Workspace> workspace_ = std::make_unique<Workspace>();
  const AnalysisSettings defaults_{0.2, 20, 0.49576, 0.03};
};

TEST_F(IniFileTest, DefaultsStandInTheirPatterns) {
  IniFileWrite(context_, folder_.Path("ini"), *std::make_unique<Workspace>());
  EXPECT_EQ(folder_.Get("ini"), "0.20\r\n20.00\r\n0.495760\r\n 1 \r\n0.0300\r\n");
}

TEST_F(IniFileTest, ValuesAreRoundedToTheirPatterns) {
  workspace_->Settings = {1.005, 12345.678, 0.7, 0.00005};
  workspace_->FilterIndex = -3;
  IniFileWrite(context_, folder_.Path("ini"), *workspace_);
  EXPECT_EQ(folder_.Get("ini"), "1.01\r\n12345.68\r\n0.700000\r\n -3 \r\n0.0001\r\n");
}

TEST_F(IniFileTest, FiveLinesAreTaken) {
  Read("0.25\r\n18.50\r\n0.412300\r\n 3 \r\n0.0150\r\n");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.25, 18.5, 0.4123, 0.015}));
  EXPECT_EQ(workspace_->FilterIndex, 3);
}

TEST_F(IniFileTest, LineFeedsAndBlanksAreTaken) {
  Read("  0.25\n18.5  \n4.123E-1\n3\n.015");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.25, 18.5, 0.4123, 0.015}));
  EXPECT_EQ(workspace_->FilterIndex, 3);
}

TEST_F(IniFileTest, MissingFileGivesTheDefaults) {
  Read();
  EXPECT_EQ(workspace_->Settings, defaults_);
  EXPECT_EQ(workspace_->FilterIndex, 7);
}

TEST_F(IniFileTest, FilterIndexStartsAtOne) {
  EXPECT_EQ(std::make_unique<Workspace>()->FilterIndex, 1);
}

TEST_F(IniFileTest, TextInLineOneResetsAllAndTheNumbersBehindItCount) {
  Read("text\r\n18.50\r\ntext\r\n 3 \r\n0.0150\r\n");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.2, 20, 0.49576, 0.015}));
  EXPECT_EQ(workspace_->FilterIndex, 3);
  Read("text\r\n18.50\r\n0.4123\r\n 3 \r\n0.0150\r\n");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.2, 18.5, 0.4123, 0.015}));
}

TEST_F(IniFileTest, TextInTheLastLineIsMeantToResetTheLinesBeforeIt) {
  Read("0.25\r\n18.50\r\n0.412300\r\n 3 \r\n\r\n");
  EXPECT_EQ(workspace_->Settings, defaults_);
  EXPECT_EQ(workspace_->FilterIndex, 3);
}

TEST_F(IniFileTest, FilterIndexThatIsNoNumberIsZeroAndResetsTheSettings) {
  Read("0.25\r\n18.50\r\n0.412300\r\nthree\r\n0.0150\r\n");
  EXPECT_EQ(workspace_->FilterIndex, 0);
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.2, 20, 0.49576, 0.015}));
}

TEST_F(IniFileTest, FilterIndexTooLargeCountsAsNoNumber) {
  Read("0.25\r\n18.50\r\n0.412300\r\n32768\r\n0.0150\r\n");
  EXPECT_EQ(workspace_->FilterIndex, 0);
}

TEST_F(IniFileTest, FilterIndexIsRoundedHalfToEven) {
  Read("0.25\r\n18.50\r\n0.412300\r\n2.5\r\n0.0150\r\n");
  EXPECT_EQ(workspace_->FilterIndex, 2);
}

TEST_F(IniFileTest, LinesThatAreThereCount) {
  Read("0.25\r\n18.50\r\n");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.25, 18.5, 3, 4}));
  EXPECT_EQ(workspace_->FilterIndex, 7);
}

TEST_F(IniFileTest, EmptyFileChangesNothing) {
  Read("");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{1, 2, 3, 4}));
}

TEST_F(IniFileTest, LinesBehindTheFifthAreNotRead) {
  Read("0.25\r\n18.50\r\n0.412300\r\n 3 \r\n0.0150\r\ntext\r\n");
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.25, 18.5, 0.4123, 0.015}));
}

TEST_F(IniFileTest, UnreadableFileIsToldAndGivesTheDefaults) {
  folder_.Put("ini", "0.25\r\n");
  for (int n = 1;; ++n) {
    workspace_->Settings = {1, 2, 3, 4};
    FailingFileLayer failing(system_, n);
    YesDialogs dialogs;
    FileContext context{failing, dialogs, last_data_type_};
    IniFileRead(context, folder_.Path("ini"), *workspace_);
    if (!failing.Hit()) break;
    EXPECT_EQ(dialogs.messages, std::vector<std::string>{kReadMessage});
    EXPECT_EQ(workspace_->Settings, defaults_);
  }
  EXPECT_EQ(workspace_->Settings, (AnalysisSettings{0.25, 2, 3, 4}));
}

}  // namespace
}  // namespace dorvane
