#include "batch/Tables.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "lattice/CalLattice.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kWidestFwhm = 1000;  // keV; a fit that found no width is wider
constexpr std::string_view kAngstrom = "Å";

// Characters, not bytes.
std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string RightAligned(std::string_view text, std::size_t width) {
  const std::size_t own = WidthOf(text);
  return std::string(own < width ? width - own : 0, ' ') + std::string(text);
}

using Cells = std::vector<std::string>;

std::string Columns(const std::vector<Cells>& rows) {
  std::vector<std::size_t> widths(rows.front().size());
  for (const Cells& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], WidthOf(row[i]));
  }
  std::string text;
  for (const Cells& row : rows) {
    std::string line;
    for (std::size_t i = 0; i < row.size(); ++i) line += RightAligned(row[i], widths[i] + 2);
    text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
  }
  return text;
}

Cells PeakCells(std::size_t number, const ListedPeak& row) {
  Cells cells{std::to_string(number),
              Picture(row.channel, "0.00"),
              Picture(row.energy_kev, "0.000"),
              Picture(row.d, "0.00000"),
              Picture(row.height, "0"),
              row.fwhm_kev < kWidestFwhm ? Picture(row.fwhm_kev, "0.000") : "-",
              Picture(row.area, "0")};
  if (row.line) {
    cells.insert(cells.end(), {HklText(row.line->hkl), Picture(row.line->d_cal, "0.00000"),
                               Picture(row.line->d_obs - row.line->d_cal, "0.00000"),
                               row.line->used ? "yes" : "no"});
  }
  cells.resize(11);
  return cells;
}

// The lengths and angles that a crystal system refines, by their places in LatticeResult::Direct.
struct CellEntry {
  const char* name;
  int place;
};

std::vector<CellEntry> CellEntries(std::int16_t lattice_type) {
  constexpr CellEntry a{"a", 1}, b{"b", 2}, c{"c", 3}, alpha{"alpha", 4}, beta{"beta", 5},
      gamma{"gamma", 6};
  switch (lattice_type) {
    case kCubic:
      return {a};
    case kTetragonal:
    case kHexagonal:
      return {a, c};
    case kOrthorhombic:
      return {a, b, c};
    case kMonoclinic:
      return {a, b, c, beta};
    default:
      return {a, b, c, alpha, beta, gamma};
  }
}

bool IsLength(const CellEntry& entry) {
  return entry.place <= 3;
}

std::string ValueLine(std::string_view name, const ValueWithError& value, std::string_view picture,
                      std::string_view unit) {
  std::string line = "  " + PadRight(name, 6) + Picture(value.value, picture) + " +- " +
                     Picture(value.error, picture);
  return unit.empty() ? line : line + " " + std::string(unit);
}

ValueWithError CellValue(const LatticeReport& lattice, const CellEntry& entry) {
  return {lattice.cell->Direct[entry.place], lattice.cell->DirectErr[entry.place]};
}

std::size_t UsedLines(const LatticeReport& lattice) {
  return static_cast<std::size_t>(std::count_if(lattice.lines.begin(), lattice.lines.end(),
                                                [](const LatticeLine& line) { return line.used; }));
}

std::string LatticeText(const Analysis& analysis) {
  const LatticeReport& lattice = analysis.lattice;
  std::string text = lattice.crystal + ", " + LowerAscii(LatticeName(lattice.lattice_type)) + ", " +
                     (analysis.mode == LatticeMode::Marker ? "pressure marker" : "sample") + ": " +
                     std::to_string(UsedLines(lattice)) + " of " +
                     std::to_string(lattice.lines.size()) + " indexed lines in the fit\n";
  if (!lattice.cell) return text;
  for (const CellEntry& entry : CellEntries(lattice.lattice_type)) {
    text += ValueLine(entry.name, CellValue(lattice, entry), "0.00000",
                      IsLength(entry) ? kAngstrom : "deg") +
            "\n";
  }
  if (lattice.volume) text += ValueLine("V", *lattice.volume, "0.0000", "Å^3") + "\n";
  if (lattice.ratio) {
    text += ValueLine("V/V0", *lattice.ratio, "0.00000", "") + "  (V0 " +
            Picture(lattice.V0, "0.0000") + " Å^3)\n";
  }
  if (lattice.pressure) {
    const ValueWithError pressure{lattice.pressure->P, lattice.pressure->Error};
    text += ValueLine("P", pressure, "0.00000", "GPa") + " at " +
            PlainNumber(analysis.temperature_c) + " deg C  (" + lattice.pressure->Scale->Name +
            ")\n";
  }
  return text;
}

std::string Quoted(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + "\"";
}

}  // namespace

std::string HklText(const Hkl& hkl) {
  return std::to_string(hkl.h) + " " + std::to_string(hkl.k) + " " + std::to_string(hkl.l);
}

std::string CompactValue(double value, double error) {
  constexpr int kMostDecimals = 8;
  constexpr double kTwoDigitsUpTo = 19;
  if (!(error > 0) || !std::isfinite(error)) return Picture(value, "0.0000");
  int decimals = 0;
  double scaled = error;
  while (scaled * 10 <= kTwoDigitsUpTo && decimals < kMostDecimals) {
    scaled *= 10;
    ++decimals;
  }
  const std::string picture =
      decimals == 0 ? "0" : "0." + std::string(static_cast<std::size_t>(decimals), '0');
  return Picture(value, picture) + "(" + Picture(scaled, "0") + ")";
}

std::string HeadLine(const Analysis& analysis) {
  const LatticeReport& lattice = analysis.lattice;
  if (!analysis.indexed || !lattice.cell) return lattice.crystal;
  std::string text = lattice.crystal;
  for (const CellEntry& entry : CellEntries(lattice.lattice_type)) {
    const ValueWithError value = CellValue(lattice, entry);
    text += "    " + std::string(entry.name) + " = " + CompactValue(value.value, value.error) +
            (IsLength(entry) ? " Å" : "°");
  }
  if (lattice.ratio)
    text += "    V/V0 = " + CompactValue(lattice.ratio->value, lattice.ratio->error);
  if (lattice.pressure) {
    text += "    P = " + CompactValue(lattice.pressure->P, std::fabs(lattice.pressure->Error)) +
            " GPa at " + PlainNumber(analysis.temperature_c) + " °C";
  }
  return text;
}

std::string TableText(const Analysis& analysis) {
  std::string text = analysis.path + "  " + analysis.sample + "  " +
                     std::to_string(analysis.channels) + " channels  2-theta " +
                     Picture(analysis.two_theta_deg, "0.0000") + " deg\n";
  std::vector<Cells> rows{{"no", "channel", "E/keV", "d/Å", "height", "FWHM/keV", "area", "hkl",
                           "d(cal)", "d-d(cal)", "use"}};
  for (const ListedPeak& row : analysis.peaks) rows.push_back(PeakCells(rows.size(), row));
  text += Columns(rows);
  if (analysis.indexed) text += LatticeText(analysis);
  for (const std::string& note : analysis.notes) text += "note: " + note + "\n";
  return text;
}

std::string PeakCsvHeading(bool with_file, std::string_view line_end) {
  std::string text = with_file ? "file," : "";
  text += "channel,energy_keV,d_A,height,fwhm_keV,area,h,k,l,d_cal_A,difference_A,used";
  return text.append(line_end);
}

std::string PeakCsv(const Analysis& analysis, bool with_file, std::string_view line_end) {
  std::string text;
  for (const ListedPeak& row : analysis.peaks) {
    if (with_file) text += Quoted(analysis.path) + ",";
    text += Picture(row.channel, "0.0000") + "," + Picture(row.energy_kev, "0.00000") + "," +
            Picture(row.d, "0.000000") + "," + Picture(row.height, "0.00") + "," +
            Picture(row.fwhm_kev, "0.00000") + "," + Picture(row.area, "0.0") + ",";
    if (row.line) {
      const LatticeLine& line = *row.line;
      text += std::to_string(line.hkl.h) + "," + std::to_string(line.hkl.k) + "," +
              std::to_string(line.hkl.l) + "," + Picture(line.d_cal, "0.000000") + "," +
              Picture(line.d_obs - line.d_cal, "0.000000") + "," + (line.used ? "yes" : "no");
    } else {
      text += ",,,,,";
    }
    text.append(line_end);
  }
  return text;
}

}  // namespace dorvane
