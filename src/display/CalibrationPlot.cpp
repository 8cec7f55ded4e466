#include "display/CalibrationPlot.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kTitle = "Energy Calibration Curve";
constexpr const char* kEnergyAxis = "keV";
constexpr const char* kChannelAxis = "Channel";
constexpr const char* kResidualAxis = "eV";

constexpr double kTitlePoints = 11;
constexpr double kFontPoints = 9;
constexpr double kGap = 6;              // pixels around texts
constexpr double kNameHeight = 1.5;     // of an axis's name, in lines above the axis
constexpr double kHalfPoint = 3;        // pixels
constexpr double kCurveLine = 1.5;      // pixels
constexpr double kCurveStep = 2;        // pixels between two places of the curve
constexpr double kResidualShare = 0.3;  // of the height of both panels
constexpr double kLeastPanel = 30;      // pixels
constexpr double kRoom = 0.05;          // of an axis, beyond its outermost value
constexpr double kLeastSpan = 0.01;     // of an axis, in its unit
constexpr double kLeastStep = 0.001;    // that the finest picture shows
constexpr double kTickWidth = 80;       // pixels that a tick of the channel axis wants
constexpr double kTickHeight = 40;      // pixels that a tick of the other axes wants
constexpr int kDivisionsAbove = 2;      // of the residuals' axis, above its zero line
constexpr int kMostTicks = 50;
constexpr double kEvPerKev = 1000;
constexpr double kJustBelow = 1 - 1e-9;  // guards whole powers of ten against their last bit

struct Range {
  double low = 0;
  double high = 1;
  double step = 1;
  std::string_view picture;
  double At(double value) const { return (value - low) / (high - low); }
};

double EnergyAt(const EgcCoef& c, double x) {
  return c[0] + c[1] * x + c[2] * x * x;
}

bool IsFinite(const Point& point) {
  return std::isfinite(point.x) && std::isfinite(point.y);
}

// An axis that holds all of `values`, with room about them unless they are to touch its ends.
Range RangeOf(std::span<const double> values, double room) {
  Range range;
  if (!values.empty()) {
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    range.low = *low;
    range.high = *high;
  }
  double span = range.high - range.low;
  if (span < kLeastSpan) {
    range.low -= (kLeastSpan - span) / 2;
    range.high += (kLeastSpan - span) / 2;
    span = kLeastSpan;
  }
  range.low -= room * span;
  range.high += room * span;
  return range;
}

// False where an axis of that extent can't be divided.
bool Divide(Range& range, double pixels, double pixels_per_tick, double least_step) {
  const double span = range.high - range.low;
  if (!std::isfinite(span) || !(span > 0) || !(pixels > 0)) return false;
  const int divisions = std::max(1, static_cast<int>(pixels / pixels_per_tick));
  range.step = std::max(RoundStep(span, divisions), least_step);
  return true;
}

// Multiples of the step within a range.
std::vector<double> Ticks(const Range& range) {
  std::vector<double> ticks;
  const double first = std::ceil(range.low / range.step);
  for (int i = 0; i < kMostTicks; ++i) {
    const double value = (first + i) * range.step;
    if (value > range.high) break;
    ticks.push_back(value);
  }
  return ticks;
}

// A part of the surface, in pixels of scale factor 1.
struct Panel {
  double left = 0, top = 0, right = 0, bottom = 0;
  double Width() const { return right - left; }
  double Height() const { return bottom - top; }
};

class Plot {
 public:
  Plot(Surface& surface, const CalibrationCurve& curve, const CalibrationColors& colors)
      : surface_(surface), curve_(curve), colors_(colors) {
    surface_.Clear(colors_.ground);
    surface_.SetScale(0, 0, 1, 1);
    const Point pixel = surface_.PixelSize();
    width_ = 1 / pixel.x;
    height_ = 1 / pixel.y;
    surface_.SetScale(0, 0, width_, height_);
    surface_.SetLineWidth(1);
    for (const Point& point : curve.points) {
      if (IsFinite(point)) points_.push_back({point, ResidualEv(curve, point)});
    }
  }

  void Draw() {
    if (!PlacePanels()) return;
    Titles();
    Frame(curve_panel_, energies_, kEnergyAxis);
    DrawCurve();
    for (const Marked& each : points_) {
      Mark({X(each.point.x), Y(curve_panel_, energies_, each.point.y)});
    }
    if (!points_.empty()) Residuals();
    ChannelAxis();
  }

 private:
  struct Marked {
    Point point;
    double residual_ev = 0;
  };

  // Divides the surface; false where it has no room for the panels.
  bool PlacePanels() {
    surface_.SetFontSize(kTitlePoints);
    curve_panel_.top = kGap + surface_.TextHeight() + kGap;
    surface_.SetFontSize(kFontPoints);
    const double line = surface_.TextHeight();
    // The name of an axis stands above it, out of the way of a label at its end.
    const double between = 2 * line + kGap / 2;
    curve_panel_.top += kNameHeight * line;
    if (!curve_.memo.empty()) curve_panel_.top += line;
    const double foot = height_ - 2 * line - 3 * kGap;
    const double residuals =
        points_.empty() ? 0 : kResidualShare * (foot - curve_panel_.top - between);
    residual_panel_.bottom = foot;
    residual_panel_.top = foot - residuals;
    curve_panel_.bottom = points_.empty() ? foot : residual_panel_.top - between;
    if (curve_panel_.Height() < kLeastPanel) return false;
    if (!SetRanges()) return false;
    const double labels =
        std::max(WidestLabel(energies_), points_.empty() ? 0 : WidestLabel(residuals_));
    curve_panel_.left = residual_panel_.left = kGap + labels + kGap;
    curve_panel_.right = residual_panel_.right = width_ - 2 * kGap;
    if (curve_panel_.Width() < kLeastPanel) return false;
    if (!Divide(channels_, curve_panel_.Width(), kTickWidth, 1)) return false;
    channels_.picture = TickPicture(channels_.step, true);
    return true;
  }

  bool SetRanges() {
    std::vector<double> x{0, static_cast<double>(curve_.last_channel)};
    for (const Marked& each : points_) x.push_back(each.point.x);
    channels_ = RangeOf(x, 0);
    std::vector<double> energies, residuals{0};
    for (const Point& place : Places()) energies.push_back(place.y);
    for (const Marked& each : points_) {
      energies.push_back(each.point.y);
      // The same on both sides of zero.
      if (!std::isfinite(each.residual_ev)) continue;
      residuals.push_back(each.residual_ev);
      residuals.push_back(-each.residual_ev);
    }
    energies_ = RangeOf(energies, kRoom);
    residuals_ = RangeOf(residuals, kRoom);
    if (!std::isfinite(residuals_.high)) return false;
    if (!Divide(energies_, curve_panel_.Height(), kTickHeight, kLeastStep)) return false;
    energies_.picture = TickPicture(energies_.step);
    if (points_.empty()) return true;
    residuals_.step = std::max(RoundStep(residuals_.high, kDivisionsAbove), kLeastStep);
    residuals_.picture = TickPicture(residuals_.step);
    return true;
  }

  // The curve where it is finite: channel index and energy.
  std::vector<Point> Places() const {
    const int steps = std::max(1, static_cast<int>(width_ / kCurveStep));
    std::vector<Point> places;
    for (int i = 0; i <= steps; ++i) {
      const double x = channels_.low + (channels_.high - channels_.low) * i / steps;
      const Point place{x, EnergyAt(curve_.coefficients, x)};
      if (IsFinite(place)) places.push_back(place);
    }
    return places;
  }

  double WidestLabel(const Range& range) const {
    double widest = 0;
    for (const double tick : Ticks(range)) {
      widest = std::max(widest, surface_.TextWidth(Picture(tick, range.picture)));
    }
    return widest;
  }

  void Titles() const {
    const auto centred = [this](double y, const std::string& text) {
      surface_.Text({(width_ - surface_.TextWidth(text)) / 2, y}, text, colors_.axis);
    };
    surface_.SetFontSize(kTitlePoints);
    centred(kGap, kTitle);
    const double below = 2 * kGap + surface_.TextHeight();
    surface_.SetFontSize(kFontPoints);
    if (!curve_.memo.empty()) centred(below, curve_.memo);
  }

  void Frame(const Panel& panel, const Range& range, const char* name) const {
    for (const double tick : Ticks(channels_)) {
      Line({X(tick), panel.top}, {X(tick), panel.bottom}, colors_.grid);
    }
    double free_above = height_;
    for (const double tick : Ticks(range)) {
      const double y = Y(panel, range, tick);
      Line({panel.left, y}, {panel.right, y}, colors_.grid);
      if (y + surface_.TextHeight() / 2 > free_above) continue;
      free_above = y - surface_.TextHeight() / 2;
      const std::string text = Picture(tick, range.picture);
      surface_.Text({panel.left - kGap - surface_.TextWidth(text), y - surface_.TextHeight() / 2},
                    text, colors_.axis);
    }
    Line({panel.left, panel.top}, {panel.left, panel.bottom}, colors_.axis);
    Line({panel.left, panel.bottom}, {panel.right, panel.bottom}, colors_.axis);
    surface_.Text({kGap, panel.top - kNameHeight * surface_.TextHeight()}, name, colors_.axis);
  }

  void DrawCurve() const {
    std::vector<Segment> segments;
    const std::vector<Point> places = Places();
    for (std::size_t i = 1; i < places.size(); ++i) {
      segments.push_back({{X(places[i - 1].x), Y(curve_panel_, energies_, places[i - 1].y)},
                          {X(places[i].x), Y(curve_panel_, energies_, places[i].y)}});
    }
    surface_.SetLineWidth(kCurveLine);
    surface_.Lines(segments, colors_.curve);
    surface_.SetLineWidth(1);
  }

  void Residuals() const {
    Frame(residual_panel_, residuals_, kResidualAxis);
    const double zero = Y(residual_panel_, residuals_, 0);
    Line({residual_panel_.left, zero}, {residual_panel_.right, zero}, colors_.axis);
    for (const Marked& each : points_) {
      if (!std::isfinite(each.residual_ev)) continue;
      const Point at{X(each.point.x), Y(residual_panel_, residuals_, each.residual_ev)};
      Line({at.x, zero}, at, colors_.point);
      Mark(at);
    }
  }

  void ChannelAxis() const {
    const double top = residual_panel_.bottom + kGap;
    double free_from = 0;
    for (const double tick : Ticks(channels_)) {
      const std::string text = Picture(tick, channels_.picture);
      const double width = surface_.TextWidth(text);
      const double left = std::min(X(tick) - width / 2, width_ - kGap - width);
      if (left < free_from) continue;
      surface_.Text({left, top}, text, colors_.axis);
      free_from = left + width + kGap;
    }
    surface_.Text({(curve_panel_.left + curve_panel_.right - surface_.TextWidth(kChannelAxis)) / 2,
                   top + surface_.TextHeight() + kGap / 2},
                  kChannelAxis, colors_.axis);
  }

  double X(double channel) const {
    return curve_panel_.left + channels_.At(channel) * curve_panel_.Width();
  }
  static double Y(const Panel& panel, const Range& range, double value) {
    return panel.bottom - range.At(value) * panel.Height();
  }
  void Line(const Point& from, const Point& to, Color color) const {
    const Segment segment[] = {{from, to}};
    surface_.Lines(segment, color);
  }
  void Mark(const Point& at) const {
    surface_.Box({at.x - kHalfPoint, at.y - kHalfPoint}, {at.x + kHalfPoint, at.y + kHalfPoint},
                 colors_.point, 1);
  }

  Surface& surface_;
  const CalibrationCurve& curve_;
  const CalibrationColors& colors_;
  std::vector<Marked> points_;  // the finite ones
  double width_ = 0, height_ = 0;
  Panel curve_panel_, residual_panel_;
  Range channels_, energies_, residuals_;
};

}  // namespace

double ResidualEv(const CalibrationCurve& curve, const Point& point) {
  return kEvPerKev * (point.y - EnergyAt(curve.coefficients, point.x));
}

std::string_view TickPicture(double step, bool channels) {
  if (channels) return "###0";
  if (step < 0.01 * kJustBelow) return "#0.000";
  if (step < 0.1 * kJustBelow) return "##0.00";
  if (step < kJustBelow) return "###0.0";
  return "#####0";
}

void DrawCalibrationPlot(Surface& surface, const CalibrationCurve& curve,
                         const CalibrationColors& colors) {
  Plot(surface, curve, colors).Draw();
}

}  // namespace dorvane
