// The table of known lines for the command "calibrate": comma-separated, its first line naming the
// columns.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace dorvane {

struct KnownLine {
  std::optional<double> channel;  // channel number where it is looked for; none: by its energy
  double energy_kev = 0;
  std::string name;
};

// The rows of a table in UTF-8 with the column "energy_keV" and, if wanted, "channel" and "name",
// in any order; other columns and blank lines are passed over, a channel may be left empty. Fields
// may be quoted as RFC 4180 has it; a line break in a name becomes a blank. Throws BatchError, with
// the number of the line, where that is not so, for an energy that is not above 0, and for no row
// or more than 30.
std::vector<KnownLine> ParseLineTable(std::string_view text);

}  // namespace dorvane
