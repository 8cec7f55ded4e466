// The command "simulate": a synthetic spectrum as .npd, and the truth that it was made from as
// .json beside it.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "program/Simulation.h"

namespace CLI {
class App;
}

namespace dorvane {

// As they are typed; empty texts stand for the defaults of SimulationRequest.
struct SimulateOptions {
  std::string crystal, crystal_file, out;
  std::optional<double> pressure, volume_ratio, counts;
  std::string cell, egc, width, exponential, hump, fluorescence, sources;
  SimulationRequest request;  // what is a plain number
  bool quiet = false;
  bool overwrite = false;
};

// Adds the subcommand with its options.
void AddSimulate(CLI::App& app, SimulateOptions& options);

// Exit status: 0 written, 1 failed with one line on `err`. Existing files are refused unless they
// may be overwritten. Throws UsageError for what the options ask for and cannot be.
int RunSimulate(const SimulateOptions& options, std::ostream& out, std::ostream& err);

}  // namespace dorvane
