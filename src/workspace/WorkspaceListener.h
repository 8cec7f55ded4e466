// What the list, the tables and the view tell their listeners: at once, and in the order in which
// it happens.
#pragma once

#include <cstdint>
#include <string_view>

#include "support/Surface.h"

namespace dorvane {

struct PeakRec;

// Every call has an empty body, so that a listener overrides what it shows.
class WorkspaceListener {
 public:
  virtual ~WorkspaceListener() = default;

  // The list.
  virtual void SelectorFilled() {}  // Add_cboGraphSel
  virtual void SelectorRowSelected(int /*WinNo*/, int /*GrpNo*/) {}
  virtual void CheckBoxesFilled() {}                            // all of chkGrp anew
  virtual void SelectionListFilled() {}                         // GraphSel_Repl
  virtual void SelectionRowCleared(int /*GrpNo*/) {}            // GraphSel_Delete
  virtual void SpectrumShown(int /*WinNo*/, int /*DataNo*/) {}  // SetGraph: counts, colour
  virtual void SpectrumRemoved(int /*WinNo*/, int /*DataNo*/) {}
  // A derived curve has been worked out of a spectrum, itself perhaps; its DataNo may have held
  // another graph before.
  virtual void CurveMade(int /*DataNo*/, int /*source*/) {}
  virtual void GraphShown(int /*WinNo*/, int /*DataNo*/, bool /*shown*/) {}
  virtual void GraphRecolored(int /*WinNo*/, int /*DataNo*/, Color) {}

  // Files, by the paths that were given.
  virtual void FileRead(std::string_view /*path*/) {}     // a graph has been made of it
  virtual void FileWritten(std::string_view /*path*/) {}  // a graph has been saved in it
  virtual void FileNotRead(std::string_view /*path*/) {}
  virtual void FileNotWritten(std::string_view /*path*/) {}

  // Marks.
  virtual void PeakMarked(int /*WinNo*/, int /*DataNo*/, const PeakRec&) {}
  virtual void PeakUnmarked(int /*WinNo*/, int /*DataNo*/, const PeakRec&) {}
  virtual void PeakLinesCleared(int /*WinNo*/) {}
  virtual void PointMarksCleared(int /*WinNo*/, int /*DataNo*/) {}  // own colours and text marks
  virtual void RoiMarked(int /*WinNo*/, int /*DataNo*/, int /*start*/, int /*end*/, Color) {}
  virtual void RoiUnmarked(int /*WinNo*/, int /*DataNo*/, int /*start*/, int /*end*/, Color) {}
  virtual void RegionsChanged() {}  // the table of regions, after the change

  // The view.
  virtual void WindowCleared(int /*WinNo*/) {}
  virtual void RedrawWanted(int /*WinNo*/) {}
  virtual void WindowStyleChanged() {}  // Expand, PileUp: which window shows which curves and range
  virtual void WindowActivated(int /*WinNo*/) {}
  virtual void UnitAxisChanged() {}
  virtual void CountScaleChanged(int /*WinNo*/) {}
  virtual void RangeChanged() {}      // StartCh, SpanCh
  virtual void CursorMoved() {}       // cursor and area cursor
  virtual void CalibrationShown() {}  // SetEGCParam
  virtual void CaptionChanged() {}
  virtual void ButtonsChanged() {}  // which buttons can be pressed
  virtual void PointerChanged() {}
  virtual void DataTypeShown() {}  // cursor read-outs by DataType
};

}  // namespace dorvane
