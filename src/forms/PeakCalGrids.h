// The four grids of the lattice form: their columns, and how rows of peaks and indexed lines fill
// them.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "forms/Grid.h"
#include "lattice/LatticeRows.h"

namespace dorvane {

// Headings in the order of the columns.
std::vector<std::string> PeakInfHeadings();
std::vector<std::string> PeakInf2Headings();
std::vector<std::string> PeakInf3Headings();
std::vector<std::string> PeakInf4Headings();

// Column with the caption "Use", from 1.
int UseColumn(const Grid& grid);

// One row a peak, all in use.
void FillPeakInf(Grid& sprPeakInf, std::span<const PeakRow> peaks);
// Renews the column of the d values alone.
void RefreshPeakD(Grid& sprPeakInf, std::span<const PeakRow> peaks);
// The check box of row r is that of the r-th indexed line, with which it writes back; a peak that
// is excluded is greyed.
void ShowUse(Grid& sprPeakInf, std::span<const MatchedRow> rows);

// One row an indexed line, titled by its number; an excluded line is greyed. Without a refined cell
// its columns are empty.
void FillPeakInf2(Grid& sprPeakInf2, std::span<const MatchedRow> rows);
void FillPeakInf3(Grid& sprPeakInf3, std::span<const MatchedRow> rows);
void FillPeakInf4(Grid& sprPeakInf4, std::span<const MatchedRow> rows);

}  // namespace dorvane
