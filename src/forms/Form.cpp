#include "forms/Form.h"

#include <utility>

namespace dorvane {

Form::Form(FormHost& host, std::string name, std::string caption)
    : host_(host), name_(std::move(name)), caption_(std::move(caption)) {}

void Form::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Shown.Fire();
}

void Form::SetTopMost(bool top_most) {
  if (top_most == top_most_) return;
  top_most_ = top_most;
  Shown.Fire();
}

void Form::Show() {
  visible_ = true;
  host_.Show(*this);
  Shown.Fire();
}

void Form::ShowModal() {
  visible_ = true;
  Shown.Fire();
  host_.ShowModal(*this);
  visible_ = false;
}

void Form::Hide() {
  if (!visible_) return;
  visible_ = false;
  host_.Hide(*this);
  Shown.Fire();
}

}  // namespace dorvane
