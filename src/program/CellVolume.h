// Volume of a refined cell against a reference volume, as the two modes of a lattice work take it.
#pragma once

#include <cstdint>
#include <optional>

#include "lattice/CrystalRec.h"
#include "lattice/FitWork.h"
#include "lattice/Pressure.h"

namespace dorvane {

struct ValueWithError {
  double value = 0;
  double error = 0;
};

struct CellVolume {
  ValueWithError volume;  // angstrom^3
  ValueWithError ratio;   // V/V0
  double V0 = 0;          // angstrom^3
};

// Sample mode: V0 is the volume of the crystal's cell in the library. Faults (DivisionByZero,
// BadArgument) pass for a cell without a volume.
CellVolume SampleVolume(const CrystalRec& crystal, std::int16_t lattice_type,
                        const LatticeResult& result);

// Marker mode: volume and V0 are those of the pressure's inputs. Nothing for a system other than
// cubic and hexagonal.
std::optional<CellVolume> MarkerVolume(std::int16_t lattice_type, const PressInput& input);

}  // namespace dorvane
