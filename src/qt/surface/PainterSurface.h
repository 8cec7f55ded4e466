// The one realisation of Surface: a rectangle of whatever a QPainter paints on, be it screen,
// picture, PDF or paper.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QLineF>
#include <QPainter>
#include <QPainterPath>
#include <QRectF>
#include <vector>

#include "support/Surface.h"

namespace dorvane {

// Works in the painter's own coordinates, whose unit is taken for a pixel of scale factor 1, and
// follows the painter's scaling as it stands at construction (device pixel ratio included) to put
// rulings and texts on whole device pixels. Strokes are cut at the rectangle. The painter must be
// active as long as the surface lives; its pen, brush, font and antialiasing are left changed, and
// a clip of the caller's is gone after the first stroke.
// Texts are in the application's font. Scale 0..width, 0..height downwards at first.
class PainterSurface : public Surface {
 public:
  PainterSurface(QPainter& painter, const QRectF& rect);

  void SetScale(double left, double top, double right, double bottom) override;
  Point PixelSize() const override;
  void Clear(Color color) override;
  double LineWidth() const override { return line_width_; }
  void SetLineWidth(double width) override { line_width_ = width; }
  void Lines(std::span<const Segment> segments, Color color) override;
  void Dots(std::span<const Point> points, Color color) override;
  void Box(const Point& corner, const Point& opposite, Color color, double opacity) override;
  void SetFontSize(double points) override;
  double TextWidth(std::string_view text) const override;
  double TextHeight() const override;
  void Text(const Point& at, std::string_view text, Color color) override;

 private:
  // Painter coordinate of a coordinate of the scale: origin + value * factor.
  struct Axis {
    double origin = 0;
    double factor = 1;
    double At(double value) const { return origin + value * factor; }
  };
  // Device pixel of a painter coordinate.
  struct DeviceAxis {
    double offset = 0;
    double ratio = 1;
    double ToDevice(double place) const { return place * ratio + offset; }
    double FromDevice(double pixel) const { return (pixel - offset) / ratio; }
    double Snapped(double place) const;
    // On a raster too fine to be seen, so that numbers in files are short.
    double Rounded(double place) const;
  };
  struct Interval {
    double from;
    double to;
  };
  Interval Snapped(double a, double b, double low, double high, const DeviceAxis& device) const;
  bool ClippedLine(const Segment& segment, QLineF& line) const;
  void DotsIntoImage(std::span<const Point> points, Color color);
  void DotsAsPath(std::span<const Point> points, Color color);
  void AddDots(double x, QPainterPath& path);
  QPointF Rounded(const QPointF& place) const {
    return {device_x_.Rounded(place.x()), device_y_.Rounded(place.y())};
  }
  QPointF At(const Point& point) const { return {x_.At(point.x), y_.At(point.y)}; }

  QPainter& painter_;
  QRectF rect_;
  Axis x_;
  Axis y_;
  DeviceAxis device_x_;
  DeviceAxis device_y_;
  QImage* image_ = nullptr;  // where dots can be set directly
  double line_width_ = 1;
  double font_points_ = 0;
  QFont font_;
  QFontMetricsF metrics_;
  // Kept between calls for their room.
  std::vector<QLineF> lines_;
  std::vector<double> column_dots_;
};

}  // namespace dorvane
