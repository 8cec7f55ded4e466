#include "program/LatticeBoxes.h"

#include <string_view>

#include "lattice/CalLattice.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kConstant = "#0.000000";
constexpr const char* kMarkerValue = "0.000000";
constexpr const char* kMarkerRatio = "#.000000";
constexpr double kRightAngle = 90;
constexpr double kHexagonalAngle = 120;
constexpr int kLengths = 3;
constexpr int kGamma = 5;
constexpr int kVolume = 6;

// Places of the constants that each system has.
constexpr std::array<std::string_view, 6> kConstantsOf = {"0", "02", "02", "012", "0124", "012345"};

ValueWithError ConstantOf(const LatticeResult& result, int index) {
  return {result.Direct[index + 1], result.DirectErr[index + 1]};
}

bool IsHexagonalAngle(int lattice_type, int index) {
  return lattice_type == kHexagonal && index == kGamma;
}

// KEPT: the fixed angles of a monoclinic cell have one place less than those of the other systems.
const char* FixedAngle(std::int16_t lattice_type, int index) {
  if (IsHexagonalAngle(lattice_type, index)) return "120.000000";
  return lattice_type == kMonoclinic ? "90.00000" : "90.000000";
}

}  // namespace

bool IsLatticeType(int lattice_type) {
  return lattice_type >= kCubic && lattice_type <= kTriclinic;
}

bool HasConstant(int lattice_type, int index) {
  if (!IsLatticeType(lattice_type)) return false;
  const std::string_view places = kConstantsOf[static_cast<std::size_t>(lattice_type)];
  return places.find(static_cast<char>('0' + index)) != std::string_view::npos;
}

SeedCell SeedsOf(int lattice_type, const CellTexts& texts) {
  SeedCell seed;
  seed[0] = NumberOf(texts[0]);
  for (int k = 1; k < kCellConstants; ++k) {
    if (HasConstant(lattice_type, k)) {
      seed[k] = NumberOf(texts[static_cast<std::size_t>(k)]);
    } else if (k < kLengths) {
      seed[k] = seed[0];
    } else {
      seed[k] = IsHexagonalAngle(lattice_type, k) ? kHexagonalAngle : kRightAngle;
    }
  }
  return seed;
}

std::string WithError(const ValueWithError& value, const char* value_picture,
                      const char* error_picture) {
  return Picture(value.value, value_picture) + "+-" + Picture(value.error, error_picture);
}

ResultBoxes SampleCellBoxes(std::int16_t lattice_type, const LatticeResult& result) {
  ResultBoxes boxes;
  for (int k = 0; k < kCellConstants; ++k) {
    std::string& text = boxes.txtLatticeLength[static_cast<std::size_t>(k)];
    if (HasConstant(lattice_type, k)) {
      text = WithError(ConstantOf(result, k), kConstant, kConstant);
    } else if (k >= kLengths) {
      text = FixedAngle(lattice_type, k);
    }
  }
  boxes.txtVol = WithError(ConstantOf(result, kVolume), kMarkerValue, kMarkerValue);
  return boxes;
}

ResultBoxes SampleBoxes(std::int16_t lattice_type, const LatticeResult& result,
                        const CellVolume& cell) {
  ResultBoxes boxes = SampleCellBoxes(lattice_type, result);
  boxes.txtVolPerVol0 = WithError(cell.ratio, kConstant, kConstant);
  return boxes;
}

// KEPT: all three lengths, those too that the system does not have; V/V0 without the 0 in front of
// its point.
ResultBoxes MarkerBoxes(std::int16_t lattice_type, const LatticeResult& result,
                        const CellVolume& cell) {
  ResultBoxes boxes;
  for (int k = 0; k < kCellConstants; ++k) {
    boxes.txtLatticeLength[static_cast<std::size_t>(k)] =
        k < kLengths ? WithError(ConstantOf(result, k), kMarkerValue, kConstant)
        : IsHexagonalAngle(lattice_type, k) ? "120.00000"
                                            : "90.00000";
  }
  boxes.txtVol = WithError(cell.volume, kMarkerValue, kMarkerValue);
  boxes.txtVolPerVol0 = WithError(cell.ratio, kMarkerRatio, kMarkerRatio);
  return boxes;
}

}  // namespace dorvane
