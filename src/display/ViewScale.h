// The part of a spectrum that a view shows, and how its channels and counts become places on a
// surface.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "support/Rounding.h"
#include "support/Surface.h"

namespace dorvane {

// Values of ViewScale::YMode and ViewScale::DrawMode.
constexpr std::int16_t kLinear = 0;
constexpr std::int16_t kLogarithmic = 1;
constexpr std::int16_t kDrawLine = 0;
constexpr std::int16_t kDrawPaint = 1;
constexpr std::int16_t kDrawDot = 2;

// On the logarithmic scale MinY and MaxY are decades.
struct ViewScale {
  std::int16_t YMode = kLinear;
  std::int16_t StartX = 0;     // first channel shown
  std::int16_t EndX = 8191;    // last channel shown
  std::int16_t WidthX = 8192;  // channels shown
  std::int32_t MinY = 0;
  std::int32_t MaxY = 1000000;
  std::int16_t DrawMode = kDrawLine;
  std::int16_t PointCount = 0;  // channels of the last graph registered

  friend bool operator==(const ViewScale&, const ViewScale&) = default;
};

// How a page is drawn: all in black, y growing downwards from MaxY, lines of the printer's width.
struct PrintSettings {
  std::int16_t PrintMode = kFalse;
  double DrawWidth = 1;  // pixels
};

// log10 of the counts that make up most of a spectrum. A logarithm takes several times as long as
// a dot, where calls into the mathematical library are dear after vector code.
class LogTable {
 public:
  LogTable();
  bool Has(std::int32_t count) const {
    return count > 0 && static_cast<std::size_t>(count) < kSize;
  }
  // Only for a count that it has.
  double Of(std::int32_t count) const { return logs_[static_cast<std::size_t>(count)]; }

 private:
  static constexpr std::size_t kSize = 4096;
  std::array<double, kSize> logs_{};
};

// Height of a count in the coordinates of the view. A table is only for speed; it has to outlive
// the map.
class HeightMap {
 public:
  HeightMap(const ViewScale& scale, const PrintSettings& print, const LogTable* logs = nullptr);

  struct Height {
    double y;
    bool cut;  // the count is above the top
  };
  // log10(count) on the logarithmic scale, where counts below 1 stay at 0; not above the top.
  Height At(std::int32_t count) const;
  double Bottom() const { return bottom_; }
  double Top() const { return top_; }
  // Height of a fraction 0..1 of the scale, from the bottom.
  double AtFraction(double fraction) const { return bottom_ + (top_ - bottom_) * fraction; }

 private:
  double Log(std::int32_t count) const;

  const LogTable* logs_;
  bool logarithmic_;
  bool downwards_;
  double max_;
  double bottom_;
  double top_;
};

// Sets the view's coordinates on a surface: StartX..EndX from left to right, MinY..MaxY upwards, on
// a page downwards.
void ApplyScale(Surface& surface, const ViewScale& scale, const PrintSettings& print);

// Channels from one point of a drawn curve to the next: so many that about 512 segments make a
// curve; 1 up to 512 channels.
int CurveStep(const ViewScale& scale);

// The whole part of log10; 0 for a height below 1. Exact at powers of ten.
std::int16_t WholeDecades(std::int32_t height);

}  // namespace dorvane
