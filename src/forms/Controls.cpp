#include "forms/Controls.h"

#include <algorithm>
#include <utility>

#include "forms/ControlVisitor.h"
#include "support/NumberText.h"

namespace dorvane {

void Label::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Frame::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Button::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void TextBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void NumberBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void CheckBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void ToggleButton::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void OptionGroup::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void ComboBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void ListBox::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Slider::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void ScrollBar::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void UpDown::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Tabs::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Splitter::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}
void Timer::Accept(ControlVisitor& visitor) {
  visitor.Visit(*this);
}

void TextBox::SetText(std::string text) {
  if (Store(text_, std::move(text))) Change.Fire();
}

bool TextBox::Leave() {
  if (Validate && !Validate()) return false;
  Left.Fire();
  return true;
}

NumberBox::NumberBox(ControlList& controls, std::string name, std::string picture,
                     std::string caption)
    : Control(controls, std::move(name), std::move(caption)), picture_(std::move(picture)) {}

void NumberBox::SetValue(double value) {
  if (Store(value_, value)) Change.Fire();
}

std::string NumberBox::Text() const {
  return Picture(value_, picture_);
}

void NumberBox::Type(const std::string& text) {
  const auto value = ParseByPicture(text, picture_);
  if (value && *value != value_ && text != Text()) {
    SetValue(*value);
  } else {
    Shown.Fire();
  }
}

void CheckBox::SetChecked(bool checked) {
  if (Store(checked_, checked)) Click.Fire();
}

void ToggleButton::SetPressed(bool pressed) {
  if (Store(pressed_, pressed)) Click.Fire();
}

OptionGroup::OptionGroup(ControlList& controls, std::string name, std::vector<std::string> captions)
    : Control(controls, std::move(name)),
      captions_(std::move(captions)),
      enabled_(captions_.size(), true) {}

void OptionGroup::SetIndex(int index) {
  if (index < -1 || index >= static_cast<int>(captions_.size())) return;
  if (Store(index_, index) && index >= 0) Click.Fire(index);
}

void OptionGroup::SetOptionEnabled(int index, bool enabled) {
  const auto place = static_cast<std::size_t>(index);
  if (enabled_.at(place) == enabled) return;
  enabled_[place] = enabled;
  Shown.Fire();
}

void ListControl::SetItems(std::vector<std::string> items) {
  if (items_ == items) return;
  items_ = std::move(items);
  if (index_ >= static_cast<int>(items_.size())) index_ = -1;
  Shown.Fire();
}

void ListControl::SetIndex(int index) {
  if (index < -1 || index >= static_cast<int>(items_.size())) return;
  if (Store(index_, index)) Click.Fire();
}

std::string ListControl::Text() const {
  return index_ < 0 ? "" : items_[static_cast<std::size_t>(index_)];
}

void ListBox::SetItems(std::vector<std::string> items) {
  const auto beyond =
      std::lower_bound(selected_.begin(), selected_.end(), static_cast<int>(items.size()));
  selected_.erase(beyond, selected_.end());
  ListControl::SetItems(std::move(items));
}

void ListBox::SetIndex(int index) {
  if (!several_) return ListControl::SetIndex(index);
  if (index == -1 || Has(index)) SetSelected({index});
}

void ListBox::SetSeveral(bool several) {
  if (several_ == several) return;
  several_ = several;
  selected_.clear();
  if (several && Index() >= 0) selected_ = {Index()};
  Shown.Fire();
}

std::vector<int> ListBox::Selected() const {
  if (several_ || Index() < 0) return selected_;
  return {Index()};
}

void ListBox::SetSelected(std::vector<int> indices) {
  std::erase_if(indices, [this](int index) { return !Has(index); });
  std::sort(indices.begin(), indices.end());
  indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
  const int first = indices.empty() ? -1 : indices.front();
  if (!several_) return ListControl::SetIndex(first);
  if (selected_ == indices) return;
  selected_ = std::move(indices);
  if (!StoreIndex(first)) Shown.Fire();
  Click.Fire();
}

void RangeControl::SetRange(int minimum, int maximum) {
  maximum = std::max(minimum, maximum);
  if (minimum == minimum_ && maximum == maximum_) return;
  minimum_ = minimum;
  maximum_ = maximum;
  Shown.Fire();
  SetValue(value_);
}

void RangeControl::SetSteps(int small_change, int large_change) {
  small_change_ = small_change;
  large_change_ = large_change;
  Shown.Fire();
}

void RangeControl::SetValue(int value) {
  if (Store(value_, std::clamp(value, minimum_, maximum_))) Change.Fire();
}

Tabs::Tabs(ControlList& controls, std::string name, std::vector<std::string> captions)
    : Control(controls, std::move(name)), captions_(std::move(captions)) {}

void Tabs::SetIndex(int index) {
  if (index < 0 || index >= static_cast<int>(captions_.size())) return;
  if (Store(index_, index)) Click.Fire();
}

void Splitter::SetShare(double share) {
  if (Store(share_, std::clamp(share, 0.0, 1.0))) Moved.Fire();
}

Timer::Timer(ControlList& controls, std::string name, int interval_ms)
    : Control(controls, std::move(name)), interval_ms_(interval_ms) {
  SetEnabled(false);
}

void Timer::Tick() {
  if (Enabled()) Ticked.Fire();
}

}  // namespace dorvane
