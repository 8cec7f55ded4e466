#include "program/PeakSheet.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr Color kInk = Rgb(0, 0, 0);
constexpr double kTitlePoints = 14;
constexpr double kPoints = 9;

// Pixels, from the top of the sheet down.
constexpr double kTitleAt = 0;
constexpr double kNameAt = 30;
constexpr double kHeaderAt = 56;
constexpr double kRuleAt = 74;
constexpr double kPeaksAt = 78;
constexpr double kLineHeight = 17;
constexpr double kFootHeight = 24;

constexpr double kColumnGap = 14;  // pixels at 9 points

int PeaksPerSheet(const PictureSize& size) {
  const double room = size.height_px - kPeaksAt - kFootHeight;
  return std::max(1, static_cast<int>(std::floor(room / kLineHeight)));
}

using Fields = std::vector<std::string>;

Fields FieldsOf(std::string_view line) {
  Fields fields;
  for (std::size_t at = 0; at <= line.size();) {
    const std::size_t end = std::min(line.find(',', at), line.size());
    fields.emplace_back(Trim(line.substr(at, end - at)));
    at = end + 1;
  }
  return fields;
}

// Columns side by side, each at the right end of its own: numbers of a column have as many
// decimals as each other.
struct Columns {
  double points = kPoints;
  std::vector<double> right_ends;  // pixels
};

Columns ColumnsOf(const std::vector<Fields>& table, Surface& surface, double width) {
  std::vector<double> widths(table.front().size(), 0);
  surface.SetFontSize(kPoints);
  for (const Fields& fields : table) {
    for (std::size_t i = 0; i < std::min(fields.size(), widths.size()); ++i) {
      widths[i] = std::max(widths[i], surface.TextWidth(fields[i]));
    }
  }
  Columns columns;
  double right = -kColumnGap;
  for (const double column : widths) {
    right += kColumnGap + column;
    columns.right_ends.push_back(right);
  }
  const double shrink = std::min(1.0, width / right);
  columns.points *= shrink;
  for (double& end : columns.right_ends) end *= shrink;
  return columns;
}

void DrawFields(Surface& surface, const Columns& columns, const Fields& fields, double y) {
  for (std::size_t i = 0; i < std::min(fields.size(), columns.right_ends.size()); ++i) {
    const double left = columns.right_ends[i] - surface.TextWidth(fields[i]);
    surface.Text({std::max(left, 0.0), y}, fields[i], kInk);
  }
}

void DrawFoot(Surface& surface, const PictureSize& size, int sheet_no, int sheets) {
  if (sheets < 2) return;
  const std::string text = std::to_string(sheet_no + 1) + " / " + std::to_string(sheets);
  surface.SetFontSize(kPoints);
  const Point at{(size.width_px - surface.TextWidth(text)) / 2,
                 size.height_px - surface.TextHeight()};
  surface.Text(at, text, kInk);
}

}  // namespace

PeakSheets PeakSheetsOf(const Workspace& workspace, int data_no, int unit) {
  return {workspace.Spectra[data_no].MsuName.Text(), BuildPeakLines(workspace, data_no, unit)};
}

int PeakSheetCount(const PeakSheets& report, const PictureSize& size) {
  const int per_sheet = PeaksPerSheet(size);
  const int peaks = static_cast<int>(report.lines.peaks.size());
  return std::max(1, (peaks + per_sheet - 1) / per_sheet);
}

void DrawPeakSheet(const PeakSheets& report, Page& page, int sheet_no) {
  const PictureSize size = page.Size();
  const std::unique_ptr<Surface> surface = page.Whole();
  surface->SetScale(0, 0, size.width_px, size.height_px);
  surface->SetFontSize(kTitlePoints);
  surface->Text({0, kTitleAt}, "Peak Report", kInk);
  surface->SetFontSize(kPoints);
  surface->Text({0, kNameAt}, "  Measurement Name : " + report.measurement, kInk);

  // All peaks make the columns, so that those of one sheet stand as those of the next.
  std::vector<Fields> table = {FieldsOf(report.lines.header)};
  for (const std::string& line : report.lines.peaks) table.push_back(FieldsOf(line));
  const Columns columns = ColumnsOf(table, *surface, size.width_px);
  surface->SetFontSize(columns.points);
  DrawFields(*surface, columns, table.front(), kHeaderAt);
  const Segment rule{{0, kRuleAt}, {columns.right_ends.back(), kRuleAt}};
  surface->Lines({&rule, 1}, kInk);
  const int first = sheet_no * PeaksPerSheet(size);
  const int last = std::min(first + PeaksPerSheet(size), static_cast<int>(table.size()) - 1);
  for (int i = std::max(first, 0); i < last; ++i) {
    DrawFields(*surface, columns, table[static_cast<std::size_t>(i) + 1],
               kPeaksAt + (i - first) * kLineHeight);
  }
  DrawFoot(*surface, size, sheet_no, PeakSheetCount(report, size));
}

}  // namespace dorvane
