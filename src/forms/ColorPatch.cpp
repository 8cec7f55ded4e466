#include "forms/ColorPatch.h"

#include <string>

#include "forms/ControlVisitor.h"

namespace dorvane {
namespace {

std::string ColorText(Color color) {
  return "Red " + std::to_string(RedOf(color)) + ", green " + std::to_string(GreenOf(color)) +
         ", blue " + std::to_string(BlueOf(color));
}

}  // namespace

void ColorPatch::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void ColorPatch::SetFill(std::optional<Color> fill) {
  Store(fill_, fill);
  SetTip(fill ? ColorText(*fill) : "");
}

}  // namespace dorvane
