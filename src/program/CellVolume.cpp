#include "program/CellVolume.h"

#include "lattice/CalLattice.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kVolume = 7;  // place in LatticeResult::Direct

}  // namespace

CellVolume SampleVolume(const CrystalRec& crystal, std::int16_t lattice_type,
                        const LatticeResult& result) {
  const auto in_float = [](double value) { return static_cast<float>(value); };
  CellVolume cell;
  cell.volume = {result.Direct[kVolume], result.DirectErr[kVolume]};
  cell.V0 = CalcVolume(in_float(crystal.Lat[0]), in_float(crystal.Lat[1]), in_float(crystal.Lat[2]),
                       in_float(crystal.Ang[0]), in_float(crystal.Ang[1]), in_float(crystal.Ang[2]),
                       lattice_type);
  cell.ratio = {Divide(cell.volume.value, cell.V0), Divide(cell.volume.error, cell.V0)};
  return cell;
}

std::optional<CellVolume> MarkerVolume(std::int16_t lattice_type, const PressInput& input) {
  if (lattice_type != kCubic && lattice_type != kHexagonal) return {};
  return CellVolume{{input.Vals[kValVolume], input.Errs[kValVolume]},
                    {input.Vals[kValRatio], input.Errs[kValRatio]},
                    input.V0};
}

}  // namespace dorvane
