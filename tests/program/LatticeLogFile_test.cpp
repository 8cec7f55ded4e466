#include "program/LatticeLogFile.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "support/FailingFileLayer.h"
#include "support/MemorySettings.h"
#include "support/ScriptedDialogs.h"
#include "support/TemporaryFolder.h"

namespace dorvane {
namespace {

const char kLogFailure[] = "LatticeFit Temp File Open Error";
const char kStart[] =
    "\"*******************Al2O3LatticeFitting Log Start**************************\"\r\n"
    "\"\"\r\n\"\"\r\n";
const char kEnd[] = "\"*************Al2O3LatticeFitting Log Ende************************\"\r\n";
const char kSeedLine[] = "\"************ New Seed Inputed!!!!!! **************\"\r\n\"\"\r\n";

class LatticeLogFileTest : public testing::Test {
 protected:
  LatticeLogFileTest() { spectrum.MsuName.Set("Al2O3"); }

  LatticeLogFile MakeLog(FileLayer& layer) { return {layer, dialogs, folder.Path("")}; }
  void Title(int row, const std::string& title) {
    workspace->Slots[row].State = kRowSaved;
    workspace->Slots[row].Title = title;
  }
  void TitleAll(const std::string& title) {
    for (int row = 0; row < kRows; ++row) Title(row, title);
  }

  TemporaryFolder folder;
  SystemFileLayer files;
  ScriptedDialogs dialogs;
  MemorySettings settings;
  SpectrumRec spectrum;
  std::unique_ptr<Workspace> workspace = std::make_unique<Workspace>();
};

TEST_F(LatticeLogFileTest, EachModeHasAFileOfItsOwn) {
  LatticeLogFile log = MakeLog(files);
  EXPECT_EQ(log.OpenLatticeLog(0), 0);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"crystalfit.csv"});
  EXPECT_EQ(log.OpenLatticeLog(1), 0);
  EXPECT_EQ(folder.Names(), (std::vector<std::string>{"crystalfit.csv", "crystalfit2.csv"}));
}

TEST_F(LatticeLogFileTest, AnotherModeKeepsTheFileOfBefore) {
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(1);
  EXPECT_EQ(log.OpenLatticeLog(2), 0);
  log.Put(LogSeedInput());
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"crystalfit2.csv"});
  EXPECT_EQ(folder.Get("crystalfit2.csv"), kSeedLine);
}

TEST_F(LatticeLogFileTest, OpeningLosesTheOldContent) {
  folder.Put("crystalfit.csv", "the work of yesterday");
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  EXPECT_EQ(folder.Get("crystalfit.csv"), "");
}

TEST_F(LatticeLogFileTest, OpeningFollowsALink) {
  folder.Put("elsewhere.csv", "old");
  std::filesystem::create_symlink(folder.Path("elsewhere.csv"), folder.Path("crystalfit.csv"));
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  log.Put(LogSeedInput());
  EXPECT_EQ(folder.Get("elsewhere.csv"), kSeedLine);
}

TEST_F(LatticeLogFileTest, OpeningFollowsALinkToAFileThatIsNotThereYet) {
  std::filesystem::create_symlink("elsewhere.csv", folder.Path("crystalfit.csv"));
  LatticeLogFile log = MakeLog(files);
  EXPECT_EQ(log.OpenLatticeLog(0), 0);
  log.Put(LogSeedInput());
  EXPECT_EQ(folder.Get("elsewhere.csv"), kSeedLine);
}

TEST_F(LatticeLogFileTest, RecordsAreInTheFileAsSoonAsTheyArePut) {
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  log.Put(LogStart(spectrum));
  EXPECT_EQ(folder.Get("crystalfit.csv"), kStart);
  log.Put(LogSeedInput());
  EXPECT_EQ(folder.Get("crystalfit.csv"), std::string(kStart) + kSeedLine);
}

TEST_F(LatticeLogFileTest, TheEndClosesTheLog) {
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  log.Put(LogStart(spectrum));
  log.LogEnd(spectrum);
  log.Put(LogSeedInput());
  EXPECT_EQ(folder.Get("crystalfit.csv"), std::string(kStart) + kEnd);
  EXPECT_EQ(log.LogFailed(), 0);
}

TEST_F(LatticeLogFileTest, ALogThatIsDroppedKeepsWhatWasPut) {
  {
    LatticeLogFile log = MakeLog(files);
    log.OpenLatticeLog(0);
    log.Put(LogSeedInput());
  }
  EXPECT_EQ(folder.Get("crystalfit.csv"), kSeedLine);
}

TEST_F(LatticeLogFileTest, AProgramThatDiesLeavesWhatWasPut) {
  // info, link, create, write, write
  FailingFileLayer dying(files, 5, FailingFileLayer::Mode::Killing);
  LatticeLogFile log = MakeLog(dying);
  log.OpenLatticeLog(0);
  log.Put(LogStart(spectrum));
  EXPECT_THROW(log.Put(LogSeedInput()), Killed);
  EXPECT_TRUE(folder.Get("crystalfit.csv").starts_with(kStart));
}

TEST_F(LatticeLogFileTest, ALogThatCannotBeOpenedIsToldAndSetsLogFailed) {
  std::filesystem::create_directory(folder.Path("crystalfit.csv"));
  LatticeLogFile log = MakeLog(files);
  dialogs.ExpectMessage(kLogFailure);
  EXPECT_NE(log.OpenLatticeLog(0), 0);
  EXPECT_EQ(log.LogFailed(), -1);
}

TEST_F(LatticeLogFileTest, EveryFailureOfOpeningIsTold) {
  for (const int call : {1, 2, 3}) {  // info, link, create
    FailingFileLayer failing(files, call);
    LatticeLogFile log = MakeLog(failing);
    dialogs.ExpectMessage(kLogFailure);
    EXPECT_NE(log.OpenLatticeLog(0), 0) << call;
  }
}

TEST_F(LatticeLogFileTest, AfterAFailedOpeningNothingIsWritten) {
  FailingFileLayer failing(files, 2);
  LatticeLogFile log = MakeLog(failing);
  dialogs.ExpectMessage(kLogFailure);
  log.OpenLatticeLog(0);
  const int calls = failing.Calls();
  log.Put(LogStart(spectrum));
  log.LogEnd(spectrum);
  EXPECT_EQ(failing.Calls(), calls);
  EXPECT_FALSE(folder.Has("crystalfit.csv"));
}

TEST_F(LatticeLogFileTest, AWriteThatFailsIsToldOnce) {
  // info, link, create, write
  FailingFileLayer failing(files, 4, FailingFileLayer::Mode::FailingOn);
  LatticeLogFile log = MakeLog(failing);
  log.OpenLatticeLog(0);
  dialogs.ExpectMessage(kLogFailure);
  log.Put(LogStart(spectrum));
  EXPECT_EQ(log.LogFailed(), -1);
  log.Put(LogSeedInput());
  log.LogEnd(spectrum);
}

TEST_F(LatticeLogFileTest, AnEndThatFailsIsTold) {
  folder.Put("crystalfit.csv", "old");
  for (const int call : {3, 4, 5}) {  // info, create, write, flush, close
    FailingFileLayer failing(files, call);
    LatticeLogFile log = MakeLog(failing);
    log.OpenLatticeLog(0);
    dialogs.ExpectMessage(kLogFailure);
    log.LogEnd(spectrum);
    EXPECT_TRUE(dialogs.Done()) << call;
  }
}

TEST_F(LatticeLogFileTest, OpeningAnewForgetsTheFailure) {
  FailingFileLayer failing(files, 2);
  LatticeLogFile log = MakeLog(failing);
  dialogs.ExpectMessage(kLogFailure);
  log.OpenLatticeLog(0);
  EXPECT_EQ(log.OpenLatticeLog(0), 0);
  EXPECT_EQ(log.LogFailed(), 0);
}

TEST_F(LatticeLogFileTest, TheResultIsACopyOfTheLog) {
  folder.Put("crystalfit2.csv", "of another work");
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  log.LogEnd(spectrum);
  dialogs.ExpectSave(folder.Path("mine.csv"));
  log.SaveResultFile(*workspace);
  EXPECT_EQ(folder.Get("mine.csv"), kEnd);
  EXPECT_EQ(folder.Get("crystalfit.csv"), kEnd);
}

TEST_F(LatticeLogFileTest, TheResultOfTheOtherModeIsACopyOfItsLog) {
  folder.Put("crystalfit.csv", "of another work");
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(1);
  log.LogEnd(spectrum);
  dialogs.ExpectSave(folder.Path("mine.csv"));
  log.SaveResultFile(*workspace);
  EXPECT_EQ(folder.Get("mine.csv"), kEnd);
}

TEST_F(LatticeLogFileTest, ACancelledResultKeepsNothing) {
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  log.LogEnd(spectrum);
  dialogs.ExpectSave(std::nullopt);
  log.SaveResultFile(*workspace);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"crystalfit.csv"});
}

TEST_F(LatticeLogFileTest, TheResultDialogAsksBeforeItReplaces) {
  Title(0, "abc.npd");
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  dialogs.ExpectSave(std::nullopt);
  log.SaveResultFile(*workspace);
  EXPECT_EQ(dialogs.LastRequest().file_name, "abc_Result.csv");
  EXPECT_EQ(dialogs.LastRequest().filter, "Result File (*.csv)|*.csv");
  EXPECT_EQ(dialogs.LastRequest().caption, "Save Result");
  EXPECT_TRUE(dialogs.LastRequest().overwrite_prompt);
}

TEST_F(LatticeLogFileTest, AfterAFailedLogTheResultDialogIsMeantToCopyTheOldOne) {
  folder.Put("crystalfit.csv", "of an earlier work");
  FailingFileLayer failing(files, 2);
  LatticeLogFile log = MakeLog(failing);
  dialogs.ExpectMessage(kLogFailure);
  log.OpenLatticeLog(0);
  dialogs.ExpectSave(folder.Path("mine.csv"));
  log.SaveResultFile(*workspace);
  EXPECT_EQ(folder.Get("mine.csv"), "of an earlier work");
}

TEST_F(LatticeLogFileTest, AResultThatCannotBeWrittenIsTold) {
  LatticeLogFile log = MakeLog(files);
  log.OpenLatticeLog(0);
  dialogs.ExpectSave(folder.Path("no/such/folder.csv"));
  dialogs.ExpectMessage("Open Error");
  log.SaveResultFile(*workspace);
}

TEST_F(LatticeLogFileTest, TheProposalIsTheFirstRawGraphUpToItsPoint) {
  TitleAll("Fit");
  Title(2, "NaCl.27C.npd");
  Title(3, "other.npd");
  EXPECT_EQ(ProposedResultName(*workspace), "NaCl_Result.csv");
}

TEST_F(LatticeLogFileTest, EachKindOfDerivedGraphIsPassedOver) {
  TitleAll("Smooth");
  Title(1, "Fit");
  Title(2, "BackRemv");
  Title(3, "BackGraund");
  Title(4, "smooth");
  EXPECT_EQ(ProposedResultName(*workspace), "smooth_Result.csv");
}

TEST_F(LatticeLogFileTest, AnEmptyRowIsMeantToCountAsARawGraph) {
  EXPECT_EQ(ProposedResultName(*workspace), "_Result.csv");
  Title(0, "Fit");
  Title(2, "NaCl.npd");
  EXPECT_EQ(ProposedResultName(*workspace), "_Result.csv");
}

TEST_F(LatticeLogFileTest, WhereEveryRowIsDerivedTheProposalIsTheBareName) {
  TitleAll("Smooth");
  EXPECT_EQ(ProposedResultName(*workspace), "Result.csv");
}

TEST_F(LatticeLogFileTest, ATitleWithoutAPointIsTakenWhole) {
  Title(0, "NaCl");
  EXPECT_EQ(ProposedResultName(*workspace), "NaCl_Result.csv");
}

TEST_F(LatticeLogFileTest, TheSummaryGoesToTheProgramsDirectoryUntilAnotherIsSet) {
  EXPECT_EQ(ResultDirectory(settings, "/program/"), "/program/");
  SetResultDirectory(settings, "/results");
  EXPECT_EQ(ResultDirectory(settings, "/program/"), "/results/");
  SetResultDirectory(settings, "/results/");
  EXPECT_EQ(ResultDirectory(settings, "/program/"), "/results/");
  SetResultDirectory(settings, "");
  EXPECT_EQ(ResultDirectory(settings, "/program/"), "/program/");
}

class DataSaveTest : public LatticeLogFileTest {
 protected:
  SummaryInput Input(std::int16_t lattice_type = 0) {
    SummaryInput input{spectrum};
    input.sample.lattice_type = lattice_type;
    return input;
  }

  std::string tag;
};

TEST_F(DataSaveTest, WritesTheSummary) {
  DataSave(files, dialogs, folder.Path(""), Input(), tag);
  EXPECT_EQ(folder.Names(), std::vector<std::string>{"LatticeFit.csv"});
  EXPECT_TRUE(folder.Get("LatticeFit.csv").starts_with("\"Al2O3     "));
}

TEST_F(DataSaveTest, ReplacesTheOldSummary) {
  folder.Put("LatticeFit.csv", "old");
  DataSave(files, dialogs, folder.Path(""), Input(), tag);
  EXPECT_EQ(folder.Get("LatticeFit.csv").find("old"), std::string::npos);
}

TEST_F(DataSaveTest, ADirectoryThatIsMissingIsToldAndNotMade) {
  dialogs.ExpectMessage("Open Error");
  DataSave(files, dialogs, folder.Path("missing/"), Input(), tag);
  EXPECT_FALSE(folder.Has("missing"));
}

TEST_F(DataSaveTest, EveryFailureLeavesTheOldSummary) {
  folder.Put("LatticeFit.csv", "old");
  for (const int call : {1, 2, 3, 4, 5, 6}) {  // info, create, write, flush, close, rename
    FailingFileLayer failing(files, call);
    dialogs.ExpectMessage("Open Error");
    DataSave(failing, dialogs, folder.Path(""), Input(), tag);
    EXPECT_TRUE(dialogs.Done()) << call;
    EXPECT_EQ(folder.Get("LatticeFit.csv"), "old") << call;
  }
}

TEST_F(DataSaveTest, AnOrthorhombicSampleIsMeantToHaveTheTagOfTheSummaryBefore) {
  DataSave(files, dialogs, folder.Path(""), Input(2), tag);
  DataSave(files, dialogs, folder.Path(""), Input(3), tag);
  EXPECT_NE(folder.Get("LatticeFit.csv").find("\"\",\"HEX\","), std::string::npos);
}

}  // namespace
}  // namespace dorvane
