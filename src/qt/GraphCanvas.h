// The picture of one graph window: curves from a cached image, with the cursors painted over it,
// and what the mouse does there.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "display/Overlay.h"
#include "program/GraphMouse.h"
#include "qt/Session.h"

namespace dorvane {

class GraphCanvas : public QWidget {
  Q_OBJECT

 public:
  // `session` outlives the widget.
  GraphCanvas(Session& session, int win_no, QWidget* parent);

  // The picture is drawn anew with the next frame.
  void Invalidate();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool HasOwnGraph() const;
  QString Hint() const;
  void RenderPicture(const QSize& device_size);
  void CollectRegions();
  Overlay CurrentOverlay() const;
  // Channel under a place, also outside of the window while a drag has left it.
  double ChannelAt(double x) const;
  double Reach() const;
  void ShowPointer(double x);
  void DragTo(double x);
  void ScrollWhileOutside();

  Session& session_;
  const int win_no_;
  QImage picture_;
  std::vector<ChannelRange> regions_;  // for the overlay of this frame
  bool stale_ = true;
  std::optional<GraphDrag> drag_;
  double drag_x_ = 0;
  QTimer timCursor_;
};

}  // namespace dorvane
