// The 664-byte image of MeasProp, which the native spectrum files and the parameter file share.
#pragma once

#include "support/Bytes.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

constexpr std::size_t kPropImageSize = 664;

// Reads the image at the reader's position. Throws Fault(EndOfFile) when it is cut; the fields in
// front of the cut are set.
void ReadPropImage(ByteReader& image, MeasProp& prop);

// Appends the image.
void WritePropImage(ByteWriter& image, const MeasProp& prop);

}  // namespace dorvane
