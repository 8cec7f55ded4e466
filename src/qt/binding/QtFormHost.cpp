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
  window->show();
  window->raise();
  window->activateWindow();
}

void QtFormHost::ShowModal(Form& form) {
  const QPointer<FormWindow> window = WindowOf(form);
  if (!window || !form.Visible()) return;
  const QWidget* below = QApplication::activeWindow();
  window->hide();
  window->setWindowModality(Qt::ApplicationModal);
  window->winId();
  if (below != nullptr && below != window) {
    window->windowHandle()->setTransientParent(below->windowHandle());
  }
  QEventLoop loop;
  loops_.push_back({&form, &loop});
  Show(form);
  loop.exec();
  loops_.pop_back();
  if (!window) return;
  window->hide();
  window->setWindowModality(Qt::NonModal);
}

void QtFormHost::Hide(Form& form) {
  if (FormWindow* window = WindowOf(form)) window->hide();
  for (const ModalLoop& each : loops_) {
    if (each.form == &form) each.loop->quit();
  }
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
