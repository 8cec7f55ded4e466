// One page with a spectrum: the curves of window 0, the fitted lines over them, labels at the
// peaks, both axes and a title. Pictures and paper share it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "program/Program.h"

namespace dorvane {

// A text above the channel index of a peak.
struct PageLabel {
  double channel = 0;
  std::string text;
};

struct SpectrumPage {
  int data_no = 0;      // the spectrum whose fitted peaks are drawn and whose counts set the height
  std::string title;    // first line
  std::string details;  // second line, smaller
  std::vector<PageLabel> labels;
  int first_channel = 0;  // shown, channel indices
  int last_channel = 0;   // the last of the spectrum where it isn't above the first
  bool log_scale = false;
  std::int16_t unit = 1;  // of the unit axis; 1 is keV
};

// Makes a surface of a part of the page: x, y, width, height in pixels of scale factor 1 from the
// upper left corner.
using PanelMaker =
    std::function<std::unique_ptr<Surface>(double x, double y, double width, double height)>;

// Draws the page over width * height pixels. Measured counts are dots, fitted lines are drawn where
// they were fitted, upon their own backgrounds, and lines of a group one FWHM to either side.
// Labels stand above the counts and never overlap; one that has no room is left out. The view is as
// before afterwards, but view 2 of the drawing engine has become the alias of window 0.
void DrawSpectrumPage(Program& program, const SpectrumPage& content, double width, double height,
                      const PanelMaker& make_panel);

}  // namespace dorvane
