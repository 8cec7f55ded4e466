#include "program/EngineBinding.h"

#include <algorithm>
#include <cmath>

#include "display/DrawScale.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr std::int32_t kLogNominal = 10000000;

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
  spect_.ClearPoints(1 - WinNo, DataNo);
  spect_.SetSpectrum(WinNo, DataNo, workspace_.Channels[DataNo].Used(),
                     workspace_.ColorTbl[DataNo]);
  outside_.SpectrumShown(WinNo, DataNo);
}

void EngineBinding::SpectrumRemoved(int WinNo, int DataNo) {
  spect_.ClearPoints(WinNo, DataNo);
  outside_.SpectrumRemoved(WinNo, DataNo);
}

void EngineBinding::GraphShown(int WinNo, int DataNo, bool shown) {
  spect_.ShowGraph(WinNo, DataNo, shown ? kTrue : kFalse);
  outside_.GraphShown(WinNo, DataNo, shown);
}

void EngineBinding::PeakMarked(int WinNo, int DataNo, const PeakRec& peak) {
  spect_.SetPointColor(WinNo, DataNo, peak.RegionStart, peak.RegionEnd,
                       workspace_.ColorTbl[kColorPeakCurve]);
  const std::int16_t channel = LineChannel(peak);
  if (channel >= 0) spect_.AddPeakLine(WinNo, channel);
  outside_.PeakMarked(WinNo, DataNo, peak);
}

void EngineBinding::PeakUnmarked(int WinNo, int DataNo, const PeakRec& peak) {
  spect_.SetPointColor(WinNo, DataNo, peak.RegionStart, peak.RegionEnd, 0);
  const auto channels = spect_.PeakLinesOf(WinNo).Channels();
  const auto found = std::find(channels.begin(), channels.end(), LineChannel(peak));
  if (found != channels.end()) {
    spect_.DeletePeakLine(WinNo, ToInt16(found - channels.begin()), kFalse);
  }
  outside_.PeakUnmarked(WinNo, DataNo, peak);
}

void EngineBinding::PeakLinesCleared(int WinNo) {
  spect_.DeletePeakLine(WinNo, -1, kFalse);
  outside_.PeakLinesCleared(WinNo);
}

void EngineBinding::PointMarksCleared(int WinNo, int DataNo) {
  spect_.SetPointColor(WinNo, DataNo, 0, kMaxChannels, 0);
  spect_.ClearTexts(WinNo);
  outside_.PointMarksCleared(WinNo, DataNo);
}

void EngineBinding::WindowCleared(int WinNo) {
  spect_.ClearView(WinNo);
  spect_.DeletePeakLine(WinNo, -1, kFalse);
  outside_.WindowCleared(WinNo);
}

void EngineBinding::CountScaleChanged(int WinNo) {
  spect_.SetYScale(WinNo, view_.LogScale != kFalse ? kLogarithmic : kLinear, EngineHeight(view_));
  const bool log_scale = view_.LogScale != kFalse;
  spect_.SetDivisions(WinNo, CountTicksOf(log_scale ? kLogDecades : view_.HeightY).Divisions);
  outside_.CountScaleChanged(WinNo);
}

void EngineBinding::RangeChanged() {
  for (int view = 0; view < kWindows; ++view) {
    spect_.SetWidthX(view, RoundToInt16(view_.SpanCh));
    spect_.SetStartX(view, RoundToInt16(view_.StartCh));
  }
  outside_.RangeChanged();
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
