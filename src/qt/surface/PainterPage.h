// A page on whatever a painter paints on.
#pragma once

#include <QPainter>
#include <memory>

#include "qt/surface/PainterSurface.h"
#include "support/Page.h"

namespace dorvane {

// The unit of the painter's coordinates is a pixel of the page. The painter outlives it.
class PainterPage : public Page {
 public:
  PainterPage(QPainter& painter, const PictureSize& size) : painter_(painter), size_(size) {}
  PictureSize Size() const override { return size_; }
  std::unique_ptr<Surface> Panel(double x, double y, double width, double height) override {
    return std::make_unique<PainterSurface>(painter_, QRectF(x, y, width, height));
  }

 private:
  QPainter& painter_;
  PictureSize size_;
};

}  // namespace dorvane
