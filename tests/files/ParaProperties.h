// What must hold for the readers of the parameter file and the settings file whatever the bytes
// are; the fuzz targets and the replay of their corpus check it.
#pragma once

#include <algorithm>
#include <cmath>

#include "files/FilePara.h"

namespace dorvane {

// A file that is too short gives nothing; of a longer one every byte behind the mark that was read
// is written again as it was.
inline bool ParaReaderHolds(std::span<const std::byte> image) {
  constexpr std::size_t kMarkSize = 2;
  for (const std::int16_t skip_last_prop : {0, 1}) {
    const ByteVector nothing = ParaImage(ParaBlock{}, skip_last_prop);
    ParaBlock block;
    try {
      ParsePara(image, skip_last_prop, block);
    } catch (const Fault&) {
      if (image.size() >= nothing.size() || !(block == ParaBlock{})) return false;
      continue;
    }
    const ByteVector back = ParaImage(block, skip_last_prop);
    if (back.size() != nothing.size() || back.size() > image.size()) return false;
    if (!std::ranges::equal(std::span(back).subspan(kMarkSize),
                            image.subspan(kMarkSize, back.size() - kMarkSize))) {
      return false;
    }
  }
  return true;
}

// Whatever is read is finite, and once printed it is read and printed again the same. Numbers near
// the largest are left out: 15 digits of them can be above it.
inline bool IniReaderHolds(std::span<const std::byte> image) {
  constexpr double kLargest = 1e308;
  IniBlock block;
  ParseIni(image, block);
  for (const double value : {block.Settings.BgCoef, block.Settings.PeakWidthCh,
                             block.Settings.DacWavelength, block.Settings.JudgeRange}) {
    if (!std::isfinite(value)) return false;
    if (std::abs(value) > kLargest) return true;
  }
  const ByteVector once = IniImage(block);
  IniBlock back;
  ParseIni(once, back);
  return back.FilterIndex == block.FilterIndex && IniImage(back) == once;
}

}  // namespace dorvane
