// A page that writes down what is drawn on each of its panels.
#pragma once

#include <algorithm>
#include <cmath>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "display/DrawScale.h"
#include "display/RecordingSurface.h"
#include "support/Page.h"

namespace dorvane {

class RecordingPage : public Page {
 public:
  struct Part {
    PageBox box;
    std::vector<Stroke> strokes;
    double left = 0, top = 0, right = 0, bottom = 0;  // its last scale
  };

  explicit RecordingPage(PictureSize size = {1000, 600, 1}) : size_(size) {}
  PictureSize Size() const override { return size_; }
  std::unique_ptr<Surface> Panel(double x, double y, double width, double height) override {
    parts.push_back({{x, y, width, height}, {}});
    return std::make_unique<KeptSurface>(parts.back());
  }

  std::vector<Stroke> Strokes() const {
    std::vector<Stroke> all;
    for (const Part& part : parts) {
      all.insert(all.end(), part.strokes.begin(), part.strokes.end());
    }
    return all;
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const Stroke& stroke : Strokes()) {
      if (stroke.kind == Stroke::Kind::Text) texts.push_back(stroke.text);
    }
    return texts;
  }
  // The first part with a stroke of this kind.
  const Part& PartWith(Stroke::Kind kind) const {
    return *std::find_if(parts.begin(), parts.end(), [kind](const Part& part) {
      return std::any_of(part.strokes.begin(), part.strokes.end(),
                         [kind](const Stroke& stroke) { return stroke.kind == kind; });
    });
  }

  std::deque<Part> parts;  // in the order in which they were made

 private:
  class KeptSurface : public RecordingSurface {
   public:
    explicit KeptSurface(Part& part) : part_(part) {
      SetScale(0, 0, part.box.width, part.box.height);
    }
    ~KeptSurface() override {
      part_.strokes = strokes;
      part_.left = left;
      part_.top = top;
      part_.right = right;
      part_.bottom = bottom;
    }
    Point PixelSize() const override {
      const auto pixel = [](double extent, double pixels) {
        return pixels > 0 ? std::abs(extent) / pixels : 0;
      };
      return {pixel(right - left, part_.box.width), pixel(bottom - top, part_.box.height)};
    }

   private:
    Part& part_;
  };

  PictureSize size_;
};

}  // namespace dorvane
