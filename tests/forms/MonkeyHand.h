// What a user can do with a control: one of its gestures, chosen by the seed.
#pragma once

#include <functional>
#include <string>

#include "forms/ColorPatch.h"
#include "forms/ControlVisitor.h"
#include "forms/Controls.h"
#include "forms/Grid.h"
#include "forms/Menus.h"
#include "forms/MonkeyFiles.h"
#include "forms/PictureBox.h"

namespace dorvane {

// Texts that a user may type.
inline constexpr const char* kTypedTexts[] = {
    "",   "0",   "1",     "12",  "100",   "250",    "4096", "8191", "8192", "32767", "32768",
    "-1", "-20", "99999", "1e9", "1e300", "-1e300", "nan",  "inf",  "0.5",  "1e-9",  "12.5",
    "+7", "abc", "1 2",   "0x1", "1,5",   "LOG",    "高さ", "１２", ".",    "-",     "500"};

class MonkeyHand : public ControlVisitor {
 public:
  explicit MonkeyHand(Dice& dice) : dice_(dice) {}

  // Does it; answers what was done, told before in `telling`.
  std::function<void(const std::string&)> telling;

  void Visit(Button& button) override {
    Do("press", [&] { button.Press(); });
  }
  void Visit(CheckBox& box) override {
    const bool on = !box.Checked();
    Do(on ? "check" : "uncheck", [&] { box.SetChecked(on); });
  }
  void Visit(ColorPatch& patch) override {
    Do("press", [&] { patch.Press(); });
  }
  void Visit(ComboBox& box) override { ChooseIn(box); }
  void Visit(ListBox& box) override { ChooseIn(box); }
  void Visit(Frame&) override {}
  void Visit(Label&) override {}
  void Visit(Grid& grid) override {
    const int row = dice_.Below(grid.MaxRows() + 2);
    const int column = dice_.Below(grid.Columns() + 2);
    const bool on = dice_.OneIn(2);
    const std::string text = dice_.OneOf(kTypedTexts);
    const std::string cell = "cell " + std::to_string(row) + "," + std::to_string(column);
    switch (dice_.Below(4)) {
      case 0:
        return Do(cell + " double", [&] { grid.DoublePressCell(row, column); });
      case 1:
        return Do(cell + " check", [&] { grid.CheckCell(row, column, on); });
      case 2:
        return Do(cell + " edit " + text, [&] { grid.EditCell(row, column, text); });
      default:
        return Do(cell, [&] { grid.PressCell(row, column); });
    }
  }
  void Visit(MenuItem& item) override {
    Do("choose", [&] { item.Choose(); });
  }
  void Visit(NumberBox& box) override {
    if (box.ReadOnly()) return;
    const std::string text = Text();
    Do("type " + text, [&] {
      box.Type(text);
      box.Enter();
    });
  }
  void Visit(OptionGroup& group) override {
    const int index = dice_.Below(static_cast<int>(group.Captions().size()));
    if (!group.OptionEnabled(index)) return;
    Do("option " + std::to_string(index), [&] { group.SetIndex(index); });
  }
  void Visit(PictureBox& picture) override {
    const MouseAt at = Place();
    const int steps = dice_.Below(7) - 3;
    switch (dice_.Below(4)) {
      case 0:
        return Do("down", at, [&] {
          picture.MouseDown.Fire(at);
          picture.MouseUp.Fire(at);
        });
      case 1:
        return Do("move", at, [&] { picture.MouseMove.Fire(at); });
      case 2:
        return Do("double", at, [&] { picture.DblClick.Fire(at); });
      default:
        return Do("wheel " + std::to_string(steps), at, [&] { picture.Wheel.Fire(at, steps); });
    }
  }
  void Visit(ScrollBar& bar) override { MoveTo(bar); }
  void Visit(Slider& slider) override { MoveTo(slider); }
  void Visit(Splitter& splitter) override {
    const double share = dice_.Share();
    if (dice_.OneIn(3)) return Do("double", [&] { splitter.DoubleClick(); });
    Do("drag", [&] { splitter.SetShare(share); });
  }
  void Visit(Tabs& tabs) override {
    const int index = dice_.Below(static_cast<int>(tabs.Captions().size()));
    Do("tab " + std::to_string(index), [&] { tabs.SetIndex(index); });
  }
  void Visit(TextBox& box) override {
    if (box.ReadOnly()) return;
    const std::string text = Text();
    const bool enter = dice_.OneIn(2);
    Do("type " + text, [&] {
      box.SetText(text);
      if (enter) box.Enter();
      box.Leave();
    });
  }
  void Visit(Timer& timer) override {
    Do("tick", [&] { timer.Tick(); });
  }
  void Visit(ToggleButton& button) override {
    const bool down = !button.Pressed();
    Do(down ? "press down" : "release", [&] { button.SetPressed(down); });
  }
  void Visit(ToolBar& bar) override {
    const ToolButton& button = dice_.OneOf(bar.Buttons());
    if (!button.enabled) return;
    const std::string key = button.key;
    Do("press " + key, [&] { bar.Press(key); });
  }
  void Visit(UpDown& arrows) override {
    if (dice_.OneIn(2)) return Do("up", [&] { arrows.Up(); });
    Do("down", [&] { arrows.Down(); });
  }

  // A place on a picture, at times outside of it, with a button.
  MouseAt Place() {
    MouseAt at;
    at.x = dice_.OneIn(6) ? dice_.Share() * 3 - 1 : dice_.Share();
    at.y = dice_.OneIn(6) ? dice_.Share() * 3 - 1 : dice_.Share();
    at.button = dice_.OneIn(8) ? MouseButton::Right : MouseButton::Left;
    at.shift = dice_.OneIn(3);
    return at;
  }

 private:
  template <typename Gesture>
  void Do(const std::string& what, const Gesture& gesture) {
    telling(what);
    gesture();
  }
  template <typename Gesture>
  void Do(const std::string& what, const MouseAt& at, const Gesture& gesture) {
    Do(what + " at " + std::to_string(at.x), gesture);
  }
  void ChooseIn(ListControl& list) {
    const int index = dice_.Below(static_cast<int>(list.Items().size()) + 1) - 1;
    Do("item " + std::to_string(index), [&] { list.SetIndex(index); });
  }
  void MoveTo(RangeControl& control) {
    const int steps[] = {-control.LargeChange(), -control.SmallChange(), control.SmallChange(),
                         control.LargeChange()};
    const int anywhere = control.Minimum() + dice_.Below(control.Maximum() - control.Minimum() + 1);
    const int value = dice_.OneIn(3) ? anywhere : control.Value() + dice_.OneOf(steps);
    Do("to " + std::to_string(value), [&] { control.SetValue(value); });
  }
  // A text of the list, or a number as it could be meant.
  std::string Text() {
    return dice_.OneIn(2) ? dice_.OneOf(kTypedTexts) : std::to_string(dice_.Below(1200));
  }

  Dice& dice_;
};

}  // namespace dorvane
