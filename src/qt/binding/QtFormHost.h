// The screen as forms see it: shows each form in its window.
#pragma once

#include <QEventLoop>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "forms/Form.h"
#include "qt/binding/FormWindow.h"

namespace dorvane {

class FormViews;

// Made before the forms. When a form is hidden, the window that was active before it is so again.
// A form without a view isn't shown, and a modal one is over at once.
class QtFormHost : public FormHost {
 public:
  // Shows the window and raises it.
  void Show(Form& form) override;
  // Runs an event loop of its own until the form has been hidden.
  void ShowModal(Form& form) override;
  void Hide(Form& form) override;

 private:
  friend class FormViews;
  struct ModalLoop {
    const Form* form;
    QEventLoop* loop;
  };
  FormWindow* WindowOf(Form& form);
  void HideWindow(const Form& form, FormWindow& window);

  FormViews* views_ = nullptr;
  std::map<const Form*, QPointer<QWidget>> below_;  // active when the form came up
  std::vector<ModalLoop> loops_;
};

// The windows of the forms, made behind them and gone before them.
class FormViews {
 public:
  explicit FormViews(QtFormHost& host, IconOfKey icon = {});
  FormViews(const FormViews&) = delete;
  FormViews& operator=(const FormViews&) = delete;
  ~FormViews();

  // Says how a form is laid out; its window is made when it is first wanted.
  void Add(Form& form, FormWindow::Layout layout);
  // nullptr for a form that has not been added.
  FormWindow* WindowOf(Form& form);

 private:
  struct View {
    FormWindow::Layout layout;
    std::unique_ptr<FormWindow> window;
  };
  QtFormHost& host_;
  IconOfKey icon_;
  std::map<const Form*, View> views_;
};

}  // namespace dorvane
