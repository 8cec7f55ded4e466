// What must hold for the reader of the crystal library whatever the bytes are; the fuzz target and
// the replay of its corpus check it.
#pragma once

#include <algorithm>
#include <cmath>
#include <span>
#include <string_view>

#include "lattice/CrystalFile.h"

namespace dorvane {

// Every crystal read has at most 101 lines and finite numbers; a fault tells its line.
inline bool CrystalReaderHolds(std::span<const std::byte> image) {
  CrystalLibrary library;
  try {
    library = ReadCrystalFile(AsText(image));
  } catch (const Fault& fault) {
    return std::string_view(fault.what()).find("line ") != std::string_view::npos;
  }
  if (library.CrystalCount > kMaxCrystals) return false;
  const auto finite = [](double value) { return std::isfinite(value); };
  return std::ranges::all_of(library.CrystalTable, [&](const CrystalRec& crystal) {
    return crystal.LineCount >= 0 && crystal.LineCount <= kMaxCrystalLines &&
           std::ranges::all_of(crystal.Lat, finite) && std::ranges::all_of(crystal.Ang, finite);
  });
}

}  // namespace dorvane
