// The widget of a label; it can shorten its text at the end to the room there is, and warn.
#pragma once

#include <QLabel>

namespace dorvane {

class LabelView : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;
  // From now on a text that is too long ends in dots, and the tooltip has it whole.
  void SetElided();
  // In the colour of warnings, which is told from the ground of a light and of a dark window.
  void SetWarning(bool warning);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool elided_ = false;
  bool warning_ = false;
};

}  // namespace dorvane
