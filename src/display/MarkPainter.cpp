#include "display/MarkPainter.h"

#include <algorithm>
#include <array>

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

MarkPainter::Stretch MarkPainter::PlaceOf(const MarkRec& mark) const {
  surface_.SetFontSize(mark.Size > 0 ? mark.Size : kDefaultFontSize);
  const double width = surface_.TextWidth(TextOf(mark));
  const double left = Within(mark.X - width / 2, scale_.StartX, scale_.EndX - width);
  return {left, left + width};
}

void MarkPainter::TextAt(double y, double text_heights, const MarkRec& mark) const {
  if (!IsShown(mark.X)) return;
  const std::string_view text = TextOf(mark);
  const double x = PlaceOf(mark).left;
  const double height = surface_.TextHeight();
  const double up = heights_.Top() >= heights_.Bottom() ? 1 : -1;
  // Measured downwards from the top, so that both directions of y share the bounds.
  const double depth = Within((heights_.Top() - y) * up - height * text_heights, 0,
                              (heights_.Top() - heights_.Bottom()) * up - height);
  surface_.Text({x, heights_.Top() - depth * up}, text, Ink(mark.Color));
}

void MarkPainter::TextMark(const MarkRec& mark) const {
  TextAt(heights_.At(mark.Y).y, 1, mark);
}

void MarkPainter::Symbol(const MarkRec& mark) const {
  TextAt(heights_.At(mark.Y).y, 0.5, mark);
}

void MarkPainter::NamedLines(std::span<const MarkRec> marks) const {
  struct Name {
    Stretch place;
    int row = 0;
  };
  std::array<Name, kMaxNamedLines> names;
  std::size_t count = 0;
  for (const MarkRec& mark : marks.first(std::min(marks.size(), names.size()))) {
    if (!IsShown(mark.X)) continue;
    Name& name = names[count] = {PlaceOf(mark), 0};
    const auto taken = [&](int row) {
      return std::any_of(names.begin(), names.begin() + static_cast<std::ptrdiff_t>(count),
                         [&](const Name& other) {
                           return other.row == row && other.place.left < name.place.right &&
                                  name.place.left < other.place.right;
                         });
    };
    while (name.row < kNameRows && taken(name.row)) ++name.row;
    name.row %= kNameRows;
    VerticalLine(mark.X, Ink(mark.Color), kPeakLineOpacity);
    TextAt(heights_.Top(), -name.row, mark);
    ++count;
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
