// Saves from the program at a file system that fails: the graph stays unsaved, the program goes on.
#include <gmock/gmock.h>

#include <filesystem>

#include "files/FormatTable.h"
#include "program/Commands.h"
#include "program/LatticeLogFile.h"
#include "program/OpenSave.h"
#include "program/ProgramFixture.h"
#include "support/WriterChecks.h"

namespace dorvane {
namespace {

using Mode = FailingFileLayer::Mode;

// Passes calls on to whatever layer is set.
class SwitchedFiles : public FileLayer {
 public:
  explicit SwitchedFiles(FileLayer& first) : to(&first) {}
  FileLayer* to;

  std::optional<FileInfo> Info(const std::string& path) override { return to->Info(path); }
  std::string LinkTarget(const std::string& path) override { return to->LinkTarget(path); }
  int OpenForReading(const std::string& path) override { return to->OpenForReading(path); }
  int Create(const std::string& path, unsigned rights) override { return to->Create(path, rights); }
  std::size_t Read(int file, std::span<std::byte> out) override { return to->Read(file, out); }
  void Write(int file, std::span<const std::byte> bytes) override { to->Write(file, bytes); }
  void Flush(int file) override { to->Flush(file); }
  void Close(int file) override { to->Close(file); }
  void Rename(const std::string& from, const std::string& to_path) override {
    to->Rename(from, to_path);
  }
  void Remove(const std::string& path) override { to->Remove(path); }
};

class SaveFaultsTest : public testing::TestWithParam<std::string> {
 protected:
  SaveFaultsTest() {
    SetStartValues(*program_);
    const GraphList list = program_->List();
    const std::int16_t data_no = GetGraphSpace(list, -1);
    ChannelBlock& block = program_->workspace.Channels[data_no];
    block.Count = 100;
    std::fill_n(block.Counts.begin(), 100, 7);
    SetGraph(list, 0, 0, data_no, "a.npd");
    Change_cboGrphSel(list, 0, 0);
    Unsave();
    Save(system_);
    good_ = folder_.Get(kName);
  }

  const std::string kName = "out." + GetParam();

  GraphSlot& Row() { return program_->workspace.Slots[0]; }
  void Unsave() { Row().State = kRowUnsaved; }
  // As the save command does.
  void Save(FileLayer& files) {
    files_.to = &files;
    dialogs_.messages.clear();
    RunGuarded(*program_, [&](Program& program) { SaveGraphAs(program, folder_.Path(kName)); });
    files_.to = &system_;
  }

  void ExpectUnsavedAtEveryFailure(Mode mode) {
    for (int n = 1;; ++n) {
      SCOPED_TRACE("call " + std::to_string(n));
      folder_.Put(kName, "old");
      Unsave();
      FailingFileLayer failing(system_, n, mode);
      Save(failing);
      if (!failing.Hit()) break;
      EXPECT_EQ(Row().State, kRowUnsaved);
      EXPECT_EQ(folder_.Get(kName), "old");
      EXPECT_EQ(dialogs_.messages.size(), 1u);
      Save(system_);
      EXPECT_EQ(Row().State, kRowSaved);
      EXPECT_EQ(folder_.Get(kName), good_);
      EXPECT_THAT(dialogs_.messages, testing::IsEmpty());
      EXPECT_EQ(folder_.Names(), std::vector<std::string>{kName});
    }
  }

  TemporaryFolder folder_;
  SystemFileLayer system_;
  SwitchedFiles files_{system_};
  YesDialogs dialogs_;
  RecordingLog log_;
  RecordingProgress progress_;
  WorkspaceListener listener_;
  std::unique_ptr<Program> program_ = std::make_unique<Program>(
      Ports{dialogs_, files_, log_, progress_, listener_}, folder_.Path(""));
  std::string good_;
};

TEST_P(SaveFaultsTest, AGraphStaysUnsavedAtEveryFailureUntilTheNextSave) {
  ExpectUnsavedAtEveryFailure(Mode::FailingOnce);
  ExpectUnsavedAtEveryFailure(Mode::FailingOn);
}

TEST_P(SaveFaultsTest, AGraphStaysUnsavedWhereItMayNotBeWritten) {
  folder_.Put(kName, "old");
  Unsave();
  ReadOnlyFiles locked;
  Save(locked);
  EXPECT_EQ(Row().State, kRowUnsaved);
  EXPECT_EQ(folder_.Get(kName), "old");
  EXPECT_EQ(dialogs_.messages.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Of, SaveFaultsTest, testing::ValuesIn(WritableExtensions()),
                         [](const auto& info) { return info.param; });

// The copy of a log that the user keeps.
WriterCase ResultWriter() {
  SpectrumRec spectrum;
  const auto write = [](FileLayer& layer, YesDialogs& dialogs,
                        const std::string& path) -> std::optional<std::int16_t> {
    const TemporaryFolder folder;
    SystemFileLayer system;
    SwitchedFiles files(system);
    LatticeLogFile log(files, dialogs, folder.Path(""));
    log.OpenLatticeLog(kFirstLog);
    log.LogEnd(SpectrumRec{});
    files.to = &layer;
    dialogs.to_save = FileChoice{path, 1};
    log.SaveResultFile(*std::make_unique<Workspace>());
    files.to = &system;
    return {};
  };
  return {"result", write, CsvText(LogEnd(spectrum))};
}

WriterCase SummaryWriter() {
  const SpectrumRec spectrum;
  const auto write = [](FileLayer& files, Dialogs& dialogs,
                        const std::string& path) -> std::optional<std::int16_t> {
    const SpectrumRec of;
    std::string tag;
    DataSave(files, dialogs, path.substr(0, path.rfind('/') + 1), SummaryInput{of}, tag);
    return {};
  };
  WriterCase writer{"summary", write,
                    CsvText(SummaryRecords(SummaryInput{spectrum}, SummaryTag(0, "")))};
  writer.file_name = "LatticeFit.csv";
  return writer;
}

INSTANTIATE_TEST_SUITE_P(Of, WriterTest, testing::Values(ResultWriter(), SummaryWriter()),
                         NameOfWriter);
INSTANTIATE_TEST_SUITE_P(Of, NamedWriterTest, testing::Values(ResultWriter()), NameOfWriter);

}  // namespace
}  // namespace dorvane
