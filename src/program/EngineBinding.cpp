#include "program/EngineBinding.h"

#include <algorithm>
#include <cmath>

#include "display/DrawScale.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"
#include "workspace/GraphList.h"

namespace dorvane {
namespace {

constexpr std::int32_t kLogNominal = 10000000;
constexpr std::int16_t kFirstChannel = 0;

// Channel of a peak's line; -1 where its centre lies outside of all channels.
std::int16_t LineChannel(const PeakRec& peak) {
  if (!(peak.Center >= 0 && peak.Center < kMaxChannels - 1)) return -1;
  return RoundToInt16(peak.Center);
}

}  // namespace

std::int32_t EngineHeight(const ViewState& view) {
  return view.LogScale != kFalse ? kLogNominal : view.HeightY;
}

void EngineBinding::SpectrumShown(int WinNo, int DataNo) {
  if (view_.ExpandOn == kFalse) spect_.ClearPoints(1 - ViewOf(WinNo), DataNo);
  spect_.SetSpectrum(ViewOf(WinNo), DataNo, workspace_.Channels[DataNo].Used(),
                     workspace_.ColorTbl[DataNo]);
  outside_.SpectrumShown(WinNo, DataNo);
}

void EngineBinding::SpectrumRemoved(int WinNo, int DataNo) {
  spect_.ClearPoints(ViewOf(WinNo), DataNo);
  outside_.SpectrumRemoved(WinNo, DataNo);
}

void EngineBinding::GraphShown(int WinNo, int DataNo, bool shown) {
  spect_.ShowGraph(ViewOf(WinNo), DataNo, shown ? kTrue : kFalse);
  outside_.GraphShown(WinNo, DataNo, shown);
}

void EngineBinding::MarkPeak(int WinNo, int DataNo, const PeakRec& peak) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, peak.RegionStart, peak.RegionEnd,
                       workspace_.ColorTbl[kColorPeakCurve]);
  const std::int16_t channel = LineChannel(peak);
  if (channel >= 0) spect_.AddPeakLine(ViewOf(WinNo), channel);
}

void EngineBinding::PeakMarked(int WinNo, int DataNo, const PeakRec& peak) {
  MarkPeak(WinNo, DataNo, peak);
  outside_.PeakMarked(WinNo, DataNo, peak);
}

void EngineBinding::PeakUnmarked(int WinNo, int DataNo, const PeakRec& peak) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, peak.RegionStart, peak.RegionEnd, 0);
  const auto channels = spect_.PeakLinesOf(ViewOf(WinNo)).Channels();
  const auto found = std::find(channels.begin(), channels.end(), LineChannel(peak));
  if (found != channels.end()) {
    spect_.DeletePeakLine(ViewOf(WinNo), ToInt16(found - channels.begin()), kFalse);
  }
  outside_.PeakUnmarked(WinNo, DataNo, peak);
}

void EngineBinding::PeakLinesCleared(int WinNo) {
  spect_.DeletePeakLine(WinNo, -1, kFalse);
  outside_.PeakLinesCleared(WinNo);
}

void EngineBinding::PointMarksCleared(int WinNo, int DataNo) {
  spect_.SetPointColor(ViewOf(WinNo), DataNo, 0, kMaxChannels, 0);
  spect_.ClearTexts(WinNo);
  outside_.PointMarksCleared(WinNo, DataNo);
}

void EngineBinding::WindowCleared(int WinNo) {
  spect_.ClearView(WinNo);
  spect_.DeletePeakLine(WinNo, -1, kFalse);
  outside_.WindowCleared(WinNo);
}

void EngineBinding::ApplyScale(int WinNo) {
  spect_.SetYScale(WinNo, view_.LogScale != kFalse ? kLogarithmic : kLinear, EngineHeight(view_));
  const bool log_scale = view_.LogScale != kFalse;
  spect_.SetDivisions(WinNo, CountTicksOf(log_scale ? kLogDecades : view_.HeightY).Divisions);
}

void EngineBinding::CountScaleChanged(int WinNo) {
  ApplyScale(WinNo);
  outside_.CountScaleChanged(WinNo);
}

void EngineBinding::ApplyRange() {
  const bool expanded = view_.ExpandOn != kFalse;
  spect_.SetWidthX(0, expanded ? workspace_.MaxCh : RoundToInt16(view_.SpanCh));
  spect_.SetStartX(0, expanded ? kFirstChannel : RoundToInt16(view_.StartCh));
  spect_.SetWidthX(1, RoundToInt16(view_.SpanCh));
  spect_.SetStartX(1, RoundToInt16(view_.StartCh));
}

void EngineBinding::RangeChanged() {
  ApplyRange();
  outside_.RangeChanged();
}

void EngineBinding::Register(const GraphSlot& slot) {
  const int view = ViewOf(slot.WinNo);
  spect_.SetSpectrum(view, slot.DataNo, workspace_.Channels[slot.DataNo].Used(), slot.Color);
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
    if (slot.State == kRowEmpty || KindOf(slot.Title) == GraphKind::Fit) continue;
    const PeakTable& peaks = workspace_.Peaks[slot.DataNo];
    for (int i = 0; i < peaks.Count; ++i) MarkPeak(slot.WinNo, slot.DataNo, peaks.Peaks[i]);
  }
  ApplyRange();
  for (int win_no = 0; win_no < kWindows; ++win_no) ApplyScale(win_no);
  outside_.WindowStyleChanged();
}

void EngineBinding::SelectorFilled() {
  outside_.SelectorFilled();
}
void EngineBinding::SelectorRowSelected(int WinNo, int GrpNo) {
  outside_.SelectorRowSelected(WinNo, GrpNo);
}
void EngineBinding::CheckBoxesFilled() {
  outside_.CheckBoxesFilled();
}
void EngineBinding::SelectionListFilled() {
  outside_.SelectionListFilled();
}
void EngineBinding::SelectionRowCleared(int GrpNo) {
  outside_.SelectionRowCleared(GrpNo);
}
void EngineBinding::RedrawWanted(int WinNo) {
  outside_.RedrawWanted(WinNo);
}
void EngineBinding::WindowActivated(int WinNo) {
  outside_.WindowActivated(WinNo);
}
void EngineBinding::UnitAxisChanged() {
  outside_.UnitAxisChanged();
}
void EngineBinding::CursorMoved() {
  outside_.CursorMoved();
}
void EngineBinding::CalibrationShown() {
  outside_.CalibrationShown();
}
void EngineBinding::CaptionChanged() {
  outside_.CaptionChanged();
}
void EngineBinding::PointerChanged() {
  outside_.PointerChanged();
}
void EngineBinding::DataTypeShown() {
  outside_.DataTypeShown();
}

}  // namespace dorvane
