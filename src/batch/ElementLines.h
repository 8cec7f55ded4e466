// The table of element lines "element_lines.csv", as fluorescence lines for the simulation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "program/Simulation.h"

namespace dorvane {

// K-alpha 1 with the share as height, K-alpha 2 in the ratio that the averaged K-alpha energy of
// the table tells, and K-beta 1 with a fifth of K-alpha 1, about what elements from iron to lead
// have. `table` is the file's text. Throws UsageError for an element that the table doesn't have or
// without K lines.
std::vector<FluorescenceLine> KLinesOf(std::string_view table, std::string_view symbol,
                                       double share);

}  // namespace dorvane
