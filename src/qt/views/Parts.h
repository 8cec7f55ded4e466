// Small parts of the main form's view: values that keep their place, captions, and sections that
// stand in as many rows as they need.
#pragma once

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QList>

#include "qt/binding/FormWindow.h"

namespace dorvane {

// The field of a control that only shows a value: without a frame, right-aligned, as wide as
// `widest`, so that nothing moves when the value changes. Its text can be selected.
QWidget* ReadOut(FormWindow& window, const Control& control, const QString& widest);
// The field of a typed number or text, as wide as `widest`.
QWidget* Entry(FormWindow& window, const Control& control, const QString& widest);
// A caption in small, quieter letters above or before a field.
QLabel* SmallCaption(const QString& text, Qt::Alignment alignment, QWidget* parent);
QFont SmallFont(const QFont& base);
QFrame* VerticalRule(QWidget* parent);

// Captions beside their fields, one below the other; what is meant by a field stands under it, in
// small letters. What is hidden takes no room.
class HintedFields {
 public:
  explicit HintedFields(FormWindow& window);
  // `field` is the widget of the control; `behind` stands behind it, if there is one.
  void Add(Control& control, QWidget* field, const Label* hint = nullptr,
           QWidget* behind = nullptr);
  // Without a caption, in the column of the fields.
  void AddBelow(QWidget* widget);
  // The caller puts it into a layout.
  QGridLayout* Layout() const { return grid_; }

 private:
  FormWindow& window_;
  QGridLayout* grid_;
};

// Sections beside one another with rules between them, in as many rows as the width asks for.
class SectionRow : public QWidget {
  Q_OBJECT

 public:
  SectionRow(const QList<QWidget*>& sections, QWidget* parent);
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return Arrange(width, false); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  // The height for a width; places the sections when it shall.
  int Arrange(int width, bool place) const;

  QList<QWidget*> sections_;
  QList<QFrame*> rules_;  // rule i stands before section i + 1
};

}  // namespace dorvane
