// The axes: the count axis at the left of a graph, the unit axis below it, and the frame of a page;
// with the table of the count axis's fixed heights.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "support/Fixed.h"
#include "support/Surface.h"
#include "workspace/Workspace.h"

namespace dorvane {

constexpr int kScaleSteps = 35;
constexpr int kMaxDivisions = 10;
constexpr std::int16_t kLogDecades = 7;  // of the logarithmic count axis, whatever the data

struct ScaleTables {
  Fixed<std::int32_t, 0, kScaleSteps - 1> ScaleStep;  // heights of the count axis, ascending
  Fixed<std::int16_t, 0, 10> ScaleDiv;                // divisions, by a height's leading digit
};
ScaleTables InitScale();

// ScaleStep(index); 7, the decades of the logarithmic axis, for an index outside 0..34.
std::int32_t ScaleValue(int index);

// Label of a tick at `value` counts, as "500", "1K", "1.5K" or "1M"; empty for a negative value,
// one below 0.1 other than 0, and from 10^9 on.
std::string ScaleText(double value);

// Ticks of the count axis for a height in counts; below 10 the axis is logarithmic, with one tick a
// decade.
struct CountTicks {
  std::int16_t Divisions = 0;              // for DrawSpect::SetDivisions
  Fixed<double, 0, kMaxDivisions> Values;  // 0..Divisions, in counts
};
CountTicks CountTicksOf(std::int32_t height);

// Draws on a panel as high as the graph, whose right edge is the axis: ticks, and as many labels as
// don't overlap, the top one first. The panel gets a scale of 0..100 upwards. Nothing is cleared.
CountTicks DrawCountAxis(Surface& panel, std::int32_t height, Color ink);
// The same in black on a page, where the scale runs downwards.
CountTicks DrawCountAxisPrint(Surface& panel, std::int32_t height);

struct UnitTick {
  double Position = 0;  // channel index
  double Value = 0;     // in the unit below unit 3; from there on the channel index
  std::string Label;
};
enum class AxisMedium { Screen, Page };

// The unit that the axis shows: channels for a negative unit, and for the wavelength where the
// spectrum has no angle.
int AxisUnit(const Workspace& workspace, int data_no, int unit);
// Ticks at start + i * width / divisions, i = 0..divisions; on the screen the last is one channel
// less, which is the last channel shown. The calibration is that of UseFileEgc. None for divisions
// below 1. Throws Fault(Subscript) for a DataNo outside 0..13.
std::vector<UnitTick> UnitTicksOf(const Workspace& workspace, int data_no, int unit, int divisions,
                                  double width, double start, AxisMedium medium);
// As many divisions as an axis so many pixels wide has room for: 4, 8 or 16, so that a division of
// a whole spectrum is a round number of channels.
int UnitDivisions(double width);
// Draws on a panel as wide as the graph, whose upper edge is the axis: ticks, as many labels as
// don't overlap, the first one first, and the unit's name: below the labels where there is room for
// a second line, otherwise at the right end. The panel's x becomes the channel. Nothing is cleared.
void DrawUnitAxis(Surface& panel, const Workspace& workspace, int data_no, int unit, int divisions,
                  double width, double start, Color ink, AxisMedium medium = AxisMedium::Screen);

// As many whole characters of a text, in UTF-8, as have room in `width` of the surface's scale.
std::string_view FittingText(const Surface& surface, std::string_view text, double width);

// A rectangle of a page, in pixels of scale factor 1 from its upper left corner.
struct PageBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  friend bool operator==(const PageBox&, const PageBox&) = default;
};
// Places of a graph and its axes on a page.
struct PrintFrame {
  PageBox plot;
  PageBox count_axis;
  PageBox unit_axis;
};
// Divides a page among a graph and its two axes, with the title above, and draws title, the count
// axis's name and the frame around the graph; a title wider than the graph is cut. Pages too small
// for a graph give empty boxes, never negative ones.
PrintFrame DrawPrintFrame(Surface& page, std::string_view title, Color ink);

}  // namespace dorvane
