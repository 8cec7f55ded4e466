// A printer that keeps what is printed on it.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "display/RecordingPage.h"
#include "support/Printer.h"

namespace dorvane {

// Its sheets are 1000 x 600 pixels, those in portrait 600 x 1000.
class FakePrinter : public Printer {
 public:
  bool ready = true;
  std::vector<std::string> titles;  // of the documents printed
  std::deque<RecordingPage> pages;  // of the last one
  std::vector<Stroke> strokes;      // of its last page
  Orientation orientation = Orientation::Portrait;

  PictureSize SheetSize(Orientation asked) const override {
    return asked == Orientation::Landscape ? PictureSize{1000, 600, 1} : PictureSize{600, 1000, 1};
  }
  bool Print(const std::string& title, Orientation asked, const PaintPages& paint) override {
    if (!ready) return false;
    titles.push_back(title);
    orientation = asked;
    pages.clear();
    for (int page_no = 0;; ++page_no) {
      pages.emplace_back(SheetSize(asked));
      if (!paint(pages.back(), page_no)) break;
    }
    strokes = pages.back().Strokes();
    return true;
  }
};

}  // namespace dorvane
