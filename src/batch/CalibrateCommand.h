// The command "calibrate": an energy calibration from the peaks of a reference spectrum.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>

#include "batch/Analysis.h"
#include "program/EnergyCalibration.h"

namespace CLI {
class App;
}

namespace dorvane {

struct CalibrateOptions {
  std::string file;
  std::string lines;  // the table of known lines
  CalibForm form = CalibForm::Line;
  double within = 20;  // channels from where a line is looked for to its peak
  FitEngine engine = FitEngine::Nax;
  std::optional<std::string> store;  // parameter file that takes the coefficients
  bool quiet = false;
};

// Adds the subcommand with its options.
void AddCalibrate(CLI::App& app, CalibrateOptions& options);

// Exit status: 0 calibrated, and stored where that was asked; 1 where a line has no peak (the
// others are fitted and listed, nothing is stored) or the whole fails, told on `err`.
int RunCalibrate(FileLayer& files, const CalibrateOptions& options, std::ostream& out,
                 std::ostream& err);

}  // namespace dorvane
