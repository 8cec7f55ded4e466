// Text and number boxes.
#pragma once

#include <QWidget>

#include "forms/Controls.h"

namespace dorvane {

// One line or several, as the control says when it is bound. Lines of a typed text end in CR LF.
// When the control refuses to let the focus go, the focus comes back, and the press of the mouse
// that took it has no other effect.
QWidget* MakeTextWidget(TextBox& control, QWidget* parent);

// What is typed counts from Enter on or when the focus goes; until then a change from code leaves
// it alone unless the value itself has changed, and Escape, or the next time the window is shown,
// takes it back.
QWidget* MakeNumberWidget(NumberBox& control, QWidget* parent);

}  // namespace dorvane
