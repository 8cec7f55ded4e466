// One call for each kind of control: how whatever shows a form tells the kinds apart.
#pragma once

namespace dorvane {

class Button;
class CheckBox;
class ColorPatch;
class ComboBox;
class Frame;
class Grid;
class Label;
class ListBox;
class MenuItem;
class NumberBox;
class OptionGroup;
class PictureBox;
class ScrollBar;
class Slider;
class Splitter;
class Tabs;
class TextBox;
class Timer;
class ToggleButton;
class ToolBar;
class UpDown;

class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void Visit(Button&) = 0;
  virtual void Visit(CheckBox&) = 0;
  virtual void Visit(ColorPatch&) = 0;
  virtual void Visit(ComboBox&) = 0;
  virtual void Visit(Frame&) = 0;
  virtual void Visit(Grid&) = 0;
  virtual void Visit(Label&) = 0;
  virtual void Visit(ListBox&) = 0;
  virtual void Visit(MenuItem&) = 0;
  virtual void Visit(NumberBox&) = 0;
  virtual void Visit(OptionGroup&) = 0;
  virtual void Visit(PictureBox&) = 0;
  virtual void Visit(ScrollBar&) = 0;
  virtual void Visit(Slider&) = 0;
  virtual void Visit(Splitter&) = 0;
  virtual void Visit(Tabs&) = 0;
  virtual void Visit(TextBox&) = 0;
  virtual void Visit(Timer&) = 0;
  virtual void Visit(ToggleButton&) = 0;
  virtual void Visit(ToolBar&) = 0;
  virtual void Visit(UpDown&) = 0;
};

}  // namespace dorvane
