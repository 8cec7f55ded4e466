// What the lattice form says where its graph has no peaks to work with.
#pragma once

#include <string>

#include "workspace/Workspace.h"

namespace dorvane {

// Where peaks are instead: in graphs of the same window, else of the other, with their numbers of
// peaks, two by name; how to get some where no graph has any. Empty where the graph of the row
// (0..9) has peaks.
std::string PeakHint(const Workspace& workspace, int grp_no);

}  // namespace dorvane
