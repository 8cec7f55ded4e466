// The widget of a colour patch: the colour with a thin edge, a ring about the selected one.
#pragma once

#include <QAbstractButton>

#include "forms/ColorPatch.h"

namespace dorvane {

// Without a colour the edge is broken.
class ColorPatchView : public QAbstractButton {
  Q_OBJECT

 public:
  ColorPatchView(ColorPatch& control, QWidget* parent);
  QSize sizeHint() const override { return {32, 24}; }
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  ColorPatch& control_;
};

}  // namespace dorvane
