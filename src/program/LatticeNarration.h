// What a lattice work tells its log at its beginning and after a calculation, for the form and for
// the batch program alike.
#pragma once

#include <span>
#include <string>

#include "lattice/LatticeLog.h"
#include "program/LatticeRun.h"

namespace dorvane {

// The banner, the properties of spectrum `data_no` (0..13) and its peaks.
LogRecords OpeningRecords(const Workspace& workspace, int data_no);
// The same without the banner, after a change of the angle.
LogRecords PeakRecords(const Workspace& workspace, int data_no);

// A calculation that has succeeded.
struct CalculationStory {
  LatticeMode mode = LatticeMode::Sample;
  SeedRecord sample;
  std::int16_t data_type = 0;  // of the spectrum
  std::span<const MatchedRow> rows;
  ResultBoxes boxes;
  double two_theta = 0;  // degrees
  std::string pressure_text;
  std::string temp_text;
  std::int16_t unit_index = 0;  // 0 degrees Celsius, else kelvin
};

// The seeds and the lines against them, the lines against the refined cell, the result, and in
// marker mode the pressure of a sample that the log has a heading for.
LogRecords CalculationRecords(const CalculationStory& story);

// A whole work that has been done in one go, told as the form tells it where the same is done by
// hand and calculated once: `report` is what RunLattice has answered to `request` for spectrum
// `data_no` and left in `state`. A refinement that has failed is not told.
LogRecords WorkRecords(const LatticeState& state, const Workspace& workspace, int data_no,
                       const LatticeRequest& request, const LatticeReport& report);

}  // namespace dorvane
