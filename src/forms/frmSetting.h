// The settings of smoothing, background, peak search and fit.
#pragma once

#include <string_view>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"

namespace dorvane {

// Modal. A text that is no number leaves its value as it was, without a message; a number out of
// the range that is meant is taken. The lines under the boxes warn of both.
class frmSetting : public Form {
 public:
  // Both outlive the form.
  frmSetting(Program& program, FormHost& host);

  // Shows what is stored, and of the two families of fit the controls of the one in use.
  void Open();

  void sldrThres_Change();
  // Enter: the text becomes a whole number from 1 to 20 (half to even; 10 for no number), in the
  // box and in the slider.
  void txtThres_Enter();
  // Stores the defaults of the four values of "Dorvane.ini" at once, and shows them.
  void cmdDefault_Click();
  // Takes all and closes. A whole number without a place in 16 bits is the fault "Overflow": then
  // nothing is taken, and the form stays.
  void cmdOk_Click();
  void cmdCansel_Click() { Hide(); }

  ComboBox cboSmooth{controls_, "cboSmooth", "Smoothing"};
  TextBox txtBackInterval{controls_, "txtBackInterval", "BackInterval"};
  Label lblBackInterval{controls_, "lblBackInterval"};
  TextBox txtBackTimes{controls_, "txtBackTimes", "BackTimes"};
  Label lblBackTimes{controls_, "lblBackTimes"};

  // Of the Express family.
  TextBox txtThres{controls_, "txtThres", "Peak threshold"};
  Slider sldrThres{controls_, "sldrThres", "Peak threshold"};
  Label lblThres{controls_, "lblThres"};
  ComboBox cboFuncType{controls_, "cboFuncType", "Fit function"};
  // KEPT: users know its place; no fit has ever read it.
  CheckBox chkFitFunc{controls_, "chkFitFunc", "Tilt"};

  // Of the Nax family.
  TextBox txtEACPS{controls_, "txtEACPS", "BG Coefficient "};
  Label lblEACPS{controls_, "lblEACPS"};
  TextBox txtISPPK{controls_, "txtISPPK", "Peak Width(Ch)"};
  Label lblISPPK{controls_, "lblISPPK"};

  TextBox txtLambda{controls_, "txtLambda", "Lambda(for DAC"};
  Label lblLambda{controls_, "lblLambda"};
  TextBox txtJudgeRange{controls_, "txtJudgeRange", "Judgment range"};
  Label lblJudgeUnit{controls_, "lblJudgeUnit", "(dA)"};
  Label lblJudgeRange{controls_, "lblJudgeRange"};

  Button cmdDefault{controls_, "cmdDefault", "Set Default"};
  Button cmdOk{controls_, "cmdOk", "OK"};
  Button cmdCansel{controls_, "cmdCansel", "Cancel"};

 private:
  struct NumberText;
  static const NumberText kNumbers[];

  void ConnectBoxes();
  void ShowFamily();
  void ShowNumbers();
  void ShowHints();
  void Take(Workspace& workspace) const;
  AnalysisSettings TypedSettings(const Workspace& workspace) const;

  Program& program_;
};

}  // namespace dorvane
