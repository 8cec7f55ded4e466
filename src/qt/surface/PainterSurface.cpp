#include "qt/surface/PainterSurface.h"

#include <QBrush>
#include <QColor>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPen>
#include <QString>
#include <QTransform>
#include <algorithm>
#include <cmath>

namespace dorvane {
namespace {

constexpr double kDefaultPoints = 10;
constexpr double kDotStroke = 0.01;
constexpr double kFineRatio = 4;   // device pixels per pixel that can't be told apart
constexpr double kFineSteps = 10;  // of a pixel, where they can
constexpr double kPixelsPerPoint = 96.0 / 72.0;

QColor ToQColor(Color color, double opacity = 1) {
  QColor out(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
  out.setAlphaF(static_cast<float>(opacity));
  return out;
}

QString ToQString(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Which pixels a square of `size` pixels from `from` on covers along one axis, in 256ths.
struct PixelCover {
  explicit PixelCover(double from)
      : first(static_cast<int>(std::floor(from))),
        last_share(static_cast<unsigned>((from - first) * 256)) {}
  unsigned Of(int pixel, int size) const {
    if (pixel == first) return 256 - last_share;
    return pixel == first + size ? last_share : 256;
  }
  int first;
  unsigned last_share;
};

// `cover` 256ths of an opaque colour over a pixel whose alpha is full or premultiplied.
QRgb Blended(QRgb below, QRgb over, unsigned cover) {
  const unsigned rest = 256 - cover;
  const QRgb odd = ((below >> 8 & 0xFF00FF) * rest + (over >> 8 & 0xFF00FF) * cover) & 0xFF00FF00;
  const QRgb even = ((below & 0xFF00FF) * rest + (over & 0xFF00FF) * cover) >> 8 & 0xFF00FF;
  return odd | even;
}

class ClippedTo {
 public:
  ClippedTo(QPainter& painter, const QRectF& rect) : painter_(painter) {
    painter.setClipRect(rect);
  }
  ~ClippedTo() { painter_.setClipping(false); }
  ClippedTo(const ClippedTo&) = delete;
  ClippedTo& operator=(const ClippedTo&) = delete;

 private:
  QPainter& painter_;
};

// The image below the painter whose pixels are 32-bit words, opaque or premultiplied.
QImage* ImageWithPlainPixels(const QPainter& painter) {
  QPaintDevice* device = painter.device();
  if (device == nullptr || device->devType() != QInternal::Image) return nullptr;
  auto* image = static_cast<QImage*>(device);
  switch (image->format()) {
    case QImage::Format_RGB32:
    case QImage::Format_ARGB32_Premultiplied:
      return image;
    default:
      return nullptr;
  }
}

bool IsRaster(const QPainter& painter) {
  return painter.paintEngine() != nullptr && painter.paintEngine()->type() == QPaintEngine::Raster;
}

}  // namespace

double PainterSurface::DeviceAxis::Snapped(double place) const {
  return FromDevice(std::round(ToDevice(place)));
}

double PainterSurface::DeviceAxis::Rounded(double place) const {
  const double fine = ratio < kFineRatio ? kFineSteps : 1;
  return FromDevice(std::round(ToDevice(place) * fine) / fine);
}

PainterSurface::PainterSurface(QPainter& painter, const QRectF& rect)
    : painter_(painter), rect_(rect), font_(QGuiApplication::font()), metrics_(font_) {
  const QTransform device = painter.deviceTransform();
  if (device.type() <= QTransform::TxScale) {
    device_x_ = {device.dx(), device.m11()};
    device_y_ = {device.dy(), device.m22()};
    image_ = ImageWithPlainPixels(painter);
  }
  SetScale(0, 0, rect.width(), rect.height());
  SetFontSize(kDefaultPoints);
}

void PainterSurface::SetScale(double left, double top, double right, double bottom) {
  const double factor_x = right == left ? 0 : rect_.width() / (right - left);
  const double factor_y = bottom == top ? 0 : rect_.height() / (bottom - top);
  x_ = {rect_.left() - left * factor_x, factor_x};
  y_ = {factor_y == 0 ? rect_.bottom() : rect_.top() - top * factor_y, factor_y};
}

Point PainterSurface::PixelSize() const {
  return {x_.factor == 0 ? 0 : 1 / std::abs(x_.factor),
          y_.factor == 0 ? 0 : 1 / std::abs(y_.factor)};
}

void PainterSurface::Clear(Color color) {
  painter_.fillRect(rect_, ToQColor(color));
}

// Liang and Barsky, "A new concept and method for line clipping", ACM Transactions on Graphics 3
// (1984).
bool PainterSurface::ClippedLine(const Segment& segment, QLineF& line) const {
  const QPointF from = At(segment.from);
  const QPointF to = At(segment.to);
  const double dx = to.x() - from.x();
  const double dy = to.y() - from.y();
  double enter = 0;
  double leave = 1;
  const auto cut = [&](double direction, double distance) {
    if (direction == 0) return distance >= 0;
    const double t = distance / direction;
    if (direction < 0) {
      enter = std::max(enter, t);
    } else {
      leave = std::min(leave, t);
    }
    return enter <= leave;
  };
  if (!(cut(-dx, from.x() - rect_.left()) && cut(dx, rect_.right() - from.x()) &&
        cut(-dy, from.y() - rect_.top()) && cut(dy, rect_.bottom() - from.y()))) {
    return false;
  }
  line.setLine(from.x() + enter * dx, from.y() + enter * dy, from.x() + leave * dx,
               from.y() + leave * dy);
  return true;
}

void PainterSurface::Lines(std::span<const Segment> segments, Color color) {
  lines_.clear();
  QLineF line;
  for (const Segment& segment : segments) {
    if (ClippedLine(segment, line)) lines_.push_back(line);
  }
  painter_.setRenderHint(QPainter::Antialiasing, true);
  // Square ends close the notches between the segments of a curve.
  painter_.setPen(QPen(ToQColor(color), line_width_, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
  // Half of the width would stand out at the edges.
  const ClippedTo clip(painter_, rect_);
  if (IsRaster(painter_)) {
    painter_.drawLines(lines_.data(), static_cast<int>(lines_.size()));
    return;
  }
  // One path keeps files small, and joins what belongs together.
  QPainterPath path;
  for (const QLineF& part : lines_) {
    const QPointF from = Rounded(part.p1());
    if (path.isEmpty() || path.currentPosition() != from) path.moveTo(from);
    path.lineTo(Rounded(part.p2()));
  }
  painter_.setBrush(Qt::NoBrush);
  painter_.drawPath(path);
}

void PainterSurface::Dots(std::span<const Point> points, Color color) {
  if (image_ != nullptr) {
    DotsIntoImage(points, color);
  } else {
    DotsAsPath(points, color);
  }
}

// Thousands of dots a curve: blending the pixels here takes a tenth of what the painter needs.
void PainterSurface::DotsIntoImage(std::span<const Point> points, Color color) {
  const int size = std::max(1, static_cast<int>(std::lround(line_width_ * device_x_.ratio)));
  const int left = std::max(0, static_cast<int>(std::ceil(device_x_.ToDevice(rect_.left()))));
  const int top = std::max(0, static_cast<int>(std::ceil(device_y_.ToDevice(rect_.top()))));
  const int right =
      std::min(image_->width(), static_cast<int>(std::floor(device_x_.ToDevice(rect_.right()))));
  const int bottom =
      std::min(image_->height(), static_cast<int>(std::floor(device_y_.ToDevice(rect_.bottom()))));
  const QRgb pixel = ToQColor(color).rgba();
  uchar* bits = image_->bits();
  const auto stride = image_->bytesPerLine();
  for (const Point& point : points) {
    const QPointF place = At(point);
    const double x = device_x_.ToDevice(place.x()) - size / 2.0;
    const double y = device_y_.ToDevice(place.y()) - size / 2.0;
    if (!(x > left - size && x < right && y > top - size && y < bottom)) continue;
    const PixelCover across(x);
    const PixelCover down(y);
    const int last_column = std::min(across.first + size + 1, right);
    const int last_row = std::min(down.first + size + 1, bottom);
    for (int row = std::max(down.first, top); row < last_row; ++row) {
      auto* pixels = reinterpret_cast<QRgb*>(bits + row * stride);
      for (int column = std::max(across.first, left); column < last_column; ++column) {
        const unsigned cover = down.Of(row, size) * across.Of(column, size) >> 8;
        pixels[column] = Blended(pixels[column], pixel, cover);
      }
    }
  }
}

// Round ends of strokes next to nothing long: the shortest form in a file.
// The dots of a column, at column_dots_, as strokes; dots that touch make one stroke.
void PainterSurface::AddDots(double x, QPainterPath& path) {
  std::sort(column_dots_.begin(), column_dots_.end());
  const double at = device_x_.Rounded(x);
  std::size_t first = 0;
  for (std::size_t i = 1; i <= column_dots_.size(); ++i) {
    if (i < column_dots_.size() && column_dots_[i] - column_dots_[i - 1] <= line_width_) continue;
    const double top = device_y_.Rounded(column_dots_[first]);
    const double bottom = device_y_.Rounded(column_dots_[i - 1]);
    path.moveTo(at, top);
    path.lineTo(at, std::max(bottom, top + kDotStroke));
    first = i;
  }
}

// A page holds so many dots that each of them apart would make most of its file. Those in a column
// of half of their width are drawn in its middle.
void PainterSurface::DotsAsPath(std::span<const Point> points, Color color) {
  QPainterPath path;
  const double column_width = line_width_ / 2;
  const auto column_of = [&](const QPointF& place) { return std::floor(place.x() / column_width); };
  const auto add = [&](double column) {
    AddDots((column + 0.5) * column_width, path);
    column_dots_.clear();
  };
  double column = 0;
  for (const Point& point : points) {
    const QPointF place = At(point);
    if (!rect_.contains(place)) continue;
    if (!column_dots_.empty() && column_of(place) != column) add(column);
    column = column_of(place);
    column_dots_.push_back(place.y());
  }
  if (!column_dots_.empty()) add(column);
  painter_.setRenderHint(QPainter::Antialiasing, true);
  const ClippedTo clip(painter_, rect_);
  painter_.strokePath(path, QPen(ToQColor(color), line_width_, Qt::SolidLine, Qt::RoundCap));
}

// Edges on whole device pixels and within low..high; without extent, the line width around the
// place.
PainterSurface::Interval PainterSurface::Snapped(double a, double b, double low, double high,
                                                 const DeviceAxis& device) const {
  const auto [from, to] = std::minmax(std::clamp(a, low, high), std::clamp(b, low, high));
  if (a != b) return {device.Snapped(from), device.Snapped(to)};
  const double width = std::max(1.0, std::round(line_width_ * device.ratio)) / device.ratio;
  const double start =
      std::max(low, std::min(device.Snapped(from - width / 2), device.Snapped(high - width)));
  return {start, start + width};
}

void PainterSurface::Box(const Point& corner, const Point& opposite, Color color, double opacity) {
  const QPointF a = At(corner);
  const QPointF b = At(opposite);
  const bool outside =
      std::max(a.x(), b.x()) < rect_.left() || std::min(a.x(), b.x()) > rect_.right() ||
      std::max(a.y(), b.y()) < rect_.top() || std::min(a.y(), b.y()) > rect_.bottom();
  if (outside) return;
  const Interval x = Snapped(a.x(), b.x(), rect_.left(), rect_.right(), device_x_);
  const Interval y = Snapped(a.y(), b.y(), rect_.top(), rect_.bottom(), device_y_);
  painter_.fillRect(QRectF(x.from, y.from, x.to - x.from, y.to - y.from), ToQColor(color, opacity));
}

void PainterSurface::SetFontSize(double points) {
  if (points == font_points_) return;
  font_points_ = points;
  font_.setPixelSize(std::max(1, static_cast<int>(std::lround(points * kPixelsPerPoint))));
  metrics_ = QFontMetricsF(font_);
}

double PainterSurface::TextWidth(std::string_view text) const {
  return metrics_.horizontalAdvance(ToQString(text)) * PixelSize().x;
}

double PainterSurface::TextHeight() const {
  return metrics_.height() * PixelSize().y;
}

void PainterSurface::Text(const Point& at, std::string_view text, Color color) {
  const QPointF place = At(at);
  painter_.setFont(font_);
  painter_.setPen(ToQColor(color));
  painter_.drawText(
      QPointF(device_x_.Snapped(place.x()), device_y_.Snapped(place.y() + metrics_.ascent())),
      ToQString(text));
}

}  // namespace dorvane
