// The line under a box that says what range is meant; it warns where what stands in the box is not.
#pragma once

#include <limits>
#include <string_view>

#include "forms/Controls.h"

namespace dorvane {

// What a box is meant to hold. A dialog says it and takes other numbers all the same.
struct MeantRange {
  std::string_view words;  // as the line says it
  double least = -std::numeric_limits<double>::max();
  double most = std::numeric_limits<double>::max();
  bool above_least = false;  // `least` itself is not meant
  bool whole = false;
};

// No number is never meant.
bool IsMeant(std::string_view text, const MeantRange& range);
bool IsMeant(double value, const MeantRange& range);

void ShowRange(Label& hint, const TextBox& box, const MeantRange& range);
void ShowRange(Label& hint, const NumberBox& box, const MeantRange& range);

}  // namespace dorvane
