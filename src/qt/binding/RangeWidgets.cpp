#include "qt/binding/RangeWidgets.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QSplitterHandle>
#include <QStyleOptionFocusRect>
#include <QStylePainter>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cstdlib>

#include "qt/binding/Mirror.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

// `last`: the largest value that a user reaches.
template <class Control, class Last>
QWidget* BindRange(Control& control, QAbstractSlider* widget, Last last) {
  Mirror(control, widget, [&control, widget, last] {
    const QSignalBlocker quiet(widget);
    widget->setRange(control.Minimum(), last(control));
    widget->setSingleStep(control.SmallChange());
    widget->setPageStep(control.LargeChange());
    widget->setValue(control.Value());
  });
  QObject::connect(widget, &QAbstractSlider::valueChanged, widget,
                   [&control](int value) { control.SetValue(value); });
  return widget;
}

// The toolkit's own bar moves to the right on the left arrow key.
class ScrollBarView : public QScrollBar {
 public:
  using QScrollBar::QScrollBar;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (orientation() == Qt::Horizontal && event->key() == Qt::Key_Left) {
      triggerAction(SliderSingleStepSub);
    } else if (orientation() == Qt::Horizontal && event->key() == Qt::Key_Right) {
      triggerAction(SliderSingleStepAdd);
    } else {
      QScrollBar::keyPressEvent(event);
    }
  }
};

QToolButton* Arrow(const UpDown& control, const char* end, Qt::ArrowType arrow, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setObjectName(ToQString(control.Name() + end));
  button->setArrowType(arrow);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setFixedSize(20, 14);
  return button;
}

constexpr int kHandleHeight = 8;
constexpr int kGripWidth = 48;
constexpr int kKeyStep = 16;  // pixels, for one press of an arrow key

class GripHandle : public QSplitterHandle {
 public:
  GripHandle(Splitter& control, QSplitter* splitter)
      : QSplitterHandle(Qt::Vertical, splitter), control_(control) {
    setToolTip(ToQString(control.Tip()));
    setAccessibleName(toolTip());
    setFocusPolicy(Qt::TabFocus);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const bool lit = underMouse() || hasFocus();
    QColor grip = palette().color(lit ? QPalette::Highlight : QPalette::WindowText);
    if (!lit) grip.setAlphaF(0.35F);
    painter.setBrush(grip);
    painter.drawRoundedRect(QRectF((width() - kGripWidth) / 2.0, height() / 2.0 - 2, kGripWidth, 4),
                            2, 2);
  }
  void mouseDoubleClickEvent(QMouseEvent*) override { control_.DoubleClick(); }
  void keyPressEvent(QKeyEvent* event) override {
    switch (event->key()) {
      case Qt::Key_Up:
        moveSplitter(y() - kKeyStep);
        break;
      case Qt::Key_Down:
        moveSplitter(y() + kKeyStep);
        break;
      case Qt::Key_Space:
        control_.DoubleClick();
        break;
      default:
        QSplitterHandle::keyPressEvent(event);
    }
  }
  void focusInEvent(QFocusEvent*) override { update(); }
  void focusOutEvent(QFocusEvent*) override { update(); }
  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }

 private:
  Splitter& control_;
};

}  // namespace

QWidget* MakeSliderWidget(Slider& control, QWidget* parent) {
  return BindRange(control, new QSlider(Qt::Horizontal, parent),
                   [](const Slider& slider) { return slider.Maximum(); });
}

QWidget* MakeScrollWidget(ScrollBar& control, QWidget* parent) {
  auto* bar = new ScrollBarView(Qt::Horizontal, parent);
  bar->setFocusPolicy(Qt::StrongFocus);
  return BindRange(control, bar, [](const ScrollBar& of) {
    const int page = of.ShowsPage() ? of.LargeChange() : 0;
    return std::max(of.Minimum(), of.Maximum() - page);
  });
}

UpDownView::UpDownView(UpDown& control, QWidget* parent) : QWidget(parent), control_(control) {
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  auto* up = Arrow(control, "_Up", Qt::UpArrow, this);
  auto* down = Arrow(control, "_Down", Qt::DownArrow, this);
  column->addWidget(up);
  column->addWidget(down);
  connect(up, &QToolButton::clicked, this, [this] { Press(true); });
  connect(down, &QToolButton::clicked, this, [this] { Press(false); });
}

void UpDownView::Press(bool up) {
  if (up) {
    control_.Up();
  } else {
    control_.Down();
  }
}

void UpDownView::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down) {
    Press(event->key() == Qt::Key_Up);
  } else {
    QWidget::keyPressEvent(event);
  }
}

void UpDownView::wheelEvent(QWheelEvent* event) {
  const int steps = steps_.Turn(event->angleDelta());
  for (int i = 0; i < std::abs(steps); ++i) Press(steps > 0);
}

void UpDownView::paintEvent(QPaintEvent*) {
  if (!hasFocus()) return;
  QStylePainter painter(this);
  QStyleOptionFocusRect option;
  option.initFrom(this);
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
}

void UpDownView::focusInEvent(QFocusEvent*) {
  update();
}
void UpDownView::focusOutEvent(QFocusEvent*) {
  update();
}

SplitterView::SplitterView(Splitter& control, QWidget* parent)
    : QSplitter(Qt::Vertical, parent), control_(control) {
  setHandleWidth(kHandleHeight);
  Mirror(control, this, [this] { Follow(); });
  connect(this, &QSplitter::splitterMoved, this, [this] {
    const QList<int> parts = sizes();
    const int whole = parts.value(0) + parts.value(1);
    if (whole > 0) control_.SetShare(static_cast<double>(parts[0]) / whole);
  });
}

QSplitterHandle* SplitterView::createHandle() {
  return new GripHandle(control_, this);
}

void SplitterView::resizeEvent(QResizeEvent* event) {
  QSplitter::resizeEvent(event);
  Follow();
}

void SplitterView::Follow() {
  if (count() != 2) return;
  setCollapsible(0, false);
  const int whole = height() - handleWidth();
  const int upper = qRound(control_.Share() * whole);
  if (whole > 0 && sizes().value(0) != upper) setSizes({upper, whole - upper});
}

}  // namespace dorvane
