// The ".raw" file of an angle-dispersive pattern from a diamond anvil cell, a text with an angle
// and a count to a line. The format stands in docs/formats/dac.md.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files/FileContext.h"
#include "workspace/SpectrumRec.h"
#include "workspace/Workspace.h"

namespace dorvane {

// -1 when it is through, else 0. Sets DataType and the type of the last file to 5, and the scale of
// angles. A file that cannot be opened ends in the box "Open Error", any other failure in "File
// Write Error"; record, channels and scale are then as they were.
std::int16_t ReadDacFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record, DacAngles& angles);

// The same on an image in memory. Channels that the file does not give are 0. Throws
// Fault(EndOfFile) for less than two lines, Fault(NotANumber), Fault(Overflow) for a count out of
// range and Fault(Subscript) for more than 8192 lines.
void ParseDac(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record,
              DacAngles& angles);

}  // namespace dorvane
