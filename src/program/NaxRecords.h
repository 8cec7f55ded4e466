// What both Nax fits write to the tables of a spectrum.
#pragma once

#include <cstdint>

#include "fitting/NaxPeak.h"
#include "workspace/Workspace.h"

namespace dorvane {

// The first row that holds the spectrum; -1 when it is in none.
int RowOfSpectrum(const Workspace& workspace, int data_no);

// The record of a peak fitted to a spectrum: a pure Gaussian without background, its type that of
// the settings; `engine` is a value of PeakRec::FitEngine. Errors are zeros unless the counts
// scatter as counted ones.
PeakRec NaxRecord(const Workspace& workspace, int data_no, const NaxPeak& peak,
                  std::int16_t engine);

}  // namespace dorvane
