// A form: its controls under their own names, shown and hidden through the host that has the
// screen.
#pragma once

#include <string>

#include "forms/Control.h"
#include "support/Event.h"

namespace dorvane {

class Form;

// Whoever has the screen. A form under test has a scripted one.
class FormHost {
 public:
  virtual ~FormHost() = default;
  virtual void Show(Form& form) = 0;
  // Returns when the form has been hidden.
  virtual void ShowModal(Form& form) = 0;
  virtual void Hide(Form& form) = 0;
};

class Form {
 public:
  // `name` is the form's own; the host outlives the form.
  Form(FormHost& host, std::string name, std::string caption);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& Name() const { return name_; }
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  bool Visible() const { return visible_; }
  bool TopMost() const { return top_most_; }
  void SetTopMost(bool top_most);

  void Show();
  void ShowModal();
  void Hide();
  // The user closes the form by its frame. Most forms hide; one that must not go overrides it.
  virtual void QueryClose() { Hide(); }

  ControlList& Controls() { return controls_; }

  Event<> Shown;  // caption, visible or top-most state have changed

 protected:
  ControlList controls_;

 private:
  FormHost& host_;
  std::string name_;
  std::string caption_;
  bool visible_ = false;
  bool top_most_ = false;
};

}  // namespace dorvane
