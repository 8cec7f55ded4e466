#include "forms/frmSelGraph.h"

#include <QPainter>

#include "qt/binding/GridView.h"
#include "qt/binding/Layouts.h"
#include "qt/binding/PictureView.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kPinSize = 24;

// A pin seen from the side: upright when it holds, lying when it doesn't.
void DrawPin(QPainter& painter, const QRectF& rect, const QColor& ink, bool holds) {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(rect.center());
  if (!holds) painter.rotate(90);
  painter.setPen(QPen(ink, 1.5, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(holds ? QBrush(ink) : Qt::NoBrush);
  painter.drawRect(QRectF(-3, -8, 6, 8));
  painter.drawLine(QPointF(-5.5, 0), QPointF(5.5, 0));
  painter.drawLine(QPointF(0, 0), QPointF(0, 7));
}

// The pictures of the pin lie on picPin, which takes the mouse.
void LayOutPin(const frmSelGraph& form, const FormWindow& window) {
  QVBoxLayout* pin = InnerColumn(window.Of(form.picPin));
  pin->setContentsMargins(0, 0, 0, 0);
  pin->setSpacing(0);
  for (const PictureBox* picture : {&form.picPinOn, &form.picPinOff}) {
    auto* view = window.As<PictureView>(*picture);
    view->setAttribute(Qt::WA_TransparentForMouseEvents);
    const bool holds = picture == &form.picPinOn;
    view->SetPicture([view, holds](QPainter& painter, const QRectF& rect) {
      DrawPin(painter, rect, view->palette().color(QPalette::WindowText), holds);
    });
    pin->addWidget(view);
  }
  window.Of(form.picPin)->setFixedSize(kPinSize, kPinSize);
}

}  // namespace

void LayOut(frmSelGraph& form, FormWindow& window) {
  auto* grid = window.As<GridView>(form.sprGraphSel);
  grid->SetColumnWidths({"", "", "", "corundum_ambient.npd", "corundum_ambient"});
  grid->SetTextColumn(frmSelGraph::kFileName);
  grid->SetTextColumn(frmSelGraph::kSampleName);
  grid->SetLeastRows(10);
  LayOutPin(form, window);
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdOpen, &form.cmdCut, &form.cmdOk});
  int place = 0;
  for (const Control* control : std::initializer_list<const Control*>{
           &form.picPin, &form.chkFix, &form.picAllow, &form.picNothing}) {
    foot->insertWidget(place++, window.Of(*control));
  }
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(grid, 1);
  column->addLayout(foot);
  window.SetCancelButton(form.cmdOk);
}

}  // namespace dorvane
