// The dialog of the energy calibration: reference spectra, the table of their lines, and the
// coefficients that come out of it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/Menus.h"
#include "forms/frmAtom.h"
#include "forms/frmCalibCurv.h"
#include "program/CalibFiles.h"
#include "program/EnergyCalibration.h"
#include "program/Program.h"

namespace dorvane {

// The windows that the dialog opens.
struct CalibWindows {
  std::function<std::vector<std::string>()> ChooseFiles;  // whole paths; none after Cancel
  std::function<void(int grp_no)> ManualFit;              // returns when it is hidden
  std::function<void(frmAtom::TakeLine)> ElementTable;    // hands lines over from now on
  std::function<void()> CloseElementTable;
  std::function<void(CalibrationResult)> ShowCurve;  // returns when it is hidden
};

// Floats beside the main form, on whose graphs the user marks and fits peaks meanwhile; the main
// form is in its calibration mode as long as the dialog is shown. The line table stays from
// one opening to the next.
class frmDialogCalibC : public Form, public WorkspaceListener {
 public:
  // Columns of vaSpread1.
  static constexpr int kChannel = 1;
  static constexpr int kEnergy = 2;
  static constexpr int kCharacter = 3;
  static constexpr int kSource = 4;

  // Both outlive the form.
  frmDialogCalibC(Program& program, FormHost& host, CalibWindows windows);

  // Begins the calibration mode with the calibration of the first spectrum. Shown already, the
  // dialog only comes to the front.
  void Open();

  // The window and the row that the commands go to: those that the main form works on.
  int WinNo() const;
  int GrpNo() const { return program_.view.GraphNo; }

  // ImConst and optCnst from the first spectrum.
  void DispKeisu();
  // From now on a line chosen in the element table goes into the active row.
  void EntEnargy();

  void cmdFileOpen_Click();
  void cmdDelFile_Click();
  void sprdFileName_Click(int row);
  void cmdFitDel_Click();
  void cmdSmothBk_Click();
  void cmdAuto_Click();
  void cmdCsrSet_Click();
  void cmdDelTable_Click();
  void optCnst_Click();
  void cmdCalEng_Click();
  void cmdCalbOK_Click();
  void cmdCurve_Click();
  // Leaves the calibration mode and closes the spectra, unless unsaved data is to be kept.
  void cmdCalbCan_Click();
  void QueryClose() override { cmdCalbCan_Click(); }

  void SpectrumRemoved(int WinNo, int DataNo) override { files_.SpectrumRemoved(WinNo, DataNo); }
  void CurveMade(int DataNo, int source) override { files_.CurveMade(DataNo, source); }

  MenuItem mnuFile{controls_, "mnuFile", "&File"};
  MenuItem mnuFileOpen{controls_, "mnuFileOpen", "File &Open...", &mnuFile};
  MenuItem mnuUpdate{controls_, "mnuUpdate", "&Update", &mnuFile};
  MenuItem mnuCancel{controls_, "mnuCancel", "E&xit", &mnuFile, "", true};
  MenuItem mnuTable{controls_, "mnuTable", "&Table"};
  MenuItem mnuElmTable{controls_, "mnuElmTable", "&Element Table...", &mnuTable};
  MenuItem mnuDelPoint{controls_, "mnuDelPoint", "&Delete Current Line", &mnuTable};
  MenuItem mnuCurve{controls_, "mnuCurve", "&Curve"};
  MenuItem mnuShow{controls_, "mnuShow", "&Show...", &mnuCurve};

  Grid sprdFileName{controls_, "sprdFileName", {"FileName"}};
  Button cmdFileOpen{controls_, "cmdFileOpen", "File Open"};
  Button cmdDelFile{controls_, "cmdDelFile", "File Delete"};
  Button cmdFitDel{controls_, "cmdFitDel", "Del Fit"};
  Button cmdSmothBk{controls_, "cmdSmothBk", WithoutMnemonic("Smoth&BkRemove")};
  ControlArray<Button> cmdAuto{controls_, "cmdAuto", 2};

  Grid vaSpread1{controls_, "vaSpread1", {"Channel", "Energy(KeV)", "Character", "Source File"}};
  Button cmdCsrSet{controls_, "cmdCsrSet", "Input Fit Center Value"};
  Button cmdEnergyInp{controls_, "cmdEnergyInp", "Element Table"};
  Button cmdDelTable{controls_, "cmdDelTable", "Delete Current Line"};

  OptionGroup optCnst{controls_, "optCnst", {"E=A+Bx", "E=A+Bx+Cx^2"}};
  ControlArray<NumberBox> ImConst{controls_, "ImConst", 3, "##,###,##0.000000"};
  Button cmdCalEng{controls_, "cmdCalEng", "Calculate"};
  Button cmdCurve{controls_, "cmdCurve", "Show"};
  Label lblHint{controls_, "lblHint"};  // what the last calculation has come to
  Button cmdCalbOK{controls_, "cmdCalbOK", "Update"};
  Button cmdCalbCan{controls_, "cmdCalbCan", "Exit"};

 private:
  void ConnectButtons();
  void ConnectMenus();
  bool Do(const std::function<void(Program&)>& operation);
  CalibTable Table() const;
  CalibRow Row(int row) const;
  void ShowRow(int row, const CalibRow& cells);
  void ShowCoefficients(const CalibTable& table);
  void ShowFiles();
  void ShowFit(const CalibFit& fit, CalibForm form);
  void TakeEnergy(const ElementEnergy& line);
  void End();

  Program& program_;
  CalibWindows windows_;
  CalibFiles files_;
  bool open_ = false;  // between EneCalStart and EneCalEnd
};

}  // namespace dorvane
