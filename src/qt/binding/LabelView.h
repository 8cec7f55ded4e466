// The widget of a label; it can shorten its text at the end to the room there is.
#pragma once

#include <QLabel>

namespace dorvane {

class LabelView : public QLabel {
  Q_OBJECT

 public:
  using QLabel::QLabel;
  // From now on a text that is too long ends in dots, and the tooltip has it whole.
  void SetElided();
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool elided_ = false;
};

}  // namespace dorvane
