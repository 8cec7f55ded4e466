// The port to the printer: a document of one or more pages, painted as pictures are.
#pragma once

#include <string>

#include "support/Page.h"

namespace dorvane {

enum class Orientation { Portrait, Landscape };

class Printer {
 public:
  virtual ~Printer() = default;
  // The printable part of a sheet, that of A4 where no printer is known.
  virtual PictureSize SheetSize(Orientation orientation) const = 0;
  // Prints a document, under this title in the printer's queue; `paint` is called for page 0, 1 and
  // so on, each with the printable size of the sheet, until it answers that no other follows. False
  // when there is no printer or it is not ready; `paint` may then not have been called. A user who
  // is asked where to print and changes their mind is no failure.
  virtual bool Print(const std::string& title, Orientation orientation,
                     const PaintPages& paint) = 0;
};

}  // namespace dorvane
