// A listener that passes each notice on to several, in the order in which they were added.
#pragma once

#include <vector>

#include "workspace/WorkspaceListener.h"

namespace dorvane {

// A listener that is added while a notice is on its way hears of the next one on.
class ListenerFan : public WorkspaceListener {
 public:
  ListenerFan() = default;
  explicit ListenerFan(WorkspaceListener& first) { Add(first); }
  ListenerFan(const ListenerFan&) = delete;
  ListenerFan& operator=(const ListenerFan&) = delete;

  // `listener` outlives the fan's last notice.
  void Add(WorkspaceListener& listener) { listeners_.push_back(&listener); }

  void SelectorFilled() override;
  void SelectorRowSelected(int WinNo, int GrpNo) override;
  void CheckBoxesFilled() override;
  void SelectionListFilled() override;
  void SelectionRowCleared(int GrpNo) override;
  void SpectrumShown(int WinNo, int DataNo) override;
  void SpectrumRemoved(int WinNo, int DataNo) override;
  void CurveMade(int DataNo, int source) override;
  void GraphShown(int WinNo, int DataNo, bool shown) override;
  void GraphRecolored(int WinNo, int DataNo, Color color) override;
  void FileRead(std::string_view path) override;
  void FileWritten(std::string_view path) override;
  void FileNotRead(std::string_view path) override;
  void FileNotWritten(std::string_view path) override;
  void PeakMarked(int WinNo, int DataNo, const PeakRec& peak) override;
  void PeakUnmarked(int WinNo, int DataNo, const PeakRec& peak) override;
  void PeakLinesCleared(int WinNo) override;
  void PointMarksCleared(int WinNo, int DataNo) override;
  void RoiMarked(int WinNo, int DataNo, int start, int end, Color color) override;
  void RoiUnmarked(int WinNo, int DataNo, int start, int end, Color color) override;
  void RegionsChanged() override;
  void WindowCleared(int WinNo) override;
  void RedrawWanted(int WinNo) override;
  void WindowStyleChanged() override;
  void WindowActivated(int WinNo) override;
  void UnitAxisChanged() override;
  void CountScaleChanged(int WinNo) override;
  void RangeChanged() override;
  void CursorMoved() override;
  void CalibrationShown() override;
  void CaptionChanged() override;
  void ButtonsChanged() override;
  void PointerChanged() override;
  void DataTypeShown() override;

 private:
  template <typename... Parameters, typename... Arguments>
  void Tell(void (WorkspaceListener::*notice)(Parameters...), const Arguments&... arguments);

  std::vector<WorkspaceListener*> listeners_;
};

}  // namespace dorvane
