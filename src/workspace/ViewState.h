// What the main form shows and works on: windows, current row, cursor, area cursor, span and scale.
#pragma once

#include <cstdint>
#include <string>

#include "support/Fixed.h"
#include "support/Rounding.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Values of ViewState::WinStyle.
constexpr std::int16_t kLineUp = 0;
constexpr std::int16_t kPileUp = 1;
constexpr std::int16_t kPileUpSwitched = 2;

// Pointer shapes by their numbers in the system.
constexpr std::int16_t kPointerNormal = 0;
constexpr std::int16_t kPointerArrow = 1;
constexpr std::int16_t kPointerHourglass = 11;
constexpr std::int16_t kPointerArrowHourglass = 13;

// Whether a pointer tells to wait.
constexpr bool Waits(std::int16_t pointer) {
  return pointer == kPointerHourglass || pointer == kPointerArrowHourglass;
}

constexpr std::int16_t kNoEnd = -1;

// Whether the four buttons of tlbrOperation that depend on the fit can be pressed.
struct OperationButtons {
  bool AutoFit = true;
  bool AllFit = true;
  bool ManFit = false;
  bool MkDel = false;

  friend bool operator==(const OperationButtons&, const OperationButtons&) = default;
};

struct ViewState {
  std::int16_t CurWin = 0;                           // active window
  std::int16_t GraphNo = 0;                          // current row
  std::int16_t DataNo = 0;                           // its spectrum
  Fixed<std::int16_t, 0, kWindows - 1> SelectedRow;  // list index of cboGrphSel; -1 none

  double StartCh = 0;    // first channel shown
  double SpanCh = 4096;  // channels shown
  std::int16_t DispUnit = 0;
  std::int16_t CursorCh = 0;  // the value of inumCursorCh
  double CursorExact = 0;     // the same with the fraction of a peak that it jumped to

  std::int16_t AreaOn = kFalse;  // chkArea
  std::int16_t AreaStart = kNoEnd;
  std::int16_t AreaEnd = kNoEnd;
  std::int16_t RoiStart = kNoEnd;  // bounds of the next region: mnuRoiStart, mnuRoiEnd
  std::int16_t RoiEnd = kNoEnd;

  std::int16_t WinStyle = kLineUp;
  std::int16_t WinStyleOld = kLineUp;
  std::int16_t PileUpOn = kFalse;                 // chkWinStyle
  std::int16_t ExpandOn = kFalse;                 // ckbExpand
  Fixed<std::int16_t, 0, kWindows - 1> FilePile;  // chkFilePile

  std::int16_t LogScale = kFalse;   // ckbLogScale
  std::int16_t NorScale = kFalse;   // ckbNorScale
  std::int16_t AutoScale = kTrue;   // ckbVtAuto
  int WidthY = 0;                   // value of hsbWidthY
  std::int32_t HeightY = 10000000;  // stored height of itxtScaleY

  OperationButtons Buttons;
  std::int16_t CalibrationOn = kFalse;  // between EneCalStart and EneCalEnd
  std::int16_t FitMade = kFalse;        // a fit has been done since the last open
  std::int16_t Pointer = kPointerNormal;
  std::string Caption;            // of the main window
  std::string CloseGraphCaption;  // of mnuCloseGraph
};

// A new open starts with the buttons as they are at first.
inline void tlbOperationInit(ViewState& view) {
  view.Buttons = OperationButtons{};
}

}  // namespace dorvane
