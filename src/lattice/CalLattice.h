// The six crystal systems and the formulas that they share: d-spacing and cell volume.
#pragma once

#include <cstdint>

#include "lattice/CrystalRec.h"

namespace dorvane {

// Values of LatticeType.
constexpr std::int16_t kCubic = 0;
constexpr std::int16_t kTetragonal = 1;
constexpr std::int16_t kHexagonal = 2;
constexpr std::int16_t kOrthorhombic = 3;
constexpr std::int16_t kMonoclinic = 4;
constexpr std::int16_t kTriclinic = 5;

// "Cubic" .. "Triclinic"; an empty text for other values.
const char* LatticeName(std::int16_t lattice_type);

// Tag of a system in the log: "CUB", "TRI", "HEX", "ORT", "MON", "TRI"; "UNK" for other values.
const char* LatticeTag(std::int16_t lattice_type);

// d in angstrom of the planes hkl, by the quadratic form of each system (International Tables for
// Crystallography, volume B, chapter 1.1). Lengths a, b, c in angstrom, angles in degrees; only
// those that the system needs are read, the monoclinic system reads beta and gamma. 0 for a lattice
// type outside 0..5. Faults pass: DivisionByZero for h = k = l = 0 or a zero length, BadArgument
// where the form is negative.
double CalcDSpacing(std::int16_t lattice_type, std::int16_t h, std::int16_t k, std::int16_t l,
                    float a, float b, float c, float alpha, float beta, float gamma);

// Cell volume in cubic angstrom, computed in 64 bits; 0 for a lattice type outside 0..5. Faults
// (BadArgument) pass for three angles that close no triclinic cell.
float CalcVolume(float a, float b, float c, float alpha, float beta, float gamma,
                 std::int16_t lattice_type);

// Fills DCalc of every line of a crystal from the seed constants, by the formula of its
// LatticeType. The seeds pass through 32-bit floats, as CalcDSpacing takes them. Its faults pass.
void CalcCrystalD(CrystalRec& crystal, const SeedCell& seed);

}  // namespace dorvane
