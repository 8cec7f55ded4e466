// What the status line says beside the system's own bare messages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/Program.h"

namespace dorvane {

// What to do next after a message; empty where its text says enough.
std::string HintFor(std::string_view message, const Workspace& workspace);

// How an open of these files went: files that were not read, and those past the tenth.
std::string OpenSummary(const Workspace& workspace, const std::vector<std::string>& chosen);

// The current spectrum's peaks, "12 peaks, 12 fitted".
std::string PeakSummary(const Program& program);

}  // namespace dorvane
