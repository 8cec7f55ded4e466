#include "qt/QtPrinter.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrinterInfo>

#include "qt/binding/Text.h"
#include "qt/surface/PainterPage.h"

namespace dorvane {
namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kMarginMm = 15;

}  // namespace

bool QtPrinter::Print(const std::string& title, Orientation orientation, const PaintPage& paint) {
  const QPrinterInfo standard = QPrinterInfo::defaultPrinter();
  if (standard.isNull()) return false;
  QPrinter printer(standard, QPrinter::HighResolution);
  return PrintOn(printer, title, orientation, paint);
}

bool PrintOn(QPrinter& printer, const std::string& title, Orientation orientation,
             const PaintPage& paint) {
  printer.setDocName(ToQString(title));
  printer.setPageOrientation(orientation == Orientation::Landscape ? QPageLayout::Landscape
                                                                   : QPageLayout::Portrait);
  printer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm),
                         QPageLayout::Millimeter);
  QPainter painter;
  if (!printer.isValid() || !painter.begin(&printer)) return false;
  const QSizeF inches = printer.pageLayout().paintRect(QPageLayout::Inch).size();
  const double scale = printer.resolution() / kPixelsPerInch;
  painter.scale(scale, scale);
  PainterPage page(painter, {qRound(inches.width() * kPixelsPerInch),
                             qRound(inches.height() * kPixelsPerInch), 1});
  paint(page);
  return painter.end();
}

}  // namespace dorvane
