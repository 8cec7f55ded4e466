// A surface of 1000 x 600 pixels that writes down what is drawn on it. Its characters are 8 pixels
// wide and 16 high.
#pragma once

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "support/Fault.h"
#include "support/Surface.h"

namespace dorvane {

struct Stroke {
  enum class Kind { Clear, Line, Dot, Box, Text };
  Kind kind = Kind::Clear;
  Point from;  // the dot; a box's corner; a text's upper left corner
  Point to;    // a box's other corner
  dorvane::Color color = 0;
  double width = 0;      // of the line, when it was drawn
  double opacity = 1;    // of a box
  double font_size = 0;  // of a text
  std::string text = {};
};

class RecordingSurface : public Surface {
 public:
  static constexpr double kWidth = 1000;
  static constexpr double kHeight = 600;
  static constexpr double kCharWidth = 8;
  static constexpr double kCharHeight = 16;

  std::vector<Stroke> strokes;
  std::vector<std::size_t> line_batches;  // segments by call
  double left = 0, top = 0, right = kWidth, bottom = kHeight;
  bool fails = false;  // at the next line or dot

  std::vector<Stroke> Of(Stroke::Kind kind) const {
    std::vector<Stroke> found;
    std::copy_if(strokes.begin(), strokes.end(), std::back_inserter(found),
                 [&](const Stroke& stroke) { return stroke.kind == kind; });
    return found;
  }
  std::vector<Stroke> Lines() const { return Of(Stroke::Kind::Line); }
  std::vector<Stroke> Dots() const { return Of(Stroke::Kind::Dot); }
  std::vector<Stroke> Boxes() const { return Of(Stroke::Kind::Box); }
  std::vector<Stroke> Texts() const { return Of(Stroke::Kind::Text); }
  void Forget() {
    strokes.clear();
    line_batches.clear();
  }

  void SetScale(double l, double t, double r, double b) override {
    left = l;
    top = t;
    right = r;
    bottom = b;
  }
  Point PixelSize() const override {
    return {std::abs(right - left) / kWidth, std::abs(bottom - top) / kHeight};
  }
  void Clear(Color color) override {
    strokes.push_back({.kind = Stroke::Kind::Clear, .from = {}, .to = {}, .color = color});
  }
  double LineWidth() const override { return line_width_; }
  void SetLineWidth(double width) override { line_width_ = width; }
  void Lines(std::span<const Segment> segments, Color color) override {
    FailIfAsked();
    line_batches.push_back(segments.size());
    for (const Segment& segment : segments) {
      strokes.push_back({.kind = Stroke::Kind::Line,
                         .from = segment.from,
                         .to = segment.to,
                         .color = color,
                         .width = line_width_});
    }
  }
  void Dots(std::span<const Point> points, Color color) override {
    FailIfAsked();
    for (const Point& point : points) {
      strokes.push_back({.kind = Stroke::Kind::Dot,
                         .from = point,
                         .to = point,
                         .color = color,
                         .width = line_width_});
    }
  }
  void Box(const Point& corner, const Point& opposite, Color color, double opacity) override {
    strokes.push_back({.kind = Stroke::Kind::Box,
                       .from = corner,
                       .to = opposite,
                       .color = color,
                       .width = line_width_,
                       .opacity = opacity});
  }
  void SetFontSize(double points) override { font_size_ = points; }
  double TextWidth(std::string_view text) const override {
    return kCharWidth * static_cast<double>(text.size()) * PixelSize().x;
  }
  double TextHeight() const override { return kCharHeight * PixelSize().y; }
  void Text(const Point& at, std::string_view text, Color color) override {
    strokes.push_back({.kind = Stroke::Kind::Text,
                       .from = at,
                       .to = at,
                       .color = color,
                       .font_size = font_size_,
                       .text = std::string(text)});
  }

 private:
  void FailIfAsked() {
    if (fails) throw Fault(FaultCode::BadArgument);
  }
  double line_width_ = 1;
  double font_size_ = 0;
};

}  // namespace dorvane
