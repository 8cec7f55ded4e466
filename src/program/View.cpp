#include "program/View.h"

#include <algorithm>
#include <cmath>

#include "display/DrawScale.h"
#include "processing/Units.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// KEPT: where no height covers the counts, however high they are: the curve is cut at the top, as a
// sign that it leaves the table of heights.
constexpr std::int32_t kHighest = 1000000;
constexpr double kDecadesBelow = 10;  // typed heights below count decades on the log scale
constexpr double kLowestTyped = 10;   // counts; the axis takes less for decades
constexpr double kHighestTyped = 1e9;
constexpr double kWidestTyped = kMaxChannels;

// KEPT: in Expand mode the scan ends here, however long the spectrum is: the height is that of its
// lines, which lie below.
constexpr int kExpandScanEnd = 4095;

void RangeSet(Program& program, double start, double span) {
  const double max_ch = program.workspace.MaxCh;
  program.view.SpanCh = std::clamp(RoundHalfEven(span), kSmallestSpan, max_ch);
  program.view.StartCh =
      std::clamp(RoundHalfEven(start), 0.0, std::max(max_ch - program.view.SpanCh, 0.0));
  program.Listener().RangeChanged();
  program.Listener().UnitAxisChanged();
  if (program.view.AutoScale != kFalse) {
    AutoScaleY(program, GetRealWinNo(program.List()), program.view.DataNo);
  }
  for (int win_no = 0; win_no < kWindows; ++win_no) program.Listener().RedrawWanted(win_no);
}

// The windows that pile up graphs have one height, and so has an expansion of the first.
bool TakesHeight(const ViewState& view, int window) {
  return view.FilePile[window] != kFalse || (window == 1 && view.ExpandOn != kFalse);
}

// Index of the smallest height that is not below a value; the last one where none covers it.
int HeightIndex(std::int32_t value) {
  int index = 0;
  while (index < kScaleSteps - 1 && ScaleValue(index) < value) ++index;
  return index;
}

// A step of hsbWidthY, which stays within its range.
void StepWidthY(Program& program, int step) {
  const int value = std::clamp(program.view.WidthY + step, 0, kScaleSteps);
  if (value != program.view.WidthY) SetWidthY(program, value);
}

}  // namespace

void AutoScaleY(Program& program, int win_no, int data_no) {
  const auto& block = program.workspace.Channels[data_no];
  int first = static_cast<int>(program.view.StartCh);
  int last = first + static_cast<int>(program.view.SpanCh) - 1;
  if (program.view.ExpandOn != kFalse && win_no == 0) {
    first = 0;
    last = kExpandScanEnd;
  }
  last = std::min(last, kMaxChannels - 1);
  std::int32_t largest = 0;
  for (int i = std::max(first, 0); i <= last; ++i) largest = std::max(largest, block.Counts[i]);
  std::int32_t height = kHighest;
  for (int index = 0; index < kScaleSteps; ++index) {
    if (ScaleValue(index) < largest) continue;
    height = ScaleValue(index);
    break;
  }
  SetYHeight(program, win_no, height, true);
}

void SetYHeight(Program& program, int win_no, std::int32_t height, bool redraw) {
  program.view.HeightY = height;
  program.view.WidthY = WidthYOf(program);
  for (int window = 0; window < kWindows; ++window) {
    if (!TakesHeight(program.view, window) && window != win_no) continue;
    program.Listener().CountScaleChanged(window);
    if (redraw) program.Listener().RedrawWanted(window);
  }
}

void SetStartCh(Program& program, double start) {
  RangeSet(program, start, program.view.SpanCh);
}

double ScrollStep(const Program& program) {
  return std::max(RoundHalfEven(program.view.SpanCh / 10), 1.0);
}

void SetSpanCh(Program& program, double span) {
  RangeSet(program, program.view.StartCh, span);
}

void ZoomAbout(Program& program, double channel, double factor) {
  const double old_span = program.view.SpanCh;
  const double span =
      std::clamp(old_span * factor, kSmallestSpan, static_cast<double>(program.workspace.MaxCh));
  const double share = (channel - program.view.StartCh) / old_span;
  RangeSet(program, channel - share * span, span);
}

void ShowAllChannels(Program& program) {
  RangeSet(program, 0, program.workspace.MaxCh);
}

void cmdWider(Program& program) {
  const double span = program.view.SpanCh;
  if (span <= kSmallestSpan) return;
  RangeSet(program, program.view.StartCh, span / 2);
}

void cmdNarrower(Program& program) {
  const double span = program.view.SpanCh;
  if (span * 2 > program.workspace.MaxCh) return;
  RangeSet(program, program.view.StartCh, span * 2);
}

void mnuTaller(Program& program) {
  StepWidthY(program, -1);
}
void mnuShoter(Program& program) {
  StepWidthY(program, 1);
}

int WidthYOf(const Program& program) {
  const std::int32_t height = program.view.HeightY;
  return ScaleValue(HeightIndex(height)) < height ? program.view.WidthY
                                                  : kScaleSteps - HeightIndex(height);
}

void SetWidthY(Program& program, int value) {
  const int index = std::clamp(kScaleSteps - value, 0, kScaleSteps - 1);
  program.view.AutoScale = kFalse;
  SetYHeight(program, program.view.CurWin, ScaleValue(index), true);
}

void TypeHeight(Program& program, std::string_view text) {
  const auto typed = ParseNumber(text);
  if (!typed || !(*typed > 0)) return;
  const bool decades = program.view.LogScale != kFalse && *typed < kDecadesBelow;
  const double height = decades ? std::pow(10.0, std::floor(*typed)) : *typed;
  if (height > kHighestTyped) return;
  program.view.AutoScale = kFalse;
  SetYHeight(program, program.view.CurWin, RoundToInt32(std::max(height, kLowestTyped)), true);
}

double SpanInUnit(const Program& program) {
  return ChToWidth(program.view.DispUnit, program.view.SpanCh,
                   CalibrationOf(program.workspace, program.view.DataNo));
}

void TypeSpan(Program& program, double span_in_unit) {
  const double span = WidthToCh(program.view.DispUnit, span_in_unit,
                                CalibrationOf(program.workspace, program.view.DataNo));
  if (std::isfinite(span) && span > 0) SetSpanCh(program, std::min(span, kWidestTyped));
}

void SetNorScale(Program& program, bool normal_scale) {
  program.view.NorScale = normal_scale ? kTrue : kFalse;
  if (normal_scale) program.view.AutoScale = kFalse;
  program.Listener().CountScaleChanged(program.view.CurWin);
}

void SetLogScale(Program& program, bool log_scale) {
  program.view.LogScale = log_scale ? kTrue : kFalse;
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    program.Listener().CountScaleChanged(win_no);
    program.Listener().RedrawWanted(win_no);
  }
}

void SetAutoScale(Program& program, bool auto_scale) {
  program.view.AutoScale = auto_scale ? kTrue : kFalse;
  if (auto_scale) program.view.NorScale = kFalse;
  if (auto_scale) AutoScaleY(program, GetRealWinNo(program.List()), program.view.DataNo);
  program.Listener().CountScaleChanged(program.view.CurWin);
}

void SetDispUnit(Program& program, std::int16_t unit) {
  program.view.DispUnit = unit;
  program.Listener().UnitAxisChanged();
  program.Listener().CursorMoved();
}

void FollowCursor(Program& program) {
  const ViewState& view = program.view;
  if (view.ExpandOn != kFalse) return;
  const double last = view.StartCh + view.SpanCh - 1;
  const double step = ScrollStep(program);
  if (view.CursorCh < view.StartCh) SetStartCh(program, view.CursorCh - step);
  if (view.CursorCh > last) SetStartCh(program, view.CursorCh + step - view.SpanCh + 1);
}

void optEGC_Click(Program& program, int index) {
  program.workspace.UseFileEgc = ToInt16(index == 0 ? 0 : 1);
  program.Listener().CalibrationShown();
  program.Listener().UnitAxisChanged();
  program.Listener().CursorMoved();
}

void SetEGCParam(Program& program, int /*index*/) {
  program.Listener().CalibrationShown();
}

}  // namespace dorvane
