// A graph window of the main form: picture with its axes, the line above that tells the current
// spectrum, and the list of curves beside it.
#pragma once

#include "forms/frmDorvane.h"
#include "qt/binding/FormWindow.h"

namespace dorvane {

// Fills the widget of fraGraph and answers it.
QWidget* LayOutGraph(frmDorvane& form, FormWindow& window, int win_no);

}  // namespace dorvane
