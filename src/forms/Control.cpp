#include "forms/Control.h"

#include <algorithm>
#include <utility>

namespace dorvane {

Control* ControlList::Find(std::string_view name) const {
  const auto found = std::find_if(controls_.begin(), controls_.end(),
                                  [name](const Control* each) { return each->Name() == name; });
  return found == controls_.end() ? nullptr : *found;
}

Control::Control(ControlList& controls, std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {
  controls.Add(*this);
}

void Control::SetCaption(std::string caption) {
  Store(caption_, std::move(caption));
}
void Control::SetEnabled(bool enabled) {
  Store(enabled_, enabled);
}
void Control::SetVisible(bool visible) {
  Store(visible_, visible);
}
void Control::SetTip(std::string tip) {
  Store(tip_, std::move(tip));
}

}  // namespace dorvane
