// Option groups, combo and list boxes, tabs.
#pragma once

#include <QWidget>

#include "forms/Controls.h"

namespace dorvane {

// A column of radio buttons, "optName_0" and so on.
QWidget* MakeOptionWidget(OptionGroup& control, QWidget* parent);
QWidget* MakeComboWidget(ComboBox& control, QWidget* parent);
// Enter does what a double click does.
QWidget* MakeListWidget(ListBox& control, QWidget* parent);
// An empty page for each tab, "tabName_0" and so on.
QWidget* MakeTabWidget(Tabs& control, QWidget* parent);

}  // namespace dorvane
