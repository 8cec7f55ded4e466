// Layouts on the house's grid of 4 pixels: columns and rows, fields with their units, a row of
// buttons.
#pragma once

#include <QBoxLayout>
#include <QGridLayout>
#include <QString>
#include <initializer_list>

#include "qt/binding/FormWindow.h"

namespace dorvane {

inline constexpr int kGap = 8;      // pixels between fields
inline constexpr int kMargin = 12;  // pixels along the edge of a window

// The column that fills the window.
QVBoxLayout* WindowColumn(FormWindow& window);
// The column inside a frame, a page or the part of a splitter.
QVBoxLayout* InnerColumn(QWidget* parent);
QHBoxLayout* RowOf(std::initializer_list<QWidget*> widgets);
// Buttons of one width at the right end.
QHBoxLayout* ButtonRow(const FormWindow& window, std::initializer_list<const Button*> buttons);

// Fields below one another: captions, fields and units each in a column of their own.
class FieldColumns {
 public:
  explicit FieldColumns(FormWindow& window);
  // `widest` is the longest text that the field must show whole; the field fills the column when it
  // is empty.
  void Add(Control& control, const QString& widest = "", const QString& unit = "");
  // The caller puts it into a layout.
  QGridLayout* Layout() const { return grid_; }

 private:
  FormWindow& window_;
  QGridLayout* grid_;
};

}  // namespace dorvane
