// Menu entries and tool bars as actions of a window.
#pragma once

#include <QAction>
#include <QIcon>
#include <QMainWindow>
#include <QToolBar>
#include <functional>

#include "forms/Menus.h"

namespace dorvane {

// The icon of a tool bar's button by its key; an empty one where there is none, and the button
// shows its caption.
using IconOfKey = std::function<QIcon(const ToolBar& bar, const QString& key)>;

// An entry below `parent`, or a menu of the window's menu bar where that is null. The tip ends in
// the key.
QAction* MakeMenuAction(MenuItem& item, QAction* parent, QMainWindow& window);

// Not yet on the window. Its buttons are actions named "tlbName_Key".
QToolBar* MakeToolBar(ToolBar& bar, const IconOfKey& icon, QWidget* parent);

}  // namespace dorvane
