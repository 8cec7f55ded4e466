// A small crystal library with one crystal of each system, a pressure marker and one of a type that
// is no system.
#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "lattice/CellGeometry.h"
#include "support/NumberText.h"

namespace dorvane {

// Places in the library below.
enum Sample : int { kCu, kTin, kCorundum, kOlivine, kCryolite, kKyanite, kMgO, kOdd };

inline constexpr std::array<Cell6, 7> kCells{{{3.615, 3.615, 3.615, 90, 90, 90},
                                              {5.8316, 5.8316, 3.1815, 90, 90, 90},
                                              {4.7587, 4.7587, 12.9929, 90, 90, 120},
                                              {4.7535, 10.1943, 5.9807, 90, 90, 90},
                                              {5.4024, 5.5959, 7.7564, 90, 90.278, 90},
                                              {7.1262, 7.852, 5.5724, 89.99, 101.11, 106.03},
                                              {4.2112, 4.2112, 4.2112, 90, 90, 90}}};

struct Plane {
  int h, k, l;
};
// Lines of every crystal but the cubic ones; no two of a cell are nearer than the judgment range.
inline const std::vector<Plane> kPlanes{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {1, 0, 1},
                                        {0, 1, 1}, {1, 1, 1}, {2, 0, 1}, {1, 2, 0}, {0, 1, 2}};
inline const std::vector<Plane> kCubicPlanes{{1, 1, 1}, {2, 0, 0}, {2, 2, 0}, {3, 1, 1}, {4, 0, 0}};

inline const std::vector<Plane>& PlanesOf(Sample sample) {
  return sample == kCu || sample == kMgO ? kCubicPlanes : kPlanes;
}

// "crystal.dat" with the first `count` of them.
inline std::string LibraryText(int count = 8) {
  const char* heads[] = {"'Cu',0",       "'Tin',1",     "'Al2O3',2", "'Olivine',3",
                         "'Cryolite',4", "'Kyanite',5", "'MgO',0",   "'Odd',9"};
  std::string text;
  for (int line = 0; line < 10; ++line) text += "comment\n";
  text += std::to_string(count) + "\n";
  for (int i = 0; i < count; ++i) {
    text += heads[i];
    const Cell6& cell = kCells[static_cast<std::size_t>(i < 7 ? i : 0)];
    for (const double value : cell) text += "," + PlainNumber(value);
    for (const Plane& p : i == kCu || i == kMgO ? kCubicPlanes : kPlanes) {
      text += "\n" + std::to_string(p.h) + "," + std::to_string(p.k) + "," + std::to_string(p.l);
    }
    text += "\n0,0,0\n";
  }
  std::replace(text.begin(), text.end(), '\'', '"');
  return text;
}

}  // namespace dorvane
