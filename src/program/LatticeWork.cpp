#include "program/LatticeWork.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "lattice/CalLattice.h"
#include "processing/Units.h"
#include "program/LatticeBoxes.h"

namespace dorvane {
namespace {

constexpr double kPi = 3.14159265358979;
constexpr int kLargestPlainIndex = 9;

void TellTwoTheta(Program& program) {
  program.Listener().CalibrationShown();
  program.Listener().UnitAxisChanged();
  program.Listener().CursorMoved();
}

bool IsPlain(int index) {
  return index >= 0 && index <= kLargestPlainIndex;
}

// "111"; "10 0 0" where the digits alone would not tell.
std::string IndexText(int h, int k, int l) {
  const char* gap = IsPlain(h) && IsPlain(k) && IsPlain(l) ? "" : " ";
  return std::to_string(h) + gap + std::to_string(k) + gap + std::to_string(l);
}

// At the energy under which the angle of the spectrum shows d.
std::optional<LineMark> EnergyMark(const Workspace& workspace, int data_no, double d) {
  const MeasProp& calibration = CalibrationOf(workspace, data_no);
  // Bragg: lambda = 2 d sin(theta).
  const double wavelength = 2 * d * std::sin(DegToRad(calibration.TwoTheta / 2));
  const double number = WaveToCh(wavelength, calibration.EGC);
  if (!(number > 0)) return {};
  return LineMark{ChToEnergy(number, calibration.EGC), ""};
}

// At the channel whose angle shows d with the wavelength of the source.
std::optional<LineMark> AngleMark(const Workspace& workspace, double d) {
  const DacAngles& dac = workspace.Dac;
  const double sine = workspace.Settings.DacWavelength / (2 * d);
  if (!(sine > 0 && sine <= 1) || dac.DacAngleSlope == 0) return {};
  const double two_theta_deg = 2 * std::asin(sine) * 180 / kPi;
  LineMark mark;
  mark.channel = (two_theta_deg - dac.DacAngleOffset) / dac.DacAngleSlope + 1;
  return mark;
}

}  // namespace

LatticeWork BeginLatticeWork(const Program& program, int grp_no) {
  const Workspace& workspace = program.workspace;
  const GraphSlot& slot = workspace.Slots[grp_no];
  LatticeWork work;
  work.GrpNo = ToInt16(grp_no);
  work.DataNo = slot.DataNo;
  work.WinNo = slot.WinNo;
  work.DispUnit = program.view.DispUnit;
  work.TwoTheta = CalibrationOf(workspace, work.DataNo).TwoTheta;
  work.SavedTwoTheta = workspace.DefaultProp.TwoTheta;
  work.SavedOwnTwoTheta = workspace.Spectra[work.DataNo].Prop.TwoTheta;
  return work;
}

void SetWorkTwoTheta(Program& program, LatticeWork& work, double two_theta_deg) {
  work.TwoTheta = two_theta_deg;
  program.workspace.DefaultProp.TwoTheta = two_theta_deg;
  program.workspace.Spectra[work.DataNo].Prop.TwoTheta = two_theta_deg;
  TellTwoTheta(program);
}

void GiveBackTwoTheta(Program& program, const LatticeWork& work) {
  program.workspace.DefaultProp.TwoTheta = work.SavedTwoTheta;
  program.workspace.Spectra[work.DataNo].Prop.TwoTheta = work.SavedOwnTwoTheta;
  TellTwoTheta(program);
}

// KEPT: named for 2-theta, it answers theta; the caller doubles it.
double ExpectedTwoTheta(double two_theta_deg, double a_calc, double seed) {
  // Bragg at one energy: d sin(theta) is the same for the true and the found length.
  const double s = Divide(std::sin(two_theta_deg / 2 / 180 * kPi) * a_calc, seed);
  return std::atan(Divide(s, Finite(std::sqrt(1 - s * s)))) * (180 / kPi);
}

LineRec* MatchedLine(LineTable& lines, int r) {
  for (LineRec& line : lines) {
    if (line.Matched != kFalse && --r == 0) return &line;
  }
  return nullptr;
}

std::vector<LineMark> CrystalMarks(const LatticeState& state, const Workspace& workspace,
                                   const LatticeWork& work) {
  if (work.ElementIndex < 0 || !IsLatticeType(work.LatticeIndex)) return {};
  CrystalRec crystal = state.Library.CrystalTable[work.ElementIndex];
  crystal.LatticeType = work.LatticeIndex;
  std::vector<LineMark> marks;
  try {
    CalcCrystalD(crystal, work.Seed);
  } catch (const Fault&) {  // seeds that make no cell
    return {};
  }
  const bool by_angle = workspace.Spectra[work.DataNo].DataType == kDacData;
  for (int j = 0; j < crystal.LineCount; ++j) {
    auto mark = by_angle ? AngleMark(workspace, crystal.DCalc[j])
                         : EnergyMark(workspace, work.DataNo, crystal.DCalc[j]);
    if (!mark) continue;
    mark->text = IndexText(crystal.H[j], crystal.K[j], crystal.L[j]);
    marks.push_back(std::move(*mark));
  }
  return marks;
}

}  // namespace dorvane
