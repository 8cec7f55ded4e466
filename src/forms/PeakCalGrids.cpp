#include "forms/PeakCalGrids.h"

#include <algorithm>

#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr const char* kUse = "Use";
constexpr const char* kChannel = "0.000";
constexpr const char* kValue = "0.00000";
constexpr int kPeakD = 3;  // column of sprPeakInf

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

using CellsOf = std::vector<GridCell> (*)(const MatchedRow&);

void Grey(GridRow& row, bool greyed) {
  for (GridCell& cell : row.cells) cell.greyed = greyed;
}

void FillLines(Grid& grid, std::span<const MatchedRow> lines, CellsOf cells_of) {
  std::vector<GridRow> rows;
  for (const MatchedRow& line : lines) {
    rows.push_back({std::to_string(rows.size() + 1), cells_of(line)});
    Grey(rows.back(), !line.use);
  }
  grid.SetRows(std::move(rows));
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
  std::vector<GridRow> rows;
  for (const PeakRow& peak : peaks) {
    rows.push_back({"Peak(" + std::to_string(rows.size() + 1) + ")",
                    {Number(peak.ch, kChannel), Number(peak.energy, kValue), Number(peak.d, kValue),
                     Number(peak.intensity, kChannel), Number(peak.fwhm_ch, kChannel),
                     Number(peak.fwhm_kev, kValue), Number(peak.amplitude, kChannel), Check(true),
                     Text(peak.fit_type)}});
  }
  sprPeakInf.SetRows(std::move(rows));
}

void RefreshPeakD(Grid& sprPeakInf, std::span<const PeakRow> peaks) {
  int r = 1;
  for (const PeakRow& peak : peaks) sprPeakInf.SetText(r++, kPeakD, Picture(peak.d, kValue));
}

void ShowUse(Grid& sprPeakInf, std::span<const MatchedRow> lines) {
  const auto use = static_cast<std::size_t>(UseColumn(sprPeakInf) - 1);
  std::vector<GridRow> rows = sprPeakInf.Rows();
  for (std::size_t r = 0; r < rows.size(); ++r) {
    rows[r].cells[use].checked = r >= lines.size() || lines[r].use;
    Grey(rows[r], false);
  }
  for (const MatchedRow& line : lines) {
    const auto r = static_cast<std::size_t>(line.peak);
    if (r < rows.size()) Grey(rows[r], !line.use);
  }
  sprPeakInf.SetRows(std::move(rows));
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
