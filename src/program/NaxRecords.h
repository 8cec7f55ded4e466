// What both Nax fits write to the tables of a spectrum.
#pragma once

#include <cstdint>

#include "fitting/NaxPeak.h"
#include "workspace/Workspace.h"

namespace dorvane {

// The first row that holds the spectrum; -1 when it is in none.
int RowOfSpectrum(const Workspace& workspace, int data_no);

// The record of a fitted peak: a pure Gaussian without background; `engine` is a value of
// PeakRec::FitEngine.
PeakRec NaxRecord(const NaxPeak& peak, std::int16_t func_type, std::int16_t engine);

}  // namespace dorvane
