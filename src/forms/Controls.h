// The plain kinds of controls: buttons, boxes, lists, sliders and the like.
//
// Setting a different value from code fires the change event at once, as a user does; setting an
// equal one does nothing. A widget hands what the user does to the same calls; that of a control
// that is off takes nothing from a user.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "forms/Control.h"

namespace dorvane {

class Label : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  // Shown in the tone of a warning.
  bool Warning() const { return warning_; }
  void SetWarning(bool warning) { Store(warning_, warning); }

 private:
  bool warning_ = false;
};

// A captioned box about other controls.
class Frame : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
};

class Button : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  void Press() { Click.Fire(); }
  Event<> Click;
};

class TextBox : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  const std::string& Text() const { return text_; }
  void SetText(std::string text);
  bool ReadOnly() const { return read_only_; }
  void SetReadOnly(bool read_only) { Store(read_only_, read_only); }
  bool SeveralLines() const { return several_lines_; }
  void SetSeveralLines(bool several) { Store(several_lines_, several); }
  void Enter() { EnterPressed.Fire(); }
  // The focus is about to go; answers whether it may.
  bool Leave();

  Event<> Change;
  Event<> EnterPressed;
  Event<> Left;                    // the focus has been let go
  std::function<bool()> Validate;  // empty: every text may be left

 private:
  std::string text_;
  bool read_only_ = false;
  bool several_lines_ = false;
};

// A number shown in a picture, such as "##0.000"; it is kept whole behind what is shown of it.
class NumberBox : public Control {
 public:
  NumberBox(ControlList& controls, std::string name, std::string picture, std::string caption = "");
  void Accept(ControlVisitor& visitor) override;
  double Value() const { return value_; }
  void SetValue(double value);
  const std::string& NumberPicture() const { return picture_; }
  void SetPicture(std::string picture) { Store(picture_, std::move(picture)); }
  std::string Text() const;  // the value in its picture
  // A typed text. What is no number is ignored, and the old value shows again; the text that is
  // shown already keeps the value to the last bit.
  void Type(const std::string& text);
  bool ReadOnly() const { return read_only_; }
  void SetReadOnly(bool read_only) { Store(read_only_, read_only); }
  void Enter() { EnterPressed.Fire(); }

  Event<> Change;
  Event<> EnterPressed;

 private:
  std::string picture_;
  double value_ = 0;
  bool read_only_ = false;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);
  Event<> Click;

 private:
  bool checked_ = false;
};

// A button that stays down until it is pressed again.
class ToggleButton : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  bool Pressed() const { return pressed_; }
  void SetPressed(bool pressed);
  Event<> Click;

 private:
  bool pressed_ = false;
};

// Options of which one is on; its options are optName_0, optName_1 and so on for a widget.
class OptionGroup : public Control {
 public:
  OptionGroup(ControlList& controls, std::string name, std::vector<std::string> captions);
  void Accept(ControlVisitor& visitor) override;
  const std::vector<std::string>& Captions() const { return captions_; }
  int Index() const { return index_; }
  void SetIndex(int index);  // -1: none is on
  bool OptionEnabled(int index) const { return enabled_.at(static_cast<std::size_t>(index)); }
  void SetOptionEnabled(int index, bool enabled);
  Event<int> Click;

 private:
  std::vector<std::string> captions_;
  std::vector<bool> enabled_;
  int index_ = 0;
};

// A list of texts of which one is selected: combo box and list box.
class ListControl : public Control {
 public:
  using Control::Control;
  const std::vector<std::string>& Items() const { return items_; }
  // Keeps the selected index where it still exists, else nothing is selected; no event.
  virtual void SetItems(std::vector<std::string> items);
  int Index() const { return index_; }
  virtual void SetIndex(int index);  // -1: nothing is selected; beyond the items it is ignored
  std::string Text() const;          // of the selected item, else empty
  // One for each item; empty while no item has one.
  const std::vector<std::string>& ItemTips() const { return item_tips_; }
  void SetItemTips(std::vector<std::string> tips) { Store(item_tips_, std::move(tips)); }
  Event<> Click;

 protected:
  bool Has(int index) const { return index >= 0 && index < static_cast<int>(items_.size()); }
  bool StoreIndex(int index) { return Store(index_, index); }

 private:
  std::vector<std::string> items_;
  std::vector<std::string> item_tips_;
  int index_ = -1;
};

class ComboBox : public ListControl {
 public:
  using ListControl::ListControl;
  void Accept(ControlVisitor& visitor) override;
};

class ListBox : public ListControl {
 public:
  using ListControl::ListControl;
  void Accept(ControlVisitor& visitor) override;
  void SetItems(std::vector<std::string> items) override;
  void SetIndex(int index) override;
  // Whether several items may be selected at a time; Index is the first of them then. At most one
  // stays selected when it is set to false.
  bool Several() const { return several_; }
  void SetSeveral(bool several);
  // Indices of the selected items, ascending.
  std::vector<int> Selected() const;
  // In any order; those beyond the items are left out. Where one may be selected, the first is.
  void SetSelected(std::vector<int> indices);
  void DoubleClick() { DblClick.Fire(); }
  Event<> DblClick;

 private:
  bool several_ = false;
  std::vector<int> selected_;  // ascending; of a list with Several
};

// An integer in a range: slider, scroll bar, up/down button.
class RangeControl : public Control {
 public:
  using Control::Control;
  int Value() const { return value_; }
  int Minimum() const { return minimum_; }
  int Maximum() const { return maximum_; }
  int SmallChange() const { return small_change_; }
  int LargeChange() const { return large_change_; }
  void SetRange(int minimum, int maximum);  // the value is limited to it
  void SetSteps(int small_change, int large_change);
  void SetValue(int value);  // limited to the range
  Event<> Change;

 private:
  int value_ = 0;
  int minimum_ = 0;
  int maximum_ = 100;
  int small_change_ = 1;
  int large_change_ = 10;
};

class Slider : public RangeControl {
 public:
  using RangeControl::RangeControl;
  void Accept(ControlVisitor& visitor) override;
};

class ScrollBar : public RangeControl {
 public:
  using RangeControl::RangeControl;
  void Accept(ControlVisitor& visitor) override;
  // LargeChange is what is in sight: a user scrolls no further than the maximum less that.
  bool ShowsPage() const { return shows_page_; }
  void SetShowsPage(bool shows) { Store(shows_page_, shows); }

 private:
  bool shows_page_ = false;
};

// Two arrows; each press is an event of its own, whatever the value is.
class UpDown : public RangeControl {
 public:
  using RangeControl::RangeControl;
  void Accept(ControlVisitor& visitor) override;
  void Up() { UpClick.Fire(); }
  void Down() { DownClick.Fire(); }
  Event<> UpClick;
  Event<> DownClick;
};

class Tabs : public Control {
 public:
  Tabs(ControlList& controls, std::string name, std::vector<std::string> captions);
  void Accept(ControlVisitor& visitor) override;
  const std::vector<std::string>& Captions() const { return captions_; }
  int Index() const { return index_; }
  void SetIndex(int index);
  Event<> Click;

 private:
  std::vector<std::string> captions_;
  int index_ = 0;
};

// A divider that the user drags: its place as the share 0..1 of the upper part.
class Splitter : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  double Share() const { return share_; }
  void SetShare(double share);
  void DoubleClick() { DblClick.Fire(); }
  Event<> Moved;
  Event<> DblClick;

 private:
  double share_ = 0.5;
};

// Calls back while it is on. Whoever shows the form gives the ticks.
class Timer : public Control {
 public:
  Timer(ControlList& controls, std::string name, int interval_ms);
  void Accept(ControlVisitor& visitor) override;
  int IntervalMs() const { return interval_ms_; }
  void Tick();
  Event<> Ticked;

 private:
  int interval_ms_;
};

}  // namespace dorvane
