#include "program/EngineBinding.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "display/DrawScale.h"
#include "program/WholeRange.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr std::int32_t kLogNominal = 10000000;
constexpr std::int16_t kFirstChannel = 0;

// Channel of a peak's line; -1 where its centre lies outside of all channels.
std::int16_t LineChannel(const PeakRec& peak) {
  if (!(peak.Center >= 0 && peak.Center < kMaxChannels - 1)) return -1;
  return RoundToInt16(peak.Center);
}

// Colour of the row that shows a spectrum; the preset one where no row does.
Color RowColor(const Workspace& workspace, int data_no) {
  for (const GraphSlot& slot : workspace.Slots) {
    if (slot.State != kRowEmpty && slot.DataNo == data_no) return slot.Color;
  }
  return workspace.ColorTbl[data_no];
}

}  // namespace

std::int32_t EngineHeight(const ViewState& view) {
  return view.LogScale != kFalse ? kLogNominal : view.HeightY;
}

void EngineBinding::SpectrumShown(int WinNo, int DataNo) {
  const auto counts = workspace_.Channels[DataNo].Used();
  if (view_.ExpandOn == kFalse) spect_.ClearPoints(1 - ViewOf(WinNo), DataNo);
  spect_.SetSpectrum(ViewOf(WinNo), DataNo, counts, RowColor(workspace_, DataNo));
  MarkRegions(WinNo, DataNo);
  TakeMarksAlong(WinNo, DataNo);
  ListenerFan::SpectrumShown(WinNo, DataNo);
}

void EngineBinding::SpectrumRemoved(int WinNo, int DataNo) {
  const auto last = shown_in_.find(DataNo);
  const bool moved = last != shown_in_.end() && last->second != WinNo;
  const bool shared = view_.ExpandOn != kFalse || view_.PileUpOn != kFalse;
  if (!moved && marked_.erase(DataNo) > 0) {
    const PeakTable& peaks = workspace_.Peaks[DataNo];
    for (int i = 0; i < peaks.Count; ++i) UnmarkPeak(WinNo, DataNo, peaks.Peaks[i]);
  }
  if (!moved || !shared) spect_.ClearPoints(ViewOf(WinNo), DataNo);
  ListenerFan::SpectrumRemoved(WinNo, DataNo);
}

void EngineBinding::TakeMarksAlong(int WinNo, int DataNo) {
  const auto [last, first_time] = shown_in_.try_emplace(DataNo, WinNo);
  const int from = std::exchange(last->second, WinNo);
  if (first_time || from == WinNo || !marked_.contains(DataNo)) return;
  const PeakTable& peaks = workspace_.Peaks[DataNo];
  for (int i = 0; i < peaks.Count; ++i) {
    UnmarkPeak(from, DataNo, peaks.Peaks[i]);
    MarkPeak(WinNo, DataNo, peaks.Peaks[i]);
  }
}

void EngineBinding::GraphShown(int WinNo, int DataNo, bool shown) {
  spect_.ShowGraph(ViewOf(WinNo), DataNo, shown ? kTrue : kFalse);
  ListenerFan::GraphShown(WinNo, DataNo, shown);
}

void EngineBinding::GraphRecolored(int WinNo, int DataNo, Color color) {
  spect_.SetGraphColor(ViewOf(WinNo), DataNo, color);
  ListenerFan::GraphRecolored(WinNo, DataNo, color);
}

void EngineBinding::MarkPeak(int WinNo, int DataNo, const PeakRec& peak) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, peak.RegionStart, peak.RegionEnd,
                       workspace_.ColorTbl[kColorPeakCurve]);
  const std::int16_t channel = LineChannel(peak);
  if (channel >= 0) spect_.AddPeakLine(ViewOf(WinNo), channel);
}

void EngineBinding::PeakMarked(int WinNo, int DataNo, const PeakRec& peak) {
  MarkPeak(WinNo, DataNo, peak);
  marked_.insert(DataNo);
  ListenerFan::PeakMarked(WinNo, DataNo, peak);
}

void EngineBinding::UnmarkPeak(int WinNo, int DataNo, const PeakRec& peak) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, peak.RegionStart, peak.RegionEnd, 0);
  const auto channels = spect_.PeakLinesOf(ViewOf(WinNo)).Channels();
  const auto found = std::find(channels.begin(), channels.end(), LineChannel(peak));
  if (found != channels.end()) {
    spect_.DeletePeakLine(ViewOf(WinNo), ToInt16(found - channels.begin()), kFalse);
  }
}

void EngineBinding::PeakUnmarked(int WinNo, int DataNo, const PeakRec& peak) {
  UnmarkPeak(WinNo, DataNo, peak);
  ListenerFan::PeakUnmarked(WinNo, DataNo, peak);
}

void EngineBinding::PeakLinesCleared(int WinNo) {
  spect_.DeletePeakLine(WinNo, -1, kFalse);
  ListenerFan::PeakLinesCleared(WinNo);
}

void EngineBinding::PointMarksCleared(int WinNo, int DataNo) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, 0, kMaxChannels, 0);
  marked_.erase(DataNo);
  spect_.ClearTexts(WinNo);
  ListenerFan::PointMarksCleared(WinNo, DataNo);
}

void EngineBinding::RoiMarked(int WinNo, int DataNo, int start, int end, Color color) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, ToInt16(start), ToInt16(end), color);
  ListenerFan::RoiMarked(WinNo, DataNo, start, end, color);
}

void EngineBinding::RoiUnmarked(int WinNo, int DataNo, int start, int end, Color color) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, ToInt16(start), ToInt16(end), 0);
  ListenerFan::RoiUnmarked(WinNo, DataNo, start, end, color);
}

void EngineBinding::MarkRegions(int WinNo, int DataNo) {
  const RoiTable& table = workspace_.Regions;
  for (int i = 0; i < table.RoiCount; ++i) {
    const RoiRec& roi = table.Rois[i];
    if (roi.DataNo != DataNo) continue;
    spect_.SetPointColor(ViewOf(WinNo), DataNo, roi.Start, roi.End, roi.Color);
  }
}

void EngineBinding::WindowCleared(int WinNo) {
  spect_.ClearView(WinNo);
  spect_.DeletePeakLine(WinNo, -1, kFalse);
  ListenerFan::WindowCleared(WinNo);
}

void EngineBinding::ApplyScale(int WinNo) {
  spect_.SetYScale(WinNo, view_.LogScale != kFalse ? kLogarithmic : kLinear, EngineHeight(view_));
  const bool log_scale = view_.LogScale != kFalse;
  spect_.SetDivisions(WinNo, CountTicksOf(log_scale ? kLogDecades : view_.HeightY).Divisions);
}

void EngineBinding::CountScaleChanged(int WinNo) {
  ApplyScale(WinNo);
  ListenerFan::CountScaleChanged(WinNo);
}

void EngineBinding::ApplyRange() {
  const bool expanded = view_.ExpandOn != kFalse;
  spect_.SetWidthX(0, RoundToInt16(expanded ? LongestSpectrum(workspace_) : view_.SpanCh));
  spect_.SetStartX(0, expanded ? kFirstChannel : RoundToInt16(view_.StartCh));
  spect_.SetWidthX(1, RoundToInt16(view_.SpanCh));
  spect_.SetStartX(1, RoundToInt16(view_.StartCh));
}

void EngineBinding::RangeChanged() {
  ApplyRange();
  ListenerFan::RangeChanged();
}

void EngineBinding::Register(const GraphSlot& slot) {
  const int view = ViewOf(slot.WinNo);
  spect_.SetSpectrum(view, slot.DataNo, workspace_.Channels[slot.DataNo].Used(), slot.Color);
  MarkRegions(slot.WinNo, slot.DataNo);
  if (slot.Disp == kFalse) spect_.ShowGraph(view, slot.DataNo, kFalse);
}

// Window 1 as an expansion looks at the arrays of window 0; what it had of its own is registered
// anew when it stops.
void EngineBinding::WindowStyleChanged() {
  spect_.EndAlias();
  for (int view = 0; view < kWindows; ++view) {
    for (int data_no = 0; data_no < kSpectra; ++data_no) spect_.ClearPoints(view, data_no);
    spect_.DeletePeakLine(view, -1, kFalse);
  }
  for (const GraphSlot& slot : workspace_.Slots) {
    if (slot.State != kRowEmpty) Register(slot);
  }
  if (view_.ExpandOn != kFalse) {
    spect_.CopyView(1, nullptr, workspace_.ColorTbl[kColorWindowBack + 1]);
  }
  for (const GraphSlot& slot : workspace_.Slots) {
    if (slot.State == kRowEmpty || !marked_.contains(slot.DataNo)) continue;
    const PeakTable& peaks = workspace_.Peaks[slot.DataNo];
    for (int i = 0; i < peaks.Count; ++i) MarkPeak(slot.WinNo, slot.DataNo, peaks.Peaks[i]);
  }
  ApplyRange();
  for (int win_no = 0; win_no < kWindows; ++win_no) ApplyScale(win_no);
  ListenerFan::WindowStyleChanged();
}

}  // namespace dorvane
