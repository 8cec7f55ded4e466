// The ".gsa" export of a spectrum for structure refinement, a text of 80 columns. The format stands
// in docs/formats/gsas.md.
#pragma once

#include <cstdint>
#include <string>

#include "files/FileContext.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// Asks before it replaces a file. -1 when written; 0 after No and after a failure: "Open Error"
// where the file cannot be opened, else "File Write Error".
std::int16_t WriteGsaFile(FileContext& context, const std::string& path, const ChannelBlock& block,
                          const SpectrumRec& record);

// The same into memory. Throws Fault(Subscript) for a channel count outside 0..8192.
ByteVector GsaImage(const ChannelBlock& block, const SpectrumRec& record);

}  // namespace dorvane
