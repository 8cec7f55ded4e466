// What must hold for the readers whatever the bytes are; the fuzz targets and the replay of their
// corpus check it.
#pragma once

#include <algorithm>
#include <memory>

#include "files/FileDorvane.h"
#include "files/FileNPD.h"

namespace dorvane {

inline bool CountsHold(const ChannelBlock& block, const PeakTable& peaks) {
  return block.Count >= 0 && block.Count <= kMaxChannels && peaks.Count >= 0 &&
         peaks.Count <= kMaxPeaks;
}

// Readers answer or throw a Fault, counts stay within their tables, and what was read is written
// and read again the same.
inline bool NativeReadersHold(std::span<const std::byte> image) {
  const auto block = std::make_unique<ChannelBlock>();
  SpectrumRec record;
  PeakTable peaks;
  try {
    ParseXba(image, *block, record, peaks);
  } catch (const Fault&) {
    if (!CountsHold(*block, peaks)) return false;
  }
  try {
    ParseXbm(image, *block, record);
  } catch (const Fault&) {
    return CountsHold(*block, peaks);
  }
  const auto back = std::make_unique<ChannelBlock>();
  ParseXbm(XbmImage(*block, record), *back, record);
  return CountsHold(*block, peaks) && back->Count == block->Count &&
         std::ranges::equal(back->Used(), block->Used());
}

inline bool NpdReaderHolds(std::span<const std::byte> image) {
  const auto block = std::make_unique<ChannelBlock>();
  SpectrumRec record;
  try {
    ParseNpd(image, *block, record);
  } catch (const Fault&) {
    return CountsHold(*block, {});
  }
  const auto back = std::make_unique<ChannelBlock>();
  ParseNpd(NpdImage(*block, record), *back, record);
  return CountsHold(*block, {}) && *back == *block;
}

}  // namespace dorvane
