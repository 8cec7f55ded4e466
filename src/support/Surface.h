// The port to draw on: what the drawing engine and the axes need of a screen, a picture file or a
// page.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace dorvane {

// Red in the low byte, then green, then blue.
using Color = std::int32_t;

constexpr Color Rgb(int red, int green, int blue) {
  return red | (green << 8) | (blue << 16);
}

// The components of a colour, 0..255 each; a byte above the blue one is none of them.
constexpr int RedOf(Color color) {
  return color & 0xFF;
}
constexpr int GreenOf(Color color) {
  return (color >> 8) & 0xFF;
}
constexpr int BlueOf(Color color) {
  return (color >> 16) & 0xFF;
}

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Segment {
  Point from;
  Point to;
  friend bool operator==(const Segment&, const Segment&) = default;
};

// Coordinates of all calls are those of the scale set last; widths are in pixels of scale factor 1,
// font sizes in points.
class Surface {
 public:
  virtual ~Surface() = default;
  // The corners of the surface in the coordinates to come.
  virtual void SetScale(double left, double top, double right, double bottom) = 0;
  // Extents of one pixel of scale factor 1 in the coordinates of the scale, both positive; 0 along
  // a scale without extent.
  virtual Point PixelSize() const = 0;
  virtual void Clear(Color color) = 0;
  virtual double LineWidth() const = 0;
  virtual void SetLineWidth(double width) = 0;
  // Separate segments of one colour; a batch is only faster than its single segments.
  virtual void Lines(std::span<const Segment> segments, Color color) = 0;
  virtual void Dots(std::span<const Point> points, Color color) = 0;
  // Filled box with corners in any order, its edges on whole pixels; `opacity` from 0 to 1. A box
  // without width or height is a crisp line of LineWidth().
  virtual void Box(const Point& corner, const Point& opposite, Color color, double opacity) = 0;
  virtual void SetFontSize(double points) = 0;
  // Extents of a text in the coordinates of the scale, both positive.
  virtual double TextWidth(std::string_view text) const = 0;
  virtual double TextHeight() const = 0;
  // `at` is the upper left corner of the text.
  virtual void Text(const Point& at, std::string_view text, Color color) = 0;
};

}  // namespace dorvane
