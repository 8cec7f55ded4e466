#include "display/CurvePainter.h"

#include <algorithm>
#include <span>

namespace dorvane {
namespace {

constexpr int kThickUpTo = 2048;  // channels shown
constexpr double kThick = 2;
constexpr double kThin = 1;
constexpr Color kBlack = Rgb(0, 0, 0);

// Collects strokes of one colour in a table and hands them on when the colour changes or the table
// is full.
template <typename Stroke, std::size_t Size, typename HandOn>
class Run {
 public:
  Run(std::array<Stroke, Size>& table, HandOn hand_on) : table_(table), hand_on_(hand_on) {}
  void Add(const Stroke& stroke, Color color) {
    if (color != color_ || used_ == Size) Flush();
    color_ = color;
    table_[used_++] = stroke;
  }
  void Flush() {
    if (used_ > 0) hand_on_(std::span<const Stroke>(table_).first(used_), color_);
    used_ = 0;
  }

 private:
  std::array<Stroke, Size>& table_;
  HandOn hand_on_;
  std::size_t used_ = 0;
  Color color_ = 0;
};

Color ColorAt(const Curve& curve, int channel, const PrintSettings& print) {
  if (print.PrintMode != kFalse) return kBlack;
  const Color own = curve.PointColors[channel];
  return own != 0 ? own : curve.Color;
}

double LineWidthOf(const ViewScale& scale, const PrintSettings& print) {
  if (print.PrintMode != kFalse) return print.DrawWidth;
  return scale.EndX - scale.StartX + 1 <= kThickUpTo ? kThick : kThin;
}

}  // namespace

void CurvePainter::Draw(Surface& surface, const ViewScale& scale, const PrintSettings& print,
                        int dot_step, const Curve& curve) {
  const double old_width = surface.LineWidth();
  try {
    surface.SetLineWidth(LineWidthOf(scale, print));
    if (scale.DrawMode != kDrawDot) DrawSegments(surface, scale, print, curve);
    DrawDots(surface, scale, print, dot_step, curve);
  } catch (const Fault&) {  // the curve ends here
  }
  surface.SetLineWidth(old_width);
}

void CurvePainter::DrawSegments(Surface& surface, const ViewScale& scale,
                                const PrintSettings& print, const Curve& curve) {
  const HeightMap heights(scale, print, &logs_);
  Run run(segments_, [&surface](std::span<const Segment> segments, Color color) {
    surface.Lines(segments, color);
  });
  const int step = CurveStep(scale);
  std::int32_t last_count = curve.Counts[scale.StartX];
  Point last{static_cast<double>(scale.StartX), heights.At(last_count).y};
  for (int channel = scale.StartX + 1; channel <= scale.EndX; channel += step) {
    const std::int32_t count = curve.Counts[channel];
    const Point point{static_cast<double>(channel), heights.At(count).y};
    if (count != 0 || last_count != 0) run.Add({last, point}, ColorAt(curve, channel, print));
    last = point;
    last_count = count;
  }
  run.Flush();
}

void CurvePainter::DrawDots(Surface& surface, const ViewScale& scale, const PrintSettings& print,
                            int dot_step, const Curve& curve) {
  const HeightMap heights(scale, print, &logs_);
  Run run(dots_,
          [&surface](std::span<const Point> dots, Color color) { surface.Dots(dots, color); });
  const int step = std::max(dot_step, 1);
  for (int channel = scale.StartX + 1; channel <= scale.EndX; channel += step) {
    const std::int32_t count = curve.Counts[channel];
    if (count == 0) continue;
    const HeightMap::Height height = heights.At(count);
    if (!height.cut) {
      run.Add({static_cast<double>(channel), height.y}, ColorAt(curve, channel, print));
    }
  }
  run.Flush();
}

void CurvePainter::Paint(Surface& surface, const ViewScale& scale, const PrintSettings& print,
                         const Curve& curve) const {
  const HeightMap heights(scale, print, &logs_);
  const int step = CurveStep(scale);
  try {
    for (int channel = scale.StartX; channel <= scale.EndX;
         channel += channel == scale.StartX ? 1 : step) {
      const std::int32_t count = curve.Counts[channel];
      if (count == 0) continue;
      const Point corner{channel - step / 2.0, heights.Bottom()};
      const Point opposite{channel + step / 2.0, heights.At(count).y};
      surface.Box(corner, opposite, ColorAt(curve, channel, print), 1);
    }
  } catch (const Fault&) {  // the curve ends here
  }
}

}  // namespace dorvane
