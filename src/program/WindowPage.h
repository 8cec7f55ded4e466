// A graph window on a page of its own: on paper in black, with the properties of a spectrum below
// it; as a picture in the colours of the screen.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "program/Program.h"
#include "support/Page.h"

namespace dorvane {

struct WindowSheet {
  int win_no = 0;
  int data_no = 0;            // the spectrum whose properties stand below the graph
  std::string title;          // above the graph
  std::int16_t dot_size = 1;  // width of the curves in pixels, and channels from dot to dot
};

// The window of the current graph, by the name of its file: the active window, or the other one
// where the active one is empty. Nothing where no graph is open.
std::optional<WindowSheet> CurrentSheet(const Program& program);

// The window's curves, marks and regions as they are shown, both axes, and the property lines: side
// by side in two columns where the sheet is wider than high.
void DrawWindowSheet(Program& program, const WindowSheet& sheet, Page& page);

// The same without property lines; the names of the curves stand in their colours at the upper
// right.
void DrawWindowPicture(Program& program, int win_no, Page& page);

}  // namespace dorvane
