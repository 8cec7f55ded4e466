// The port to the printer: one page, painted as a picture is.
#pragma once

#include <string>

#include "support/Page.h"

namespace dorvane {

enum class Orientation { Portrait, Landscape };

class Printer {
 public:
  virtual ~Printer() = default;
  // Prints one page, with its document under this title in the printer's queue. `paint` is called
  // once, with a page of the sheet's printable size. False when there is no printer or it is not
  // ready; `paint` may then not have been called.
  virtual bool Print(const std::string& title, Orientation orientation, const PaintPage& paint) = 0;
};

}  // namespace dorvane
