// A printer that keeps what is printed on it.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "display/RecordingSurface.h"
#include "support/Printer.h"

namespace dorvane {

class FakePrinter : public Printer {
 public:
  bool ready = true;
  std::vector<std::string> titles;  // of the pages printed
  std::vector<Stroke> strokes;      // of the last one
  Orientation orientation = Orientation::Portrait;

  bool Print(const std::string& title, Orientation asked, const PaintPage& paint) override {
    if (!ready) return false;
    titles.push_back(title);
    orientation = asked;
    strokes.clear();
    Sheet sheet(strokes);
    paint(sheet);
    return true;
  }

 private:
  class KeptSurface : public RecordingSurface {
   public:
    explicit KeptSurface(std::vector<Stroke>& kept) : kept_(kept) {}
    ~KeptSurface() override { kept_.insert(kept_.end(), strokes.begin(), strokes.end()); }

   private:
    std::vector<Stroke>& kept_;
  };
  class Sheet : public Page {
   public:
    explicit Sheet(std::vector<Stroke>& kept) : kept_(kept) {}
    PictureSize Size() const override { return {1000, 600, 1}; }
    std::unique_ptr<Surface> Panel(double, double, double, double) override {
      return std::make_unique<KeptSurface>(kept_);
    }

   private:
    std::vector<Stroke>& kept_;
  };
};

}  // namespace dorvane
