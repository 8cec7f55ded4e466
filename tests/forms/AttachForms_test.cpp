#include "forms/AttachForms.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "forms/FakeElementStore.h"
#include "forms/FakePrinter.h"
#include "forms/MainFormFixture.h"
#include "forms/RecordingPictures.h"

namespace dorvane {
namespace {

class AttachFormsTest : public MainFormTest {
 protected:
  frmSelGraph graphs{program, host};
  frmRoiReport regions{program, host};
  frmLog log_window{host};
  frmKeys keys{host};
  frmManualFit manual_fit{program, host};
  frmInputFitParameter fit_input{program, host};
  FakeElementStore store;
  LineMarks line_marks{program};
  frmAtom atom{program, host, store, settings, line_marks};
  frmGrpCalc arithmetic{program, host};
  frmPeakCal lattice{program, host, settings, line_marks};
  frmSetting setting{program, host};
  frmDispPara disp_para{program, host};
  frmSetColor colors{dialogs, host};
  SystemFolders folders;
  FakePrinter printer;
  frmDialogLoad load{program, host, folders};
  frmCalibCurv curve{program, host, printer};
  frmDialogCalibC calibration{program, host,
                              CalibWindowsOf(program, load, manual_fit, atom, curve)};
};

TEST_F(AttachFormsTest, TheWindowMenuOpensTheFloatingForms) {
  EXPECT_FALSE(Menu("mnuSelGraph").Enabled());
  AttachForms(form, graphs, regions, log_window, keys);
  for (const char* name : {"mnuSelGraph", "mnuRoiReport", "mnuLogText"}) Menu(name).Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmSelGraph", "frmRoiReport", "frmLog"));
}

TEST_F(AttachFormsTest, TheEndHidesThem) {
  AttachForms(form, graphs, regions, log_window, keys);
  Menu("mnuSelGraph").Choose();
  Menu("mnuExit").Choose();
  EXPECT_FALSE(graphs.Visible());
}

TEST_F(AttachFormsTest, AGraphChosenInTheListIsCurrentOnTheMainForm) {
  views.Add(graphs);
  AttachForms(form, graphs, regions, log_window, keys);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  Menu("mnuSelGraph").Choose();
  graphs.sprGraphSel.PressCell(1, frmSelGraph::kFileName);
  EXPECT_EQ(form.selector.cboGrphSel[0].Index(), 0);
}

TEST_F(AttachFormsTest, ThePeakMenuOpensTheFormsThatTakePeaksByHand) {
  AttachFitForms(form, program, manual_fit, fit_input);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  view.Buttons.ManFit = true;
  form.CursorMoved();
  for (const char* name : {"mnuManFit", "mnuNaxManualFit", "mnuInputFitParameter"}) {
    host.ExpectModal([this](Form& opened) {
      EXPECT_EQ(manual_fit.GrpNo(), 1);
      opened.Hide();
    });
    Menu(name).Choose();
  }
  EXPECT_THAT(host.Shown(),
              testing::ElementsAre("frmManualFit", "frmManualFit", "frmInputFitParameter"));
}

TEST_F(AttachFormsTest, TheSettingsOpenFromTheirMenuEntriesAndTheToolBar) {
  for (const char* name : {"mnuSetCons", "mnuDispPara", "mnuColor", "mnuPeakColor"}) {
    EXPECT_FALSE(Menu(name).Enabled()) << name;
  }
  AttachSettings(form, program, setting, disp_para, colors);
  for (const char* name : {"mnuSetCons", "mnuDispPara", "mnuColor", "mnuPeakColor"}) {
    EXPECT_TRUE(Menu(name).Enabled()) << name;
    host.ExpectModal([](Form& opened) { opened.Hide(); });
    Menu(name).Choose();
  }
  host.ExpectModal([](Form& opened) { opened.Hide(); });
  form.tool_bars.tlbrCalc.Press("CalSet");
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmSetting", "frmDispPara", "frmSetColor",
                                                 "frmSetColor", "frmSetting"));
}

TEST_F(AttachFormsTest, ThePeaksColoursOpenTheTableAtTheirMark) {
  AttachSettings(form, program, setting, disp_para, colors);
  host.ExpectModal([this](Form& opened) {
    EXPECT_EQ(colors.FirstEntry().Caption(), "Peak Mark");
    opened.Hide();
  });
  Menu("mnuPeakColor").Choose();
  host.ExpectModal([this](Form& opened) {
    EXPECT_EQ(colors.FirstEntry().Caption(), "Graph1");
    opened.Hide();
  });
  Menu("mnuColor").Choose();
}

TEST_F(AttachFormsTest, TheDefaultPropertiesShowOnTheMainForm) {
  AttachSettings(form, program, setting, disp_para, colors);
  host.ExpectModal([this](Form&) {
    disp_para.chkCnst[1].SetChecked(true);
    disp_para.ImConst[0].Type("0.5");
    disp_para.ImConst[1].Type("0.125");
    disp_para.ImConst[2].Type("0.25");
    disp_para.imnAngle.Type("6.5");
    disp_para.cmdOk.Press();
  });
  Menu("mnuDispPara").Choose();
  EXPECT_EQ(form.calibration.lblEGC[0].Caption(), "0.500000Ch^2+0.125000Ch+0.250000");
  EXPECT_EQ(form.calibration.txt2Theta[0].Text(), "6.500000");
}

TEST_F(AttachFormsTest, TheProgramTakesTheColoursAfterOkAlone) {
  AttachSettings(form, program, setting, disp_para, colors);
  const auto data_no = ShowSpectrum();
  const ColorTable before = workspace.ColorTbl;
  for (const bool ok : {false, true}) {
    host.ExpectModal([this, ok](Form&) {
      EXPECT_EQ(colors.cmdColor[0].Fill(), workspace.ColorTbl[0]);
      host.ExpectModal([this](Form&) {
        colors.dialog.picColor[0].Press();  // black
        colors.dialog.cmdOk.Press();
      });
      colors.cmdColor[0].Press();
      ok ? colors.cmdOk.Press() : colors.cmdCansel.Press();
    });
    listener.notices.clear();
    Menu("mnuColor").Choose();
    EXPECT_EQ(workspace.ColorTbl == before, !ok);
    EXPECT_EQ(Row(0).Color, ok ? Rgb(0, 0, 0) : before[0]);
    EXPECT_EQ(program.spect.CurveOf(0, data_no).Color, Row(0).Color);
    EXPECT_EQ(listener.notices.empty(), !ok);
  }
}

TEST_F(AttachFormsTest, AtomOpensThePeriodicTableForTheCurrentGraphFromBothToolBarsAndTheMenu) {
  AttachAtom(form, program, atom);
  ShowSpectrum("a.npd");
  form.tool_bars.tlbrFile.Press("Atom");
  form.tool_bars.tlbrEnergy.Press("Atom");
  Menu("mnuAtom").Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmAtom", "frmAtom", "frmAtom"));
  EXPECT_EQ(atom.CurrentMode(), frmAtom::Mode::Mark);
  EXPECT_THAT(atom.lblHint.Caption(), testing::HasSubstr("a.npd"));
}

TEST_F(AttachFormsTest, TheEndHidesThePeriodicTableAndItsRecord) {
  AttachAtom(form, program, atom);
  Menu("mnuAtom").Choose();
  atom.cmdElement.Press();
  EXPECT_TRUE(atom.element.Visible());
  Menu("mnuExit").Choose();
  EXPECT_FALSE(atom.Visible());
  EXPECT_FALSE(atom.element.Visible());
}

TEST_F(AttachFormsTest, TheSettingsOpenTheResultDirectory) {
  frmResultDirectory result_directory(program, host, settings);
  AttachResultDirectory(form, result_directory);
  host.ExpectModal([](Form& opened) { opened.Hide(); });
  Menu("mnuResultDirectory").Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmResultDirectory"));
}

TEST_F(AttachFormsTest, CalcSpectOpensTheGraphArithmeticFromBothToolBarsAndTheMenu) {
  EXPECT_FALSE(Menu("mnuCalcSpect").Enabled());
  AttachArithmetic(form, arithmetic);
  EXPECT_TRUE(Menu("mnuCalcSpect").Enabled());
  for (int i = 0; i < 3; ++i) host.ExpectModal([](Form& opened) { opened.Hide(); });
  form.tool_bars.tlbrCalc.Press("CalcSpect");
  form.tool_bars.tlbrOperation.Press("CalcSpect");
  Menu("mnuCalcSpect").Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmGrpCalc", "frmGrpCalc", "frmGrpCalc"));
}

// The spectrum has 5 counts in each channel.
TEST_F(AttachFormsTest, TheResultOfTheGraphArithmeticIsReadAtTheCursor) {
  AttachArithmetic(form, arithmetic);
  ShowSpectrum();
  TypeCursor("100");
  EXPECT_EQ(form.cursor.inumCursorCnt[0].Text(), "5");
  host.ExpectModal([this](Form&) {
    arithmetic.cmbOpe2.SetIndex(kNoSecondTerm);
    arithmetic.ImNumber1.Type("2");
    arithmetic.cmdCalc.Press();
    arithmetic.cmdCancel.Press();
  });
  Menu("mnuCalcSpect").Choose();
  EXPECT_EQ(form.cursor.inumCursorCnt[0].Text(), "7");
}

TEST_F(AttachFormsTest, HklOpensTheLatticeFormForTheCurrentGraph) {
  folder.Put("crystal.dat", "\n\n\n\n\n\n\n\n\n\n0\n");
  AttachLattice(form, program, lattice);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  host.ExpectModal([this](Form& opened) {
    EXPECT_EQ(opened.Name(), "frmPeakCal");
    EXPECT_EQ(lattice.GetGrpNo(), 1);
    opened.Hide();
  });
  dialogs.ExpectSave({});
  form.tool_bars.tlbrOperation.Press("hkl");
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmPeakCal"));
}

TEST_F(AttachFormsTest, WhatNeedsAGraphSaysSoInTheStatusLineWithoutOne) {
  RecordingPictures pictures;
  frmProperty property(program, host, launcher, "");
  frmPrint print(program, host, settings);
  frmPreView preview(host);
  Printing printing(program, print, preview, printer);
  frmPicture picture(program, host, pictures, settings);
  frmPeakReport report(program, host, printing);
  AttachProperty(form, property);
  AttachPrinting(form, print, printing);
  AttachPicture(form, picture);
  AttachPeakReport(form, report);
  for (const char* entry :
       {"mnuProperty", "mnuPrint", "mnuSavePicture", "mnuCopyPicture", "mnuPeakReport"}) {
    form.status.Refuse("");
    Menu(entry).Choose();
    EXPECT_EQ(form.status.lblHint.Caption(), "Open a spectrum first: Ctrl+O") << entry;
  }
  EXPECT_THAT(host.Shown(), testing::IsEmpty());
}

TEST_F(AttachFormsTest, ReportOpensThePeakReportFromBothToolBarsAndTheMenu) {
  frmPrint ask(program, host, settings);
  frmPreView preview(host);
  Printing printing(program, ask, preview, printer);
  frmPeakReport report(program, host, printing);
  EXPECT_FALSE(Menu("mnuPeakReport").Enabled());
  AttachPeakReport(form, report);
  ShowSpectrum("a.npd");
  ShowSpectrum("b.npd");
  const auto expect = [this, &report] {
    host.ExpectModal([&report](Form& opened) {
      EXPECT_EQ(report.GrpNo, 1);
      opened.Hide();
    });
  };
  expect();
  form.tool_bars.tlbrOperation.Press("Report");
  expect();
  form.tool_bars.tlbrRoiPeak.Press("Report");
  expect();
  Menu("mnuPeakReport").Choose();
  EXPECT_THAT(host.Shown(),
              testing::ElementsAre("frmPeakReport", "frmPeakReport", "frmPeakReport"));
}

class AttachCalibrationTest : public AttachFormsTest {
 protected:
  AttachCalibrationTest() {
    AttachCalibration(form, calibration);
    views.Add(calibration);
  }
};

TEST_F(AttachCalibrationTest, CalibOpensTheDialogFromBothToolBarsAndTheMenu) {
  form.tool_bars.tlbrEnergy.Press("Calib");
  EXPECT_TRUE(calibration.Visible());
  calibration.cmdCalbCan.Press();
  form.tool_bars.tlbrCalc.Press("Calib");
  calibration.cmdCalbCan.Press();
  Menu("mnuCons").Choose();
  EXPECT_THAT(host.Shown(), testing::Each("frmDialogCalibC"));
  EXPECT_THAT(host.Shown(), testing::SizeIs(3));
}

TEST_F(AttachCalibrationTest, WhileItIsOpenFiveButtonsAreOffAndTheOthersCanBeUsed) {
  AttachLattice(form, program, lattice);
  form.commands.Bind("Printer", [] {});
  ShowSpectrum();
  const ToolBar& operation = form.tool_bars.tlbrOperation;
  const bool fit = operation.ButtonEnabled("AllFit");
  Menu("mnuCons").Choose();
  EXPECT_FALSE(form.tool_bars.tlbrFile.ButtonEnabled("LoadData"));
  EXPECT_FALSE(form.tool_bars.tlbrFile.ButtonEnabled("SaveData"));
  EXPECT_FALSE(form.tool_bars.tlbrFile.ButtonEnabled("Printer"));
  EXPECT_FALSE(form.tool_bars.tlbrEnergy.ButtonEnabled("Calib"));
  EXPECT_FALSE(operation.ButtonEnabled("hkl"));
  EXPECT_TRUE(form.tool_bars.tlbrCalc.ButtonEnabled("Calib"));
  EXPECT_EQ(operation.ButtonEnabled("AllFit"), fit);
  calibration.cmdCalbCan.Press();
  EXPECT_TRUE(form.tool_bars.tlbrFile.ButtonEnabled("LoadData"));
  EXPECT_TRUE(form.tool_bars.tlbrFile.ButtonEnabled("Printer"));
  EXPECT_TRUE(form.tool_bars.tlbrEnergy.ButtonEnabled("Calib"));
  EXPECT_TRUE(operation.ButtonEnabled("hkl"));
}

TEST_F(AttachCalibrationTest, WhatItSwitchesOffIsOffInTheMenuToo) {
  AttachLattice(form, program, lattice);
  form.commands.Bind("Printer", [] {});
  ShowSpectrum();
  const auto on = [this] {
    std::vector<std::string> names;
    for (const char* name :
         {"mnuLoad", "mnuSave", "mnuPrint", "mnuCons", "mnuLattice", "mnuCloseGraph"}) {
      if (Menu(name).Enabled()) names.emplace_back(name);
    }
    return names;
  };
  EXPECT_THAT(on(), testing::SizeIs(6));
  Menu("mnuCons").Choose();
  EXPECT_THAT(on(), testing::ElementsAre("mnuCloseGraph"));
  for (const char* name : {"mnuLoad", "mnuSave", "mnuPrint", "mnuLattice"}) Menu(name).Choose();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmDialogCalibC"));
  calibration.cmdCalbCan.Press();
  EXPECT_THAT(on(), testing::SizeIs(6));
}

TEST_F(AttachCalibrationTest, RecentAndDroppedFilesAreRefusedInTheStatusLine) {
  constexpr const char* kRefused =
      "Not opened: leave the calibration by \"Exit\" first, or use its \"File Open\"";
  OpenFiles(1);
  ShowSpectrum("own.npd");
  Menu("mnuCons").Choose();
  form.Drop({folder.Path("a.xbm")});
  EXPECT_EQ(form.status.lblHint.Caption(), kRefused);
  form.status.Begin();
  Menu("mnuRecent_0").Choose();
  EXPECT_EQ(form.status.lblHint.Caption(), kRefused);
  EXPECT_THAT(Titles(), testing::ElementsAre("a.xbm", "own.npd"));
  calibration.cmdCalbCan.Press();
  form.Drop({folder.Path("a.xbm")});
  EXPECT_THAT(Titles(), testing::ElementsAre("a.xbm"));
}

TEST_F(AttachCalibrationTest, ARecentFileThatIsRefusedStaysRecentAlsoWhereItIsGone) {
  OpenFiles(1);
  Menu("mnuCons").Choose();
  std::filesystem::remove(folder.Path("a.xbm"));
  Menu("mnuRecent_0").Choose();
  EXPECT_THAT(form.recent.Paths(), testing::ElementsAre(folder.Path("a.xbm")));
}

TEST_F(AttachCalibrationTest, TheEndOfTheProgramEndsTheCalibrationModeToo) {
  Menu("mnuCons").Choose();
  Menu("mnuExit").Choose();
  EXPECT_FALSE(calibration.Visible());
  EXPECT_EQ(view.CalibrationOn, kFalse);
}

TEST_F(AttachCalibrationTest, FilesAreChosenInTheProgramsOwnDialogInTheFolderOfTheLastFile) {
  Show({1, 2, 3}, "a.xbm");
  SaveGraphAs(program, folder.Path("a, b.xbm"));
  DeleteGraph(list, 0);
  workspace.CurDir = folder.Path("");
  Menu("mnuCons").Choose();
  host.ExpectModal([this](Form& opened) {
    EXPECT_EQ(opened.Caption(), "File Open");
    EXPECT_EQ(load.Directory(), folder.Path(""));
    EXPECT_EQ(load.txtSelFile.Text(), "");
    load.cmbExtName.SetIndex(4);
    load.filFiles.SetSelected({0});
    load.cmdSet.Press();
  });
  calibration.cmdFileOpen.Press();
  EXPECT_EQ(calibration.sprdFileName.Text(1, 1), "a, b.xbm");
  EXPECT_EQ(workspace.Slots[0].Title, "a, b.xbm");
  host.ExpectModal([this](Form&) {
    EXPECT_EQ(load.txtSelFile.Text(), "");
    load.cmdCancel.Press();
  });
  calibration.cmdFileOpen.Press();
  EXPECT_EQ(calibration.sprdFileName.MaxRows(), 1);
}

TEST_F(AttachCalibrationTest, TheElementTableHandsALineToTheActiveRow) {
  Menu("mnuCons").Choose();
  calibration.cmdEnergyInp.Press();
  EXPECT_EQ(atom.CurrentMode(), frmAtom::Mode::Take);
  calibration.vaSpread1.SetActiveRow(3);
  atom.tglAtom[26].SetPressed(true);
  atom.tglPkDisp[1].SetPressed(true);
  EXPECT_EQ(calibration.vaSpread1.Text(3, frmDialogCalibC::kEnergy), "6.4039");
  EXPECT_EQ(calibration.vaSpread1.Text(3, frmDialogCalibC::kCharacter), "Fe Ka1");
  calibration.cmdCalbCan.Press();
  EXPECT_FALSE(atom.Visible());
}

TEST_F(AttachCalibrationTest, TheFitByHandAndTheCurveAreModal) {
  ShowSpectrum();
  Menu("mnuCons").Choose();
  calibration.cmdSmothBk.Press();
  for (const int mode : {0, 1}) {
    host.ExpectModal([](Form& opened) { opened.Hide(); });
    calibration.cmdAuto[mode].Press();
  }
  host.ExpectModal([this](Form&) { curve.cmdOk.Press(); });
  calibration.cmdCurve.Press();
  EXPECT_THAT(host.Shown(), testing::ElementsAre("frmDialogCalibC", "frmManualFit", "frmManualFit",
                                                 "frmCalibCurv"));
}

}  // namespace
}  // namespace dorvane
