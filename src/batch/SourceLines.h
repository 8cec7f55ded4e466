// Gamma lines of the radioactive sources with which detectors are calibrated, for the simulation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/Simulation.h"

namespace dorvane {

// The lines of a source such as "Am-241", its strongest one with the share as height. X-rays of
// daughter atoms are fluorescence lines. Throws UsageError, which lists the names, for others.
std::vector<FluorescenceLine> SourceLinesOf(std::string_view source, double share);

// "Am-241, Cd-109, Co-57".
std::string SourceNames();

}  // namespace dorvane
