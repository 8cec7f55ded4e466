// The crystal library in memory: one record per sample with its cell and its list of Miller
// indices.
#pragma once

#include <cstdint>
#include <string>

#include "support/Fixed.h"

namespace dorvane {

constexpr int kMaxCrystals = 31;
constexpr int kMaxCrystalLines = 101;

// Cell as the forms hand it down: a, b, c in angstrom, then alpha, beta, gamma in degrees.
using SeedCell = Fixed<double, 0, 5>;

struct CrystalRec {
  using Index = Fixed<std::int16_t, 0, kMaxCrystalLines - 1>;

  std::string Name;              // also the key that selects a pressure scale
  Fixed<double, 0, 2> Lat;       // a, b, c, angstrom
  Fixed<double, 0, 2> Ang;       // alpha, beta, gamma, degrees
  std::int16_t LatticeType = 0;  // 0 cubic .. 5 triclinic, see CalLattice.h
  std::int16_t LineCount = 0;    // lines in use, 0..101
  Index H, K, L;
  Fixed<double, 0, kMaxCrystalLines - 1> DCalc;  // angstrom, from the seed constants
};

struct CrystalLibrary {
  Fixed<CrystalRec, 0, kMaxCrystals - 1> CrystalTable;
  std::int16_t CrystalCount = 0;  // as the file announces it
};

}  // namespace dorvane
