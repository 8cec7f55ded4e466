// What part of the spectra is shown and how high: range of channels, height, drawing mode, unit.
#pragma once

#include <cstdint>
#include <string_view>

#include "program/Program.h"

namespace dorvane {

constexpr double kSmallestSpan = 32;  // channels

// Fits the height of a window to a spectrum: the smallest of the 35 heights that covers the largest
// count of the shown range (channels 0..4095 in Expand mode for window 0); 1000000 where none does.
void AutoScaleY(Program& program, int win_no, int data_no);

// Height of the count axis in counts, for the windows that pile up graphs, for the expansion of one
// that does, and for `win_no`.
void SetYHeight(Program& program, int win_no, std::int32_t height, bool redraw);

// First channel shown, limited to 0..MaxCh less the span.
void SetStartCh(Program& program, double start);
// The step of hsbStartX: a tenth of the span, in channels.
double ScrollStep(const Program& program);

// Channels shown, kept within 32..MaxCh; the range keeps its start where it can.
void SetSpanCh(Program& program, double span);

// Zoom by a factor about a channel that stays where it is on the screen.
void ZoomAbout(Program& program, double channel, double factor);
void ShowAllChannels(Program& program);

// cmdWider halves the span while it is above 32 channels, cmdNarrower doubles it while MaxCh has
// room.
void cmdWider(Program& program);
void cmdNarrower(Program& program);
// mnuTaller and mnuShoter: hsbWidthY less or more one, which is the next higher or lower of the 35
// heights.
// KEPT: it is the scale that grows taller, so the curves shrink.
void mnuTaller(Program& program);
void mnuShoter(Program& program);

// hsbWidthY: 35 less the index of the height among the 35 heights, so that a greater value shows
// larger curves. A height that no step covers keeps the value that stands there.
int WidthYOf(const Program& program);
void SetWidthY(Program& program, int value);

// itxtScaleY: a typed height in counts, at least 10; below 10 on the logarithmic scale it counts
// decades. What is no number, or not above 0, is ignored.
void TypeHeight(Program& program, std::string_view text);

// inumScaleX: the shown span in the unit of the axis, and a typed one.
// KEPT: in d, wavelength, Q and 2-theta, where a channel has no width of its own, a typed number
// counts channels, and what shows is a constant.
double SpanInUnit(const Program& program);
void TypeSpan(Program& program, double span_in_unit);

// ckbNorScale: the scale of the user's own choice; it and the automatic scale exclude each other.
void SetNorScale(Program& program, bool normal_scale);

// Both windows, whether they pile up or not; the height stays.
void SetLogScale(Program& program, bool log_scale);
void SetAutoScale(Program& program, bool auto_scale);
void SetDispUnit(Program& program, std::int16_t unit);
// Scrolls so that the cursor is inside the shown range, a ScrollStep from its edge. Nothing in
// Expand mode, where the first window shows all channels.
void FollowCursor(Program& program);

// 0: DefaultProp calibrates the display, 1: the spectrum's own calibration (optEGC).
void optEGC_Click(Program& program, int index);
// The calibration of a file becomes that of the display.
void SetEGCParam(Program& program, int index);

}  // namespace dorvane
