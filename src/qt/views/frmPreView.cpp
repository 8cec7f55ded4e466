#include "forms/frmPreView.h"

#include <algorithm>

#include "qt/binding/Layouts.h"
#include "qt/binding/PictureView.h"
#include "qt/surface/PainterPage.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr QSize kLeastPicture(360, 360);
constexpr QSize kStartSize(900, 760);
constexpr double kDesk = 16;         // pixels about the sheet
constexpr double kPaperMargin = 57;  // of the sheet about its printable part, in its own pixels

// The whole sheet, as large as has room, in the middle.
void PaintSheet(const frmPreView& form, QPainter& painter, const QRectF& rect) {
  const PictureSize size = form.SheetSize();
  const double width = size.width_px + 2 * kPaperMargin;
  const double height = size.height_px + 2 * kPaperMargin;
  const double scale =
      std::min((rect.width() - 2 * kDesk) / width, (rect.height() - 2 * kDesk) / height);
  if (scale <= 0) return;
  painter.fillRect(rect, QColor(128, 128, 128));
  painter.save();
  painter.translate(rect.center() - QPointF(width, height) * (scale / 2));
  painter.scale(scale, scale);
  painter.fillRect(QRectF(0, 0, width, height), Qt::white);
  painter.translate(kPaperMargin, kPaperMargin);
  PainterPage page(painter, size);
  form.DrawSheet(page);
  painter.restore();
}

QWidget* Sheet(frmPreView& form, FormWindow& window) {
  auto* view = window.As<PictureView>(form.picPreView);
  view->setMinimumSize(kLeastPicture);
  view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  view->setFocusPolicy(Qt::NoFocus);
  view->setAccessibleName("What is printed");
  view->SetOpaque();
  view->SetPicture(
      [&form](QPainter& painter, const QRectF& rect) { PaintSheet(form, painter, rect); });
  return view;
}

}  // namespace

void LayOut(frmPreView& form, FormWindow& window) {
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(Sheet(form, window), 1);
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdOk});
  foot->insertWidget(0, window.Of(form.cmdBack));
  foot->insertWidget(1, window.Of(form.lblSheet));
  foot->insertWidget(2, window.Of(form.cmdNext));
  column->addLayout(foot);
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdOk);
  window.SetFirstFocus(form.cmdOk);
  window.resize(kStartSize);
}

}  // namespace dorvane
