// A print-out from the question to the paper: the dialog, then the printer or the preview.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/frmPreView.h"
#include "forms/frmPrint.h"
#include "support/Printer.h"

namespace dorvane {

struct PrintJob {
  std::string name;                                   // in the dialog and in the printer's queue
  std::function<int(const PictureSize&)> SheetCount;  // for sheets of this size; at least 1
  std::function<void(Page&, int page_no, std::int16_t draw_width)> Paint;
};

class Printing {
 public:
  // All outlive it.
  Printing(Program& program, frmPrint& ask, frmPreView& preview, Printer& printer)
      : program_(program), ask_(ask), preview_(preview), printer_(printer) {}

  // Asks, and prints the job or shows it; nothing after "Cancel". "Printer not ready" where the
  // printer takes no document.
  void Run(const PrintJob& job);
  // The window of the current graph; nothing where no graph is open.
  void PrintWindow();

 private:
  Program& program_;
  frmPrint& ask_;
  frmPreView& preview_;
  Printer& printer_;
};

}  // namespace dorvane
