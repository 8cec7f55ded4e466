#include "display/MarkPainter.h"

#include <algorithm>
#include <array>
#include <utility>

namespace dorvane {
namespace {

constexpr double kDefaultFontSize = 10;
constexpr double kPeakLineOpacity = 0.6;
constexpr double kScaleLineOpacity = 0.35;
constexpr double kAreaOpacity = 0.16;
constexpr double kRangeOpacity = 0.10;
constexpr double kRegionOpacity = 0.12;
constexpr double kCrossArm = 7;  // pixels
constexpr int kNameRows = 8;
constexpr double kNameGap = 3;  // pixels between a line and its name

// `low` where the bounds leave no room.
double Within(double value, double low, double high) {
  return std::max(low, std::min(value, high));
}

}  // namespace

void MarkPainter::VerticalLine(double channel, Color color, double opacity) const {
  if (!IsShown(channel)) return;
  surface_.Box({channel, heights_.Bottom()}, {channel, heights_.Top()}, color, opacity);
}

void MarkPainter::PeakLine(std::int16_t channel, Color color) const {
  VerticalLine(channel, Ink(color), kPeakLineOpacity);
}

double MarkPainter::WidthOf(const MarkRec& mark) const {
  surface_.SetFontSize(mark.Size > 0 ? mark.Size : kDefaultFontSize);
  return surface_.TextWidth(TextOf(mark));
}

void MarkPainter::TextAt(double left, double y, double text_heights, const MarkRec& mark) const {
  const double height = surface_.TextHeight();
  const double up = Up();
  // Measured downwards from the top, so that both directions of y share the bounds.
  const double depth = Within((heights_.Top() - y) * up - height * text_heights, 0,
                              (heights_.Top() - heights_.Bottom()) * up - height);
  surface_.Text({left, heights_.Top() - depth * up}, TextOf(mark), Ink(mark.Color));
}

void MarkPainter::CentredText(double y, double text_heights, const MarkRec& mark) const {
  if (!IsShown(mark.X)) return;
  const double width = WidthOf(mark);
  TextAt(Within(mark.X - width / 2, scale_.StartX, scale_.EndX - width), y, text_heights, mark);
}

void MarkPainter::TextMark(const MarkRec& mark) const {
  CentredText(heights_.At(mark.Y).y, 1, mark);
}

void MarkPainter::Symbol(const MarkRec& mark) const {
  CentredText(heights_.At(mark.Y).y, 0.5, mark);
}

MarkPainter::Name MarkPainter::NameOf(const MarkRec& mark) const {
  const double width = WidthOf(mark);
  const double gap = kNameGap * surface_.PixelSize().x;
  const double right_side = mark.X + gap;
  const bool fits = right_side + width <= scale_.EndX;
  const double left =
      fits ? right_side : Within(mark.X - gap - width, scale_.StartX, scale_.EndX - width);
  return {&mark, left, left + width, 0};
}

// The highest row below all names that the line would cross; where there is none, the highest in
// which the name has room.
int MarkPainter::RowOf(const Name& name, std::span<const Name> before) {
  const auto met = [&](const Name& other) {
    return other.left < std::max<double>(name.right, name.mark->X) &&
           std::min<double>(name.left, name.mark->X) < other.right;
  };
  int below = 0;
  std::array<bool, kNameRows> taken{};
  for (const Name& other : before) {
    if (!met(other)) continue;
    below = std::max(below, other.row + 1);
    taken[static_cast<std::size_t>(other.row)] = true;
  }
  if (below < kNameRows) return below;
  const auto room = std::find(taken.begin(), taken.end(), false);
  return room == taken.end() ? 0 : static_cast<int>(room - taken.begin());
}

void MarkPainter::NamedLines(std::span<const MarkRec> marks) const {
  std::array<Name, kMaxNamedLines> names;
  std::size_t count = 0;
  for (const MarkRec& mark : marks.first(std::min(marks.size(), names.size()))) {
    if (IsShown(mark.X)) names[count++] = NameOf(mark);
  }
  const std::span shown(names.data(), count);
  std::sort(shown.begin(), shown.end(), [](const Name& a, const Name& b) {
    return std::pair(a.mark->X, a.mark) < std::pair(b.mark->X, b.mark);
  });
  for (std::size_t i = 0; i < count; ++i) {
    const MarkRec& mark = *shown[i].mark;
    shown[i].row = RowOf(shown[i], shown.first(i));
    WidthOf(mark);  // sets the font that the rows are high by
    const double top = heights_.Top() - shown[i].row * surface_.TextHeight() * Up();
    const double x = mark.X;
    surface_.Box({x, heights_.Bottom()}, {x, top}, Ink(mark.Color), kPeakLineOpacity);
    TextAt(shown[i].left, top, 0, mark);
  }
}

void MarkPainter::ScaleLines(std::int16_t divisions, Color color) const {
  for (int i = 1; i < divisions; ++i) {
    const double y = heights_.AtFraction(static_cast<double>(i) / divisions);
    surface_.Box({static_cast<double>(scale_.StartX), y}, {static_cast<double>(scale_.EndX), y},
                 Ink(color), kScaleLineOpacity);
  }
}

void MarkPainter::Range(const ChannelRange& range, double opacity) const {
  if (!range.On) return;
  const Color color = Ink(range.Color);
  if (range.Start >= 0) VerticalLine(range.Start, color, 1);
  if (range.End >= 0) VerticalLine(range.End, color, 1);
  if (range.Start < 0 || range.End < 0) return;
  const auto [first, last] = std::minmax(range.Start, range.End);
  const std::int16_t left = std::max(first, scale_.StartX);
  const std::int16_t right = std::min(last, scale_.EndX);
  if (left >= right) return;
  surface_.Box({static_cast<double>(left), heights_.Bottom()},
               {static_cast<double>(right), heights_.Top()}, color, opacity);
}

void MarkPainter::Cross(const Overlay& overlay) const {
  if (!IsShown(overlay.CursorChannel)) return;
  const Point pixel = surface_.PixelSize();
  const double x = overlay.CursorChannel;
  const double y = heights_.At(overlay.CursorCount).y;
  const Color color = Ink(overlay.CursorColor);
  surface_.Box({x - kCrossArm * pixel.x, y}, {x + kCrossArm * pixel.x, y}, color, 1);
  surface_.Box({x, y - kCrossArm * pixel.y}, {x, y + kCrossArm * pixel.y}, color, 1);
}

void MarkPainter::DrawOverlay(const Overlay& overlay) const {
  for (const ChannelRange& region : overlay.Regions) Range(region, kRegionOpacity);
  Range(overlay.Range, kRangeOpacity);
  Range(overlay.Area, kAreaOpacity);
  if (!overlay.CursorOn) return;
  if (overlay.Form == CursorForm::Cross) {
    Cross(overlay);
  } else {
    VerticalLine(overlay.CursorChannel, Ink(overlay.CursorColor), 1);
  }
}

}  // namespace dorvane
