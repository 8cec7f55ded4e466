// Coefficients of the two compression tables: pressure (GPa) as a polynomial of the temperature (K)
// at each node.
#pragma once

#include <array>
#include <cstddef>

namespace dorvane {

constexpr std::size_t kPtNodeCount = 49;
constexpr std::size_t kMgONodeCount = 73;

// P = A + B 1e-3 T + C 1e-8 T^2
struct PtNode {
  double A, B, C;
};

// P = A + B 1e-3 T + C 1e-6 T^2 + D 1e-9 T^3 + E 1e-13 T^4
struct MgONode {
  double A, B, C, D, E;
};

// Node i (from 0) lies at the compression 1 - V/V0 = i * 0.005 - 0.06.
extern const std::array<PtNode, kPtNodeCount> kPtNodes;
// Node i (from 0) lies at the compression 1 - V/V0 = i * 0.005 - 0.1.
extern const std::array<MgONode, kMgONodeCount> kMgONodes;

}  // namespace dorvane
