// The program's own spectrum files: ".xbm" (record and channels), ".xba" (the same and the peak
// table), and the text exports ".xta" and ".csv". The formats stand in docs/formats/native.md.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "files/FileContext.h"
#include "workspace/PeakRec.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {

// Operations on a path answer -1 when they are through, else 0. A failure of the file system, a cut
// file and a count out of range end in the box "Open Error"; what a reader has taken by then stays,
// but a count never tells of more than was read.

// Sets DataType and the type of the last file to 1, whatever the file holds.
std::int16_t ReadXbm(FileContext& context, const std::string& path, ChannelBlock& block,
                     SpectrumRec& record);
// The peak table is read where the record's SaveFlag is 1, else it stays as it is.
std::int16_t ReadXba(FileContext& context, const std::string& path, ChannelBlock& block,
                     SpectrumRec& record, PeakTable& peaks);

// Asks before it replaces a file, but for "temp00.xbm" and extensions that end in a digit; 0 after
// No. Bytes of an old file past the new end stay. Lets the Fault of a failed opening pass.
std::int16_t WriteXbm(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record);
// Asks before it replaces any file. The peak table goes in where the record's SaveFlag is 1. Bytes
// of an old file past the new end stay.
std::int16_t WriteXba(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record, const PeakTable& peaks);
// Replaces without a question.
std::int16_t WriteXta(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record);
// Conditions, then channel, energy and count. Replaces without a question; a failure ends in the
// box "CSV File Write Error".
std::int16_t WriteCsv(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record);

// The same on images in memory. Throw Fault(EndOfFile) for a cut image and Fault(Subscript) for a
// channel count outside 0..8192 or a peak count outside 0..100.
void ParseXbm(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record);
void ParseXba(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record,
              PeakTable& peaks);
ByteVector XbmImage(const ChannelBlock& block, const SpectrumRec& record);
ByteVector XbaImage(const ChannelBlock& block, const SpectrumRec& record, const PeakTable& peaks);
ByteVector XtaImage(const ChannelBlock& block, const SpectrumRec& record);
ByteVector CsvImage(const ChannelBlock& block, const SpectrumRec& record);

}  // namespace dorvane
