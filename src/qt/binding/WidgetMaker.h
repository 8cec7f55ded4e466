// The one place that makes the widget of each kind of control and binds it, in both directions.
#pragma once

#include <QMainWindow>
#include <map>

#include "forms/Control.h"
#include "forms/ControlVisitor.h"
#include "qt/binding/MenuWidgets.h"

namespace dorvane {

class WidgetMaker : private ControlVisitor {
 public:
  // New widgets stand on `holder` until a view lays them out; menus hang on the window.
  WidgetMaker(QMainWindow& window, QWidget* holder, IconOfKey icon);

  // The widget of the control, its action (a menu entry) or its timer, named as the control is.
  QObject* Make(Control& control);

 private:
  void Visit(Button& control) override;
  void Visit(CheckBox& control) override;
  void Visit(ColorPatch& control) override;
  void Visit(ComboBox& control) override;
  void Visit(Frame& control) override;
  void Visit(Grid& control) override;
  void Visit(Label& control) override;
  void Visit(ListBox& control) override;
  void Visit(MenuItem& control) override;
  void Visit(NumberBox& control) override;
  void Visit(OptionGroup& control) override;
  void Visit(PictureBox& control) override;
  void Visit(ScrollBar& control) override;
  void Visit(Slider& control) override;
  void Visit(Splitter& control) override;
  void Visit(Tabs& control) override;
  void Visit(TextBox& control) override;
  void Visit(Timer& control) override;
  void Visit(ToggleButton& control) override;
  void Visit(ToolBar& control) override;
  void Visit(UpDown& control) override;
  void Keep(Control& control, QWidget* widget);

  QMainWindow& window_;
  QWidget* holder_;
  IconOfKey icon_;
  std::map<const MenuItem*, QAction*> menus_;
  QObject* made_ = nullptr;
};

}  // namespace dorvane
