// What the batch program prints and writes of its analyses: tables for people, CSV and JSON for
// programs.
#pragma once

#include <span>
#include <string>

#include "batch/Analysis.h"

namespace dorvane {

// "2 0 0".
std::string HklText(const Hkl& hkl);

// Value and standard error as crystallographers write them, "4.7597(13)": one or two digits of the
// error, which counts in the value's last places. "4.7597" where the error is 0 or no number.
std::string CompactValue(double value, double error);

// Crystal, cell, V/V0 and pressure in one line; empty without a crystal.
std::string HeadLine(const Analysis& analysis);

// The peaks in columns, then the cell, the pressure and the notes, for a terminal. Lines end in LF.
std::string TableText(const Analysis& analysis);

// The peaks as comma-separated values with a heading; with `file` as first column where it is
// wanted. What a peak doesn't have stays empty. Lines end in `line_end`.
std::string PeakCsv(const Analysis& analysis, bool with_file, std::string_view line_end);
std::string PeakCsvHeading(bool with_file, std::string_view line_end);

// One analysis as a JSON object; several as an array.
std::string LatticeJson(const Analysis& analysis);
std::string LatticeJson(std::span<const Analysis* const> analyses);

}  // namespace dorvane
