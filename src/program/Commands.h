// The table of commands: one row from key to operation, for menus, keys, tool bars, the batch
// program and tests alike.
#pragma once

#include <functional>
#include <span>
#include <string_view>

#include "program/Program.h"

namespace dorvane {

// The short handbook, which ships with the program, and how "Help" names it.
inline constexpr std::string_view kReadMeFileName = "ReadMe.txt";
inline constexpr std::string_view kReadMeText = "Please read 'ReadMe.txt'";

struct Command {
  std::string_view
      key;  // what a tool bar button is called, or the name of a menu entry without a key
  std::string_view menu;  // name of the menu entry that does the same; empty where there is none
  void (*run)(Program&);
};

std::span<const Command> Commands();

// The row of a key or of a menu entry; nullptr where none has that name.
const Command* FindCommand(std::string_view name);

// Runs a command behind the boundary at which faults stop: a fault is shown in a plain box with its
// text, and the state stays as it was at that moment. A name that no row has does nothing. False
// after a fault.
bool RunCommand(Program& program, std::string_view name);
// The same for any operation.
bool RunGuarded(Program& program, const std::function<void(Program&)>& run);

}  // namespace dorvane
