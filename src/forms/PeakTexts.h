// What the dialogs that take peaks by hand have in common: a typed channel, and the count under the
// cursor.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "program/Program.h"

namespace dorvane {

// A typed channel: a number from 0 to 8192; nothing for any other text.
std::optional<double> ChannelNumberOf(std::string_view text);

// The count of a spectrum at the cursor; nothing where the cursor is outside of it.
std::optional<std::int32_t> CursorCount(const Program& program, int data_no);

}  // namespace dorvane
