#include "forms/frmPeakCal.h"

#include "lattice/CalLattice.h"
#include "lattice/CrystalData.h"
#include "lattice/CrystalFile.h"
#include "program/Commands.h"
#include "program/LatticeNarration.h"
#include "support/Fault.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kMarksOwner = "frmPeakCal";
constexpr const char* kPresetTemperature = "27.0";
constexpr const char* kPresetAngle = "5.0000";
constexpr const char* kAngle = "#0.00000";
constexpr const char* kConstantNames[] = {"a", "b", "c", "α", "β", "γ"};

}  // namespace

frmPeakCal::frmPeakCal(Program& program, FormHost& host, SettingsStore& settings,
                       LineMarks& line_marks)
    : Form(host, "frmPeakCal", "Lattice Caluculate"),
      program_(program),
      settings_(settings),
      line_marks_(line_marks),
      state_(std::make_unique<LatticeState>()),
      log_(program.ports.files, program.ports.dialogs, program.directory) {
  std::vector<std::string> types;
  for (std::int16_t type = kCubic; type <= kTriclinic; ++type) types.push_back(LatticeName(type));
  cmbLatticeType.SetItems(std::move(types));
  cmbUnit.SetItems({"℃", "K"});
  cmbUnit.SetIndex(0);
  txtTemp.SetText(kPresetTemperature);
  txt2Theta.SetText(kPresetAngle);
  sprPeakInf.SetCaption("Peak No.");
  for (int k = 0; k < kCellConstants; ++k) {
    lblSeed[k].SetCaption(kConstantNames[k]);
    txtLatticeConstans[k].SetReadOnly(true);
    txtLatticeLength[k].SetReadOnly(true);
  }
  for (TextBox* box : {&txtVol, &txtVolPerVol0, &txtPressure, &txtExpected2theta}) {
    box->SetReadOnly(true);
  }
  Connect();
  ShowTab();
}

void frmPeakCal::Connect() {
  optSelectMode.Click.Connect([this](int index) { Do([&] { optSelectMode_Click(index); }); });
  cmbElement.Click.Connect([this] { Do([this] { cmbElement_Click(); }); });
  cmbLatticeType.Click.Connect([this] { Do([this] { cmbLatticeType_Click(); }); });
  for (int k = 0; k < kCellConstants; ++k) {
    txtSeedConstant[k].Validate = [this, k] { return txtSeedConstant_Validate(k); };
    txtSeedConstant[k].Left.Connect([this, k] { Do([&] { txtSeedConstant_Left(k); }); });
  }
  txt2Theta.Validate = [this] { return txt2Theta_Validate(); };
  txt2Theta.Left.Connect([this] { Do([this] { txt2Theta_Left(); }); });
  for (Grid* grid : {&sprPeakInf, &sprPeakInf2, &sprPeakInf3, &sprPeakInf4}) {
    grid->Checked.Connect(
        [this, grid](int row, int) { Do([&] { sprPeakInf_Checked(*grid, row); }); });
  }
  tabLatticeFit.Click.Connect([this] { tabLatticeFit_Click(); });
  cmdCal.Click.Connect([this] { Do([this] { cmdCal_Click(); }); });
  cmd2ThetaCalib.Click.Connect([this] { Do([this] { cmd2ThetaCalib_Click(); }); });
  cmdDataSave.Click.Connect([this] { Do([this] { cmdDataSave_Click(); }); });
  cmdExit.Click.Connect([this] { cmdExit_Click(); });
}

void frmPeakCal::Do(const std::function<void()>& handler) {
  if (work_.Loading != 0) return;
  RunGuarded(program_, [&](Program&) { handler(); });
}

void frmPeakCal::Open(int grp_no) {
  if (!HoldsGraph(program_.workspace, grp_no)) return;
  Form_Load(grp_no);
  InitForm();
  ShowModal();
  Form_Unload();
}

void frmPeakCal::Form_Load(int grp_no) {
  work_ = BeginLatticeWork(program_, grp_no);
  work_.Loading = 1;
  ClearBoxes();
  tabLatticeFit.SetIndex(0);
  const bool own_angles = program_.workspace.Spectra[work_.DataNo].DataType == kDacData;
  txt2Theta.SetEnabled(!own_angles);
  cmd2ThetaCalib.SetEnabled(!own_angles);
  txt2Theta.SetText(Picture(work_.TwoTheta, kAngle));
  *state_ = {};
  Forget();
  CopyPeakInfo(0);
  ReadLibrary();
  FillElements();
  if (log_.OpenLatticeLog(kFirstLog) == kFalse) {
    log_.Put(OpeningRecords(program_.workspace, work_.DataNo));
  }
  work_.Loading = 0;
}

// As the form is made anew for each opening: nothing is chosen, no result is shown.
void frmPeakCal::ClearBoxes() {
  lblOutcome.SetCaption("");
  optSelectMode.SetIndex(kSelectSample);
  cmbElement.SetIndex(-1);
  cmbLatticeType.SetIndex(-1);
  for (int k = 0; k < kCellConstants; ++k) {
    for (TextBox* box : {&txtLatticeConstans[k], &txtSeedConstant[k], &txtLatticeLength[k]}) {
      box->SetText("");
      box->SetEnabled(true);
    }
    lblSeed[k].SetEnabled(true);
  }
  for (TextBox* box : {&txtVol, &txtVolPerVol0, &txtPressure, &txtExpected2theta}) {
    box->SetText("");
  }
  txtTemp.SetText(kPresetTemperature);
  cmbUnit.SetIndex(0);
}

void frmPeakCal::ReadLibrary() {
  try {
    state_->Library = ReadCrystalFile(program_.ports.files, program_.directory + "crystal.dat");
  } catch (const Fault& fault) {
    program_.ports.dialogs.Message(fault.what());
  }
}

void frmPeakCal::InitForm() {
  work_.SelectMode = optSelectMode.Index() == 0 ? kSelectSample : kSelectMarker;
  work_.LatticeIndex = ToInt16(cmbLatticeType.Index());
  work_.ElementIndex = ToInt16(cmbElement.Index());
  for (int k = 0; k < 3; ++k) {
    work_.Seed[k] = ParseNumber(txtSeedConstant[k].Text()).value_or(0);
  }
  optSelectMode_Click(optSelectMode.Index());
}

void frmPeakCal::cmdExit_Click() {
  Hide();
}

void frmPeakCal::Form_Unload() {
  line_marks_.Set(kMarksOwner, work_.DataNo, {});
  log_.LogEnd(program_.workspace.Spectra[work_.DataNo]);
  log_.SaveResultFile(program_.workspace);
  GiveBackTwoTheta(program_, work_);
}

void frmPeakCal::ShowMarks() {
  line_marks_.Set(kMarksOwner, work_.DataNo, CrystalMarks(*state_, program_.workspace, work_));
}

}  // namespace dorvane
