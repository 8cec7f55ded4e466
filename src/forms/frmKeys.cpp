#include "forms/frmKeys.h"

#include <algorithm>
#include <array>

#include "forms/KeyTable.h"
#include "forms/MenuTable.h"

namespace dorvane {
namespace {

struct MouseRow {
  std::string_view shown;
  std::string_view what;
};
constexpr std::array kMouse{
    MouseRow{"Click", "Cursor to the channel under the pointer"},
    MouseRow{"Drag", "Moves the cursor; marks the area and moves its edges; moves the range mark"},
    MouseRow{"Wheel", "Zooms about the pointer"},
    MouseRow{"Shift+Wheel", "Scrolls"},
    MouseRow{"Wheel on the count axis", "Larger or smaller curves"},
    MouseRow{"Double click on the count axis", "The height that fits"},
    MouseRow{"Double click on the unit axis", "The whole spectrum"},
};
constexpr std::array kPlaces{
    MouseRow{"Escape", "Stops a long operation; in a box, takes back what is typed"},
    MouseRow{"Up, Down on the divider", "Heights of the windows"},
    MouseRow{"Space on the divider", "Closes or opens the lower window"},
};

void AddRow(Grid& grid, std::string_view key, std::string_view what) {
  const int row = grid.MaxRows() + 1;
  grid.SetMaxRows(row);
  grid.SetText(row, frmKeys::kKey, std::string(key));
  grid.SetText(row, frmKeys::kWhat, std::string(what));
}

bool InKeyTable(std::string_view key) {
  return std::any_of(KeyTable().begin(), KeyTable().end(),
                     [key](const KeyRow& row) { return row.shown == key; });
}

}  // namespace

frmKeys::frmKeys(FormHost& host) : Form(host, "frmKeys", "Keys and mouse") {
  for (const KeyRow& row : KeyTable()) AddRow(sprKeys, row.shown, row.what);
  for (const MenuRow& row : MenuTable()) {
    if (!row.key.empty() && !InKeyTable(row.key)) AddRow(sprKeys, row.key, TipOf(row));
  }
  for (const MouseRow& row : kPlaces) AddRow(sprKeys, row.shown, row.what);
  for (const MouseRow& row : kMouse) AddRow(sprKeys, row.shown, row.what);
  cmdOk.Click.Connect([this] { Hide(); });
}

}  // namespace dorvane
