// Paints one curve: decimated segments, dots, or bars from the bottom.
#pragma once

#include <array>
#include <cstdint>

#include "display/ViewScale.h"
#include "support/Fixed.h"
#include "support/Surface.h"

namespace dorvane {

constexpr int kCurvePoints = 8193;

struct Curve {
  dorvane::Color Color = 0;
  std::int16_t Shown = kFalse;
  std::int16_t Valid = kFalse;  // a spectrum has been registered
  Fixed<std::int32_t, 0, kCurvePoints - 1> Counts;
  Fixed<dorvane::Color, 0, kCurvePoints - 1> PointColors;  // 0 stands for the curve's colour
};

// Runs of one colour go to the surface together, from tables of fixed size. A Fault of the surface
// ends the curve; the surface's line width is back in any case.
class CurvePainter {
 public:
  // Segments joining StartX, StartX + 1, StartX + 1 + step and so on up to EndX, in the colour of
  // their second point, none between two counts of 0; no segments in dot mode. Over them a dot at
  // every dot_step-th channel from StartX + 1 on (0 counts as 1), none at a count of 0 or above the
  // top.
  void Draw(Surface& surface, const ViewScale& scale, const PrintSettings& print, int dot_step,
            const Curve& curve);
  // A bar from the bottom to the value at every channel that Draw joins, as wide as the step so
  // that no gap is left.
  void Paint(Surface& surface, const ViewScale& scale, const PrintSettings& print,
             const Curve& curve) const;

 private:
  static constexpr std::size_t kBatch = 1024;
  void DrawSegments(Surface& surface, const ViewScale& scale, const PrintSettings& print,
                    const Curve& curve);
  void DrawDots(Surface& surface, const ViewScale& scale, const PrintSettings& print, int dot_step,
                const Curve& curve);

  LogTable logs_;
  std::array<Segment, kBatch> segments_{};
  std::array<Point, kBatch> dots_{};
};

}  // namespace dorvane
