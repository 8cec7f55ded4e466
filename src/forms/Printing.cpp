#include "forms/Printing.h"

#include "program/WindowPage.h"

namespace dorvane {

void Printing::Run(const PrintJob& job) {
  ask_.Open(job.name);
  const std::int16_t draw_width = ask_.GetDrawWidth;
  const Orientation orientation =
      ask_.GetOrientation != 0 ? Orientation::Landscape : Orientation::Portrait;
  const auto paint = [&job, draw_width](Page& page, int page_no) {
    job.Paint(page, page_no, draw_width);
  };
  if (ask_.OkPb != kFalse) {
    const bool printed = printer_.Print(job.name, orientation, [&](Page& page, int page_no) {
      paint(page, page_no);
      return page_no + 1 < job.SheetCount(page.Size());
    });
    if (!printed) program_.ports.dialogs.Message("Printer not ready");
  } else if (ask_.PreViewPb != kFalse) {
    const PictureSize size = printer_.SheetSize(orientation);
    preview_.Open({size, job.SheetCount(size), paint});
  }
}

void Printing::PrintWindow() {
  auto sheet = CurrentSheet(program_);
  if (!sheet) return;
  Run({sheet->title, [](const PictureSize&) { return 1; },
       [&](Page& page, int, std::int16_t draw_width) {
         sheet->dot_size = draw_width;
         DrawWindowSheet(program_, *sheet, page);
       }});
}

}  // namespace dorvane
