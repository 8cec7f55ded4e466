// Hangs the other forms below the commands of the main form that open them.
#pragma once

#include "forms/Printing.h"
#include "forms/frmAtom.h"
#include "forms/frmCalibCurv.h"
#include "forms/frmDialogCalibC.h"
#include "forms/frmDialogLoad.h"
#include "forms/frmDispPara.h"
#include "forms/frmDorvane.h"
#include "forms/frmGrpCalc.h"
#include "forms/frmInputFitParameter.h"
#include "forms/frmKeys.h"
#include "forms/frmLog.h"
#include "forms/frmManualFit.h"
#include "forms/frmPeakCal.h"
#include "forms/frmPeakReport.h"
#include "forms/frmPicture.h"
#include "forms/frmProperty.h"
#include "forms/frmResultDirectory.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"
#include "forms/frmSetColor.h"
#include "forms/frmSetting.h"

namespace dorvane {

// From now on the commands open these forms, and the end of the program hides them. They outlive
// the main form's last command.
void AttachForms(frmDorvane& main, frmSelGraph& graphs, frmRoiReport& regions, frmLog& log,
                 frmKeys& keys);

// The same for the modal forms that take peaks by hand; they open for the current graph of
// `program`, that of the main form.
void AttachFitForms(frmDorvane& main, const Program& program, frmManualFit& manual_fit,
                    frmInputFitParameter& fit_input);

// The periodic table opens for the current graph of `program`, and marks lines on it.
void AttachAtom(frmDorvane& main, const Program& program, frmAtom& atom);

// The windows of the calibration dialog: the file dialog in the folder of the last file, the fit by
// hand, the element table and the curve. All of them outlive the dialog.
CalibWindows CalibWindowsOf(Program& program, frmDialogLoad& load, frmManualFit& manual_fit,
                            frmAtom& atom, frmCalibCurv& curve);
// "Calib" opens the calibration dialog.
void AttachCalibration(frmDorvane& main, frmDialogCalibC& calibration);

// "CalcSpect" opens the dialog of graph arithmetic.
void AttachArithmetic(frmDorvane& main, frmGrpCalc& arithmetic);

// "Report" opens the peak report for the current graph.
void AttachPeakReport(frmDorvane& main, frmPeakReport& report);

// "Printer" asks and prints the window of the current graph, or shows the preview.
void AttachPrinting(frmDorvane& main, frmPrint& print, Printing& printing);
// The menu saves that window as a picture, or copies it.
void AttachPicture(frmDorvane& main, frmPicture& picture);

// "CalSet" and the entries beside it open the dialogs of the settings. The entry of the peaks'
// colours opens the colour table at the mark of the peaks.
void AttachSettings(frmDorvane& main, Program& program, frmSetting& setting, frmDispPara& disp_para,
                    frmSetColor& colors);

// "Property" opens the measurement properties of the selected graph.
void AttachProperty(frmDorvane& main, frmProperty& property);

// "hkl" opens the lattice form for the current graph of `program`.
void AttachLattice(frmDorvane& main, const Program& program, frmPeakCal& lattice);
// The menu's entry opens the dialog of the directory that the lattice form writes its summary into.
void AttachResultDirectory(frmDorvane& main, frmResultDirectory& result_directory);

}  // namespace dorvane
