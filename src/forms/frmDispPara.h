// The default measurement properties, which new spectra start from, and the default calibration.
#pragma once

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"

namespace dorvane {

// Modal. A number that is out of the range that is meant is taken; the lines under the boxes warn.
class frmDispPara : public Form {
 public:
  static constexpr int kCoefficients = 3;
  static constexpr int kFields = 6;

  // Both outlive the form.
  frmDispPara(Program& program, FormHost& host);

  // Shows what is stored; the kind of the calibration is that of its third coefficient.
  void Open();

  // The two kinds are a pair: one of them is on.
  void chkCnst_Click(int index);
  // Writes all back, shows the new calibration and closes. A count without a place in 32 bits is
  // the fault "Overflow": then nothing is taken, and the form stays.
  void cmdOk_Click();
  void cmdCansel_Click() { Hide(); }

  ControlArray<CheckBox> chkCnst{controls_, "chkCnst", 2};
  ControlArray<NumberBox> ImConst{controls_, "ImConst", kCoefficients, "##,###,##0.000000"};
  ControlArray<Label> lblConst{controls_, "lblConst", kCoefficients};  // what is meant

  Frame fraMode{controls_, "fraMode", "Measurement mode"};
  // Index: MeasProp::PropHead.
  OptionGroup optMode{controls_, "optMode", {"Real", "Live", "Real (2)", "Live (3)", "Separate"}};

  NumberBox imnRealTime{controls_, "imnRealTime", "#0.00", "Real Time(sec): "};
  NumberBox imnLiveTime{controls_, "imnLiveTime", "#0.00", "Live Time(sec):"};
  NumberBox imnRoiCnt{controls_, "imnRoiCnt", "######0", "Intensity(count):"};
  NumberBox imnAngle{controls_, "imnAngle", "#0.00000", "2θ Angle (°)"};
  // KEPT: the unit of the caption is that of an old press gauge; the field is in GPa.
  NumberBox ImnPress{controls_, "ImnPress", "#0.000", "Pressure(Kg/cm2)"};
  NumberBox ImnTemp{controls_, "ImnTemp", "#0.00", "Temperature("};
  ControlArray<Label> lblRange{controls_, "lblRange", kFields};  // what is meant, in their order

  Button cmdOk{controls_, "cmdOk", "OK"};
  Button cmdCansel{controls_, "cmdCansel", "Cancel"};

 private:
  void ConnectBoxes();
  void Form_Load();
  void ShowHints();
  void Take(Workspace& workspace) const;

  Program& program_;
};

}  // namespace dorvane
