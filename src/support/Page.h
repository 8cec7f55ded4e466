// A page that is painted panel by panel, whatever it becomes: a picture file or a sheet of paper.
#pragma once

#include <functional>
#include <memory>

#include "support/Surface.h"

namespace dorvane {

// Pixels are those of scale factor 1, 96 an inch; a PNG has `scale` times as many along each side.
struct PictureSize {
  int width_px = 1000;
  int height_px = 600;
  double scale = 1;
};

class Page {
 public:
  virtual ~Page() = default;
  virtual PictureSize Size() const = 0;
  // A part of the page, in pixels of scale factor 1 from its upper left corner. It lives no longer
  // than the page.
  virtual std::unique_ptr<Surface> Panel(double x, double y, double width, double height) = 0;
  std::unique_ptr<Surface> Whole() { return Panel(0, 0, Size().width_px, Size().height_px); }
};

using PaintPage = std::function<void(Page&)>;
// Paints page `page_no`, from 0, of a document; answers whether another one follows.
using PaintPages = std::function<bool(Page&, int page_no)>;

}  // namespace dorvane
