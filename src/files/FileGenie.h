// Files of a multichannel analyser: the report ".rpt", a text, and the binary ".cnf". The formats
// stand in docs/formats/report.md and docs/formats/cnf.md.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files/FileContext.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// Operations on a path answer -1 when they are through, else 0. A file that cannot be opened ends
// in the box "Open Error", a failure behind that in "File Error"; record and channels are then as
// they were.

// Sets DataType and the type of the last file to 3.
std::int16_t ReadRptFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record);
// Asks before it replaces a file; 0 after No.
std::int16_t WriteRptFile(FileContext& context, const std::string& path, const ChannelBlock& block,
                          const SpectrumRec& record);
// Sets DataType and the type of the last file to 3. A file that is not there, or is of neither
// layout, ends in the box "Fine NotFound".
std::int16_t ReadCnfFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record);

// The same on images in memory.
//
// ParseRpt throws Fault(NotANumber), Fault(EndOfFile), Fault(Overflow) for a count out of range,
// Fault(Subscript) for a channel count outside 0..8192 and Fault(BadArgument) for counts that run
// on behind the last channel. RptImage throws Fault(Subscript) for a channel count out of range.
void ParseRpt(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record);
ByteVector RptImage(const ChannelBlock& block, const SpectrumRec& record);

// False, with nothing changed, where the image is of neither layout. Throws Fault(EndOfFile) for a
// cut image and Fault(NotANumber) for a text that is none.
bool ParseCnf(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record);

}  // namespace dorvane
