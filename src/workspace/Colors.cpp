#include "workspace/Colors.h"

#include <array>

namespace dorvane {
namespace {

constexpr std::array<Color, kColors> kLight{
    Rgb(0, 90, 150),    Rgb(213, 94, 0),    Rgb(0, 133, 97),    Rgb(160, 75, 125),
    Rgb(176, 32, 36),   Rgb(110, 66, 30),   Rgb(40, 140, 200),  Rgb(90, 90, 90),
    Rgb(110, 80, 180),  Rgb(120, 110, 0),   Rgb(60, 60, 60),    Rgb(0, 133, 97),
    Rgb(110, 80, 180),  Rgb(150, 150, 158), Rgb(35, 35, 40),    Rgb(176, 32, 36),
    Rgb(120, 120, 120), Rgb(240, 240, 240), Rgb(252, 252, 250), Rgb(252, 252, 250),
    Rgb(205, 222, 236), Rgb(225, 226, 228), Rgb(70, 74, 80),    Rgb(200, 40, 40),
    Rgb(60, 120, 180),
};

constexpr std::array<Color, kColors> kDark{
    Rgb(110, 190, 240), Rgb(255, 150, 60),  Rgb(70, 205, 160),  Rgb(225, 150, 195),
    Rgb(255, 110, 105), Rgb(205, 160, 110), Rgb(150, 215, 250), Rgb(190, 190, 190),
    Rgb(185, 165, 250), Rgb(240, 228, 66),  Rgb(220, 220, 220), Rgb(70, 205, 160),
    Rgb(185, 165, 250), Rgb(120, 124, 132), Rgb(240, 240, 240), Rgb(255, 110, 105),
    Rgb(150, 150, 150), Rgb(45, 47, 50),    Rgb(24, 26, 29),    Rgb(24, 26, 29),
    Rgb(52, 74, 96),    Rgb(54, 57, 62),    Rgb(190, 195, 200), Rgb(255, 120, 110),
    Rgb(110, 170, 230),
};

ColorTable TableOf(const std::array<Color, kColors>& colors) {
  ColorTable table;
  for (int i = 0; i < kColors; ++i) table[i] = colors[static_cast<std::size_t>(i)];
  return table;
}

}  // namespace

ColorTable LightColors() {
  return TableOf(kLight);
}
ColorTable DarkColors() {
  return TableOf(kDark);
}

bool HasDarkGround(const ColorTable& colors) {
  const Color back = colors[kColorWindowBack];
  const double red = back & 0xFF, green = (back >> 8) & 0xFF, blue = (back >> 16) & 0xFF;
  return 0.2126 * red + 0.7152 * green + 0.0722 * blue < 128;
}

}  // namespace dorvane
