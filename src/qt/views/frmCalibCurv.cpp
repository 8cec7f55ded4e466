#include "forms/frmCalibCurv.h"

#include "qt/binding/Layouts.h"
#include "qt/binding/PictureView.h"
#include "qt/surface/PainterSurface.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr QSize kLeastPlot(420, 280);
constexpr QSize kStartSize(820, 620);

QWidget* Plot(frmCalibCurv& form, FormWindow& window) {
  auto* view = window.As<PictureView>(form.picCurve);
  view->setMinimumSize(kLeastPlot);
  view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  view->setFocusPolicy(Qt::NoFocus);
  view->setAccessibleName("Energy of each channel, and residuals of the points");
  view->SetOpaque();
  view->SetPicture([&form](QPainter& painter, const QRectF& rect) {
    PainterSurface surface(painter, rect);
    form.DrawCurve(surface);
  });
  return view;
}

}  // namespace

void LayOut(frmCalibCurv& form, FormWindow& window) {
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(Plot(form, window), 1);
  column->addWidget(window.Of(form.txtMemo));
  column->addLayout(ButtonRow(window, {&form.cmdPrint, &form.cmdOk}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdOk);
  window.SetFirstFocus(form.cmdOk);
  window.resize(kStartSize);
}

}  // namespace dorvane
