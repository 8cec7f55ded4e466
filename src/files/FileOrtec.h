// The binary ".chn" file of a multichannel analyser. The format stands in docs/formats/chn.md.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files/FileContext.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// -1 when it is through, else 0. A file that cannot be opened ends in the box "Open Error", a cut
// one in "File Error"; record and channels are then as they were. DataType and the type of the last
// file stay as they are.
std::int16_t ReadChnFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record);

// The same on an image in memory: counts of at most 8192 channels and EGC. Throws
// Fault(EndOfFile) for a cut image and Fault(Overflow) for coefficients that are no finite numbers.
void ParseChn(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record);

}  // namespace dorvane
