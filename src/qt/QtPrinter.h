// The printer of the desktop.
#pragma once

#include <QPrinter>

#include "support/Printer.h"

namespace dorvane {

// Prints on the desktop's default printer; not ready where there is none.
class QtPrinter : public Printer {
 public:
  bool Print(const std::string& title, Orientation orientation, const PaintPage& paint) override;
};

// One page on whatever `printer` is set to print on. False when it takes no document.
bool PrintOn(QPrinter& printer, const std::string& title, Orientation orientation,
             const PaintPage& paint);

}  // namespace dorvane
