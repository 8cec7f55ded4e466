// The crystal library at work: choosable samples and the assignment of Miller indices to the peaks
// of a spectrum.
#pragma once

#include <string>
#include <vector>

#include "lattice/LatticeState.h"
#include "workspace/Workspace.h"

namespace dorvane {

// How much ClearCrystalData resets beside the calculated d values.
constexpr std::int16_t kClearMatches = 0;  // the match state and the line table
constexpr std::int16_t kClearSeeds = 1;    // the copy of the seeds only

// Sets the calculated d of all crystals to 0; hkl and line counts stay. Any other scope resets
// nothing more.
void ClearCrystalData(LatticeState& state, std::int16_t scope);

// Names in file order up to the first blank one, at most ten: the samples that can be chosen.
std::vector<std::string> CrystalNames(const CrystalLibrary& library);

// Indexes the peaks of spectrum `data_no` (0..9, otherwise nothing happens) with the lines of a
// crystal whose DCalc is filled: the first line in file order with |DCalc - d(peak)| below the
// judgment range, both bounds excluded, wins, whether or not a later line is nearer or the line is
// already taken. A peak that finds none gets Matched 0 and is else left as it is; an excluded peak
// is not touched. Faults (Subscript) pass for a crystal outside 0..30.
void MatchPeaks(LatticeState& state, const Workspace& workspace, int data_no, int crystal_index,
                const SeedCell& seed);

}  // namespace dorvane
