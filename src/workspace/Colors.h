// The colour table: names of its entries, and the two tables that ship.
#pragma once

#include "workspace/Workspace.h"

namespace dorvane {

// Entries of the colour table past the ten curves.
constexpr int kColorRoiText = 10;
constexpr int kColorRoiLine = 11;
constexpr int kColorElementMark = 12;
constexpr int kColorPeakMark = 13;
constexpr int kColorPeakCurve = 14;
constexpr int kColorFitCurve = 15;
constexpr int kColorZansa = 16;
constexpr int kColorBaseForm = 17;
constexpr int kColorWindowBack = 18;  // and 19 for window 1
constexpr int kColorExpandArea = 20;
constexpr int kColorGrid = 21;
constexpr int kColorAxis = 22;  // tick lines and labels
constexpr int kColorCursor = 23;
constexpr int kColorArea = 24;  // area cursor

// Curves told apart by colour-blind eyes (after Okabe and Ito, Color Universal Design, 2008),
// darkened or lightened for the ground: near white and near black.
ColorTable LightColors();
ColorTable DarkColors();

// Whether the ground of a table is dark, by the relative luminance of its window 1 back colour.
bool HasDarkGround(const ColorTable& colors);

}  // namespace dorvane
