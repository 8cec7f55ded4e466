#include "qt/binding/QtFormHost.h"

#include <QApplication>
#include <QPointer>
#include <QWindow>

namespace dorvane {

FormWindow* QtFormHost::WindowOf(Form& form) {
  return views_ == nullptr ? nullptr : views_->WindowOf(form);
}

void QtFormHost::Show(Form& form) {
  FormWindow* window = WindowOf(form);
  if (window == nullptr) return;
  if (QWidget* active = QApplication::activeWindow(); active != window) below_[&form] = active;
  window->show();
  window->raise();
  window->activateWindow();
}

void QtFormHost::ShowModal(Form& form) {
  const QPointer<FormWindow> window = WindowOf(form);
  if (!window || !form.Visible()) return;
  const QWidget* active = QApplication::activeWindow();
  window->hide();
  window->setWindowModality(Qt::ApplicationModal);
  window->winId();
  if (active != nullptr && active != window) {
    window->windowHandle()->setTransientParent(active->windowHandle());
  }
  QEventLoop loop;
  loops_.push_back({&form, &loop});
  Show(form);
  loop.exec();
  loops_.pop_back();
  if (!window) return;
  HideWindow(form, *window);
  window->setWindowModality(Qt::NonModal);
}

void QtFormHost::Hide(Form& form) {
  if (FormWindow* window = WindowOf(form)) HideWindow(form, *window);
  for (const ModalLoop& each : loops_) {
    if (each.form == &form) each.loop->quit();
  }
}

void QtFormHost::HideWindow(const Form& form, FormWindow& window) {
  const bool was_active = window.isActiveWindow();
  window.hide();
  const QPointer<QWidget> below = below_[&form];
  if (was_active && below && below->isVisible()) below->activateWindow();
}

FormViews::FormViews(QtFormHost& host, IconOfKey icon) : host_(host), icon_(std::move(icon)) {
  host_.views_ = this;
}

FormViews::~FormViews() {
  host_.views_ = nullptr;
}

void FormViews::Add(Form& form, FormWindow::Layout layout) {
  views_[&form].layout = std::move(layout);
}

FormWindow* FormViews::WindowOf(Form& form) {
  const auto found = views_.find(&form);
  if (found == views_.end()) return nullptr;
  View& view = found->second;
  if (!view.window) view.window = std::make_unique<FormWindow>(form, view.layout, icon_);
  return view.window.get();
}

}  // namespace dorvane
