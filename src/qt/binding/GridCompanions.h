// What stands beside a grid: a button that copies it, and a second grid with the same rows.
#pragma once

#include <QPushButton>

#include "qt/binding/GridView.h"

namespace dorvane {

// "Copy", named cmdCopy: the whole table with its headings as tab-separated text.
QPushButton* CopyButton(const GridView* grid, QWidget* parent);

// Whichever is scrolled, both show the same rows; the right one has the scroll bar, and the left
// one does without the room for it (SetLeastRows). The caller gives them the same height.
void ScrollTogether(GridView* left, GridView* right);

}  // namespace dorvane
