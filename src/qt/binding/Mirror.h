// How a widget follows its control: at once when it is made, and whenever the control has changed.
//
// Widgets write to their control only from what the user does (signals that code doesn't raise, or
// with signals blocked while they follow), so no change runs in a circle.
#pragma once

#include <QPointer>
#include <QWidget>
#include <utility>

#include "forms/Control.h"

namespace dorvane {

// Runs `follow` now and at each change of the control, as long as `widget` lives.
template <class Follow>
void Mirror(Control& control, QObject* widget, Follow follow) {
  follow();
  control.Shown.Connect([alive = QPointer<QObject>(widget), follow = std::move(follow)] {
    if (alive) follow();
  });
}

// A caption without the marks of its mnemonic.
QString PlainCaption(const Control& control);

// What every kind has in common: the name, enabled and visible state, tip, and the caption for
// assistive technology.
void MirrorState(Control& control, QWidget* widget);

}  // namespace dorvane
