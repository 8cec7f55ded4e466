// The picture of one graph window: curves from a cached image, with the cursors painted over it,
// and what the mouse does there.
#pragma once

#include <QImage>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "display/Overlay.h"
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
  enum class Drag { None, Cursor, Area };

  bool HasOwnGraph() const;
  QString Hint() const;
  void RenderPicture(const QSize& device_size);
  Overlay CurrentOverlay() const;
  int ChannelAt(double x) const;
  // The end of the area that stays when the edge near x is taken.
  std::optional<int> OppositeOfEdgeNear(double x) const;
  void DragTo(double x);
  void ScrollWhileOutside();

  Session& session_;
  const int win_no_;
  QImage picture_;
  bool stale_ = true;
  Drag drag_ = Drag::None;
  int anchor_ = 0;  // end of the area that stays
  double drag_x_ = 0;
  QTimer timCursor_;
};

}  // namespace dorvane
