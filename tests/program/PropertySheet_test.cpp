#include "program/PropertySheet.h"

#include <gmock/gmock.h>

#include "files/FileDorvane.h"
#include "program/ProgramFixture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(PropertySheet, CountUpTakesTheNextNumberInSixDigits) {
  EXPECT_EQ(CountUp("abc000099"), "abc000100");
  EXPECT_EQ(CountUp("000000"), "000001");
  EXPECT_EQ(CountUp("1234567"), "1234568");
  EXPECT_EQ(CountUp("試料000009"), "試料000010");
}

TEST(PropertySheet, CountUpGrowsBehindTheLastNumber) {
  EXPECT_EQ(CountUp("x999999"), "x1000000");
}

TEST(PropertySheet, CountUpLeavesNamesThatDoNotEndInSixDigits) {
  for (const char* name : {"abc", "", "00001", "abc00009", "000099a", "1e0005", "00-001", "+00001",
                           "0001.5", "a 00099", "  00099", "００００００"}) {
    EXPECT_EQ(CountUp(name), name);
  }
}

TEST(PropertySheet, CountUpTakesTheBlanksAroundACountedNameAway) {
  EXPECT_EQ(CountUp("  abc000099 "), "abc000100");
  EXPECT_EQ(CountUp(" abc "), " abc ");
}

// 64 bytes have room in the field, 65 would be cut to a smaller number.
TEST(PropertySheet, CountUpLeavesANameWhoseSuccessorHasNoRoom) {
  const std::string longest = std::string(58, 'x') + "999999";
  EXPECT_EQ(CountUp(longest), longest);
  EXPECT_EQ(CountUp(std::string(57, 'x') + "999999"), std::string(57, 'x') + "1000000");
}

TEST(PropertySheet, BlankDateAndTimeShowTheirBlanks) {
  EXPECT_EQ(DateText(FixedText<8>()), "    /  /  ");
  EXPECT_EQ(TimeText(FixedText<6>()), "  :  .  ");
}

TEST(PropertySheet, DateAndTimeOfNulsShowBlanksAndStayAsTheyAre) {
  FixedText<8> date;
  date.Raw().fill('\0');
  FixedText<6> time;
  time.Raw().fill('\0');
  EXPECT_EQ(DateText(date), "    /  /  ");
  EXPECT_EQ(TimeText(time), "  :  .  ");
  EXPECT_FALSE(TakeDate(date, "    /  /  "));
  EXPECT_FALSE(TakeTime(time, "  :  .  "));
  EXPECT_EQ(date.Bytes(), std::string(8, '\0'));
  EXPECT_EQ(time.Bytes(), std::string(6, '\0'));
}

// Writes down what happens, and lets the files of the label tool lie in a folder of the test.
class LabelFiles : public SystemFileLayer {
 public:
  LabelFiles(const TemporaryFolder& folder, std::vector<std::string>& steps)
      : folder_(folder), steps_(steps) {}

  std::string fails;  // step that throws

  std::optional<FileInfo> Info(const std::string& path) override {
    if (path == kLabelFile) Step("look");
    return SystemFileLayer::Info(Mapped(path));
  }
  std::string LinkTarget(const std::string& path) override {
    return SystemFileLayer::LinkTarget(Mapped(path));
  }
  int Create(const std::string& path, unsigned permissions) override {
    Step("create");
    return SystemFileLayer::Create(Mapped(path), permissions);
  }
  void Write(int file, std::span<const std::byte> bytes) override {
    Step("write");
    SystemFileLayer::Write(file, bytes);
  }
  void Rename(const std::string& from, const std::string& to) override {
    SystemFileLayer::Rename(Mapped(from), Mapped(to));
    Step("written");
  }
  void Remove(const std::string& path) override {
    if (path == kLabelFile) Step("delete");
    SystemFileLayer::Remove(Mapped(path));
  }

 private:
  void Step(const std::string& step) {
    steps_.push_back(step);
    if (step == fails) throw Fault(FaultCode::FileFailed);
  }
  std::string Mapped(const std::string& path) const {
    const std::string directory = "c:\\LBL_TEMP\\";
    return path.starts_with(directory) ? folder_.Path(path.substr(directory.size())) : path;
  }

  const TemporaryFolder& folder_;
  std::vector<std::string>& steps_;
};

class LabelPrintTest : public testing::Test {
 protected:
  struct Tool : Launcher {
    explicit Tool(std::vector<std::string>& to) : steps(to) {}
    bool EditText(const std::string&) override { return false; }
    bool Start(const std::string& path) override {
      steps.push_back("start " + path);
      return works;
    }
    std::vector<std::string>& steps;
    bool works = true;
  };

  LabelPrintTest() {
    Workspace& workspace = program->workspace;
    workspace.Spectra[3].SampName.Set("MgO");
    workspace.Channels[3].Count = 3;
    workspace.Channels[3].Counts[1] = 77;
  }
  void Print() { LabelPrint(*program, tool, "c:/tools/", 3); }
  bool Written() const { return folder.Has("Label_Temp.xbm"); }

  const std::string kStarted = "start c:/tools\\DorvaneLabelPrint.exe";
  TemporaryFolder folder;
  std::vector<std::string> steps;
  LabelFiles files{folder, steps};
  Tool tool{steps};
  ScriptedDialogs dialogs;
  RecordingLog log;
  RecordingProgress progress;
  RecordingListener listener;
  std::unique_ptr<Program> program =
      std::make_unique<Program>(Ports{dialogs, files, log, progress, listener}, "c:/dorvane/");
};

TEST_F(LabelPrintTest, ToolIsMeantToStartBeforeItsFileIsWritten) {
  Print();
  ASSERT_FALSE(steps.empty());
  EXPECT_EQ(steps.front(), kStarted);
  EXPECT_EQ(steps.back(), "written");
}

TEST_F(LabelPrintTest, LabelFileIsTheSpectrumInTheNativeFormat) {
  Print();
  const ByteVector bytes = ReadFile(files, folder.Path("Label_Temp.xbm"));
  ChannelBlock block;
  SpectrumRec record;
  ParseXbm(bytes, block, record);
  EXPECT_EQ(record.SampName.Text(), "MgO");
  EXPECT_EQ(block.Count, 3);
  EXPECT_EQ(block.Counts[1], 77);
}

TEST_F(LabelPrintTest, FileOfBeforeIsDeletedAndReplacedWithoutAQuestion) {
  folder.Put("Label_Temp.xbm", std::string(5000, 'x'));
  Print();
  std::erase(steps, "look");
  EXPECT_THAT(steps, ElementsAre(kStarted, "delete", "create", "write", "written"));
  // A header of 2070 bytes and three channels of four; nothing of the old file behind them.
  EXPECT_EQ(folder.Get("Label_Temp.xbm").size(), 2082u);
}

TEST_F(LabelPrintTest, WithoutTheToolNothingElseIsDone) {
  folder.Put("Label_Temp.xbm", "old");
  tool.works = false;
  dialogs.ExpectMessage("Label Print error");
  Print();
  EXPECT_THAT(steps, ElementsAre(kStarted));
  EXPECT_EQ(folder.Get("Label_Temp.xbm"), "old");
}

TEST_F(LabelPrintTest, FileThatCannotBeLookedAtEndsIt) {
  files.fails = "look";
  dialogs.ExpectMessage("Label Print error");
  Print();
  EXPECT_THAT(steps, ElementsAre(kStarted, "look"));
}

TEST_F(LabelPrintTest, FileThatCannotBeDeletedEndsIt) {
  folder.Put("Label_Temp.xbm", "old");
  files.fails = "delete";
  dialogs.ExpectMessage("Label Print error");
  Print();
  EXPECT_THAT(steps, ElementsAre(kStarted, "look", "delete"));
  EXPECT_EQ(folder.Get("Label_Temp.xbm"), "old");
}

TEST_F(LabelPrintTest, FileThatCannotBeOpenedIsTold) {
  files.fails = "create";
  dialogs.ExpectMessage("Failed Create Label File!");
  Print();
  EXPECT_FALSE(Written());
}

TEST_F(LabelPrintTest, FileThatCannotBeWrittenIsToldBehindTheBoxOfTheWriter) {
  files.fails = "write";
  dialogs.ExpectMessage("Open Error");
  dialogs.ExpectMessage("Failed Create Label File!");
  Print();
  EXPECT_FALSE(Written());
  EXPECT_THAT(folder.Names(), IsEmpty());
}

}  // namespace
}  // namespace dorvane
