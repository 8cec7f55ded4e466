#include "qt/binding/MenuWidgets.h"

#include <QMenu>
#include <QMenuBar>

#include "qt/binding/Mirror.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

void FollowItem(const MenuItem& item, QAction* action) {
  const QString key = ToQString(item.Key());
  QString tip = ToQString(item.Tip());
  if (tip.isEmpty()) tip = PlainCaption(item);
  action->setText(ToQString(item.Caption()));
  action->setToolTip(key.isEmpty() ? tip : QString("%1 (%2)").arg(tip, key));
  action->setCheckable(item.Checkable());
  action->setChecked(item.Checked());
  action->setEnabled(item.Enabled());
  action->setVisible(item.Visible());
}

void FollowButton(const ToolButton& button, QAction* action) {
  const QString caption = ToQString(button.caption);
  action->setText(caption);
  action->setToolTip(button.tip.empty() ? caption : ToQString(button.tip));
  action->setCheckable(button.pressed);
  action->setChecked(button.pressed);
  action->setEnabled(button.enabled);
}

void FollowButtons(const ToolBar& bar, QToolBar* widget) {
  const QList<QAction*> actions = widget->actions();
  for (std::size_t i = 0; i < bar.Buttons().size(); ++i) {
    FollowButton(bar.Buttons()[i], actions[static_cast<qsizetype>(i)]);
  }
}

}  // namespace

QAction* MakeMenuAction(MenuItem& item, QAction* parent, QMainWindow& window) {
  auto* action = new QAction(&window);
  action->setObjectName(ToQString(item.Name()));
  if (!item.Key().empty()) action->setShortcut(QKeySequence(ToQString(item.Key())));
  if (parent == nullptr) {
    window.menuBar()->addAction(action);
  } else {
    if (parent->menu() == nullptr) {
      auto* menu = new QMenu(&window);
      menu->setToolTipsVisible(true);
      parent->setMenu(menu);
    }
    if (item.Separated()) parent->menu()->addSeparator();
    parent->menu()->addAction(action);
  }
  Mirror(item, action, [&item, action] { FollowItem(item, action); });
  QObject::connect(action, &QAction::triggered, action, [&item, action] {
    if (action->menu() == nullptr) item.Choose();
    FollowItem(item, action);
  });
  return action;
}

QToolBar* MakeToolBar(ToolBar& bar, const IconOfKey& icon, QWidget* parent) {
  auto* widget = new QToolBar(parent);
  widget->setWindowTitle(PlainCaption(bar));
  for (const ToolButton& button : bar.Buttons()) {
    const QString key = ToQString(button.key);
    auto* action = new QAction(widget);
    action->setObjectName(QString("%1_%2").arg(ToQString(bar.Name()), key));
    if (icon) action->setIcon(icon(bar, key));
    widget->addAction(action);
    QObject::connect(action, &QAction::triggered, widget, [&bar, widget, key] {
      bar.Press(ToUtf8(key));
      FollowButtons(bar, widget);
    });
  }
  Mirror(bar, widget, [&bar, widget] { FollowButtons(bar, widget); });
  return widget;
}

}  // namespace dorvane
