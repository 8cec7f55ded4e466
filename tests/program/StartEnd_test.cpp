#include "program/StartEnd.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "files/FilePara.h"
#include "files/FilesFixture.h"
#include "program/Commands.h"
#include "program/ProgramFixture.h"
#include "support/FailingFileLayer.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr const char* kReadMessage = "Para File Read (Open Error)";
constexpr const char* kWriteMessage = "Para File Write (Open Error)";

class StartEndTest : public ProgramTest {
 protected:
  // The files of an earlier run with a calibration, colours and settings of its own.
  void PutFiles() {
    ParaBlock block;
    block.DefaultProp.EGC[0] = 0.25;
    block.DefaultProp.EGC[1] = 0.0625;
    block.DefaultProp.TwoTheta = 6.5;
    block.ColorTbl = DarkColors();
    block.FitParam.PeakThres = 4;
    folder.Put(kParaFileName, AsText(ParaImage(block, 1)));
    folder.Put(kIniFileName, "0.25\r\n18.50\r\n0.412300\r\n 3 \r\n0.0150\r\n");
  }
  // Starts without files; their absence is told.
  void StartBare() {
    dialogs.ExpectMessage(kReadMessage);
    EXPECT_FALSE(Form_Load(program, folder.Path("")));
  }
  std::unique_ptr<Program> NextRun() {
    return std::make_unique<Program>(Ports{dialogs, files, log, progress, listener},
                                     folder.Path(""));
  }
};

TEST_F(StartEndTest, StartsWithAnEmptyWorkspace) {
  PutFiles();
  EXPECT_TRUE(Form_Load(program, folder.Path("")));
  EXPECT_EQ(workspace.GrpCount, 0);
  EXPECT_TRUE(Titles().empty());
  for (const std::int16_t use : workspace.DataUse) EXPECT_EQ(use, 0);
  for (const ChannelBlock& block : workspace.Channels) EXPECT_EQ(block.Count, 0);
  EXPECT_EQ(workspace.MaxCh, 4096);
}

TEST_F(StartEndTest, StartsWithTheWholeRangeTheCursorAtZeroAndAHeightOfTenMillion) {
  PutFiles();
  Form_Load(program, folder.Path(""));
  EXPECT_EQ(view.StartCh, 0);
  EXPECT_EQ(view.SpanCh, 4096);
  EXPECT_EQ(view.CursorCh, 0);
  EXPECT_EQ(view.HeightY, 10000000);
  EXPECT_EQ(view.FilePile[0], kTrue);
  EXPECT_EQ(view.FilePile[1], kTrue);
}

TEST_F(StartEndTest, TheEngineStartsWithAllChannelsAndTheHeightOfTenMillion) {
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    const ViewScale& scale = program.spect.Scale(win_no);
    EXPECT_EQ(scale.WidthX, 4096);
    EXPECT_EQ(scale.StartX, 0);
    EXPECT_EQ(scale.YMode, kLinear);
    EXPECT_EQ(scale.MaxY, 10000000);
  }
}

TEST_F(StartEndTest, TheNaxFamilyFitsAtStart) {
  EXPECT_EQ(workspace.ExpressFit, 0);
}

TEST_F(StartEndTest, TheCaptionIsTheProgramsOwnUntilAWindowIsActive) {
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze)");
}

TEST_F(StartEndTest, ParameterFileCalibratesTheDefaultsAndSpectrumZero) {
  PutFiles();
  Form_Load(program, folder.Path(""));
  for (const MeasProp* prop : {&workspace.DefaultProp, &workspace.Spectra[0].Prop}) {
    EXPECT_EQ(prop->EGC[0], 0.25);
    EXPECT_EQ(prop->EGC[1], 0.0625);
    EXPECT_EQ(prop->TwoTheta, 6.5);
  }
  EXPECT_EQ(workspace.Spectra[1].Prop, MeasProp{});
  EXPECT_EQ(listener.Count("calibration"), 1);
}

TEST_F(StartEndTest, ParameterFileGivesTheColoursToTheWindows) {
  PutFiles();
  listener.notices.clear();
  Form_Load(program, folder.Path(""));
  EXPECT_EQ(workspace.ColorTbl, DarkColors());
  EXPECT_EQ(listener.Count("redraw 0"), 1);
  EXPECT_EQ(listener.Count("redraw 1"), 1);
}

TEST_F(StartEndTest, SettingsAreTakenFromBothFiles) {
  PutFiles();
  Form_Load(program, folder.Path(""));
  EXPECT_EQ(workspace.FitParam.PeakThres, 4);
  EXPECT_EQ(workspace.Settings, (AnalysisSettings{0.25, 18.5, 0.4123, 0.015}));
  EXPECT_EQ(workspace.FilterIndex, 3);
}

TEST_F(StartEndTest, MissingParameterFileIsToldAndTheDefaultsStay) {
  StartBare();
  EXPECT_EQ(workspace.DefaultProp, MeasProp{});
  EXPECT_EQ(workspace.ColorTbl, LightColors());
  EXPECT_EQ(workspace.FitParam, FitParamSet{});
  EXPECT_EQ(workspace.Settings, AnalysisSettings{});
  EXPECT_EQ(workspace.FilterIndex, 1);
}

TEST_F(StartEndTest, ParameterFileCutShortGivesNothing) {
  PutFiles();
  folder.Put(kParaFileName, folder.Get(kParaFileName).substr(0, 1000));
  StartBare();
  EXPECT_EQ(workspace.DefaultProp, MeasProp{});
  EXPECT_EQ(workspace.ColorTbl, LightColors());
  EXPECT_EQ(workspace.Settings.BgCoef, 0.25);
}

TEST_F(StartEndTest, FileChoicesStartInTheStartDirectory) {
  PutFiles();
  Form_Load(program, "/home/user.name/run 3/");
  EXPECT_EQ(workspace.UserDataDir, "/home/user.name/run 3/");
  EXPECT_EQ(workspace.CurDrive, "");
  EXPECT_EQ(workspace.CurDir, "/home/user.name/run 3/");
}

TEST_F(StartEndTest, FileChoicesStartOnTheDriveOfTheStartDirectory) {
  PutFiles();
  Form_Load(program, "d:\\run 3\\");
  EXPECT_EQ(workspace.CurDrive, "d:");
  EXPECT_EQ(workspace.CurDir, "\\run 3\\");
}

TEST_F(StartEndTest, PublicStartTakesTheUserDataDirectory) {
  PutFiles();
  EXPECT_TRUE(Form_Load_Proc(program));
  EXPECT_EQ(workspace.UserDataDir, "\\UserData\\");
  EXPECT_EQ(workspace.CurDir, "\\UserData\\");
  EXPECT_EQ(workspace.FilterIndex, 3);
}

TEST_F(StartEndTest, LastPropIsMeantToStayOutOfTheFile) {
  StartBare();
  EXPECT_NE(workspace.SkipLastProp, 0);
  EXPECT_TRUE(ExitProc(program));
  EXPECT_EQ(folder.Get(kParaFileName).size(), 4666u);  // 2 + 664 + 164 + 3536 + 300
}

TEST_F(StartEndTest, NoAtTheEndKeepsTheProgramRunningWithAllGraphs) {
  Show({1, 2, 3});
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  EXPECT_FALSE(ExitProc(program));
  EXPECT_EQ(Titles(), std::vector<std::string>{"a.npd"});
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(StartEndTest, TheOtherFormsGoBeforeTheFilesAreWritten) {
  bool written = true;
  EXPECT_TRUE(ExitProc(program, [&] { written = folder.Has(kParaFileName); }));
  EXPECT_FALSE(written);
  EXPECT_TRUE(folder.Has(kParaFileName));
}

TEST_F(StartEndTest, NoAtTheEndKeepsTheOtherForms) {
  Show({1, 2, 3});
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  EXPECT_FALSE(ExitProc(program, [] { ADD_FAILURE() << "a form has gone"; }));
}

TEST_F(StartEndTest, YesAtTheEndDropsTheDataAndWritesBothFiles) {
  Show({1, 2, 3});
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  EXPECT_TRUE(ExitProc(program));
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{kIniFileName, kParaFileName}));
}

TEST_F(StartEndTest, SavedGraphsEndWithoutAQuestion) {
  Show({1, 2, 3});
  EXPECT_TRUE(ExitProc(program));
}

TEST_F(StartEndTest, NextRunHasTheSettingsAndNoGraph) {
  StartBare();
  Show({1, 2, 3});
  workspace.DefaultProp.TwoTheta = 6.5;
  workspace.ColorTbl[3] = Rgb(1, 2, 3);
  workspace.FitParam.BackTimes = 12;
  workspace.Settings.JudgeRange = 0.0125;
  workspace.FilterIndex = 4;
  EXPECT_TRUE(ExitProc(program));

  const auto next = NextRun();
  EXPECT_TRUE(Form_Load(*next, folder.Path("")));
  EXPECT_EQ(next->workspace.DefaultProp.TwoTheta, 6.5);
  EXPECT_EQ(next->workspace.ColorTbl[3], Rgb(1, 2, 3));
  EXPECT_EQ(next->workspace.FitParam.BackTimes, 12);
  EXPECT_EQ(next->workspace.Settings.JudgeRange, 0.0125);
  EXPECT_EQ(next->workspace.FilterIndex, 4);
  EXPECT_EQ(next->workspace.GrpCount, 0);
}

TEST_F(StartEndTest, EndThatCannotWriteTellsOnceAndEnds) {
  const auto lost = std::make_unique<Program>(Ports{dialogs, files, log, progress, listener},
                                              folder.Path("no such folder/"));
  dialogs.ExpectMessage(kWriteMessage);
  EXPECT_TRUE(ExitProc(*lost));
}

// Settings out of every range and a calibration that is none end in boxes, not in a crash.
TEST_F(StartEndTest, NoCommandCrashesOnAHostileParameterFile) {
  for (const char fill : {'\x00', '\x01', '\x7F', '\xF0', '\xFF'}) {
    folder.Put(kParaFileName, std::string(4666, fill));
    folder.Put(kIniFileName, "-1E300\r\n0\r\n1E-300\r\n-1\r\n-5\r\n");
    YesDialogs yes;
    const auto held =
        std::make_unique<Program>(Ports{yes, files, log, progress, listener}, folder.Path(""));
    Program& hostile = *held;
    EXPECT_TRUE(Form_Load(hostile, folder.Path("")));
    for (const Command& command : Commands()) {
      hostile.workspace.Channels[0].Count = 1024;
      for (int i = 0; i < 1024; ++i) hostile.workspace.Channels[0].Counts[i] = i % 100 * 10;
      hostile.workspace.DataUse[0] = -1;
      hostile.workspace.GrpCount = 1;
      SetGraph(hostile.List(), 0, 0, 0, "a.npd");
      Change_cboGrphSel(hostile.List(), 0, 0);
      RunCommand(hostile, command.key);
    }
    EXPECT_TRUE(ExitProc(hostile));
  }
}

class ProgramDirectoryTest : public testing::Test {
 protected:
  std::string Directory(FileLayer& layer) {
    return ProgramDirectory(layer, current_.Path(""), "/home/user/.local/share/");
  }
  void Seed(FileLayer& layer) { SeedProgramDirectory(layer, shipped_.Path(""), current_.Path("")); }

  TemporaryFolder current_;
  TemporaryFolder shipped_;
  SystemFileLayer files_;
};

TEST_F(ProgramDirectoryTest, CurrentDirectoryServesWithAnyOfTheThreeFiles) {
  for (const std::string name : {"crystal.dat", "syspara_a.xpr", "Dorvane.ini"}) {
    current_.Put(name, "");
    EXPECT_EQ(Directory(files_), current_.Path("")) << name;
    files_.Remove(current_.Path(name));
  }
}

TEST_F(ProgramDirectoryTest, OtherwiseTheUsersDataDirectoryServes) {
  current_.Put("corundum.npd", "");
  EXPECT_EQ(Directory(files_), "/home/user/.local/share/dorvane/");
}

TEST_F(ProgramDirectoryTest, FolderOfTheNameIsNoFileOfTheProgram) {
  std::filesystem::create_directory(current_.Path("crystal.dat"));
  EXPECT_EQ(Directory(files_), "/home/user/.local/share/dorvane/");
}

TEST_F(ProgramDirectoryTest, DirectoryThatCannotBeLookedAtHoldsNone) {
  current_.Put("crystal.dat", "");
  FailingFileLayer failing(files_, 1, FailingFileLayer::Mode::FailingOn);
  EXPECT_EQ(Directory(failing), "/home/user/.local/share/dorvane/");
}

TEST_F(ProgramDirectoryTest, FirstStartCopiesTheCrystalLibraryAndTheElementTable) {
  shipped_.Put("crystal.dat", "library");
  shipped_.Put("Atomic.db", "table");
  Seed(files_);
  EXPECT_EQ(current_.Get("crystal.dat"), "library");
  EXPECT_EQ(current_.Get("Atomic.db"), "table");
}

TEST_F(ProgramDirectoryTest, TheElementTableAloneMakesNoProgramDirectory) {
  current_.Put("Atomic.db", "");
  EXPECT_EQ(Directory(files_), "/home/user/.local/share/dorvane/");
}

TEST_F(ProgramDirectoryTest, LibraryOfTheUserStays) {
  shipped_.Put("crystal.dat", "library");
  current_.Put("crystal.dat", "mine");
  Seed(files_);
  EXPECT_EQ(current_.Get("crystal.dat"), "mine");
}

TEST_F(ProgramDirectoryTest, FailedSeedLeavesNoFileAndIsMadeUpForAtTheNextStart) {
  for (const std::string name : {"crystal.dat", "Atomic.db"}) {
    shipped_.Put(name, "content");
    bool hit = true;
    for (int n = 1; hit; ++n) {
      FailingFileLayer failing(files_, n);
      Seed(failing);
      hit = failing.Hit();
      const bool there = current_.Has(name);
      EXPECT_TRUE(there || hit) << n;
      EXPECT_EQ(there ? current_.Get(name) : "content", "content") << n;
    }
    EXPECT_TRUE(current_.Has(name));
  }
}

TEST_F(ProgramDirectoryTest, LibraryThatDoesNotShipIsNotSeeded) {
  Seed(files_);
  EXPECT_TRUE(current_.Names().empty());
}

}  // namespace
}  // namespace dorvane
