// What the peak report does to the program: peaks changed by hand with the curve that follows from
// them, and the table as a CSV file.
#pragma once

#include <cstdint>
#include <string>

#include "program/Program.h"

namespace dorvane {

// Gives the spectrum of a row another peak table, with its marks, and calculates the curve of row 0
// anew, which becomes "Fit" with the same table. The peaks are put in the order of their centres; a
// table that differs leaves the row unsaved. A row that is itself the first one keeps its counts
// unless it is a fit. The current row stays.
void ReplacePeaks(Program& program, int win_no, int grp_no, PeakTable table);

// The name that a save of the report proposes: the raw graph's title before its first ".", that of
// the row itself or else the first of the list, then "_", the row's number from 1, "FitParam.csv";
// without a raw graph "FitParam.csv".
std::string ProposedReportName(const Workspace& workspace, int grp_no);

// Writes header and peaks (BuildPeakLines) with CR LF in the system code page, replacing the file
// in one step. -1, or 0 after the box "File Write Error"; the file is then as it was.
std::int16_t SavePeakCsv(Program& program, const std::string& path, int data_no, int unit);

// The file of the standard errors beside that of a report: "run_2FitParam_errors.csv" beside
// "run_2FitParam.csv", whatever the extension there.
std::string ErrorsFileOf(const std::string& path);

// Writes the report (SavePeakCsv), then the standard errors (BuildPeakErrorLines) beside it. That
// second file is written where an error is known; a file that is there already is replaced with the
// report, which its user has been asked for, so that no old one is left beside it, but only after a
// question of its own where the report is new. -1, or 0 after the box "File Write Error"; where the
// second file fails, the first one stands.
std::int16_t SavePeakReport(Program& program, const std::string& path, int data_no, int unit);

}  // namespace dorvane
