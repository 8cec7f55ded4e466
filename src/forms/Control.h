// A control of a form as a value: name, caption, enabled and visible state, and the notice for what
// shows it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "support/Event.h"

namespace dorvane {

class Control;
class ControlVisitor;

// The controls of one form by their names, in the order in which they were made.
class ControlList {
 public:
  void Add(Control& control) { controls_.push_back(&control); }
  const std::vector<Control*>& All() const { return controls_; }
  // nullptr where no control has that name.
  Control* Find(std::string_view name) const;

 private:
  std::vector<Control*> controls_;
};

class Control {
 public:
  // `name` is the control's own, with "_7" behind it for element 7 of an array. The list outlives
  // the control.
  Control(ControlList& controls, std::string name, std::string caption = "");
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  virtual void Accept(ControlVisitor& visitor) = 0;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  bool Enabled() const { return enabled_; }
  bool Visible() const { return visible_; }
  const std::string& Tip() const { return tip_; }
  void SetCaption(std::string caption);
  void SetEnabled(bool enabled);
  void SetVisible(bool visible);
  void SetTip(std::string tip);

  // What a widget shows of the control has changed, by the user or by the program.
  Event<> Shown;

 protected:
  // Stores a new value and tells the widget. False when it is equal to the old one.
  template <typename T>
  bool Store(T& place, T value) {
    if (place == value) return false;
    place = std::move(value);
    Shown.Fire();
    return true;
  }

 private:
  std::string name_;
  std::string caption_;
  std::string tip_;
  bool enabled_ = true;
  bool visible_ = true;
};

}  // namespace dorvane
