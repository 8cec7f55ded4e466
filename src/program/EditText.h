// The peak table and the properties of a spectrum as lines of text, for the CSV file and for a
// page.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "workspace/Workspace.h"

namespace dorvane {

// A number of the peak table as a cell shows it: seven significant digits at most, no padding.
std::string CellNumber(double value);

// Width of a peak in d (angstrom): the d of its lower half-height point less that of its upper one.
// 0 without a detector angle.
double WidthInD(const Workspace& workspace, const PeakRec& peak, const MeasProp& source);

// UTF-8, without line ends.
struct PeakText {
  std::string header;
  std::vector<std::string> peaks;  // in the order of the table
};

// Nine fields separated by commas: centre as channel number and in the unit, height, width (FWHM)
// in channels, in the unit and in d, area, share of the Gaussian in percent, "E" or "N" for the
// engine. Each number is filled with blanks to the digits of its picture before the point. The
// calibration is the one that UseFileEgc picks.
PeakText BuildPeakLines(const Workspace& workspace, int data_no, int unit);

// UTF-8.
struct PropLine {
  std::string label;  // for a column of its own
  std::string text;
};
constexpr int kPropLines = 14;

// The measurement of a spectrum: names, date, comment, times, angle, pressure, temperature, ion
// chamber, ring current and count rate. A date or a time that isn't whole is
// shown as it stands.
std::array<PropLine, kPropLines> BuildPropLines(const Workspace& workspace, int data_no);

}  // namespace dorvane
