// The form that shows and edits every measurement property of a spectrum.
#pragma once

#include <cstdint>
#include <string>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"
#include "support/Launcher.h"

namespace dorvane {

// Modal. Boxes hold the whole numbers behind what they show; one that nobody has touched leaves its
// field as it is, to the last bit.
class frmProperty : public Form {
 public:
  // All of them outlive the form. The label tool lies in `tool_directory`, beside the program.
  frmProperty(Program& program, FormHost& host, Launcher& launcher, std::string tool_directory);

  // Shows the properties of the selected row in the real window until the form is closed. Without a
  // graph: nothing.
  void Open();

  // The spectrum whose properties are shown, DataNo 0..13, from the next SetValue on.
  void SetDataNo(int data_no) { data_no_ = data_no; }
  // Fills all boxes from the spectrum; nothing counts as changed then.
  void SetValue();

  // Kelvin follow the degrees.
  void ImnTemp_Change();
  // The resistance follows voltage and current; a current of 0, or a resistance that is too large
  // for a number, leaves it as it is.
  void imnVolt_Change() { ShowRegistance(); }
  void imnCurrent2_Change() { ShowRegistance(); }
  void imnRealTime_Change() { ShowDeadTime(); }
  void imnLiveTime_Change() { ShowDeadTime(); }
  // The next name of a series, by its last six digits.
  void cmdIndent_Click();
  // Writes the boxes to the spectrum, asks whether to save its file where a box has changed, and
  // closes.
  void cmdOk_Click();
  void cmdCan_Click() { Hide(); }
  // Writes the boxes to the spectrum and hands it to the label tool; the form stays.
  // KEPT: "EXIT" after that does not take the values back.
  void cmdLabelPrint_Click();

  Frame fraSample{controls_, "fraSample", "1. Sample Infomation"};
  TextBox txtMsuName{controls_, "txtMsuName", "File Name"};
  Button cmdIndent{controls_, "cmdIndent", "Count Up"};
  TextBox txtSampName{controls_, "txtSampName", "Sample Name"};
  TextBox txtOpDate{controls_, "txtOpDate", "Date"};
  TextBox txtOpTime{controls_, "txtOpTime", "Start Time"};
  TextBox txtOpName{controls_, "txtOpName", "Operater"};
  TextBox txtMemo{controls_, "txtMemo", "Comment"};
  NumberBox imnCurrent{controls_, "imnCurrent", kPicture, "Ring Current (mA)"};

  Frame fraSlit{controls_, "fraSlit", "2. Slit condition"};
  Label lblInSlit{controls_, "lblInSlit", "Incident slit"};
  NumberBox imnInV{controls_, "imnInV", kSlitPicture, "Vertical(mm)"};
  NumberBox imnInH{controls_, "imnInH", kSlitPicture, "Horizontal(mm)"};
  NumberBox imnInX{controls_, "imnInX", kSlitPicture, "X(mm)"};
  NumberBox imnInZ{controls_, "imnInZ", kSlitPicture, "Z(mm)"};
  NumberBox imnInTY{controls_, "imnInTY", kSlitPicture, "TY"};
  Label lblReSlit{controls_, "lblReSlit", "Receiving slit"};
  NumberBox imnReV{controls_, "imnReV", kSlitPicture, "Vertical(mm)"};
  NumberBox imnReH{controls_, "imnReH", kSlitPicture, "Horizontal(mm)"};
  NumberBox imnReX{controls_, "imnReX", kSlitPicture, "X(mm)"};
  NumberBox imnReZ{controls_, "imnReZ", kSlitPicture, "Z(mm)"};
  NumberBox imnReTY{controls_, "imnReTY", kSlitPicture, "TY"};

  Frame fraGonio{controls_, "fraGonio", "3. Goniometer condition"};
  Label lblHGonio{controls_, "lblHGonio", "Horizontal Goniometer"};
  NumberBox imnHGonioX{controls_, "imnHGonioX", kPicture, "X(mm)"};
  NumberBox imnHGonioY{controls_, "imnHGonioY", kPicture, "Y(mm)"};
  NumberBox imnHGonioZ{controls_, "imnHGonioZ", kPicture, "Z(mm)"};
  // The view puts the letter theta behind the caption.
  NumberBox imnHGonioDAngle{controls_, "imnHGonioDAngle", kAnglePicture, "Diffraction angle 2"};
  Label lblVGonio{controls_, "lblVGonio", "Vertical Gonio position"};
  NumberBox imnVGonioX{controls_, "imnVGonioX", kPicture, "X(mm)"};
  NumberBox imnVGonioY{controls_, "imnVGonioY", kPicture, "Y(mm)"};
  NumberBox imnVGonioZ{controls_, "imnVGonioZ", kPicture, "Z(mm)"};
  NumberBox imnVGonioDAngle{controls_, "imnVGonioDAngle", kAnglePicture, "Diffraction angle 2"};

  Frame fraPress{controls_, "fraPress", "4. Press condition"};
  Label lblPosition{controls_, "lblPosition", "Position(mm)"};
  NumberBox imnPressX{controls_, "imnPressX", kPicture, "X"};
  NumberBox imnPressY{controls_, "imnPressY", kPicture, "Y"};
  NumberBox imnPressZ{controls_, "imnPressZ", kPicture, "Z"};
  NumberBox imnPressTZ{controls_, "imnPressTZ", kPicture, "TZ"};
  NumberBox imnLoad{controls_, "imnLoad", kPicture, "Load(ton)"};
  NumberBox imnRamStroke{controls_, "imnRamStroke", kPicture, "Ram stroke(mm)"};
  NumberBox ImnPress{controls_, "ImnPress", kPicture, "Pressure(GPa)"};

  Frame fraMeasure{controls_, "fraMeasure", "5. Measurement"};
  // The view ends the captions that stop at a sign which has no place in them.
  NumberBox ImnTemp{controls_, "ImnTemp", kCoarsePicture, "Temperature("};
  // KEPT: Kelvin that are typed go nowhere, though they count as a change of the properties.
  NumberBox imnTempK{controls_, "imnTempK", kCoarsePicture, "Temperature(K)"};
  NumberBox imnCurrent2{controls_, "imnCurrent2", kPicture, "Current(A)"};
  NumberBox imnVolt{controls_, "imnVolt", kPicture, "Volt(V)"};
  NumberBox imnPower{controls_, "imnPower", kPicture, "Power(W)"};
  NumberBox imnRegistance{controls_, "imnRegistance", "0.00000", "Registance(m"};
  NumberBox imnMiriVolt{controls_, "imnMiriVolt", kPicture, "Ion Chamber (mV)"};
  NumberBox imnCollimeterSize{controls_, "imnCollimeterSize", kPicture, "Collimeter size(mm)"};
  NumberBox imnCntRate{controls_, "imnCntRate", kCoarsePicture, "Count Rate (cps)"};
  NumberBox imnRealTime{controls_, "imnRealTime", kCoarsePicture, "Real Time (Sec)"};
  NumberBox imnLiveTime{controls_, "imnLiveTime", kCoarsePicture, "Live Time (Sec)"};
  NumberBox imnDeadTime{controls_, "imnDeadTime", kCoarsePicture, "Dead Time (%)"};

  // KEPT: the text of the formula says "cX * cX" for the term c * X * X.
  Frame fraEneCal{controls_, "fraEneCal", "Energy Calibration Coefficents"};
  Label lblEneCal{controls_, "lblEneCal", "Energy(keV)=a + bX + cX * cX   (X=Channel)"};
  NumberBox imnEneCalA{controls_, "imnEneCalA", kEgcPicture, "a"};
  NumberBox imnEneCalB{controls_, "imnEneCalB", kEgcPicture, "b"};
  NumberBox imnEneCalC{controls_, "imnEneCalC", "0.00000E+000", "c"};

  Button cmdOk{controls_, "cmdOk", "SAVE"};
  Button cmdCan{controls_, "cmdCan", "EXIT"};
  Button cmdLabelPrint{controls_, "cmdLabelPrint", "LabelPrint"};

 private:
  static constexpr const char* kPicture = "#0.000";
  static constexpr const char* kCoarsePicture = "#0.00";
  static constexpr const char* kSlitPicture = "#0.000;(#0.000);Nothing";
  static constexpr const char* kAnglePicture = "#0.00000";
  static constexpr const char* kEgcPicture = "#0.00000000";

  void ConnectBoxes();
  SpectrumRec& Record() { return program_.workspace.Spectra[data_no_]; }
  void ShowRegistance();
  void ShowDeadTime();
  // Writes the boxes to the spectrum, and shows it where a field has changed.
  void TakeOver();
  bool TakeTexts(SpectrumRec& record) const;
  bool TakeNumbers(MeasProp& prop) const;

  Program& program_;
  Launcher& launcher_;
  const std::string tool_directory_;
  int data_no_ = 0;
  std::int16_t PropChanged = kFalse;  // -1 from the first change of a box on
};

}  // namespace dorvane
