// Readers and writers of spectrum files by extension.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileContext.h"
#include "workspace/PeakRec.h"
#include "workspace/SpectrumRec.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Where the parts of a file go, or come from. A format takes those that it has.
struct FileParts {
  ChannelBlock& block;
  SpectrumRec& record;
  PeakTable& peaks;
  DacAngles& angles;
};

// Extensions are told without their dot; upper and lower case are the same.

// One of digits alone is a file of a measurement series, whatever it holds. -1 when read; 0,
// without a message, for an extension that no reader takes.
std::int16_t ReadByExtension(FileContext& context, const std::string& path, const FileParts& parts);
// -1 when written; 0, without a message, for an extension that no writer takes.
std::int16_t WriteByExtension(FileContext& context, const std::string& path,
                              const FileParts& parts);

bool CanRead(std::string_view extension);
bool CanWrite(std::string_view extension);

// The kinds of files that can be read, for a message: ".npd, .cnf, ... or a number".
std::string ReadableKinds();
// The extensions that can be written, in the order of the table.
std::vector<std::string> WritableExtensions();

}  // namespace dorvane
