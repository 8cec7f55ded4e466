// When the buttons and entries of the main form can be used: one row for each rule.
#pragma once

#include <string_view>

#include "program/Program.h"

namespace dorvane {

// Whether all rules allow a button, by its tool bar and its key, a menu entry, by "menu" and its
// name, or another control, by "form" and its name. What no rule names is allowed.
bool Allowed(const Program& program, std::string_view place, std::string_view name);

}  // namespace dorvane
