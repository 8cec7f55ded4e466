// What must hold for the readers of analyser files and of angle-dispersive files whatever the bytes
// are; the fuzz targets and the replay of their corpus check it.
#pragma once

#include <algorithm>
#include <cmath>
#include <memory>

#include "files/FileDAC.h"
#include "files/FileGenie.h"
#include "files/FileOrtec.h"
#include "files/ReaderProperties.h"

namespace dorvane {

// Counts that fill at most the seven columns of a report with a blank or a sign in front.
inline bool FitsReport(const ChannelBlock& block) {
  return std::ranges::all_of(block.Used(),
                             [](std::int32_t n) { return n > -1'000'000 && n < 10'000'000; });
}

// What was read is written, and its counts are read again the same.
inline bool RptReaderHolds(std::span<const std::byte> image) {
  const auto block = std::make_unique<ChannelBlock>();
  SpectrumRec record;
  try {
    ParseRpt(image, *block, record);
  } catch (const Fault&) {
    return CountsHold(*block, {});
  }
  if (!CountsHold(*block, {})) return false;
  if (!FitsReport(*block)) return true;
  const auto back = std::make_unique<ChannelBlock>();
  SpectrumRec record_back;
  ParseRpt(RptImage(*block, record), *back, record_back);
  return *back == *block;
}

// An image of neither layout changes nothing; channel 0 has its count twice.
inline bool CnfReaderHolds(std::span<const std::byte> image) {
  const auto block = std::make_unique<ChannelBlock>();
  SpectrumRec record;
  try {
    if (!ParseCnf(image, *block, record)) return block->Count == 0 && record == SpectrumRec{};
  } catch (const Fault&) {
    return true;
  }
  return block->Count == 4096 && block->Counts[0] == block->Counts[1];
}

inline bool ChnReaderHolds(std::span<const std::byte> image) {
  const auto block = std::make_unique<ChannelBlock>();
  SpectrumRec record;
  try {
    ParseChn(image, *block, record);
  } catch (const Fault&) {
    return CountsHold(*block, {});
  }
  const EgcCoef& egc = record.Prop.EGC;
  return CountsHold(*block, {}) && image.size() >= 32 + 4 * block->Used().size() + 12 &&
         std::isfinite(egc[0]) && std::isfinite(egc[1]) && egc[2] == 0;
}

inline bool DacReaderHolds(std::span<const std::byte> image) {
  const auto block = std::make_unique<ChannelBlock>();
  SpectrumRec record;
  DacAngles angles;
  try {
    ParseDac(image, *block, record, angles);
  } catch (const Fault&) {
    return CountsHold(*block, {});
  }
  return block->Count >= 4096 && block->Count < kMaxChannels && record.DataType == kDacData &&
         std::isfinite(angles.DacAngleOffset) && std::isfinite(angles.DacAngleSlope);
}

}  // namespace dorvane
