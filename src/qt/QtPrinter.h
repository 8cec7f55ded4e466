// The printer of the desktop, and a PDF file in its place where there is none.
#pragma once

#include <QPrinter>

#include "support/Dialogs.h"
#include "support/FileLayer.h"
#include "support/Printer.h"

namespace dorvane {

// Prints on the desktop's default printer. Without one it asks for a file and writes the document
// as PDF, sheets of A4; not ready where that can't be written.
class QtPrinter : public Printer {
 public:
  // Both outlive it.
  QtPrinter(Dialogs& dialogs, FileLayer& files) : dialogs_(dialogs), files_(files) {}
  PictureSize SheetSize(Orientation orientation) const override;
  bool Print(const std::string& title, Orientation orientation, const PaintPages& paint) override;

 private:
  bool PrintToFile(const std::string& title, Orientation orientation, const PaintPages& paint);

  Dialogs& dialogs_;
  FileLayer& files_;
};

// A document on whatever `printer` is set to print on. False when it takes none.
bool PrintOn(QPrinter& printer, const std::string& title, Orientation orientation,
             const PaintPages& paint);

}  // namespace dorvane
