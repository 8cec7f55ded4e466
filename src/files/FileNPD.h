// The NPD file, the plain text in which laboratories exchange one spectrum. The format stands in
// docs/formats/npd.md.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files/FileContext.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// Operations on a path answer -1 when they are through, else 0. A failure of the file system, a
// text that is no number where one stands, a file that ends too early and a count out of range end
// in the box "Open Error".

// Zeroes all channels, sets DataType and the type of the last file to 4, then takes the fields line
// by line. After a failure the fields taken so far stay and the channel count is not set.
std::int16_t ReadNpdFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record);

// Asks before it replaces a file; 0 after No. MsuName, OpName and SampName of the record come back
// trimmed.
std::int16_t WriteNpdFile(FileContext& context, const std::string& path, const ChannelBlock& block,
                          SpectrumRec& record);

// The same on images in memory. ParseNpd throws Fault(NotANumber), Fault(EndOfFile),
// Fault(Overflow) for numbers too large for their width, Fault(BadArgument) for a negative data
// length and Fault(Subscript) for more than 8192 channels; NpdImage throws Fault(Subscript) for a
// channel count outside 0..8192.
void ParseNpd(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record);
ByteVector NpdImage(const ChannelBlock& block, const SpectrumRec& record);

}  // namespace dorvane
