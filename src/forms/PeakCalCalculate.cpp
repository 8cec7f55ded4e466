// The calculation in the lattice form, the correction of the angle, and the summary.
#include "forms/frmPeakCal.h"
#include "lattice/LtcCon.h"
#include "program/LatticeNarration.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kAngle = "#0.00000";

LatticeMode ModeOf(std::int16_t select_mode) {
  return select_mode == kSelectSample ? LatticeMode::Sample : LatticeMode::Marker;
}

}  // namespace

void frmPeakCal::cmdCal_Click() {
  work_.SelectMode = optSelectMode.Index() == 0 ? kSelectSample : kSelectMarker;
  work_.LatticeIndex = ToInt16(cmbLatticeType.Index());
  work_.ElementIndex = ToInt16(cmbElement.Index());
  state_->Fit.Status = 0;
  lblOutcome.SetCaption(work_.ElementIndex < 0 ? "Choose a sample: its lines index the peaks."
                                               : "");
  if (Calculate(work_.SelectMode, work_.LatticeIndex, work_.ElementIndex) == 0) Narrate();
}

std::int16_t frmPeakCal::Refuse(const char* message) {
  program_.ports.dialogs.Message(message);
  return -1;
}

// KEPT: a sample whose type is no system is refined first, which mostly ends in too few lines: its
// lines have no calculated d. The type is told where lines were found all the same.
std::int16_t frmPeakCal::Calculate(std::int16_t mode, int LatticeIndex, int ElementIndex) {
  if (!IsNumeric(txtSeedConstant[0].Text())) return Refuse("Seed Error");
  if (!IsNumeric(txtTemp.Text())) return Refuse("Temp Error");
  work_.Seed = SeedsOf(LatticeIndex, SeedTexts());
  ShowMarks();

  direct_.reset();
  const RefineInput input{work_.DataNo, ToInt16(LatticeIndex), ElementIndex, work_.Seed};
  LatticeResult result;
  const bool refined =
      RefineLattice(*state_, program_.workspace, input, result, program_.ports.dialogs) == 0;
  if (mode == kSelectSample) {
    if (!refined) return -1;
    if (!IsLatticeType(LatticeIndex)) return Refuse("Lattice Type Error");
  }
  if (refined) {
    direct_ = result.Direct;
    if (mode == kSelectSample) {
      ShowSample(result);
    } else {
      ShowMarker(result);
    }
  }
  FillPeakGrids();
  return refined ? 0 : -1;
}

void frmPeakCal::ShowSample(const LatticeResult& result) {
  // The cell stands even where the library's has no volume to compare it with.
  ShowBoxes(SampleCellBoxes(work_.LatticeIndex, result));
  ShowBoxes(SampleBoxes(work_.LatticeIndex, result,
                        SampleVolume(*Crystal(), work_.LatticeIndex, result)));
}

void frmPeakCal::ShowMarker(const LatticeResult& result) {
  PressInput input = PreparePressure(work_.LatticeIndex, result, work_.Seed);
  if (const auto cell = MarkerVolume(work_.LatticeIndex, input)) {
    ShowBoxes(MarkerBoxes(work_.LatticeIndex, result, *cell));
  }
  input.Material = MaterialOf(state_->Match.CurName);
  input.TempText = txtTemp.Text();
  input.UnitIndex = ToInt16(cmbUnit.Index());
  if (const auto pressure = CalcPressure(input)) txtPressure.SetText(pressure->Text);
}

void frmPeakCal::ShowBoxes(const ResultBoxes& boxes) {
  for (int k = 0; k < kCellConstants; ++k) {
    const std::string& text = boxes.txtLatticeLength[static_cast<std::size_t>(k)];
    if (!text.empty()) txtLatticeLength[k].SetText(text);
  }
  txtVol.SetText(boxes.txtVol);
  if (!boxes.txtVolPerVol0.empty()) txtVolPerVol0.SetText(boxes.txtVolPerVol0);
}

ResultBoxes frmPeakCal::Boxes() const {
  ResultBoxes boxes;
  for (int k = 0; k < kCellConstants; ++k) {
    boxes.txtLatticeLength[static_cast<std::size_t>(k)] = txtLatticeLength[k].Text();
  }
  boxes.txtVol = txtVol.Text();
  boxes.txtVolPerVol0 = txtVolPerVol0.Text();
  return boxes;
}

SeedRecord frmPeakCal::Sample() const {
  const CrystalRec* crystal = Crystal();
  return {crystal != nullptr ? crystal->Name : "", work_.LatticeIndex, work_.Seed};
}

void frmPeakCal::Narrate() {
  CalculationStory story;
  story.mode = ModeOf(work_.SelectMode);
  story.sample = Sample();
  story.data_type = program_.workspace.Spectra[work_.DataNo].DataType;
  story.rows = rows_;
  story.boxes = Boxes();
  story.two_theta = work_.TwoTheta;
  story.pressure_text = txtPressure.Text();
  story.temp_text = txtTemp.Text();
  story.unit_index = ToInt16(cmbUnit.Index());
  log_.Put(CalculationRecords(story));
}

void frmPeakCal::cmd2ThetaCalib_Click() {
  const std::string& length = txtLatticeLength[0].Text();
  const auto a_calc = ParseNumber(length.substr(0, length.find('+')));
  const auto two_theta = ParseNumber(txt2Theta.Text());
  const auto seed = ParseNumber(txtSeedConstant[0].Text());
  if (!a_calc) {
    Refuse("LatticeConstance Error");
  } else if (!two_theta) {
    Refuse("2θ Error");
  } else if (!seed) {
    Refuse("Initial Constans Error");
  } else {
    txtExpected2theta.SetText(Picture(2 * ExpectedTwoTheta(*two_theta, *a_calc, *seed), kAngle));
    state_->UseCarry = kTrue;
  }
}

void frmPeakCal::DataSave() {
  const std::vector<PeakRow> peaks = PeakRowsOf(program_.workspace, work_.DataNo);
  const SummaryInput input{program_.workspace.Spectra[work_.DataNo],
                           peaks,
                           rows_,
                           Sample(),
                           Boxes(),
                           txtPressure.Text(),
                           txtTemp.Text(),
                           ToInt16(cmbUnit.Index())};
  const std::string directory = ResultDirectory(settings_, program_.directory);
  const bool saved = dorvane::DataSave(program_.ports.files, program_.ports.dialogs, directory,
                                       input, summary_tag_) == kTrue;
  lblOutcome.SetCaption(saved ? "LatticeFit.csv saved in " + directory
                              : "Not saved in " + directory +
                                    ". Result Directory in the menu Calculation changes it.");
}

void frmPeakCal::cmdDataSave_Click() {
  DataSave();
}

}  // namespace dorvane
