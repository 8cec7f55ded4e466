#include "qt/AxisPanels.h"

#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "display/DrawScale.h"
#include "program/View.h"
#include "qt/surface/PainterSurface.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr int kTickAndGap = 8;      // pixels between the axis and its labels
constexpr int kDivisionWidth = 88;  // pixels that a label of the unit axis wants at least
constexpr int kMostDivisions = 16;

// Metrics of the axes' font on a surface.
QFontMetrics AxisMetrics(const QWidget& widget) {
  QFont font = widget.font();
  font.setPixelSize(13);
  return QFontMetrics(font);
}

// 4, 8 or 16 divisions, so that a division of a whole spectrum is a round number of channels.
int DivisionsFor(int width) {
  int divisions = kMostDivisions;
  while (divisions > 4 && width / divisions < kDivisionWidth) divisions /= 2;
  return divisions;
}

}  // namespace

CountAxisPanel::CountAxisPanel(Session& session, int win_no, QWidget* parent)
    : QWidget(parent), session_(session) {
  setObjectName(QString("picScaleY_%1").arg(win_no));
  setAccessibleName(QString("Count axis of window %1").arg(win_no + 1));
  setToolTip("Counts. Wheel: larger or smaller curves. Double click: fit the height");
  setFixedWidth(AxisMetrics(*this).horizontalAdvance(" 88.8K") + kTickAndGap + 8);
}

void CountAxisPanel::paintEvent(QPaintEvent*) {
  const ViewState& view = session_.program.view;
  const Color ink = session_.program.workspace.ColorTbl[kColorAxis];
  QPainter painter(this);
  PainterSurface surface(painter, rect());
  DrawCountAxis(surface, view.LogScale != kFalse ? kLogDecades : view.HeightY, ink);
  surface.SetScale(0, 0, 1, 1);
  surface.Box({1, 0}, {1, 1}, ink, 1);
}

void CountAxisPanel::wheelEvent(QWheelEvent* event) {
  if (event->angleDelta().y() != 0) {
    session_.Run(event->angleDelta().y() > 0 ? "mnuShoter" : "mnuTaller");
  }
  event->accept();
}

void CountAxisPanel::mouseDoubleClickEvent(QMouseEvent*) {
  session_.Do([](Program& program) { SetAutoScale(program, true); });
}

UnitAxisPanel::UnitAxisPanel(Session& session, int win_no, QWidget* parent)
    : QWidget(parent), session_(session), win_no_(win_no) {
  setObjectName(QString("picSubScale_%1").arg(win_no));
  setAccessibleName(QString("Unit axis of window %1").arg(win_no + 1));
  setToolTip("Double click: the whole spectrum");
  setFixedHeight(kTickAndGap + 2 * AxisMetrics(*this).height() + 4);
}

void UnitAxisPanel::paintEvent(QPaintEvent*) {
  const Program& program = session_.program;
  const ViewState& view = program.view;
  const ViewScale& scale = program.spect.Scale(win_no_);
  const Color ink = program.workspace.ColorTbl[kColorAxis];
  const int row = std::max<int>(view.SelectedRow[win_no_], 0);
  QPainter painter(this);
  PainterSurface surface(painter, rect());
  DrawUnitAxis(surface, program.workspace, program.workspace.Slots[row].DataNo, view.DispUnit,
               DivisionsFor(width()), scale.WidthX, scale.StartX, ink);
  surface.SetScale(0, 0, 1, 1);
  surface.Box({0, 0}, {1, 0}, ink, 1);
}

void UnitAxisPanel::mouseDoubleClickEvent(QMouseEvent*) {
  emit WholeRangeWanted();
}

}  // namespace dorvane
