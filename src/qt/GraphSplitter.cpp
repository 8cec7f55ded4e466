#include "qt/GraphSplitter.h"

#include <QMouseEvent>
#include <QPainter>
#include <QSplitterHandle>

namespace dorvane {
namespace {

constexpr int kHandleHeight = 8;
constexpr int kGripWidth = 48;

class GripHandle : public QSplitterHandle {
 public:
  explicit GripHandle(GraphSplitter* splitter)
      : QSplitterHandle(Qt::Vertical, splitter), splitter_(splitter) {
    setObjectName("fraWinHeight");
    setToolTip("Drag to divide the room; double click opens or closes the lower window");
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor grip = palette().color(underMouse() ? QPalette::Highlight : QPalette::WindowText);
    if (!underMouse()) grip.setAlphaF(0.35F);
    painter.setBrush(grip);
    painter.drawRoundedRect(QRectF((width() - kGripWidth) / 2.0, height() / 2.0 - 2, kGripWidth, 4),
                            2, 2);
  }
  void mouseDoubleClickEvent(QMouseEvent*) override {
    splitter_->OpenLower(!splitter_->LowerIsOpen());
  }
  void enterEvent(QEnterEvent*) override { update(); }
  void leaveEvent(QEvent*) override { update(); }

 private:
  GraphSplitter* splitter_;
};

}  // namespace

GraphSplitter::GraphSplitter(QWidget* parent) : QSplitter(Qt::Vertical, parent) {
  setHandleWidth(kHandleHeight);
  connect(this, &QSplitter::splitterMoved, this, [this] { emit LowerToggled(LowerIsOpen()); });
}

bool GraphSplitter::LowerIsOpen() const {
  return sizes().value(1) > 0;
}

void GraphSplitter::OpenLower(bool open) {
  const int whole = height() - handleWidth();
  setSizes(open ? QList<int>{whole * 2 / 3, whole / 3} : QList<int>{whole, 0});
  emit LowerToggled(open);
}

QSplitterHandle* GraphSplitter::createHandle() {
  return new GripHandle(this);
}

}  // namespace dorvane
