// The peak report on paper: a title, the name of the measurement, and the peaks in columns, on as
// many sheets as they need.
#pragma once

#include <string>

#include "program/EditText.h"
#include "support/Page.h"

namespace dorvane {

struct PeakSheets {
  std::string measurement;  // UTF-8
  PeakText lines;           // fields separated by commas, as BuildPeakLines gives them
};

// The report of a spectrum, its second column in a unit.
PeakSheets PeakSheetsOf(const Workspace& workspace, int data_no, int unit);

// Sheets of this size that the report takes; at least 1. Each holds the same number of peaks, and
// one at the least.
int PeakSheetCount(const PeakSheets& report, const PictureSize& size);

// Draws sheet `sheet_no`, from 0: title, measurement and header stand on each, the number of the
// sheet at the foot where there are several. The letters shrink until the columns fit the width.
// A sheet that the report doesn't have shows no peaks.
void DrawPeakSheet(const PeakSheets& report, Page& page, int sheet_no);

}  // namespace dorvane
