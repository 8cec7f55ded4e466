// A patch of one colour, or of none, that can be pressed.
#pragma once

#include <optional>

#include "forms/Control.h"
#include "support/Surface.h"

namespace dorvane {

// One of several is shown as the selected.
class ColorPatch : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  std::optional<Color> Fill() const { return fill_; }
  // The tip names its components.
  void SetFill(std::optional<Color> fill);
  bool Selected() const { return selected_; }
  void SetSelected(bool selected) { Store(selected_, selected); }
  void Press() { Click.Fire(); }
  Event<> Click;

 private:
  std::optional<Color> fill_;
  bool selected_ = false;
};

}  // namespace dorvane
