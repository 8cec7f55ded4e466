#include "program/OpenSave.h"

#include <gmock/gmock.h>

#include "files/FileDorvane.h"
#include "program/ProgramFixture.h"

namespace dorvane {
namespace {

using testing::ElementsAre;

class OpenSaveTest : public ProgramTest {
 protected:
  // Writes a native file of three channels and gives its path.
  std::string NativeFile(const std::string& name, std::int32_t first = 7) {
    ChannelBlock block;
    block.Count = 3;
    block.Counts[0] = first;
    SpectrumRec record;
    record.Prop.EGC[1] = 0.05;
    record.Prop.TwoTheta = 6.5;
    folder.Put(name, AsText(XbmImage(block, record)));
    return folder.Path(name);
  }
};

TEST_F(OpenSaveTest, AFileBecomesTheCurrentGraphWithItsCalibration) {
  EXPECT_EQ(ReadGraph(program, 0, 0, NativeFile("a.xbm")), -1);
  EXPECT_EQ(Row(0).Title, "a.xbm");
  EXPECT_EQ(Row(0).State, kRowSaved);
  EXPECT_THAT(CountsOf(0), ElementsAre(7, 0, 0));
  EXPECT_EQ(workspace.UseFileEgc, 1);
  EXPECT_EQ(workspace.LastDataType, kNativeData);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- a.xbm");
  EXPECT_EQ(workspace.CurDir, folder.Path(""));
}

TEST_F(OpenSaveTest, AReadTellsTheViewsInOrder) {
  const std::string path = NativeFile("a.xbm");
  listener.notices.clear();
  ReadGraph(program, 0, 0, path);
  EXPECT_THAT(listener.notices,
              ElementsAre("caption", "no peak lines 0",                  // before the reader runs
                          "no point marks 0 0",                          // after it
                          "selector", "shown 0 0", "checks",             // the row
                          "calibration",                                 // of the file
                          "scale 0", "redraw 0", "scale 1", "redraw 1",  // the height
                          "selected 0 0", "redraw 0", "redraw 1", "axis", "cursor", "caption",
                          "active 0", "axis", "caption", "data type", "read " + path));
}

TEST_F(OpenSaveTest, AFailedReadStopsAfterTheReader) {
  listener.notices.clear();
  dialogs.ExpectMessage("Open Error");
  const std::string path = folder.Path("missing.xbm");
  ReadGraph(program, 0, 0, path);
  EXPECT_THAT(listener.notices, ElementsAre("caption", "no peak lines 0", "not read " + path));
  EXPECT_EQ(workspace.UseFileEgc, 0);
  EXPECT_EQ(workspace.GrpCount, 1);
}

TEST_F(OpenSaveTest, DriveAndDirectoryAreThoseOfTheLastFile) {
  ReadGraph(program, 0, 0, "C:\\data\\x.abc");
  EXPECT_EQ(workspace.CurDrive, "C:");
  EXPECT_EQ(workspace.CurDir, "\\data\\");
}

TEST_F(OpenSaveTest, AReadWithoutAFreeNumberChangesNothingButTheCaption) {
  workspace.DataUse.fill(kTrue);
  workspace.Regions.RoiCount = 3;
  workspace.Peaks[0].Count = 2;
  const std::string path = NativeFile("a.xbm");
  listener.notices.clear();
  dialogs.ExpectMessage("GetGraphSpace: Notting Space!");
  EXPECT_EQ(ReadGraph(program, 0, 0, path), 0);
  EXPECT_THAT(listener.notices, ElementsAre("caption", "not read " + path));
  EXPECT_EQ(workspace.Regions.RoiCount, 3);
  EXPECT_EQ(workspace.Peaks[0].Count, 2);
}

TEST_F(OpenSaveTest, TheWindowOfTheFileBecomesTheActiveOneWithItsRow) {
  view.CurWin = 1;
  Show({1}, "other");
  ReadGraph(program, 0, 1, NativeFile("a.xbm"));
  EXPECT_EQ(view.CurWin, 0);
  EXPECT_EQ(view.GraphNo, 1);
  EXPECT_EQ(view.DataNo, 1);
  EXPECT_EQ(view.CloseGraphCaption, "Close Graph(a.xbm)");
}

TEST_F(OpenSaveTest, TheHeightIsTheSmallestThatCoversTheLargestCount) {
  ReadGraph(program, 0, 0, NativeFile("a.xbm", 401));
  EXPECT_EQ(view.HeightY, 500);
}

TEST_F(OpenSaveTest, NumberedFilesAreNativeWhateverTheyHold) {
  EXPECT_EQ(ReadGraph(program, 0, 0, NativeFile("a.123")), -1);
}

TEST_F(OpenSaveTest, AnUnknownExtensionGivesNoGraphAndNoMessage) {
  folder.Put("data.ABC", "anything");
  EXPECT_EQ(ReadGraph(program, 0, 0, folder.Path("data.ABC")), 0);
  EXPECT_EQ(Row(0).State, kRowEmpty);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- data.ABC");
}

TEST_F(OpenSaveTest, AFailedReadLosesItsNumberUntilTheEndAsMeant) {
  for (int i = 0; i < 10; ++i) {
    dialogs.ExpectMessage("Open Error");
    EXPECT_EQ(ReadGraph(program, 0, 0, folder.Path("missing.xbm")), 0);
    EXPECT_EQ(workspace.DataUse[i], -1);
  }
  dialogs.ExpectMessage("GetGraphSpace: Notting Space!");
  EXPECT_EQ(ReadGraph(program, 0, 0, NativeFile("a.xbm")), 0);
  EXPECT_EQ(view.Caption, "Dorvane (Data Analyze) --- a.xbm");
}

TEST_F(OpenSaveTest, AReadStartsFromABlankRecordWithTheDefaultCalibration) {
  workspace.DefaultProp.EGC[0] = 0.25;
  workspace.DefaultProp.TwoTheta = 5.5;
  workspace.Spectra[0].Memo.Set("stale");
  workspace.Channels[0].Counts[5] = 99;
  dialogs.ExpectMessage("Open Error");
  ReadGraph(program, 0, 0, folder.Path("missing.xbm"));
  EXPECT_EQ(workspace.Spectra[0].Memo.Text(), "");
  EXPECT_EQ(workspace.Spectra[0].Prop.EGC[0], 0.25);
  EXPECT_EQ(workspace.Spectra[0].Prop.TwoTheta, 5.5);
  EXPECT_EQ(workspace.Channels[0].Counts[5], 0);
}

TEST_F(OpenSaveTest, AReadEmptiesTheRegions) {
  workspace.Regions.RoiCount = 3;
  ReadGraph(program, 0, 0, NativeFile("a.xbm"));
  EXPECT_EQ(workspace.Regions.RoiCount, 0);
}

TEST_F(OpenSaveTest, TheEmptiedPeakTableIsThatOfTheRowWithTheNewNumberAsMeant) {
  Show({1, 2, 3}, "first");
  Show({1, 2, 3}, "second");
  workspace.Slots[2].DataNo = 1;  // the next number is 2; row 2 points at spectrum 1
  workspace.Peaks[1].Count = 4;
  workspace.Peaks[2].Count = 5;
  ReadGraph(program, 0, 2, NativeFile("a.xbm"));
  EXPECT_EQ(workspace.Peaks[1].Count, 0);
  EXPECT_EQ(workspace.Peaks[2].Count, 5);
}

TEST_F(OpenSaveTest, OfTwelveFilesTheFirstTenAreRead) {
  std::vector<std::string> paths;
  for (int i = 0; i < 12; ++i) paths.push_back(NativeFile("s" + std::to_string(i) + ".xbm"));
  dialogs.ExpectOpen(paths);
  FileLoad(program);
  EXPECT_EQ(workspace.GrpCount, 10);
  EXPECT_EQ(Row(9).Title, "s9.xbm");
  EXPECT_EQ(dialogs.LastRequest().filter, kOpenFilter);
  EXPECT_TRUE(dialogs.LastRequest().several);
}

TEST_F(OpenSaveTest, AFailedFileDoesNotStopTheOthers) {
  dialogs.ExpectOpen({folder.Path("missing.xbm"), NativeFile("b.xbm")});
  dialogs.ExpectMessage("Open Error");
  FileLoad(program);
  EXPECT_EQ(Row(0).State, kRowEmpty);
  EXPECT_EQ(Row(1).Title, "b.xbm");
}

TEST_F(OpenSaveTest, OpeningRemovesWhatWasThereEvenWhenTheChoiceIsCancelled) {
  Show({1, 2, 3}, "old");
  workspace.Peaks[0].Count = 2;
  view.Buttons.MkDel = true;
  dialogs.ExpectOpen({});
  LoadData(program);
  EXPECT_EQ(workspace.GrpCount, 0);
  EXPECT_EQ(Row(0).State, kRowEmpty);
  EXPECT_EQ(workspace.Peaks[0].Count, 0);
  EXPECT_FALSE(view.Buttons.MkDel);
  EXPECT_EQ(listener.Count("cleared 0"), 1);
  EXPECT_EQ(listener.Count("cleared 1"), 1);
}

TEST_F(OpenSaveTest, OpeningAsksAboutEveryUnsavedRow) {
  Show({1}, "old");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  LoadData(program, {NativeFile("a.xbm")});
  EXPECT_THAT(Titles(), ElementsAre("a.xbm"));
}

TEST_F(OpenSaveTest, EveryRemovalAsksAboutAllRowsThatAreStillUnsavedAsMeant) {
  Show({1}, "a");
  Show({1}, "b");
  workspace.Slots[0].State = kRowUnsaved;
  workspace.Slots[1].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  dialogs.ExpectQuestion("File No Save.  Grp=2 (Do you Cansel?)", true);
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  dialogs.ExpectOpen({});
  LoadData(program);
  EXPECT_EQ(workspace.DataUse[0], 0);
  EXPECT_EQ(workspace.DataUse[1], 0);
}

TEST_F(OpenSaveTest, DataThatIsKeptLosesItsRowAndTheOpenGoesOnAsMeant) {
  Show({1}, "old");
  workspace.Slots[0].State = kRowUnsaved;
  view.FitMade = kTrue;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  dialogs.ExpectOpen({NativeFile("a.xbm")});
  LoadData(program);
  EXPECT_THAT(Titles(), ElementsAre("a.xbm"));
  EXPECT_EQ(workspace.GrpCount, 1);
  EXPECT_EQ(workspace.DataUse[0], -1);
  EXPECT_EQ(Row(0).DataNo, 1);
  EXPECT_EQ(view.FitMade, kFalse);
}

TEST_F(OpenSaveTest, ReadingWithoutRemovingAsksFirstAndNoEndsIt) {
  Show({1}, "old");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectOpen({NativeFile("a.xbm")});
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  FileLoad(program);
  EXPECT_THAT(Titles(), ElementsAre("old"));
  EXPECT_TRUE(program.last_selection.empty());
}

TEST_F(OpenSaveTest, TheLastSelectionIsRemembered) {
  const std::vector<std::string> paths = {NativeFile("a.xbm"), NativeFile("b.xbm")};
  dialogs.ExpectOpen(paths);
  FileLoad(program);
  EXPECT_EQ(program.last_selection, paths);
}

TEST_F(OpenSaveTest, TheDialogOpensWithTheFilterChosenLast) {
  EXPECT_EQ(workspace.FilterIndex, 1);
  dialogs.ExpectOpen({NativeFile("a.xbm")}, 3);
  FileLoad(program);
  EXPECT_EQ(dialogs.LastRequest().filter_index, 1);
  EXPECT_EQ(workspace.FilterIndex, 3);
  dialogs.ExpectOpen({NativeFile("b.xbm")}, 2);
  FileLoad(program);
  EXPECT_EQ(dialogs.LastRequest().filter_index, 3);
  EXPECT_EQ(workspace.FilterIndex, 2);
}

TEST_F(OpenSaveTest, ACancelledChoiceKeepsTheFilter) {
  Show({1}, "abc.npd");
  workspace.FilterIndex = 4;
  dialogs.ExpectOpen({}, 2);
  FileLoad(program);
  dialogs.ExpectSave(std::nullopt, 2);
  FileSave(program);
  EXPECT_EQ(workspace.FilterIndex, 4);
}

TEST_F(OpenSaveTest, TheFilterCountsAlsoWhenTheOpenEndsWithNo) {
  Show({1}, "old");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectOpen({NativeFile("a.xbm")}, 3);
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  FileLoad(program);
  EXPECT_EQ(workspace.FilterIndex, 3);
}

TEST_F(OpenSaveTest, OpenAndSaveShareTheFilterAsMeant) {
  Show({1, 2, 3}, "abc.npd");
  dialogs.ExpectOpen({NativeFile("a.xbm")}, 4);
  FileLoad(program);
  dialogs.ExpectSave(folder.Path("out.xbm"), 3);
  FileSave(program);
  EXPECT_EQ(dialogs.LastRequest().filter_index, 4);
  EXPECT_EQ(workspace.FilterIndex, 3);
}

TEST_F(OpenSaveTest, AFileIsToldByItsPathWhenItHasBeenReadOrWritten) {
  const std::string path = NativeFile("a.xbm");
  ReadGraph(program, 0, 0, path);
  EXPECT_EQ(listener.notices.back(), "read " + path);
  SaveGraphAs(program, folder.Path("out.xbm"));
  EXPECT_EQ(listener.notices.back(), "written " + folder.Path("out.xbm"));
}

TEST_F(OpenSaveTest, AFileThatHasNotBeenWrittenIsNotTold) {
  Show({1}, "abc.npd");
  const std::string path = NativeFile("out.xbm");
  dialogs.ExpectQuestion("File already exist. Replace?(xbm)", false);
  SaveGraphAs(program, path);
  SaveGraphAs(program, folder.Path("out.doc"));
  EXPECT_EQ(listener.Count("written " + path), 0);
  EXPECT_EQ(listener.Count("written " + folder.Path("out.doc")), 0);
}

TEST_F(OpenSaveTest, ASaveWithoutAGraphSaysSo) {
  dialogs.ExpectMessage("No Data");
  FileSave(program);
}

TEST_F(OpenSaveTest, TheProposedNameIsTheRawNameWithTheKindOfTheCurrentRow) {
  Show({1}, "abc.npd");
  EXPECT_EQ(ProposedName(program), "abc_RAW");
  const auto fit = InsertGraph(list);
  SetGraph(list, 0, 0, fit, kTitleFit);
  Change_cboGrphSel(list, 0, 0);
  EXPECT_EQ(ProposedName(program), "abc_FIT");
}

TEST_F(OpenSaveTest, TheProposedNameIsCutAtTheFirstPoint) {
  Show({1}, "run.7.npd");
  EXPECT_EQ(ProposedName(program), "run_RAW");
}

TEST_F(OpenSaveTest, WithoutARawTitleTheProposalIsEmpty) {
  const auto data_no = Show({1}, kTitleFit);
  for (int row = 0; row < kRows; ++row) workspace.Slots[row].Title = kTitleFit;
  EXPECT_EQ(ProposedName(program), "");
  for (int row = 1; row < kRows; ++row) workspace.Slots[row].Title = "";
  EXPECT_EQ(ProposedName(program), "");
  EXPECT_EQ(data_no, 0);
}

TEST_F(OpenSaveTest, SavingWritesTheCurrentGraphAndMarksItsRowSaved) {
  Show({1, 2, 3}, "abc.npd");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectSave(folder.Path("out.xbm"));
  FileSave(program);
  EXPECT_EQ(dialogs.LastRequest().file_name, "abc_RAW");
  EXPECT_EQ(dialogs.LastRequest().filter, kSaveFilter);
  EXPECT_EQ(Row(0).State, kRowSaved);
  EXPECT_EQ(workspace.Spectra[0].MsuName.Text(), "out");
  EXPECT_EQ(workspace.Spectra[0].SaveFlag, 1);
  EXPECT_EQ(folder.Get("out.xbm").size(), 2070u + 3 * 4);
}

TEST_F(OpenSaveTest, ACancelledSaveChangesNothing) {
  Show({1}, "abc.npd");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectSave(std::nullopt);
  FileSave(program);
  EXPECT_EQ(Row(0).State, kRowUnsaved);
  EXPECT_EQ(workspace.Spectra[0].SaveFlag, 0);
}

TEST_F(OpenSaveTest, ASaveThatTheUserRefusesStaysUnsaved) {
  Show({1}, "abc.npd");
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectSave(NativeFile("out.xbm"));
  dialogs.ExpectQuestion("File already exist. Replace?(xbm)", false);
  FileSave(program);
  EXPECT_EQ(Row(0).State, kRowUnsaved);
}

TEST_F(OpenSaveTest, AnUnknownExtensionSavesNothingAndSaysNothing) {
  Show({1}, "abc.npd");
  workspace.Slots[0].State = kRowUnsaved;
  EXPECT_EQ(SaveGraphAs(program, folder.Path("out.doc")), 0);
  EXPECT_FALSE(folder.Has("out.doc"));
  EXPECT_EQ(Row(0).State, kRowUnsaved);
}

TEST_F(OpenSaveTest, ExtensionsThatNoFilterNamesWorkWhenTyped) {
  Show({1}, "abc.npd");
  EXPECT_EQ(SaveGraphAs(program, folder.Path("out.XTA")), -1);
  EXPECT_EQ(SaveGraphAs(program, folder.Path("out.xba")), -1);
  EXPECT_TRUE(folder.Has("out.XTA"));
}

TEST_F(OpenSaveTest, PeaksAndFlagsSurviveTheFormatThatCarriesThem) {
  Show({1, 2, 3}, "abc.npd");
  workspace.Spectra[0].Prop.Flags = FlagSmooth | FlagFit;
  workspace.Peaks[0].Count = 1;
  workspace.Peaks[0].Peaks[0].Center = 1.25;
  SaveGraphAs(program, folder.Path("out.xba"));
  dialogs.ExpectOpen({folder.Path("out.xba")});
  LoadData(program);
  EXPECT_EQ(workspace.Peaks[0].Count, 1);
  EXPECT_EQ(workspace.Peaks[0].Peaks[0].Center, 1.25);
  EXPECT_EQ(FlagsOf(0), FlagSmooth | FlagFit);
}

}  // namespace
}  // namespace dorvane
