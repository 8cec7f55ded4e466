// Small parts of the read-out strip: digits of equal width, values that keep their place, labels
// that shorten their text.
#pragma once

#include <QFont>
#include <QFrame>
#include <QLabel>

#include "qt/binding/TabularFont.h"

namespace dorvane {

// A number, right-aligned in a place as wide as `widest`, so that nothing moves when it changes.
class ValueLabel : public QLabel {
  Q_OBJECT

 public:
  ValueLabel(const QString& name, const QString& widest, QWidget* parent);
};

// Shortens its text at the end to the room there is; the tooltip has it whole.
class ElidedLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ElidedLabel(const QString& name, QWidget* parent);
  void SetWholeText(const QString& text);
  const QString& WholeText() const { return whole_; }
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Elide();
  QString whole_;
};

QFont SmallFont(const QFont& base);
// Caption in small, quieter letters above a field.
QLabel* FieldCaption(const QString& text, Qt::Alignment alignment, QWidget* parent);
QFrame* VerticalRule(QWidget* parent);

}  // namespace dorvane
