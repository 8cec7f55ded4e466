#include "program/CalibFiles.h"

#include <gmock/gmock.h>

#include "program/CalibCommands.h"
#include "program/DerivedGraphs.h"
#include "program/OpenSave.h"
#include "program/PeakFit.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kTooMany = "Can not open more file (Max=20)";
constexpr const char* kUnsaved = "File No Save.  Grp=1 (Do you Cansel?)";

class CalibFilesTest : public ProgramTest {
 protected:
  CalibFilesTest() { views.Add(calib); }

  // The path of a native file of three channels, the first with this count.
  std::string File(const std::string& name, std::int32_t count = 1) {
    Show({count, 2, 3}, name);
    SaveGraphAs(program, folder.Path(name));
    DeleteGraph(list, view.GraphNo);
    return folder.Path(name);
  }
  // Paths of 1.xbm, 2.xbm and so on, whose first counts are their numbers.
  std::vector<std::string> Files(int count) {
    std::vector<std::string> paths;
    for (int i = 1; i <= count; ++i) paths.push_back(File(std::to_string(i) + ".xbm", i));
    return paths;
  }
  // A peak of the current spectrum, in the area cursor.
  void EnterPeak() {
    PeakTable& peaks = workspace.Peaks[view.DataNo];
    peaks.Count = 1;
    peaks.Peaks[0].Center = 1.5;
    view.AreaStart = 1;
    view.AreaEnd = 2;
  }
  std::string Current() const { return Row(view.GraphNo).Title; }

  CalibFiles calib{program};
};

TEST_F(CalibFilesTest, FilesAreReadIntoTheNextRowsOfTheFirstWindow) {
  Show({1}, "own.npd");
  calib.Open(Files(2));
  EXPECT_THAT(calib.Names(), ElementsAre("1.xbm", "2.xbm"));
  EXPECT_THAT(Titles(), ElementsAre("own.npd", "1.xbm", "2.xbm"));
  EXPECT_EQ(Row(2).WinNo, 0);
  EXPECT_EQ(calib.RowOf(1), 2);
}

TEST_F(CalibFilesTest, AFileThatCanNotBeReadTakesNoPlaceAndTheOthersGoOn) {
  const auto paths = Files(2);
  calib.Open({paths[0], folder.Path("data.ABC"), paths[1]});
  EXPECT_THAT(calib.Names(), ElementsAre("1.xbm", "2.xbm"));
}

TEST_F(CalibFilesTest, FilesThatCanNotBeReadUseUpNoRow) {
  auto paths = Files(10);
  for (int i = 0; i < 12; ++i) paths.insert(paths.begin(), folder.Path("data.ABC"));
  calib.Open(paths);
  EXPECT_THAT(Titles(), SizeIs(10));
  EXPECT_EQ(calib.RowOf(9), 9);
  EXPECT_EQ(workspace.GrpCount, 10);
}

TEST_F(CalibFilesTest, TenAreReadAndTheNextOnesOnlyNamed) {
  calib.Open(Files(12));
  EXPECT_EQ(calib.Count(), 12);
  EXPECT_THAT(Titles(), SizeIs(10));
  EXPECT_EQ(calib.RowOf(9), 9);
  EXPECT_EQ(calib.RowOf(10), -1);
}

TEST_F(CalibFilesTest, TheTwentyFirstIsRefused) {
  dialogs.ExpectMessage(kTooMany);
  calib.Open(Files(22));
  EXPECT_EQ(calib.Count(), 20);
  dialogs.ExpectMessage(kTooMany);
  EXPECT_FALSE(calib.HasPlace());
}

TEST_F(CalibFilesTest, AnOpenSpectrumIsBroughtIntoItsWindow) {
  calib.Open(Files(2));
  ChgValue_chkGrp(list, 0, 0, false);
  ChangeActiveWin(list, 1);
  calib.Show(0);
  EXPECT_EQ(Current(), "1.xbm");
  EXPECT_EQ(view.CurWin, 0);
  EXPECT_EQ(Row(0).Disp, kTrue);
}

TEST_F(CalibFilesTest, ASpectrumThatWasMovedIsBroughtIntoTheOtherWindow) {
  calib.Open(Files(2));
  ChgValue_chkGrp(list, 1, 0, true);
  calib.Show(0);
  EXPECT_EQ(view.CurWin, 1);
  EXPECT_EQ(Current(), "1.xbm");
}

TEST_F(CalibFilesTest, ALaterNameIsReadInPlaceOfTheSpectrumLongestOutOfUse) {
  calib.Open(Files(12));
  calib.Show(0);
  calib.Show(10);
  EXPECT_EQ(Current(), "11.xbm");
  EXPECT_EQ(CountsOf(view.DataNo).front(), 11);
  EXPECT_EQ(calib.RowOf(1), -1);
  calib.Show(1);
  EXPECT_EQ(Current(), "2.xbm");
  EXPECT_EQ(calib.RowOf(2), -1);
  EXPECT_GE(calib.RowOf(0), 0);
}

TEST_F(CalibFilesTest, ASpectrumThatIsReadHasNoPeaksOfAnotherAndTheOthersKeepTheirs) {
  calib.Open(Files(11));
  const auto peaks = [this](int place) -> std::int16_t& {
    return workspace.Peaks[Row(calib.RowOf(place)).DataNo].Count;
  };
  for (int place = 0; place < 10; ++place) peaks(place) = ToInt16(place + 1);
  calib.Show(10);  // the first file makes way
  EXPECT_EQ(calib.RowOf(0), -1);
  EXPECT_EQ(peaks(10), 0);
  for (int place = 1; place < 10; ++place) EXPECT_EQ(peaks(place), place + 1) << place;
}

TEST_F(CalibFilesTest, AnUnsavedGraphMakesNoRoom) {
  calib.Open(Files(11));
  workspace.Slots[0].State = kRowUnsaved;
  calib.Show(10);
  EXPECT_EQ(calib.RowOf(0), 0);
  EXPECT_EQ(calib.RowOf(1), -1);
}

TEST_F(CalibFilesTest, GraphsOfOthersMakeNoRoom) {
  const auto paths = Files(1);
  for (int i = 0; i < 10; ++i) Show({1}, "own.npd");
  calib.Open(paths);
  dialogs.ExpectMessage("GetGraphSpace: Notting Space!");
  calib.Show(0);
  EXPECT_THAT(Titles(), testing::Each("own.npd"));
}

TEST_F(CalibFilesTest, NumbersLostToFailedReadsAreNoRoomEither) {
  const auto paths = Files(2);
  workspace.DataUse.fill(kTrue);
  calib.Open({paths[0]});
  EXPECT_EQ(calib.RowOf(0), -1);
  EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(CalibFilesTest, ANameWhoseGraphWasClosedElsewhereIsReadAgain) {
  calib.Open(Files(2));
  DeleteGraph(list, 0);
  EXPECT_EQ(calib.RowOf(0), -1);
  calib.Show(0);
  EXPECT_EQ(Current(), "1.xbm");
  EXPECT_EQ(calib.RowOf(0), 1);
}

TEST_F(CalibFilesTest, TheNumberOfAClosedGraphIsNotTakenForItsOwn) {
  calib.Open(Files(1));
  DeleteGraph(list, 0);
  Show({1}, "own.npd");
  calib.RemoveAll();
  EXPECT_THAT(Titles(), ElementsAre("own.npd"));
}

TEST_F(CalibFilesTest, RemovingTakesNameAndGraph) {
  calib.Open(Files(3));
  EXPECT_TRUE(calib.Remove(1));
  EXPECT_THAT(calib.Names(), ElementsAre("1.xbm", "3.xbm"));
  EXPECT_THAT(Titles(), ElementsAre("1.xbm", "3.xbm"));
  EXPECT_EQ(calib.RowOf(1), 1);
}

TEST_F(CalibFilesTest, RemovingAsksForUnsavedDataAndNoKeepsEverything) {
  calib.Open(Files(2));
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion(kUnsaved, false);
  EXPECT_FALSE(calib.Remove(1));
  dialogs.ExpectQuestion(kUnsaved, false);
  EXPECT_FALSE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("1.xbm", "2.xbm"));
  EXPECT_EQ(calib.Count(), 2);
}

TEST_F(CalibFilesTest, AllAreRemovedAfterOneRoundOfQuestions) {
  calib.Open(Files(3));
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion(kUnsaved, true);
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), IsEmpty());
  EXPECT_EQ(workspace.GrpCount, 0);
  for (const std::int16_t use : workspace.DataUse) EXPECT_EQ(use, 0);
}

TEST_F(CalibFilesTest, CurvesMadeOfTheFilesGoWithAllOfThemAndThoseOfOthersStay) {
  const auto paths = Files(1);
  Show({9, 9, 9, 9, 9, 9, 9, 9, 9}, "own.npd");
  workspace.Spectra[view.DataNo].MsuName.Set("own");
  SmoothGraph(program);
  calib.Open(paths);
  workspace.Spectra[view.DataNo].MsuName.Set("reference");
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "Smooth", "own.npd", "1.xbm"));
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "own.npd"));
  EXPECT_EQ(workspace.Spectra[Row(0).DataNo].MsuName.Text(), "own");
}

TEST_F(CalibFilesTest, ACurveOfTheSameFileThatWasThereBeforeStays) {
  const auto paths = Files(1);
  ReadGraph(program, 0, 0, paths[0]);
  SmoothGraph(program);
  calib.Open(paths);
  SmoothGraph(program);
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "Smooth", "1.xbm", "1.xbm"));
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "1.xbm"));
}

TEST_F(CalibFilesTest, CurvesOfAGraphOfTheUserStayThoughTheyAreMadeMeanwhile) {
  const auto paths = Files(1);
  Show({9, 9, 9}, "own.npd");
  calib.Open(paths);
  Change_cboGrphSel(list, 0, 0);
  SmoothGraph(program);
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "own.npd"));
}

TEST_F(CalibFilesTest, CurvesMadeOfTheCurvesOfAFileGoToo) {
  calib.Open(Files(1));
  SmoothGraph(program);
  BackGroundGraph(program);
  MakeFitGraph(program, view.DataNo);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "BackRemv", "BackGraund", "Smooth", "1.xbm"));
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(CalibFilesTest, CurvesOfADeletedFileGoWithTheRest) {
  calib.Open(Files(1));
  SmoothGraph(program);
  EXPECT_TRUE(calib.Remove(0));
  EXPECT_THAT(Titles(), ElementsAre("Smooth"));
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(CalibFilesTest, CurvesOfAFileThatMadeWayGoWithTheRest) {
  calib.Open(Files(11));
  DeleteGraph(list, 9);
  calib.Show(0);
  SmoothGraph(program);
  for (int place = 1; place < 9; ++place) calib.Show(place);
  calib.Show(10);
  EXPECT_EQ(calib.RowOf(0), -1);
  EXPECT_EQ(Row(0).Title, "Smooth");
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(CalibFilesTest, ACurveThatWasMovedToTheOtherWindowIsStillKnown) {
  const auto paths = Files(1);
  Show({9, 9, 9}, "own.npd");
  SmoothGraph(program);
  calib.Open(paths);
  ChgValue_chkGrp(list, 1, 0, true);
  SmoothGraph(program);
  ChgValue_chkGrp(list, 1, 0, true);
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("Smooth", "own.npd"));
}

TEST_F(CalibFilesTest, CurvesAloneAskForUnsavedDataToo) {
  calib.Open(Files(1));
  SmoothGraph(program);
  calib.Remove(0);
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion(kUnsaved, false);
  EXPECT_FALSE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("Smooth"));
}

// ---- a fit that takes the row of a file

TEST_F(CalibFilesTest, DelFitTurnsTheFirstFilesGraphIntoAFitAsIsMeantAndAClickBringsItsCountsBack) {
  calib.Open(Files(2));
  EnterPeak();
  EXPECT_EQ(Calib_FitDel(program), kTrue);
  EXPECT_THAT(Titles(), ElementsAre("Fit", "2.xbm"));
  EXPECT_THAT(CountsOf(Row(0).DataNo), ElementsAre(0, 0, 0));
  EXPECT_EQ(calib.RowOf(0), -1);
  calib.Show(0);
  EXPECT_EQ(Current(), "1.xbm");
  EXPECT_THAT(CountsOf(view.DataNo), ElementsAre(1, 2, 3));
  dialogs.ExpectQuestion("File No Save.  Grp=2 (Do you Cansel?)", true);
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), IsEmpty());
}

TEST_F(CalibFilesTest, AFitOfTheUsersGraphThatTookAFilesRowStays) {
  const auto paths = Files(1);
  calib.Open(paths);
  Show({9, 9, 9}, "own.npd");
  EnterPeak();
  DeletePeaks(program);
  dialogs.ExpectQuestion("File No Save.  Grp=2 (Do you Cansel?)", true);
  calib.Open(paths);
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("Fit", "own.npd"));
}

// ---- room for curves

TEST_F(CalibFilesTest, TheFilesLongestOutOfUseMakeRoomForTheFourCurvesOfTheCurrentGraph) {
  calib.Open(Files(10));
  calib.Show(0);
  calib.MakeRoomForCurves();
  EXPECT_EQ(Current(), "1.xbm");
  EXPECT_THAT(Titles(), ElementsAre("1.xbm", "6.xbm", "7.xbm", "8.xbm", "9.xbm", "10.xbm"));
  EXPECT_EQ(calib.Count(), 10);
  EXPECT_EQ(Calib_SmothBk(program), kTrue);
  calib.Show(1);
  EXPECT_EQ(Current(), "2.xbm");
}

TEST_F(CalibFilesTest, WhereTheCurvesHaveRoomNoFileMakesWay) {
  calib.Open(Files(6));
  calib.MakeRoomForCurves();
  EXPECT_THAT(Titles(), SizeIs(6));
}

TEST_F(CalibFilesTest, TheCurrentGraphMakesNoRoomForItsCurves) {
  calib.Open(Files(2));
  calib.Show(0);
  for (int i = 0; i < 8; ++i) Show({1}, "own.npd");
  Change_cboGrphSel(list, 0, 1);
  calib.MakeRoomForCurves();
  EXPECT_EQ(Current(), "2.xbm");
  EXPECT_THAT(Titles(), SizeIs(9));
  EXPECT_EQ(calib.RowOf(0), -1);
}

TEST_F(CalibFilesTest, WithoutFilesThereIsNothingToAsk) {
  Show({1}, "own.npd");
  workspace.Slots[0].State = kRowUnsaved;
  EXPECT_TRUE(calib.RemoveAll());
  EXPECT_THAT(Titles(), ElementsAre("own.npd"));
}

TEST_F(CalibFilesTest, APlaceOutsideIsIgnored) {
  calib.Open(Files(1));
  calib.Show(-1);
  calib.Show(1);
  EXPECT_TRUE(calib.Remove(1));
  EXPECT_EQ(calib.RowOf(1), -1);
  EXPECT_EQ(calib.Count(), 1);
}

}  // namespace
}  // namespace dorvane
