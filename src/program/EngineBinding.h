// Keeps the drawing engine in step with the list, the tables and the view, then passes every notice
// on to the outside.
#pragma once

#include <map>
#include <set>

#include "display/DrawSpect.h"
#include "workspace/ListenerFan.h"
#include "workspace/ViewState.h"
#include "workspace/Workspace.h"

namespace dorvane {

// The height of the engine's count scale in a view state: seven decades on the logarithmic scale,
// whatever the data.
std::int32_t EngineHeight(const ViewState& view);

class EngineBinding : public ListenerFan {
 public:
  // All of them outlive the binding.
  EngineBinding(const Workspace& workspace, const ViewState& view, DrawSpect& spect,
                WorkspaceListener& outside)
      : ListenerFan(outside), workspace_(workspace), view_(view), spect_(spect) {}

  void SpectrumShown(int WinNo, int DataNo) override;
  void SpectrumRemoved(int WinNo, int DataNo) override;
  void GraphShown(int WinNo, int DataNo, bool shown) override;
  void GraphRecolored(int WinNo, int DataNo, Color color) override;
  void PeakMarked(int WinNo, int DataNo, const PeakRec& peak) override;
  void PeakUnmarked(int WinNo, int DataNo, const PeakRec& peak) override;
  void PeakLinesCleared(int WinNo) override;
  void PointMarksCleared(int WinNo, int DataNo) override;
  void RoiMarked(int WinNo, int DataNo, int start, int end, Color color) override;
  void RoiUnmarked(int WinNo, int DataNo, int start, int end, Color color) override;
  void WindowCleared(int WinNo) override;
  void WindowStyleChanged() override;
  void CountScaleChanged(int WinNo) override;
  void RangeChanged() override;

 private:
  // Whose arrays of the engine hold the curves of a window: all are in the first in pile-up style.
  int ViewOf(int win_no) const { return view_.PileUpOn != kFalse ? 0 : win_no; }
  void Register(const GraphSlot& slot);
  // A curve that is set anew shows its regions again.
  void MarkRegions(int WinNo, int DataNo);
  void MarkPeak(int WinNo, int DataNo, const PeakRec& peak);
  void UnmarkPeak(int WinNo, int DataNo, const PeakRec& peak);
  // Peak marks go with their curve to another window.
  void TakeMarksAlong(int WinNo, int DataNo);
  void ApplyScale(int WinNo);
  void ApplyRange();

  const Workspace& workspace_;
  const ViewState& view_;
  DrawSpect& spect_;
  std::map<int, int> shown_in_;  // the last window of each spectrum
  // Whether the peaks of a spectrum have been marked. A derived curve inherits peaks without their
  // marks.
  std::set<int> marked_;
};

}  // namespace dorvane
