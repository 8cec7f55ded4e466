// The work form that refines the cell of a sample from the fitted peaks of one spectrum and takes
// the pressure of a marker from it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/PeakCalGrids.h"
#include "forms/PictureBox.h"
#include "lattice/LatticeRows.h"
#include "program/LatticeBoxes.h"
#include "program/LatticeLogFile.h"
#include "program/LatticeWork.h"
#include "program/LineMarks.h"
#include "support/SettingsStore.h"

namespace dorvane {

// Modal. Each opening is a work of its own, narrated into the log. Its handlers are in three
// sources beside its own: PeakCalSelect (mode, sample, system, seeds, angle), PeakCalCalculate,
// PeakCalLines (grids and plot).
class frmPeakCal : public Form {
 public:
  // All outlive the form.
  frmPeakCal(Program& program, FormHost& host, SettingsStore& settings, LineMarks& line_marks);

  // A whole work on the graph of a row: Load, InitForm, the form until it is closed, Unload.
  // Nothing where the row holds no graph.
  void Open(int grp_no);
  // Reads the form as it is into the work.
  void InitForm();
  // Shows the peaks of the spectrum; with a mode other than 0 only their d values anew.
  void CopyPeakInfo(int mode);
  // Writes the summary of the work.
  void DataSave();

  void WinNo(std::int16_t win_no) { work_.WinNo = win_no; }
  std::int16_t GetWinNo() const { return work_.WinNo; }
  void GrpNo(std::int16_t grp_no) { work_.GrpNo = grp_no; }
  std::int16_t GetGrpNo() const { return work_.GrpNo; }
  void DispUnit(std::int16_t unit) { work_.DispUnit = unit; }

  const LatticeWork& Work() const { return work_; }
  const LatticeState& State() const { return *state_; }
  std::int16_t LogFailed() const { return log_.LogFailed(); }

  // The deviation of each line, on the surface of picDeviation.
  void DrawDeviation(Surface& surface) const;

  void optSelectMode_Click(int index);
  void cmbElement_Click();
  void cmbLatticeType_Click();
  bool txtSeedConstant_Validate(int index) const;
  void txtSeedConstant_Left(int index);
  bool txt2Theta_Validate() const;
  void txt2Theta_Left();
  void sprPeakInf_Checked(Grid& grid, int row);
  void tabLatticeFit_Click();
  void cmdCal_Click();
  void cmd2ThetaCalib_Click();
  void cmdDataSave_Click();
  void cmdExit_Click();

  OptionGroup optSelectMode{controls_, "optSelectMode", {"Sample", "Pressure Marker"}};
  ComboBox cmbElement{controls_, "cmbElement", "Sample"};
  ComboBox cmbLatticeType{controls_, "cmbLatticeType", "Lattice Type"};
  ControlArray<Label> lblSeed{controls_, "lblSeed", kCellConstants};
  ControlArray<TextBox> txtLatticeConstans{controls_, "txtLatticeConstans", kCellConstants,
                                           "Initial Value"};
  ControlArray<TextBox> txtSeedConstant{controls_, "txtSeedConstant", kCellConstants, "Seed"};
  ControlArray<TextBox> txtLatticeLength{controls_, "txtLatticeLength", kCellConstants,
                                         "Calculated"};
  TextBox txtTemp{controls_, "txtTemp", "Temperature"};
  ComboBox cmbUnit{controls_, "cmbUnit"};
  TextBox txt2Theta{controls_, "txt2Theta", "2θ"};
  Frame fra2ThetaCalib{controls_, "fra2ThetaCalib", "2θCalibration for Cubic Type"};
  Button cmd2ThetaCalib{controls_, "cmd2ThetaCalib", "Correct"};
  TextBox txtExpected2theta{controls_, "txtExpected2theta", "Expected 2θ"};
  TextBox txtVol{controls_, "txtVol", "V"};
  TextBox txtVolPerVol0{controls_, "txtVolPerVol0", "V/V0"};
  TextBox txtPressure{controls_, "txtPressure", "P"};
  Label lblPeakHint{controls_, "lblPeakHint"};  // seen where there are no peaks
  Tabs tabLatticeFit{controls_, "tabLatticeFit", {"PeakData", "UsePeak"}};
  Grid sprPeakInf{controls_, "sprPeakInf", PeakInfHeadings()};
  Grid sprPeakInf2{controls_, "sprPeakInf2", PeakInf2Headings()};
  Grid sprPeakInf3{controls_, "sprPeakInf3", PeakInf3Headings()};
  Grid sprPeakInf4{controls_, "sprPeakInf4", PeakInf4Headings()};
  PictureBox picDeviation{controls_, "picDeviation"};
  Button cmdCal{controls_, "cmdCal", "Execute"};
  Button cmdDataSave{controls_, "cmdDataSave", "Data Save"};
  Button cmdExit{controls_, "cmdExit", "Exit"};
  Label lblOutcome{controls_, "lblOutcome"};  // what came of the last button

 private:
  void Connect();
  // Runs a handler behind the boundary at which faults stop; nothing while the form loads.
  void Do(const std::function<void()>& handler);
  void Form_Load(int grp_no);
  void ClearBoxes();
  void ReadLibrary();
  void Form_Unload();

  void FillElements();
  void EnableBoxes(int lattice_type);
  void ShowCell(const CrystalRec& crystal);
  const CrystalRec* Crystal() const;
  CellTexts SeedTexts() const;
  void TakeSeeds();
  void ShowMarks();
  void Forget();

  std::int16_t Refuse(const char* message);
  std::int16_t Calculate(std::int16_t mode, int LatticeIndex, int ElementIndex);
  void ShowSample(const LatticeResult& result);
  void ShowMarker(const LatticeResult& result);
  void ShowBoxes(const ResultBoxes& boxes);
  ResultBoxes Boxes() const;
  SeedRecord Sample() const;
  void Narrate();

  void FillPeakGrids();
  void ShowRows();
  void ShowTab();

  Program& program_;
  SettingsStore& settings_;
  LineMarks& line_marks_;
  LatticeWork work_;
  std::unique_ptr<LatticeState> state_;
  LatticeLogFile log_;
  std::optional<CellVector> direct_;  // the last refined cell of this work
  std::vector<MatchedRow> rows_;      // as the grids show them
  std::string summary_tag_;
};

}  // namespace dorvane
