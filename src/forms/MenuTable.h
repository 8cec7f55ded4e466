// The menus of the main form: one row for each entry.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "program/Program.h"

namespace dorvane {

// Tip of an entry that stands there without an action.
constexpr std::string_view kNoActionTip = "Has no action";

// Command of a menu that hangs below another one.
constexpr std::string_view kSubmenu = ">";
constexpr bool kSeparated = true;

struct MenuRow {
  std::string_view name;
  std::string_view caption;
  std::string_view parent;   // empty: a menu of the menu bar
  std::string_view key;      // key sequence; empty for none
  std::string_view command;  // key of the command; empty: the entry's own name
  std::string_view tip;
  bool (*checked)(const Program&);  // nullptr: no check mark
  bool separated = false;           // a line stands before the entry
};

std::span<const MenuRow> MenuTable();
inline bool IsMenu(const MenuRow& row) {
  return row.parent.empty() || row.command == kSubmenu;
}
inline std::string_view CommandOf(const MenuRow& row) {
  return row.command.empty() ? row.name : row.command;
}
// The first entry of a command; nullptr where no menu has it.
const MenuRow* EntryOf(std::string_view command);
// The tip, or the caption where there is none; and the same with the key behind it.
std::string TipOf(const MenuRow& row);
std::string TipWithKey(const MenuRow& row);

}  // namespace dorvane
