// The standard errors of the peak report as texts, for its cells and for their own CSV file.
#pragma once

#include <array>
#include <string>

#include "program/EditText.h"
#include "workspace/Workspace.h"

namespace dorvane {

// The standard errors of a row of the report.
enum PeakErrorColumn {
  kErrorPeakCh,
  kErrorPeakUnit,
  kErrorIntensity,
  kErrorFwhmCh,
  kErrorFwhmKeV,
  kErrorGaussPercent,
  kPeakErrorColumns
};
using PeakErrorTexts = std::array<std::string, kPeakErrorColumns>;

// The columns' headings, as those of the values.
PeakErrorTexts PeakErrorHeadings(int unit);
// Three significant digits at most; empty where an error is unknown. The errors in the unit and in
// keV are those of channels, carried over by the calibration: half of what lies between the value
// with its error taken off and added.
PeakErrorTexts PeakErrorsOf(const Workspace& workspace, const PeakRec& peak, const MeasProp& source,
                            int unit);
bool AnyErrorKnown(const PeakTable& table);

// The errors in as many lines of eight fields: centre as channel number, the six errors
// (PeakErrorsOf), "E" or "N".
PeakText BuildPeakErrorLines(const Workspace& workspace, int data_no, int unit);

}  // namespace dorvane
