// What the status line says beside the system's own bare messages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/Program.h"

namespace dorvane {

enum class FileUse { Read, Write };

// What to do next after a message or a question; empty where its text says enough. `use`: what was
// being done with a file when it came up.
std::string HintFor(std::string_view message, const Workspace& workspace,
                    FileUse use = FileUse::Read);

// How an open of these files went: files that were not read, those of a kind that no reader takes,
// and those past the tenth.
std::string OpenSummary(const Workspace& workspace, const std::vector<std::string>& chosen);

// The current spectrum's peaks, "12 peaks, 12 fitted".
std::string PeakSummary(const Program& program);

}  // namespace dorvane
