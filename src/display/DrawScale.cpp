#include "display/DrawScale.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

#include "processing/Units.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kLeastUnitDivisions = 4;
constexpr int kMostUnitDivisions = 16;
constexpr int kUnitDivisionWidth = 88;  // pixels that a label of the unit axis wants at least
constexpr double kFontSize = 10;
constexpr double kTickLength = 5;     // pixels
constexpr double kLabelDistance = 2;  // pixels between tick and label, and around a page's texts
constexpr double kAxisUnits = 100;    // height of an axis's own scale
constexpr std::int32_t kLargestStep = 1000000;
constexpr std::int32_t kLinearFrom = 10;  // heights below are decades
constexpr Color kBlack = Rgb(0, 0, 0);

// One label along its axis.
struct Extent {
  double from = 0;
  double to = 0;
};

bool Overlap(const Extent& a, const Extent& b, double gap) {
  return a.from < b.to + gap && b.from < a.to + gap;
}

// Which labels stand: every n-th from the first on, with the smallest n that keeps them apart, and
// the last one where it has room. An equal distance reads better than the largest number.
std::vector<bool> LabelsThatFit(std::span<const Extent> labels, double gap) {
  const std::size_t count = labels.size();
  std::vector<bool> fits(count, false);
  if (count == 0) return fits;
  const auto apart = [&](std::size_t stride) {
    for (std::size_t i = stride; i < count; i += stride) {
      if (Overlap(labels[i - stride], labels[i], gap)) return false;
    }
    return true;
  };
  std::size_t stride = 1;
  while (stride < count && !apart(stride)) ++stride;
  std::size_t last = 0;
  for (std::size_t i = 0; i < count; i += stride) {
    fits[i] = true;
    last = i;
  }
  if (last != count - 1 && !Overlap(labels[last], labels[count - 1], gap)) fits[count - 1] = true;
  return fits;
}

double Clamped(double value, double low, double high) {
  return std::max(low, std::min(value, high));
}

int LeadingDigit(std::int32_t value) {
  while (value >= 10) value /= 10;
  return value;
}

// `up` is 1 where y of the panel's scale of 0..100 grows upwards, -1 downwards.
CountTicks DrawCountTicks(Surface& panel, std::int32_t height, Color ink, int up) {
  const double bottom = up > 0 ? 0 : kAxisUnits;
  panel.SetScale(0, kAxisUnits - bottom, kAxisUnits, bottom);
  panel.SetFontSize(kFontSize);
  const CountTicks ticks = CountTicksOf(height);
  const Point pixel = panel.PixelSize();
  const double text_height = panel.TextHeight();

  // Labels from the top down, in units of distance from the bottom.
  std::array<Extent, kMaxDivisions + 1> labels;
  const auto drawn = std::span(labels).first(static_cast<std::size_t>(ticks.Divisions + 1));
  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const double at = kAxisUnits - kAxisUnits * static_cast<double>(i) / ticks.Divisions;
    const double low = Clamped(at - text_height / 2, 0, kAxisUnits - text_height);
    drawn[i] = {low, low + text_height};
  }
  const std::vector<bool> fits = LabelsThatFit(drawn, 0);

  for (std::size_t i = 0; i < drawn.size(); ++i) {
    const double y =
        bottom + up * (kAxisUnits - kAxisUnits * static_cast<double>(i) / ticks.Divisions);
    const double tick_from = kAxisUnits - kTickLength * pixel.x;
    panel.Box({tick_from, y}, {kAxisUnits, y}, ink, 1);
    if (!fits[i]) continue;
    const std::string text = " " + ScaleText(ticks.Values[ticks.Divisions - static_cast<int>(i)]);
    const double left = tick_from - kLabelDistance * pixel.x - panel.TextWidth(text);
    panel.Text({left, bottom + up * drawn[i].to}, text, ink);
  }
  return ticks;
}

std::string UnitTickLabel(double value, int unit) {
  switch (unit) {
    case kUnitCh:
      return Picture(value, value < 10000 ? "####" : "#####");
    case kUnitKeV:
    case kUnitEv:
      return Picture(value, "##0.0");
    default:
      return Picture(value, "0.0000");
  }
}

}  // namespace

ScaleTables InitScale() {
  constexpr std::array<std::int32_t, 7> kMantissas = {1, 2, 3, 4, 5, 6, 8};
  ScaleTables tables;
  int index = 0;
  for (std::int32_t decade = 10; decade <= kLargestStep / 10; decade *= 10) {
    for (const std::int32_t mantissa : kMantissas) tables.ScaleStep[index++] = mantissa * decade;
  }
  for (std::int16_t digit = 0; digit <= 10; ++digit) tables.ScaleDiv[digit] = digit;
  tables.ScaleDiv[1] = 5;
  tables.ScaleDiv[2] = 4;
  tables.ScaleDiv[6] = 3;
  tables.ScaleDiv[8] = 4;
  return tables;
}

std::int32_t ScaleValue(int index) {
  if (index < 0 || index >= kScaleSteps) return kLogDecades;
  return InitScale().ScaleStep[index];
}

// KEPT: the small addend that saves powers of ten takes 998 and 999 for thousands too.
std::string ScaleText(double value) {
  if (!(value >= 0) || std::isinf(value)) return {};
  const double exponent = value == 0 ? 0 : std::trunc(std::log10(value) + 0.001);
  if (exponent < 0 || exponent > 8) return {};
  if (exponent <= 2) return Picture(value, "##0");
  if (exponent >= 6) return Picture(value / 1e6, "##0M");
  const bool whole = std::fmod(RoundHalfEven(value), 1000) < 11;
  return Picture(value / 1000, whole ? "##0K" : "##0.0K");
}

// KEPT: the logarithmic axis has seven decades whatever number of them the height holds.
CountTicks CountTicksOf(std::int32_t height) {
  CountTicks ticks;
  const bool logarithmic = height < kLinearFrom;
  ticks.Divisions = logarithmic ? kLogDecades : InitScale().ScaleDiv[LeadingDigit(height)];
  for (int i = 0; i <= ticks.Divisions; ++i) {
    ticks.Values[i] =
        logarithmic ? std::pow(10.0, i) : static_cast<double>(height) / ticks.Divisions * i;
  }
  return ticks;
}

CountTicks DrawCountAxis(Surface& panel, std::int32_t height, Color ink) {
  return DrawCountTicks(panel, height, ink, 1);
}

CountTicks DrawCountAxisPrint(Surface& panel, std::int32_t height) {
  return DrawCountTicks(panel, height, kBlack, -1);
}

// KEPT: the wavelength needs no angle, but a spectrum without one is shown by channels; its own
// angle decides under the default calibration too.
int AxisUnit(const Workspace& workspace, int data_no, int unit) {
  if (unit < 0) return kUnitCh;
  if (unit == kUnitWave && workspace.Spectra[data_no].Prop.TwoTheta == 0) return kUnitCh;
  return unit;
}

std::vector<UnitTick> UnitTicksOf(const Workspace& workspace, int data_no, int unit, int divisions,
                                  double width, double start, AxisMedium medium) {
  const int shown_unit = AxisUnit(workspace, data_no, unit);
  const MeasProp& source = CalibrationOf(workspace, data_no);
  std::vector<UnitTick> ticks;
  for (int i = 0; i <= divisions && divisions > 0; ++i) {
    UnitTick tick;
    tick.Position = i * width / divisions + start;
    if (i == divisions && medium == AxisMedium::Screen) tick.Position -= 1;
    tick.Value = ChToUnit(shown_unit, tick.Position, source, workspace.Dac);
    tick.Label = UnitTickLabel(tick.Value, shown_unit);
    // KEPT: units that don't grow with the channel keep the place, not the value.
    if (shown_unit >= kUnitD) tick.Value = tick.Position;
    ticks.push_back(std::move(tick));
  }
  return ticks;
}

int UnitDivisions(double width) {
  int divisions = kMostUnitDivisions;
  while (divisions > kLeastUnitDivisions && width / divisions < kUnitDivisionWidth) divisions /= 2;
  return divisions;
}

void DrawUnitAxis(Surface& panel, const Workspace& workspace, int data_no, int unit, int divisions,
                  double width, double start, Color ink, AxisMedium medium) {
  const double end = start + std::max(width - 1, 1.0);
  panel.SetScale(start, 0, end, kAxisUnits);
  panel.SetFontSize(kFontSize);
  const Point pixel = panel.PixelSize();
  const double text_height = panel.TextHeight();
  const double label_top = (kTickLength + kLabelDistance) * pixel.y;
  const double gap = panel.TextWidth("00");

  const std::string_view name = UnitLabel(AxisUnit(workspace, data_no, unit));
  const double name_width = panel.TextWidth(name);
  const bool second_line = label_top + 2 * text_height <= kAxisUnits;
  const double label_end = second_line ? end : end - name_width - gap;

  const std::vector<UnitTick> ticks =
      UnitTicksOf(workspace, data_no, unit, divisions, width, start, medium);
  std::vector<Extent> labels;
  for (const UnitTick& tick : ticks) {
    const double label_width = panel.TextWidth(tick.Label);
    const double left = Clamped(tick.Position - label_width / 2, start, label_end - label_width);
    labels.push_back({left, left + label_width});
  }
  const std::vector<bool> fits = LabelsThatFit(labels, gap);

  for (std::size_t i = 0; i < ticks.size(); ++i) {
    // The last one of a page stands a channel behind the graph: on its edge where that can't be
    // told.
    const double beyond = ticks[i].Position - end;
    const double x = beyond > 0 && beyond <= pixel.x ? end : ticks[i].Position;
    panel.Box({x, 0}, {x, kTickLength * pixel.y}, ink, 1);
    if (fits[i]) panel.Text({labels[i].from, label_top}, ticks[i].Label, ink);
  }
  if (second_line) {
    panel.Text({(start + end - name_width) / 2, label_top + text_height}, name, ink);
  } else {
    panel.Text({end - name_width, label_top}, name, ink);
  }
}

std::string_view FittingText(const Surface& surface, std::string_view text, double width) {
  const auto continues = [](char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
  };
  while (!text.empty() && surface.TextWidth(text) > width) {
    while (text.size() > 1 && continues(text.back())) text.remove_suffix(1);
    text.remove_suffix(1);
  }
  return text;
}

PrintFrame DrawPrintFrame(Surface& page, std::string_view title, Color ink) {
  page.SetScale(0, 0, 1, 1);
  const Point unit_pixel = page.PixelSize();
  const double width = unit_pixel.x > 0 ? 1 / unit_pixel.x : 0;
  const double height = unit_pixel.y > 0 ? 1 / unit_pixel.y : 0;
  page.SetScale(0, 0, width, height);
  page.SetFontSize(kFontSize);
  const double line = page.TextHeight();
  const double margin = line * 0.75;

  // The widest label of the count axis.
  const double axis_width = page.TextWidth(" 88.8K") + kTickLength + kLabelDistance;
  const double axis_height = kTickLength + kLabelDistance + 2 * line + kLabelDistance;
  const double left = margin / 2 + axis_width;
  const double top = margin / 2 + line + kLabelDistance * 2;
  const double plot_width = std::max(width - left - margin, 0.0);
  const double plot_height = std::max(height - top - axis_height - margin / 2, 0.0);

  const PrintFrame frame{{left, top, plot_width, plot_height},
                         {left - axis_width, top, axis_width, plot_height},
                         {left, top + plot_height, plot_width, axis_height}};
  page.Text({margin / 2, margin / 2}, "Counts", ink);
  const std::string_view shown = FittingText(page, title, plot_width);
  page.Text({left + (plot_width - page.TextWidth(shown)) / 2, margin / 2}, shown, ink);
  // Half a pixel outside, so that the graph doesn't cover it.
  const Point upper_left{left - 0.5, top - 0.5};
  const Point lower_right{left + plot_width + 0.5, top + plot_height + 0.5};
  page.Box(upper_left, {lower_right.x, upper_left.y}, ink, 1);
  page.Box(upper_left, {upper_left.x, lower_right.y}, ink, 1);
  page.Box({upper_left.x, lower_right.y}, lower_right, ink, 1);
  page.Box({lower_right.x, upper_left.y}, lower_right, ink, 1);
  return frame;
}

}  // namespace dorvane
