#include "forms/AttachForms.h"

#include "workspace/Colors.h"

namespace dorvane {
namespace {

// The kinds of spectra that the calibration dialog opens; "000" stands for the numbered files.
const std::vector<std::string>& SpectrumKinds() {
  static const std::vector<std::string> kinds{"npd", "rpt", "cnf", "chn",
                                              "xbm", "xba", "raw", "000"};
  return kinds;
}

// The program takes the table and draws in it after "OK" alone.
void EditColors(Program& program, frmSetColor& colors, int first_entry) {
  colors.SetTbl(program.workspace.ColorTbl);
  if (!colors.Open(first_entry)) return;
  ColorTable table;
  colors.GetTbl(table);
  UseColors(program, table);
}

}  // namespace

void AttachForms(frmDorvane& main, frmSelGraph& graphs, frmRoiReport& regions, frmLog& log,
                 frmKeys& keys) {
  main.Attach("mnuSelGraph", graphs, [&graphs] { graphs.GraphSel_Repl(1); });
  main.Attach("mnuRoiReport", regions, [&regions] { regions.Open(); });
  main.Attach("ShowLog", log, [&log] { log.Show(); });
  main.Attach("mnuKeys", keys, [&keys] { keys.Show(); });
}

void AttachFitForms(frmDorvane& main, const Program& program, frmManualFit& manual_fit,
                    frmInputFitParameter& fit_input) {
  const auto open = [&program, &manual_fit] { manual_fit.Open(program.view.GraphNo); };
  main.Attach("ManFit", manual_fit, open);
  main.Attach("NaxManualFit", manual_fit, open);
  main.Attach("mnuInputFitParameter", fit_input, [&fit_input] { fit_input.Open(); });
}

void AttachAtom(frmDorvane& main, const Program& program, frmAtom& atom) {
  main.Attach("Atom", atom,
              [&program, &atom] { atom.Open(program.view.GraphNo, frmAtom::Mode::Mark); });
}

CalibWindows CalibWindowsOf(Program& program, frmDialogLoad& load, frmManualFit& manual_fit,
                            frmAtom& atom, frmCalibCurv& curve) {
  load.DialogCaption("File Open");
  load.SetExt(SpectrumKinds());
  load.MultiSelect(true);
  load.VisibleMkDir(false);
  load.VisibleWin(false);
  CalibWindows windows;
  windows.ChooseFiles = [&program, &load] {
    load.Directory(program.workspace.CurDrive + program.workspace.CurDir);
    load.FileName("");
    return load.Open() ? load.Paths() : std::vector<std::string>();
  };
  windows.ManualFit = [&manual_fit](int grp_no) { manual_fit.Open(grp_no); };
  windows.ElementTable = [&program, &atom](frmAtom::TakeLine take) {
    atom.OpenToTake(program.view.GraphNo, std::move(take));
  };
  windows.CloseElementTable = [&atom] { atom.EndTaking(); };
  windows.ShowCurve = [&curve](CalibrationResult result) { curve.Open(std::move(result)); };
  return windows;
}

void AttachCalibration(frmDorvane& main, frmDialogCalibC& calibration) {
  main.Attach("Calib", calibration, [&calibration] { calibration.Open(); });
}

void AttachArithmetic(frmDorvane& main, frmGrpCalc& arithmetic) {
  main.Attach("CalcSpect", arithmetic, [&arithmetic] { arithmetic.Open(); });
}

void AttachPeakReport(frmDorvane& main, frmPeakReport& report) {
  main.Attach("Report", report,
              [&main, &report] { main.ForAGraph([&report] { report.Open(0); }); });
}

void AttachPrinting(frmDorvane& main, frmPrint& print, Printing& printing) {
  main.Attach("Printer", print,
              [&main, &printing] { main.ForAGraph([&printing] { printing.PrintWindow(); }); });
}

void AttachPicture(frmDorvane& main, frmPicture& picture) {
  main.Attach("mnuSavePicture", picture,
              [&main, &picture] { main.ForAGraph([&picture] { picture.Open(); }); });
  main.commands.Bind("mnuCopyPicture",
                     [&main, &picture] { main.ForAGraph([&picture] { picture.Copy(); }); });
}

void AttachSettings(frmDorvane& main, Program& program, frmSetting& setting, frmDispPara& disp_para,
                    frmSetColor& colors) {
  main.Attach("CalSet", setting, [&setting] { setting.Open(); });
  main.Attach("mnuDispPara", disp_para, [&disp_para] { disp_para.Open(); });
  main.Attach("mnuColor", colors, [&program, &colors] { EditColors(program, colors, 0); });
  main.Attach("mnuPeakColor", colors,
              [&program, &colors] { EditColors(program, colors, kColorPeakMark); });
}

void AttachProperty(frmDorvane& main, frmProperty& property) {
  main.Attach("Property", property,
              [&main, &property] { main.ForAGraph([&property] { property.Open(); }); });
}

void AttachLattice(frmDorvane& main, const Program& program, frmPeakCal& lattice) {
  main.Attach("hkl", lattice, [&program, &lattice] { lattice.Open(program.view.GraphNo); });
}

void AttachResultDirectory(frmDorvane& main, frmResultDirectory& result_directory) {
  main.Attach("mnuResultDirectory", result_directory,
              [&result_directory] { result_directory.Open(); });
}

}  // namespace dorvane
