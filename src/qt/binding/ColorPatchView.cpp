#include "qt/binding/ColorPatchView.h"

#include <QPainter>

#include "qt/binding/Mirror.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

constexpr int kRing = 3;  // ring and the gap within it
constexpr qreal kRadius = 3;
constexpr float kQuiet = 0.4F;  // opacity of the edge, and of a patch that is off

}  // namespace

ColorPatchView::ColorPatchView(ColorPatch& control, QWidget* parent)
    : QAbstractButton(parent), control_(control) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  Mirror(control, this, [this] { update(); });
  connect(this, &QAbstractButton::clicked, this, [this] { control_.Press(); });
}

void ColorPatchView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isEnabled()) painter.setOpacity(kQuiet);
  QColor edge = palette().color(QPalette::WindowText);
  edge.setAlphaF(underMouse() && isEnabled() ? 1.0F : kQuiet);
  painter.setPen(QPen(edge, 1, control_.Fill() ? Qt::SolidLine : Qt::DashLine));
  if (control_.Fill()) painter.setBrush(ToQColor(*control_.Fill()));
  const QRectF patch = QRectF(rect()).adjusted(kRing, kRing, -kRing, -kRing);
  painter.drawRoundedRect(patch.adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
  if (!control_.Selected() && !hasFocus()) return;
  const auto ring = control_.Selected() ? QPalette::Highlight : QPalette::WindowText;
  painter.setPen(QPen(palette().color(ring), hasFocus() ? 2 : 1.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kRadius, kRadius);
}

}  // namespace dorvane
