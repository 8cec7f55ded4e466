#include "forms/PeakCalGrids.h"

#include <algorithm>

#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kUse = "Use";
constexpr const char* kChannel = "0.000";
constexpr const char* kValue = "0.00000";
constexpr int kPeakD = 3;  // column of sprPeakInf
constexpr int kMostLines = 100;

GridCell Text(std::string text) {
  return {.text = std::move(text)};
}
GridCell Number(double value, const char* picture) {
  return Text(Picture(value, picture));
}
GridCell Refined(double value, const MatchedRow& row) {
  return row.d_r == 0 ? GridCell{} : Number(value, kValue);
}
GridCell Check(bool checked) {
  return {.is_check = true, .checked = checked};
}

void SetRow(Grid& grid, int row, std::vector<GridCell> cells, bool greyed) {
  for (int column = 1; column <= grid.Columns(); ++column) {
    GridCell& cell = cells[static_cast<std::size_t>(column - 1)];
    cell.greyed = greyed;
    grid.SetCell(row, column, std::move(cell));
  }
}

using CellsOf = std::vector<GridCell> (*)(const MatchedRow&);

void FillLines(Grid& grid, std::span<const MatchedRow> rows, CellsOf cells_of) {
  grid.SetMaxRows(kMostLines);
  int r = 1;
  for (const MatchedRow& row : rows) {
    grid.SetRowTitle(r, std::to_string(r));
    SetRow(grid, r, cells_of(row), !row.use);
    ++r;
  }
  grid.SetMaxRows(r - 1);
}

}  // namespace

std::vector<std::string> PeakInfHeadings() {
  return {"Peak(Ch)",  "Peak(keV)", "Peak(d)", "Intensity", "FWHM(Ch)",
          "FWHM(keV)", "Amplitude", kUse,      "FitType"};
}

std::vector<std::string> PeakInf2Headings() {
  return {"Peak(Ch)", "Peak(keV)", "D(Obs)", "D(Cal)", "DEV", "Miller Indices", kUse, "FitType"};
}

std::vector<std::string> PeakInf3Headings() {
  return {"D(Obs)", "D(Cal)", "D(R)", "Miller indices", kUse, "FitType"};
}

std::vector<std::string> PeakInf4Headings() {
  return {"Peak(Ch)",      "Peak(keV)",    "D(Obs)", "D(Cal)",  "D(R)",
          "DDef(Initial)", "Miller Indi.", kUse,     "FitType", "2Theta"};
}

int UseColumn(const Grid& grid) {
  const auto& headings = grid.Headings();
  return static_cast<int>(std::find(headings.begin(), headings.end(), kUse) - headings.begin()) + 1;
}

void FillPeakInf(Grid& sprPeakInf, std::span<const PeakRow> peaks) {
  sprPeakInf.SetMaxRows(static_cast<int>(peaks.size()));
  int r = 1;
  for (const PeakRow& peak : peaks) {
    sprPeakInf.SetRowTitle(r, "Peak(" + std::to_string(r) + ")");
    SetRow(sprPeakInf, r,
           {Number(peak.ch, kChannel), Number(peak.energy, kValue), Number(peak.d, kValue),
            Number(peak.intensity, kChannel), Number(peak.fwhm_ch, kChannel),
            Number(peak.fwhm_kev, kValue), Number(peak.amplitude, kChannel), Check(true),
            Text(peak.fit_type)},
           false);
    ++r;
  }
}

void RefreshPeakD(Grid& sprPeakInf, std::span<const PeakRow> peaks) {
  int r = 1;
  for (const PeakRow& peak : peaks) sprPeakInf.SetText(r++, kPeakD, Picture(peak.d, kValue));
}

void ShowUse(Grid& sprPeakInf, std::span<const MatchedRow> rows) {
  const int use = UseColumn(sprPeakInf);
  for (int r = 1; r <= sprPeakInf.MaxRows(); ++r) {
    const bool excluded = std::any_of(rows.begin(), rows.end(), [r](const MatchedRow& row) {
      return row.peak == r - 1 && !row.use;
    });
    for (int column = 1; column <= sprPeakInf.Columns(); ++column) {
      GridCell cell = sprPeakInf.Cell(r, column);
      cell.greyed = excluded;
      const auto place = static_cast<std::size_t>(r - 1);
      if (column == use) cell.checked = place >= rows.size() || rows[place].use;
      sprPeakInf.SetCell(r, column, std::move(cell));
    }
  }
}

void FillPeakInf2(Grid& sprPeakInf2, std::span<const MatchedRow> rows) {
  FillLines(sprPeakInf2, rows, [](const MatchedRow& row) -> std::vector<GridCell> {
    return {Number(row.ch, kChannel),
            Number(row.energy, kValue),
            Number(row.d_obs, kValue),
            Number(row.d_cal, kValue),
            Number(row.d_obs - row.d_cal, kValue),
            Text(MillerText(row)),
            Check(row.use),
            Text(row.fit_type)};
  });
}

void FillPeakInf3(Grid& sprPeakInf3, std::span<const MatchedRow> rows) {
  FillLines(sprPeakInf3, rows, [](const MatchedRow& row) -> std::vector<GridCell> {
    return {Number(row.d_obs, kValue),
            Number(row.d_cal, kValue),
            Refined(row.d_r, row),
            Text(MillerText(row)),
            Check(row.use),
            Text(row.fit_type)};
  });
}

void FillPeakInf4(Grid& sprPeakInf4, std::span<const MatchedRow> rows) {
  FillLines(sprPeakInf4, rows, [](const MatchedRow& row) -> std::vector<GridCell> {
    return {Number(row.ch, kChannel),  Number(row.energy, kValue),
            Number(row.d_obs, kValue), Number(row.d_cal, kValue),
            Refined(row.d_r, row),     Refined(row.d_def, row),
            Text(MillerText(row)),     Check(row.use),
            Text(row.fit_type),        Number(row.two_theta, kValue)};
  });
}

}  // namespace dorvane
