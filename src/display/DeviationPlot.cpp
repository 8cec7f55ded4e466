#include "display/DeviationPlot.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kFontPoints = 9;
constexpr double kGap = 6;        // pixels around texts
constexpr double kHalfPoint = 3;  // pixels
constexpr double kPointLine = 2;
constexpr double kLabelWidth = 80;    // pixels that a label of the d axis wants at least
constexpr double kLeastRange = 1e-5;  // angstrom on either side of the zero line
constexpr double kRoom = 1.15;        // of the axes beyond the outermost point
constexpr double kSqueeze =
    4;  // times the others' largest that an excluded point may set the scale
constexpr int kDivisionsAbove = 3;
constexpr int kMostDivisions = 8;

struct Range {
  double low = 0;
  double high = 1;
  double step = 1;
};

// "0", "0.0", "0.00": as many places as a step has.
std::string PictureFor(double step) {
  const int places = std::max(0, -static_cast<int>(Decade(step)));
  return places == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(places), '0');
}

double Largest(std::span<const DeviationSeries> all, bool excluded) {
  double largest = 0;
  for (const DeviationSeries& series : all) {
    for (const DeviationPoint& point : series.points) {
      if (point.excluded == excluded) largest = std::max(largest, std::fabs(point.deviation));
    }
  }
  return largest;
}

Range DeviationRange(std::span<const DeviationSeries> all) {
  const double used = Largest(all, false);
  const double excluded = Largest(all, true);
  const double largest = used > 0 ? std::max(used, std::min(excluded, kSqueeze * used)) : excluded;
  const double high = std::max(kRoom * largest, kLeastRange);
  const double step = RoundStep(high, kDivisionsAbove);
  return {-high, high, step};
}

Range DRange(std::span<const DeviationSeries> all, double width) {
  Range range{1e300, -1e300, 1};
  for (const DeviationSeries& series : all) {
    for (const DeviationPoint& point : series.points) {
      range.low = std::min(range.low, point.d);
      range.high = std::max(range.high, point.d);
    }
  }
  if (range.low > range.high) return {0, 1, 1};
  const double room = std::max((kRoom - 1) * (range.high - range.low), 0.05 * range.high) / 2;
  range.low -= room;
  range.high += room;
  const int divisions = std::clamp(static_cast<int>(width / kLabelWidth), 1, kMostDivisions);
  range.step = RoundStep(range.high - range.low, divisions);
  return range;
}

// Multiples of the step within a range.
std::vector<double> Ticks(const Range& range) {
  std::vector<double> ticks;
  for (double n = std::ceil(range.low / range.step); n * range.step <= range.high; ++n) {
    ticks.push_back(n * range.step);
  }
  return ticks;
}

// The plot in pixels of scale factor 1.
class Plot {
 public:
  Plot(Surface& surface, std::span<const DeviationSeries> series, const DeviationColors& colors)
      : surface_(surface), series_(series), colors_(colors) {
    surface_.Clear(colors_.ground);
    surface_.SetScale(0, 0, 1, 1);
    const Point pixel = surface_.PixelSize();
    width_ = 1 / pixel.x;
    height_ = 1 / pixel.y;
    surface_.SetScale(0, 0, width_, height_);
    surface_.SetFontSize(kFontPoints);
    surface_.SetLineWidth(1);
    y_ = DeviationRange(series_);
    y_picture_ = PictureFor(y_.step);
    left_ = kGap + surface_.TextWidth("-" + Picture(y_.high, y_picture_)) + kGap;
    right_ = width_ - 2 * kGap;
    top_ = kGap + surface_.TextHeight() + kGap;
    bottom_ = height_ - surface_.TextHeight() - 2 * kGap;
    x_ = DRange(series_, right_ - left_);
  }

  bool HasRoom() const { return right_ > left_ && bottom_ - top_ > 2 * kHalfPoint; }
  bool HasPoints() const {
    return std::any_of(series_.begin(), series_.end(),
                       [](const DeviationSeries& series) { return !series.points.empty(); });
  }

  void ZeroLine() const { Line({kGap, Y(0)}, {right_, Y(0)}, colors_.axis); }

  void Axes() const {
    for (const double tick : Ticks(y_)) {
      const double y = Y(tick);
      Line({left_, y}, {right_, y}, tick == 0 ? colors_.axis : colors_.grid);
      const std::string text = Picture(tick, y_picture_);
      surface_.Text({left_ - kGap - surface_.TextWidth(text), y - surface_.TextHeight() / 2}, text,
                    colors_.axis);
    }
    Line({left_, top_}, {left_, bottom_}, colors_.axis);
    Line({left_, bottom_}, {right_, bottom_}, colors_.grid);
    const std::string picture = PictureFor(x_.step);
    const double unit_left = right_ - surface_.TextWidth(kDUnit);
    surface_.Text({unit_left, bottom_ + kGap}, kDUnit, colors_.axis);
    for (const double tick : Ticks(x_)) {
      const double x = X(tick);
      Line({x, bottom_}, {x, bottom_ + kHalfPoint}, colors_.axis);
      const std::string text = Picture(tick, picture);
      const double width = surface_.TextWidth(text);
      if (x + width / 2 + kGap > unit_left) continue;
      surface_.Text({x - width / 2, bottom_ + kGap}, text, colors_.axis);
    }
  }

  // Names of the series with their marks, above the plot.
  void Legend() const {
    double x = left_ + kGap;
    for (std::size_t i = 0; i < series_.size(); ++i) {
      if (series_[i].points.empty()) continue;
      Mark(i, {x + kHalfPoint, kGap + surface_.TextHeight() / 2}, series_[i].color);
      x += 2 * kHalfPoint + kGap;
      surface_.Text({x, kGap}, series_[i].name, colors_.axis);
      x += surface_.TextWidth(series_[i].name) + 4 * kGap;
    }
    const double unit_left = right_ - surface_.TextWidth(kUnit);
    if (unit_left > x) surface_.Text({unit_left, kGap}, kUnit, colors_.axis);
  }

  void Points() const {
    for (std::size_t i = 0; i < series_.size(); ++i) {
      for (const DeviationPoint& point : series_[i].points) {
        Mark(i,
             {X(point.d), std::clamp(Y(point.deviation), top_ + kHalfPoint, bottom_ - kHalfPoint)},
             point.excluded ? colors_.excluded : series_[i].color);
      }
    }
  }

  void Hint(const char* hint) const {
    surface_.Text(
        {(left_ + right_ - surface_.TextWidth(hint)) / 2, Y(0) - surface_.TextHeight() - kGap},
        hint, colors_.axis);
  }

 private:
  static constexpr const char* kUnit = "Å";
  static constexpr const char* kDUnit = "d (Å)";

  double X(double d) const { return left_ + (d - x_.low) / (x_.high - x_.low) * (right_ - left_); }
  double Y(double deviation) const {
    return bottom_ - (deviation - y_.low) / (y_.high - y_.low) * (bottom_ - top_);
  }
  void Line(const Point& from, const Point& to, Color color) const {
    const Segment segment[] = {{from, to}};
    surface_.Lines(segment, color);
  }
  // A square for the first kind, a cross for the second.
  void Mark(std::size_t kind, const Point& at, Color color) const {
    const Point low{at.x - kHalfPoint, at.y - kHalfPoint};
    const Point high{at.x + kHalfPoint, at.y + kHalfPoint};
    if (kind == 0) {
      surface_.Box(low, high, color, 1);
      return;
    }
    surface_.SetLineWidth(kPointLine);
    Line(low, high, color);
    Line({low.x, high.y}, {high.x, low.y}, color);
    surface_.SetLineWidth(1);
  }

  Surface& surface_;
  std::span<const DeviationSeries> series_;
  const DeviationColors& colors_;
  double width_ = 0, height_ = 0;
  double left_ = 0, right_ = 0, top_ = 0, bottom_ = 0;
  Range x_, y_;
  std::string y_picture_;
};

}  // namespace

void DrawDeviationPlot(Surface& surface, std::span<const DeviationSeries> series,
                       const DeviationColors& colors, const char* hint) {
  Plot plot(surface, series, colors);
  if (!plot.HasRoom()) return;
  if (!plot.HasPoints()) {
    plot.ZeroLine();
    plot.Hint(hint);
    return;
  }
  plot.Axes();
  plot.Legend();
  plot.Points();
}

}  // namespace dorvane
