// What the user chooses and types in the lattice form: mode, sample, crystal system, seeds, angle.
#include "forms/frmPeakCal.h"
#include "lattice/CrystalData.h"
#include "program/LatticeNarration.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kConstant = "#0.000000";
constexpr const char* kAngle = "#0.00000";

// What a box holds: a box that still shows the stored value holds that, with the places that its
// picture cuts off.
double ValueOf(const TextBox& box, double stored, const char* picture) {
  return box.Text() == Picture(stored, picture) ? stored : NumberOf(box.Text());
}

}  // namespace

void frmPeakCal::optSelectMode_Click(int index) {
  if (work_.Loading != 0) return;
  work_.SelectMode = index == 0 ? kSelectSample : kSelectMarker;
  cmbElement.SetItems({});
  work_.ElementIndex = -1;
  if (index == 0) {
    cmbElement.SetEnabled(true);
    for (int k = 1; k <= 2; ++k) {
      txtSeedConstant[k].SetEnabled(true);
      lblSeed[k].SetEnabled(true);
    }
    for (int k = 1; k < kCellConstants; ++k) {
      txtSeedConstant[k].SetVisible(true);
      txtLatticeLength[k].SetVisible(true);
    }
  } else {
    cmbLatticeType.SetIndex(-1);
  }
  txtPressure.SetEnabled(index != 0);
  FillElements();
  ShowTab();
  ShowMarks();
  log_.Put(LogFitModeChanged());
}

void frmPeakCal::FillElements() {
  cmbElement.SetItems(CrystalNames(state_->Library));
}

const CrystalRec* frmPeakCal::Crystal() const {
  if (work_.ElementIndex < 0) return nullptr;
  return &state_->Library.CrystalTable[work_.ElementIndex];
}

void frmPeakCal::cmbElement_Click() {
  if (cmbElement.Index() < 0) return;
  work_.ElementIndex = ToInt16(cmbElement.Index());
  const CrystalRec crystal = *Crystal();
  ShowCell(crystal);
  for (int k = 0; k < kCellConstants; ++k) {
    txtSeedConstant[k].SetText(txtLatticeConstans[k].Text());
  }
  if (IsLatticeType(crystal.LatticeType)) {
    cmbLatticeType.SetIndex(crystal.LatticeType);
    EnableBoxes(crystal.LatticeType);
    log_.Put(LogElementChange(crystal));
  }
  TakeSeeds();
  ShowMarks();
}

void frmPeakCal::ShowCell(const CrystalRec& crystal) {
  for (int k = 0; k < 3; ++k) {
    txtLatticeConstans[k].SetText(Picture(crystal.Lat[k], kConstant));
    txtLatticeConstans[k + 3].SetText(Picture(crystal.Ang[k], kConstant));
  }
}

// Boxes that the system has are on; the others are off and empty.
void frmPeakCal::EnableBoxes(int lattice_type) {
  for (int k = 0; k < kCellConstants; ++k) {
    const bool has = HasConstant(lattice_type, k);
    lblSeed[k].SetEnabled(has);
    for (TextBox* box : {&txtSeedConstant[k], &txtLatticeLength[k]}) {
      box->SetEnabled(has);
      if (!has) box->SetText("");
    }
  }
}

// The seeds are those of the boxes from now on, as far as they hold numbers.
void frmPeakCal::TakeSeeds() {
  CellTexts texts = SeedTexts();
  for (std::string& text : texts) {
    if (!IsNumeric(text)) text.assign(1, '0');
  }
  work_.Seed = SeedsOf(work_.LatticeIndex, texts);
}

CellTexts frmPeakCal::SeedTexts() const {
  CellTexts texts;
  for (int k = 0; k < kCellConstants; ++k) {
    texts[static_cast<std::size_t>(k)] = txtSeedConstant[k].Text();
  }
  return texts;
}

void frmPeakCal::cmbLatticeType_Click() {
  work_.LatticeIndex = ToInt16(cmbLatticeType.Index());
  if (work_.LatticeIndex < 0) return;
  log_.Put(LogLatticeTypeChanged());
  if (const CrystalRec* crystal = Crystal()) ShowCell(*crystal);
  EnableBoxes(work_.LatticeIndex);
  TakeSeeds();
  ShowMarks();
}

bool frmPeakCal::txtSeedConstant_Validate(int index) const {
  return IsNumeric(txtSeedConstant[index].Text());
}

void frmPeakCal::txtSeedConstant_Left(int index) {
  const double value = ValueOf(txtSeedConstant[index], work_.Seed[index], kConstant);
  txtSeedConstant[index].SetText(Picture(value, kConstant));
  if (value == work_.Seed[index]) return;
  work_.Seed[index] = value;
  log_.Put(LogSeedInput());
  Forget();
  ShowMarks();
}

// The work goes on without what was indexed and refined so far.
void frmPeakCal::Forget() {
  ClearCrystalData(*state_, kClearMatches);
  direct_.reset();
  ShowRows();
}

bool frmPeakCal::txt2Theta_Validate() const {
  return IsNumeric(txt2Theta.Text());
}

void frmPeakCal::txt2Theta_Left() {
  const double value = ValueOf(txt2Theta, work_.TwoTheta, kAngle);
  txt2Theta.SetText(Picture(value, kAngle));
  if (value == work_.TwoTheta) return;
  Forget();
  SetWorkTwoTheta(program_, work_, value);
  CopyPeakInfo(-1);
  ShowMarks();
  log_.Put(LogTwoThetaChanged());
  log_.Put(PeakRecords(program_.workspace, work_.DataNo));
}

}  // namespace dorvane
