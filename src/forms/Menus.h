// Menu entries and tool bars: what they are called, whether they are on, pressed or checked, and
// their events.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "forms/Control.h"

namespace dorvane {

// An entry of a menu, or a menu when others hang below it.
class MenuItem : public Control {
 public:
  // `key` is a key sequence as "Ctrl+O"; empty for none. A separated entry stands below a line.
  MenuItem(ControlList& controls, std::string name, std::string caption, MenuItem* parent = nullptr,
           std::string key = "", bool separated = false);
  void Accept(ControlVisitor& visitor) override;
  MenuItem* Parent() const { return parent_; }
  const std::string& Key() const { return key_; }
  bool Separated() const { return separated_; }
  bool Checkable() const { return checkable_; }
  bool Checked() const { return checked_; }
  void SetChecked(bool checked);  // makes it checkable; no event
  void Choose() { Click.Fire(); }
  Event<> Click;

 private:
  MenuItem* parent_;
  std::string key_;
  bool separated_;
  bool checkable_ = false;
  bool checked_ = false;
};

// A text in which "&" stands for itself, not for a mnemonic.
std::string WithoutMnemonic(std::string_view text);

struct ToolButton {
  std::string key{};
  std::string caption{};
  std::string tip{};
  bool enabled = true;
  bool pressed = false;
};

class ToolBar : public Control {
 public:
  ToolBar(ControlList& controls, std::string name, std::vector<ToolButton> buttons);
  void Accept(ControlVisitor& visitor) override;
  const std::vector<ToolButton>& Buttons() const { return buttons_; }
  // False for a key without a button.
  bool ButtonEnabled(std::string_view key) const;
  bool ButtonPressed(std::string_view key) const;
  // All three are ignored for a key without a button.
  void SetButtonEnabled(std::string_view key, bool enabled);
  void SetButtonPressed(std::string_view key, bool pressed);
  void SetButtonTip(std::string_view key, std::string tip);
  void Press(std::string_view key) { ButtonClick.Fire(key); }
  Event<std::string_view> ButtonClick;

 private:
  const ToolButton* Find(std::string_view key) const;
  void Set(std::string_view key, bool ToolButton::*field, bool value);

  std::vector<ToolButton> buttons_;
};

}  // namespace dorvane
