#include "qt/ProgramPalette.h"

namespace dorvane {
namespace {

constexpr float kQuiet = 0.6F;  // opacity

}  // namespace

QPalette ProgramPalette(const QPalette& base) {
  QPalette palette = base;
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    QColor quiet = base.color(group, QPalette::Text);
    quiet.setAlphaF(kQuiet);
    palette.setColor(group, QPalette::PlaceholderText, quiet);
  }
  return palette;
}

}  // namespace dorvane
