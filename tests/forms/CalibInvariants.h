// What holds of the calibration dialog, and of the main form beside it, after every action of a
// user.
#pragma once

#include <string>

#include "forms/StoreInvariants.h"
#include "forms/frmDialogCalibC.h"
#include "forms/frmDorvane.h"

namespace dorvane {

// What the calibration switches off on the main form, by button and by menu entry.
inline void CheckCalibrationMode(frmDorvane& main, bool calibrating, Wrong& wrong) {
  struct Switched {
    ToolBar& bar;
    const char* key;
    const char* entry;
  };
  ToolBarsPanel& bars = main.tool_bars;
  for (const Switched& each : {Switched{bars.tlbrFile, "LoadData", "mnuLoad"},
                               Switched{bars.tlbrFile, "SaveData", "mnuSave"},
                               Switched{bars.tlbrFile, "Printer", "mnuPrint"},
                               Switched{bars.tlbrEnergy, "Calib", "mnuCons"},
                               Switched{bars.tlbrOperation, "hkl", "mnuLattice"}}) {
    const std::string key = each.key;
    const bool on = main.commands.Bound(key) && !calibrating;
    Expect(each.bar.ButtonEnabled(key) == on, "the calibration switches the button " + key, wrong);
    Expect(main.menus.At(each.entry).Enabled() == on,
           "the calibration switches the entry of " + key, wrong);
  }
}

// `ended`: the end of the program hides the dialog without its "Exit".
inline void CheckCalibration(const frmDialogCalibC& form, frmDorvane& main, const Program& program,
                             bool ended, Wrong& wrong) {
  Expect(form.Visible() == (program.view.CalibrationOn != kFalse),
         "the calibration is on while its dialog is shown", wrong);
  CheckCalibrationMode(main, form.Visible(), wrong);
  const Grid& files = form.sprdFileName;
  Expect(files.MaxRows() <= kMostCalibFiles, "at most 20 reference spectra", wrong);
  for (int row = 1; row <= files.MaxRows(); ++row) {
    Expect(!files.Text(row, 1).empty(), "a reference spectrum has a name", wrong);
  }
  Expect(form.Visible() || ended || files.MaxRows() == 0, "\"Exit\" leaves no reference spectrum",
         wrong);
  Expect(form.vaSpread1.MaxRows() == kMostCalibPoints, "30 lines", wrong);
  const bool parabola = form.optCnst.Index() == 1;
  Expect(form.ImConst[2].Enabled() == parabola, "C belongs to the parabola", wrong);
  Expect(parabola || form.ImConst[2].Value() == 0, "C is 0 for the straight line", wrong);
  if (!form.Visible()) return;
  for (int mode = 0; mode < form.cmdAuto.Size(); ++mode) {
    Expect(form.cmdAuto[mode].Enabled() != form.cmdSmothBk.Enabled(),
           "the fits are on after the smoothing", wrong);
  }
}

}  // namespace dorvane
