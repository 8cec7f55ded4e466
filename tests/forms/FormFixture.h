// A host without a screen for forms under test.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "forms/Form.h"

namespace dorvane {

// A modal form is worked by the next function of the script until it has hidden the form; one that
// nobody expected, and one that never came, fail the test.
class ScriptedFormHost : public FormHost {
 public:
  ~ScriptedFormHost() override {
    if (!script_.empty()) ADD_FAILURE() << script_.size() << " modal forms never shown";
  }

  void ExpectModal(std::function<void(Form&)> work) { script_.push_back(std::move(work)); }
  const std::vector<std::string>& Shown() const { return shown_; }

  void Show(Form& form) override { shown_.push_back(form.Name()); }
  void Hide(Form&) override {}
  void ShowModal(Form& form) override {
    shown_.push_back(form.Name());
    if (script_.empty()) {
      ADD_FAILURE() << "modal form not expected: " << form.Name();
      form.Hide();
      return;
    }
    const auto work = std::move(script_.front());
    script_.pop_front();
    work(form);
    if (form.Visible()) {
      ADD_FAILURE() << "modal form not hidden: " << form.Name();
      form.Hide();
    }
  }

 private:
  std::deque<std::function<void(Form&)>> script_;
  std::vector<std::string> shown_;
};

}  // namespace dorvane
