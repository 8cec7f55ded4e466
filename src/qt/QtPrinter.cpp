#include "qt/QtPrinter.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrinterInfo>
#include <utility>

#include "qt/binding/Text.h"
#include "qt/surface/PainterPage.h"
#include "qt/surface/Picture.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kMarginMm = 15;
constexpr int kMarginPx = 57;          // the same in pixels
constexpr PictureSize kA4{794, 1123};  // 210 x 297 mm

void SetUp(QPrinter& printer, Orientation orientation) {
  printer.setPageOrientation(orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
  printer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm),
                         QPageLayout::Millimeter);
}

PictureSize PrintableSize(const QPrinter& printer) {
  const QSizeF inches = printer.pageLayout().paintRect(QPageLayout::Inch).size();
  return {qRound(inches.width() * kPixelsPerInch), qRound(inches.height() * kPixelsPerInch), 1};
}

PictureSize A4Sheet(Orientation orientation) {
  PictureSize sheet = kA4;
  if (orientation == Orientation::Landscape) std::swap(sheet.width_px, sheet.height_px);
  return sheet;
}

}  // namespace

PictureSize QtPrinter::SheetSize(Orientation orientation) const {
  const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
  if (standard.isNull()) {
    const PictureSize sheet = A4Sheet(orientation);
    return {sheet.width_px - 2 * kMarginPx, sheet.height_px - 2 * kMarginPx, 1};
  }
  QPrinter printer(standard, QPrinter::HighResolution);
  SetUp(printer, orientation);
  return PrintableSize(printer);
}

bool QtPrinter::Print(const std::string& title, Orientation orientation, const PaintPages& paint) {
  const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
  if (standard.isNull()) return PrintToFile(title, orientation, paint);
  QPrinter printer(standard, QPrinter::HighResolution);
  return PrintOn(printer, title, orientation, paint);
}

bool QtPrinter::PrintToFile(const std::string& title, Orientation orientation,
                            const PaintPages& paint) {
  FileRequest request{title + ".pdf", "PDF file (*.pdf)|*.pdf"};
  request.overwrite_prompt = true;
  request.caption = "Print to a PDF file: no printer is set up";
  const auto choice = dialogs_.ChooseFileToSave(request);
  if (!choice) return true;
  try {
    ReplaceFile(files_, choice->path, RenderDocument(A4Sheet(orientation), kMarginPx, paint));
    return true;
  } catch (const Fault&) {
    return false;
  }
}

bool PrintOn(QPrinter& printer, const std::string& title, Orientation orientation,
             const PaintPages& paint) {
  printer.setDocName(ToQString(title));
  SetUp(printer, orientation);
  QPainter painter;
  if (!printer.isValid() || !painter.begin(&printer)) return false;
  const double scale = printer.resolution() / kPixelsPerInch;
  painter.scale(scale, scale);
  PainterPage page(painter, PrintableSize(printer));
  for (int page_no = 0; paint(page, page_no); ++page_no) {
    if (!printer.newPage()) return false;
  }
  return painter.end();
}

}  // namespace dorvane
