// What the status line says beside the system's own bare messages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/Program.h"

namespace dorvane {

enum class FileUse { Read, Write };

// What to do next after a message or a question; empty where its text says enough. `use`: what is
// done with the file that it is about.
std::string HintFor(std::string_view message, const Workspace& workspace,
                    FileUse use = FileUse::Read);

// Which files were not read, empty for none; where one is of a kind that no reader takes, also the
// kinds that there are.
std::string NotReadText(const std::vector<std::string>& paths);

// The current spectrum's peaks, "12 peaks, 12 fitted".
std::string PeakSummary(const Program& program);

}  // namespace dorvane
