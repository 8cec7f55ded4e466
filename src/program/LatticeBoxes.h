// The six cell constants as boxes: which of them a crystal system has, seeds from texts, results as
// texts. Order of all: a, b, c, alpha, beta, gamma.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "lattice/CrystalRec.h"
#include "lattice/FitWork.h"
#include "lattice/LatticeLog.h"
#include "program/CellVolume.h"

namespace dorvane {

constexpr int kCellConstants = 6;

// Whether a lattice type is one of the six systems.
bool IsLatticeType(int lattice_type);

// Whether a system has the constant `index` (0..5) of its own; the others follow from these or are
// fixed. False outside of the systems.
bool HasConstant(int lattice_type, int index);

using CellTexts = std::array<std::string, kCellConstants>;

// Seeds from the texts of their boxes, in angstrom and degrees. A constant that the system does not
// have gets the value that the system gives it, whatever its box holds; outside of the systems only
// a is read. Throws Fault(NotANumber) for a text that is no number.
SeedCell SeedsOf(int lattice_type, const CellTexts& texts);

// value "+-" error
std::string WithError(const ValueWithError& value, const char* value_picture,
                      const char* error_picture);

// Texts of a refinement for the result boxes in the two modes; empty for a box that keeps what it
// shows.
ResultBoxes SampleBoxes(std::int16_t lattice_type, const LatticeResult& result,
                        const CellVolume& cell);
// The same without V/V0.
ResultBoxes SampleCellBoxes(std::int16_t lattice_type, const LatticeResult& result);
// For the cubic and the hexagonal system.
ResultBoxes MarkerBoxes(std::int16_t lattice_type, const LatticeResult& result,
                        const CellVolume& cell);

}  // namespace dorvane
