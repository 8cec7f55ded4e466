// The widget of a toggle button: a flat cell that is filled while it is down, with room for a small
// text in its corner.
#pragma once

#include <QToolButton>

namespace dorvane {

class ToggleView : public QToolButton {
  Q_OBJECT

 public:
  explicit ToggleView(QWidget* parent);
  void SetCorner(const QString& text);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QFont CornerFont() const;

  QString corner_;
};

}  // namespace dorvane
