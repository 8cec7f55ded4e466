#include "qt/views/MainInput.h"

#include <QDropEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>
#include <optional>

#include "qt/binding/Text.h"

namespace dorvane {
namespace {

std::vector<std::string> LocalFiles(const QMimeData& data) {
  std::vector<std::string> paths;
  for (const QUrl& url : data.urls()) {
    if (url.isLocalFile()) paths.push_back(ToUtf8(url.toLocalFile()));
  }
  return paths;
}

struct ToolkitKey {
  int key;
  bool pad;
  FormKey form_key;
};
constexpr ToolkitKey kKeys[] = {
    {Qt::Key_Left, false, FormKey::Left},
    {Qt::Key_Right, false, FormKey::Right},
    {Qt::Key_Up, false, FormKey::Up},
    {Qt::Key_Down, false, FormKey::Down},
    {Qt::Key_Plus, true, FormKey::PadPlus},
    {Qt::Key_Minus, true, FormKey::PadMinus},
    {Qt::Key_Period, true, FormKey::PadDecimal},  // as the layout has it
    {Qt::Key_Comma, true, FormKey::PadDecimal},
};

// Some desktops count the arrows among the key pad.
std::optional<FormKey> FormKeyOf(const QKeyEvent& event) {
  const bool pad = event.modifiers().testFlag(Qt::KeypadModifier);
  for (const ToolkitKey& row : kKeys) {
    if (row.key == event.key() && (pad || !row.pad)) return row.form_key;
  }
  return {};
}

std::optional<KeyModifier> ModifierOf(const QKeyEvent& event) {
  switch (event.modifiers() & ~Qt::KeypadModifier) {
    case Qt::NoModifier:
      return KeyModifier::None;
    case Qt::ShiftModifier:
      return KeyModifier::Shift;
    case Qt::AltModifier:
      return KeyModifier::Alt;
    default:
      return {};
  }
}

}  // namespace

MainInput::MainInput(frmDorvane& form, FormWindow& window)
    : QObject(&window), form_(form), window_(window) {
  window.setAcceptDrops(true);
  window.installEventFilter(this);
  for (QWidget* widget : window.findChildren<QWidget*>()) widget->installEventFilter(this);
}

bool MainInput::eventFilter(QObject* watched, QEvent* event) {
  auto* widget = qobject_cast<QWidget*>(watched);
  if (widget == nullptr) return false;
  switch (event->type()) {
    case QEvent::KeyPress:
      return KeyPressed(widget, *static_cast<QKeyEvent*>(event));
    case QEvent::DragEnter: {
      auto* drag = static_cast<QDragEnterEvent*>(event);
      if (LocalFiles(*drag->mimeData()).empty()) return false;
      drag->acceptProposedAction();
      return true;
    }
    case QEvent::Drop: {
      auto* drop = static_cast<QDropEvent*>(event);
      const std::vector<std::string> paths = LocalFiles(*drop->mimeData());
      if (paths.empty()) return false;
      drop->acceptProposedAction();
      form_.Drop(paths);
      return true;
    }
    default:
      return false;
  }
}

bool MainInput::KeyPressed(QWidget* widget, const QKeyEvent& event) {
  if (widget->window() != &window_) return false;
  const bool leaves = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
                      event.key() == Qt::Key_Escape;
  if (leaves && qobject_cast<QLineEdit*>(widget) != nullptr) {
    if (event.key() == Qt::Key_Escape) TakeBackTyped();
    QMetaObject::invokeMethod(
        this, [this] { FocusGraph(); }, Qt::QueuedConnection);
    return false;
  }
  const auto key = FormKeyOf(event);
  const auto modifier = ModifierOf(event);
  return key && modifier && form_.Form_KeyDown(*key, *modifier, window_.ControlOf(widget));
}

// The number boxes do so themselves.
void MainInput::TakeBackTyped() {
  form_.scale.Refresh();
  form_.calibration.Refresh();
}

void MainInput::FocusGraph() {
  window_.Of(form_.graphs.picGraph[form_.graphs.ActiveWindow()])->setFocus();
}

}  // namespace dorvane
