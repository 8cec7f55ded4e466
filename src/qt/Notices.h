// Turns what the program tells its listener into signals, so that each part of the window follows
// what it shows.
#pragma once

#include <QObject>

#include "workspace/Workspace.h"
#include "workspace/WorkspaceListener.h"

namespace dorvane {

class Notices : public QObject, public WorkspaceListener {
  Q_OBJECT

 public:
  void SelectorFilled() override { emit ListChanged(); }
  void SelectorRowSelected(int, int) override { emit ListChanged(); }
  void CheckBoxesFilled() override { emit ListChanged(); }
  void SelectionListFilled() override { emit ListChanged(); }
  void SelectionRowCleared(int) override { emit ListChanged(); }
  void SpectrumShown(int WinNo, int) override { emit PictureChanged(WinNo); }
  void SpectrumRemoved(int WinNo, int) override { emit PictureChanged(WinNo); }
  void GraphShown(int WinNo, int, bool) override { emit PictureChanged(WinNo); }
  void PeakMarked(int WinNo, int, const PeakRec&) override { emit PictureChanged(WinNo); }
  void PeakUnmarked(int WinNo, int, const PeakRec&) override { emit PictureChanged(WinNo); }
  void PeakLinesCleared(int WinNo) override { emit PictureChanged(WinNo); }
  void PointMarksCleared(int WinNo, int) override { emit PictureChanged(WinNo); }
  void WindowCleared(int WinNo) override { emit PictureChanged(WinNo); }
  void RedrawWanted(int WinNo) override { emit PictureChanged(WinNo); }
  void RoiMarked(int WinNo, int, int, int, Color) override { emit PictureChanged(WinNo); }
  void RoiUnmarked(int WinNo, int, int, int, Color) override { emit PictureChanged(WinNo); }
  void WindowStyleChanged() override {
    emit ListChanged();
    for (int win_no = 0; win_no < kWindows; ++win_no) emit PictureChanged(win_no);
    emit SpanChanged();
    emit StyleChanged();
  }
  void WindowActivated(int) override { emit ActiveWindowChanged(); }
  void UnitAxisChanged() override { emit UnitChanged(); }
  void CountScaleChanged(int) override { emit HeightChanged(); }
  void RangeChanged() override { emit SpanChanged(); }
  void CursorMoved() override { emit CursorChanged(); }
  void CalibrationShown() override { emit CalibrationChanged(); }
  void CaptionChanged() override { emit CaptionsChanged(); }
  void PointerChanged() override { emit PointerShapeChanged(); }
  void DataTypeShown() override { emit CursorChanged(); }

 signals:
  void ListChanged();
  void StyleChanged();
  void PictureChanged(int win_no);
  void ActiveWindowChanged();
  void UnitChanged();
  void HeightChanged();
  void SpanChanged();
  void CursorChanged();
  void CalibrationChanged();
  void CaptionsChanged();
  void PointerShapeChanged();
};

}  // namespace dorvane
