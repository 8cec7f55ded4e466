#include <gmock/gmock.h>

#include <set>

#include "forms/EnableRules.h"
#include "forms/MainFormFixture.h"
#include "forms/MenuTable.h"
#include "program/Calibration.h"
#include "program/Cursor.h"

namespace dorvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class MainCommandsTest : public MainFormTest {
 protected:
  ToolBarsPanel& bars = form.tool_bars;
  static std::vector<std::string> KeysOf(const ToolBar& bar) {
    std::vector<std::string> keys;
    for (const ToolButton& button : bar.Buttons()) keys.push_back(button.key);
    return keys;
  }
  // A caption without the mark of its mnemonic.
  static std::string Shown(std::string caption) {
    std::erase(caption, '&');
    return caption;
  }
};

TEST_F(MainCommandsTest, TheToolBarsHaveTheirKeys) {
  EXPECT_THAT(KeysOf(bars.tlbrFile),
              ElementsAre("LoadData", "SaveData", "Exit", "Printer", "Property", "Atom"));
  EXPECT_THAT(KeysOf(bars.tlbrEnergy), ElementsAre("Calib", "Atom"));
  EXPECT_THAT(KeysOf(bars.tlbrCalc),
              ElementsAre("Calib", "Smooth", "BackGround", "CalcSpect", "CalSet", "ShowLog"));
  EXPECT_THAT(KeysOf(bars.tlbrOperation),
              ElementsAre("Smooth", "BackGround", "CalcSpect", "AllFit", "ManFit", "MkDel",
                          "DelAll", "AutoFit", "JmpLeft", "JmpRight", "Report", "AreaCursor", "hkl",
                          "CursorLeft", "CursorRight"));
  EXPECT_THAT(KeysOf(bars.tlbrRoiPeak), ElementsAre("All", "MkIns", "Fit", "Split", "MkDel",
                                                    "JmpLeft", "JmpRight", "Report"));
  EXPECT_THAT(KeysOf(bars.tlbrDisplay), ElementsAre("Expand"));
  EXPECT_THAT(KeysOf(bars.tlbrNax), ElementsAre("NaxAllFit", "NaxManualFit"));
}

TEST_F(MainCommandsTest, MenusHaveTheirNamesAndCaptions) {
  struct Entry {
    const char* name;
    const char* caption;
  };
  for (const Entry& entry :
       {Entry{"mnuWinType_0", "Line Up Graaph"}, Entry{"mnuWinType_1", "Pile Up Graph"},
        Entry{"mnuCloseWin_0", "Close Window1"}, Entry{"mnuCloseWin_1", "Close Window2"},
        Entry{"mnuVersion", "Dorvane Ver 1.2004.01.05"}, Entry{"mnuExpressFit", "ExpressFitting"},
        Entry{"mnuNaxFit", "NaxFitting"}}) {
    EXPECT_EQ(Shown(Menu(entry.name).Caption()), entry.caption);
  }
}

TEST_F(MainCommandsTest, EveryControlHasANameOfItsOwn) {
  std::set<std::string> names;
  for (const Control* control : form.Controls().All()) {
    EXPECT_TRUE(names.insert(control->Name()).second) << control->Name();
  }
}

TEST_F(MainCommandsTest, EveryEntryHangsBelowAMenuAndNoKeyIsTakenTwice) {
  std::set<std::string_view> keys;
  for (const MenuRow& row : MenuTable()) {
    if (row.parent.empty()) continue;
    EXPECT_EQ(Menu(std::string(row.name)).Parent(), &Menu(std::string(row.parent))) << row.name;
    EXPECT_FALSE(Menu(std::string(row.name)).Tip().empty()) << row.name;
    if (row.key.empty()) continue;
    EXPECT_TRUE(keys.insert(row.key).second) << row.key;
  }
}

TEST_F(MainCommandsTest, WhatNoFormIsAttachedToIsOff) {
  EXPECT_FALSE(Menu("mnuCons").Enabled());
  EXPECT_FALSE(bars.tlbrEnergy.ButtonEnabled("Calib"));
  bars.tlbrEnergy.Press("Calib");
  Menu("mnuCons").Choose();
}

TEST_F(MainCommandsTest, ClosingAWindowIsAnEntryWithoutAnAction) {
  EXPECT_FALSE(Menu("mnuCloseWin_0").Enabled());
  EXPECT_EQ(Menu("mnuCloseWin_1").Tip(), kNoActionTip);
}

TEST_F(MainCommandsTest, TooltipsTellTheKey) {
  EXPECT_EQ(Menu("mnuLoad").Tip(), "Open spectra");
  EXPECT_EQ(bars.tlbrFile.Buttons()[0].tip, "Open spectra (Ctrl+O)");
  EXPECT_EQ(bars.tlbrOperation.Buttons().back().tip, "Cursor Right (Right)");
  EXPECT_EQ(Menu("mnuLoad").Key(), "Ctrl+O");
}

TEST_F(MainCommandsTest, AnAttachedFormIsOpenedByItsKeyAndByItsMenu) {
  Form other(host, "frmLog", "Log");
  form.Attach("ShowLog", other, [&other] { other.Show(); });
  EXPECT_TRUE(Menu("mnuLogText").Enabled());
  Menu("mnuLogText").Choose();
  bars.tlbrCalc.Press("ShowLog");
  EXPECT_THAT(host.Shown(), ElementsAre("frmLog", "frmLog"));
}

TEST_F(MainCommandsTest, OfTheExpandEntriesTheOneThatChangesSomethingIsOn) {
  EXPECT_TRUE(Menu("mnuExpandOn").Enabled());
  EXPECT_FALSE(Menu("mnuExpandOff").Enabled());
  Menu("mnuExpandOn").Choose();
  EXPECT_TRUE(form.style.ckbExpand.Checked());
  EXPECT_FALSE(Menu("mnuExpandOn").Enabled());
}

TEST_F(MainCommandsTest, FourButtonsFollowTheFit) {
  EXPECT_TRUE(bars.tlbrOperation.ButtonEnabled("AllFit"));
  EXPECT_FALSE(bars.tlbrOperation.ButtonEnabled("MkDel"));
  EXPECT_FALSE(bars.tlbrOperation.ButtonEnabled("ManFit"));
  EXPECT_TRUE(bars.tlbrRoiPeak.ButtonEnabled("MkDel"));
  view.Buttons = {false, false, true, true};
  form.ButtonsChanged();
  EXPECT_FALSE(bars.tlbrOperation.ButtonEnabled("AllFit"));
  EXPECT_TRUE(bars.tlbrOperation.ButtonEnabled("MkDel"));
}

TEST_F(MainCommandsTest, TheEntryOfTheWholeFitGoesOffWithItsButton) {
  EXPECT_TRUE(Menu("mnuAutoFit").Enabled());
  view.Buttons = {false, false, true, true};
  form.ButtonsChanged();
  EXPECT_FALSE(Menu("mnuAutoFit").Enabled());
  EXPECT_FALSE(bars.tlbrOperation.ButtonEnabled("AutoFit"));
}

TEST_F(MainCommandsTest, ANewOpenSetsTheFourButtonsBack) {
  view.Buttons = {false, false, true, true};
  OpenFiles(1);
  EXPECT_TRUE(bars.tlbrOperation.ButtonEnabled("AllFit"));
  EXPECT_FALSE(bars.tlbrOperation.ButtonEnabled("MkDel"));
}

TEST_F(MainCommandsTest, CalibrationTakesFiveButtonsAndGivesThemBack) {
  for (const char* key : {"Printer", "Calib", "hkl"}) form.commands.Bind(key, [] {});
  const auto five = [this] {
    return std::vector<bool>{
        bars.tlbrFile.ButtonEnabled("LoadData"), bars.tlbrFile.ButtonEnabled("SaveData"),
        bars.tlbrFile.ButtonEnabled("Printer"), bars.tlbrEnergy.ButtonEnabled("Calib"),
        bars.tlbrOperation.ButtonEnabled("hkl")};
  };
  EneCalStart(program);
  EXPECT_THAT(five(), testing::Each(false));
  EXPECT_TRUE(bars.tlbrFile.ButtonEnabled("Exit"));
  EXPECT_TRUE(bars.tlbrCalc.ButtonEnabled("Calib"));
  EXPECT_TRUE(bars.tlbrOperation.ButtonEnabled("Smooth"));
  EXPECT_TRUE(bars.tlbrOperation.ButtonEnabled("AllFit"));
  EneCalEnd(program);
  EXPECT_THAT(five(), testing::Each(true));
}

TEST_F(MainCommandsTest, ClearAllAnsweredWithNoChangesNothing) {
  OpenFiles(2);
  dialogs.ExpectQuestion("Clear All Data", false);
  bars.tlbrOperation.Press("DelAll");
  EXPECT_THAT(Titles(), ElementsAre("a.xbm", "b.xbm"));
}

TEST_F(MainCommandsTest, AfterClearAllOnlyTheFirstFileIsBackInRowZero) {
  OpenFiles(3);
  dialogs.ExpectQuestion("Clear All Data", true);
  bars.tlbrOperation.Press("DelAll");
  EXPECT_THAT(Titles(), ElementsAre("a.xbm"));
  EXPECT_EQ(Row(0).Title, "a.xbm");
  EXPECT_EQ(form.selector.cboGrphSel[0].Items().size(), 1u);
}

TEST_F(MainCommandsTest, DeletingPeaksAnsweredWithNoKeepsThem) {
  ShowSpectrum();
  AddPeak(100);
  dialogs.ExpectQuestion("It will deletes peaks in the range of the area cursor", false);
  bars.tlbrRoiPeak.Press("MkDel");
  EXPECT_EQ(workspace.Peaks[view.DataNo].Count, 1);
}

TEST_F(MainCommandsTest, DeletingAllPeaksFromTheMenuDoesNotAsk) {
  ShowSpectrum();
  AddPeak(100);
  TypeCursor("100");
  Menu("mnuPeakAllDelete").Choose();
  EXPECT_EQ(workspace.Peaks[view.DataNo].Count, 0);
}

TEST_F(MainCommandsTest, ThePeakAtTheCursorIsDeletedOnYes) {
  ShowSpectrum();
  AddPeak(100);
  TypeCursor("100");
  dialogs.ExpectQuestion("It will deletes peaks in the range of the area cursor", true);
  Menu("mnuPeakDelete").Choose();
  EXPECT_EQ(workspace.Peaks[view.DataNo].Count, 0);
}

TEST_F(MainCommandsTest, RegionsAreAddedAndDeletedByTheirButtons) {
  ShowSpectrum();
  bars.tlbrOperation.Press("AreaCursor");
  SetArea(program, 100, 200);
  bars.tlbrRoi.Press("RoiAdd");
  EXPECT_EQ(workspace.Regions.RoiCount, 1);
  TypeCursor("150");
  Menu("mnuRoiDelete").Choose();
  EXPECT_EQ(workspace.Regions.RoiCount, 0);
}

TEST_F(MainCommandsTest, RegionBoundsAreSetAtTheCursor) {
  ShowSpectrum();
  TypeCursor("300");
  Menu("mnuRoiStart").Choose();
  TypeCursor("400");
  Menu("mnuRoiEnd").Choose();
  Menu("mnuRoiAdd").Choose();
  ASSERT_EQ(workspace.Regions.RoiCount, 1);
  EXPECT_EQ(workspace.Regions.Rois[0].Start, 300);
  EXPECT_EQ(workspace.Regions.Rois[0].End, 400);
}

TEST_F(MainCommandsTest, AButtonThatIsOffDoesNothing) {
  ShowSpectrum();
  AddPeak(100);
  bars.tlbrOperation.Press("MkDel");  // would ask
  EXPECT_EQ(workspace.Peaks[view.DataNo].Count, 1);
}

TEST_F(MainCommandsTest, AKeyThatNoRowNamesDoesNothing) {
  listener.notices.clear();
  form.commands.Run("smooth");
  bars.tlbrCalc.Press("Smoothing");
  EXPECT_TRUE(listener.notices.empty());
}

TEST_F(MainCommandsTest, CommandsOnAnEmptyWorkspaceGiveTheirMessageAtMost) {
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");  // Smooth
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");  // BackGround
  dialogs.ExpectMessage("ShiftGraph: Data Notting!");  // AutoFit
  dialogs.ExpectMessage("Fit Failed");                 // AllFit
  for (const char* key :
       {"Smooth", "BackGround", "AutoFit", "Fit", "Split", "MkIns", "AllFit", "mnuFittingAll",
        "mnuExpressFit", "All", "JmpLeft", "JmpRight", "AreaCursor", "Expand"}) {
    form.commands.Run(key);
  }
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(MainCommandsTest, AFaultIsABoxAndTheFormGoesOn) {
  Show(std::vector<std::int32_t>(8192, 5));
  workspace.FitParam.BackInterval = 16;  // the last grid channel is 8192
  dialogs.ExpectMessage("Subscript out of range");
  bars.tlbrCalc.Press("BackGround");
  bars.tlbrOperation.Press("CursorRight");
  EXPECT_EQ(view.CursorCh, 1);
}

TEST_F(MainCommandsTest, OneDrawingModeIsChecked) {
  EXPECT_TRUE(Menu("mnuLine").Checked());
  Menu("mnuDot").Choose();
  EXPECT_TRUE(Menu("mnuDot").Checked());
  EXPECT_FALSE(Menu("mnuLine").Checked());
  EXPECT_FALSE(Menu("mnuPaint").Checked());
  EXPECT_EQ(program.spect.Scale(1).DrawMode, kDrawDot);
}

TEST_F(MainCommandsTest, TheCrystalLibraryOpensInTheEditorAndAFailureIsTold) {
  Menu("mnuEditCrystalFile").Choose();
  EXPECT_THAT(launcher.paths, ElementsAre(folder.Path("crystal.dat")));
  launcher.works = false;
  dialogs.ExpectMessage("crystal file open error");
  Menu("mnuEditCrystalFile").Choose();
}

TEST_F(MainCommandsTest, HelpShowsItsText) {
  dialogs.ExpectMessage("Please read 'ReadMe.txt'");
  Menu("mnuHelp").Choose();
}

TEST_F(MainCommandsTest, DroppedFilesTakeThePlaceOfWhatIsThere) {
  OpenFiles(2);
  form.Drop({folder.Path("b.xbm")});
  EXPECT_THAT(Titles(), ElementsAre("b.xbm"));
  form.Drop({});
  EXPECT_THAT(Titles(), ElementsAre("b.xbm"));
}

TEST_F(MainCommandsTest, TheWholeSpectrumComesBackByItsEntry) {
  ShowSpectrum();
  form.scale.imnSpanCh.Type("100");
  Menu("mnuWhole").Choose();
  EXPECT_EQ(form.scale.imnSpanCh.Value(), 4096);
}

// Start and end.

class MainEndTest : public MainCommandsTest {
 protected:
  MainEndTest() {
    form.Ended.Connect([this] { ++ended; });
  }
  int ended = 0;
};

TEST_F(MainEndTest, TheStartShowsTheDefaultsOfTheProgramsFiles) {
  workspace.DefaultProp.TwoTheta = 7.25;
  form.commands.Run("Exit");  // writes the files
  workspace.DefaultProp.TwoTheta = 0;
  form.Form_Load(folder.Path(""));
  EXPECT_EQ(form.calibration.txt2Theta[0].Text(), "7.250000");
  EXPECT_EQ(form.Caption(), "Dorvane (Data Analyze) --- ");
  EXPECT_EQ(workspace.GrpCount, 0);
}

TEST_F(MainEndTest, TheNaxFamilyIsCheckedAtTheStart) {
  EXPECT_TRUE(Menu("mnuNaxFit").Checked());
  EXPECT_FALSE(Menu("mnuExpressFit").Checked());
}

TEST_F(MainEndTest, TheOtherFormsAreHiddenBeforeTheFilesAreWritten) {
  Form other(host, "frmLog", "Log");
  form.Attach("ShowLog", other, [&other] { other.Show(); });
  other.Show();
  bool written = true;
  other.Shown.Connect([&] { written = folder.Has("syspara_a.xpr"); });
  form.commands.Run("Exit");
  EXPECT_FALSE(written);
  EXPECT_TRUE(folder.Has("Dorvane.ini"));
}

TEST_F(MainEndTest, ClosingNeverHidesTheFormByItself) {
  form.Show();
  form.QueryClose();
  EXPECT_EQ(ended, 1);
  EXPECT_TRUE(form.Visible());
}

TEST_F(MainEndTest, NoAtTheEndKeepsTheProgramRunningWithAllGraphs) {
  ShowSpectrum();
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", false);
  bars.tlbrFile.Press("Exit");
  EXPECT_EQ(ended, 0);
  EXPECT_THAT(Titles(), ElementsAre("a.npd"));
}

TEST_F(MainEndTest, YesAtTheEndHidesTheOtherFormsAndEnds) {
  Form other(host, "frmLog", "Log");
  form.Attach("ShowLog", other, [&other] { other.Show(); });
  other.Show();
  ShowSpectrum();
  workspace.Slots[0].State = kRowUnsaved;
  dialogs.ExpectQuestion("File No Save.  Grp=1 (Do you Cansel?)", true);
  Menu("mnuExit").Choose();
  EXPECT_EQ(ended, 1);
  EXPECT_FALSE(other.Visible());
}

}  // namespace
}  // namespace dorvane
