// One spectrum file read without a window.
#pragma once

#include <memory>
#include <string>

#include "files/FormatTable.h"
#include "support/FileLayer.h"

namespace dorvane {

// A spectrum as its file gives it; the parts that the format lacks are empty.
struct SpectrumFile {
  ChannelBlock block;
  SpectrumRec record;
  PeakTable peaks;
  DacAngles angles;

  FileParts Parts() { return {block, record, peaks, angles}; }
};

// Throws BatchError, with the reason, for a path that no spectrum can be read from, without reading
// its content.
void CheckReadable(FileLayer& files, const std::string& path);

// Reads a file by its extension. Throws BatchError with the reason where that fails.
std::unique_ptr<SpectrumFile> ReadSpectrumFile(FileLayer& files, const std::string& path);

}  // namespace dorvane
