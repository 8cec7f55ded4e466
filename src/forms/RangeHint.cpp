#include "forms/RangeHint.h"

#include <cmath>
#include <string>

#include "support/NumberText.h"

namespace dorvane {
namespace {

void Show(Label& hint, const MeantRange& range, bool meant) {
  hint.SetCaption(std::string(range.words));
  hint.SetWarning(!meant);
}

}  // namespace

bool IsMeant(double value, const MeantRange& range) {
  if (value < range.least || value > range.most) return false;
  if (range.above_least && value == range.least) return false;
  return !range.whole || value == std::floor(value);
}

bool IsMeant(std::string_view text, const MeantRange& range) {
  const auto value = ParseNumber(text);
  return value && IsMeant(*value, range);
}

void ShowRange(Label& hint, const TextBox& box, const MeantRange& range) {
  Show(hint, range, IsMeant(box.Text(), range));
}

void ShowRange(Label& hint, const NumberBox& box, const MeantRange& range) {
  Show(hint, range, IsMeant(box.Value(), range));
}

}  // namespace dorvane
