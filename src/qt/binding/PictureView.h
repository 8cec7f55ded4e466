// The widget of a picture: a cached drawing with an overlay, and the mouse in fractions.
#pragma once

#include <QImage>
#include <QWidget>
#include <functional>

#include "forms/PictureBox.h"
#include "qt/binding/WheelSteps.h"

class QSinglePointEvent;

namespace dorvane {

class PictureView : public QWidget {
  Q_OBJECT

 public:
  // Draws into the rectangle, in logical pixels.
  using Paint = std::function<void(QPainter&, const QRectF&)>;

  PictureView(PictureBox& control, QWidget* parent);

  // Painted once; again after Redraw, or when size, scale or theme have changed.
  void SetPicture(Paint paint);
  // The picture covers the whole of its rectangle, which makes it faster to draw.
  void SetOpaque();
  // Painted over the picture in each frame.
  void SetOverlay(Paint paint);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  MouseAt At(const QSinglePointEvent& event, Qt::MouseButtons buttons) const;

  PictureBox& control_;
  Paint picture_;
  Paint overlay_;
  bool opaque_ = false;
  QImage cache_;  // null: to be painted anew
  WheelSteps steps_;
};

}  // namespace dorvane
