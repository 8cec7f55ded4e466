#include "forms/Menus.h"

#include <algorithm>
#include <utility>

#include "forms/ControlVisitor.h"

namespace dorvane {

MenuItem::MenuItem(ControlList& controls, std::string name, std::string caption, MenuItem* parent,
                   std::string key, bool separated)
    : Control(controls, std::move(name), std::move(caption)),
      parent_(parent),
      key_(std::move(key)),
      separated_(separated) {}

void MenuItem::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void MenuItem::SetChecked(bool checked) {
  const bool was_checkable = std::exchange(checkable_, true);
  if (!Store(checked_, checked) && !was_checkable) Shown.Fire();
}

std::string WithoutMnemonic(std::string_view text) {
  std::string plain;
  for (const char c : text) plain += c == '&' ? "&&" : std::string(1, c);
  return plain;
}

ToolBar::ToolBar(ControlList& controls, std::string name, std::vector<ToolButton> buttons)
    : Control(controls, std::move(name)), buttons_(std::move(buttons)) {}

void ToolBar::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

const ToolButton* ToolBar::Find(std::string_view key) const {
  const auto found = std::find_if(buttons_.begin(), buttons_.end(),
                                  [key](const ToolButton& each) { return each.key == key; });
  return found == buttons_.end() ? nullptr : &*found;
}

bool ToolBar::ButtonEnabled(std::string_view key) const {
  const ToolButton* button = Find(key);
  return button != nullptr && button->enabled;
}

bool ToolBar::ButtonPressed(std::string_view key) const {
  const ToolButton* button = Find(key);
  return button != nullptr && button->pressed;
}

void ToolBar::Set(std::string_view key, bool ToolButton::*field, bool value) {
  const ToolButton* button = Find(key);
  if (button == nullptr) return;
  Store(buttons_[static_cast<std::size_t>(button - buttons_.data())].*field, value);
}

void ToolBar::SetButtonEnabled(std::string_view key, bool enabled) {
  Set(key, &ToolButton::enabled, enabled);
}

void ToolBar::SetButtonPressed(std::string_view key, bool pressed) {
  Set(key, &ToolButton::pressed, pressed);
}

void ToolBar::SetButtonTip(std::string_view key, std::string tip) {
  const ToolButton* button = Find(key);
  if (button == nullptr) return;
  Store(buttons_[static_cast<std::size_t>(button - buttons_.data())].tip, std::move(tip));
}

}  // namespace dorvane
