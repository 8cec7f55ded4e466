#include "qt/Readouts.h"

namespace dorvane {

ValueLabel::ValueLabel(const QString& name, const QString& widest, QWidget* parent)
    : QLabel(parent) {
  setObjectName(name);
  setFont(TabularFont(font()));
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setFixedWidth(fontMetrics().horizontalAdvance(widest) + 4);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
}

ElidedLabel::ElidedLabel(const QString& name, QWidget* parent) : QLabel(parent) {
  setObjectName(name);
  setFont(TabularFont(font()));
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void ElidedLabel::SetWholeText(const QString& text) {
  whole_ = text;
  setToolTip(text);
  updateGeometry();
  Elide();
}

void ElidedLabel::Elide() {
  setText(fontMetrics().elidedText(whole_, Qt::ElideRight, width()));
}

QSize ElidedLabel::minimumSizeHint() const {
  return {fontMetrics().horizontalAdvance("0.000000..."), fontMetrics().height()};
}

QSize ElidedLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(whole_) + 4, fontMetrics().height()};
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Elide();
}

QFont SmallFont(const QFont& base) {
  QFont small = base;
  small.setPointSizeF(base.pointSizeF() * 0.9);
  return small;
}

QLabel* FieldCaption(const QString& text, Qt::Alignment alignment, QWidget* parent) {
  auto* caption = new QLabel(text, parent);
  caption->setFont(SmallFont(caption->font()));
  caption->setAlignment(alignment | Qt::AlignBottom);
  caption->setForegroundRole(QPalette::PlaceholderText);
  return caption;
}

QFrame* VerticalRule(QWidget* parent) {
  auto* rule = new QFrame(parent);
  rule->setFrameShape(QFrame::VLine);
  rule->setFrameShadow(QFrame::Plain);
  rule->setForegroundRole(QPalette::Mid);
  return rule;
}

}  // namespace dorvane
