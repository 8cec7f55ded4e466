#include "program/RoiCommands.h"

#include <algorithm>

#include "program/Cursor.h"
#include "program/View.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// The range between mnuRoiStart and mnuRoiEnd, which are cleared once both are there and differ.
AreaRegion TakeBounds(ViewState& view) {
  if (view.RoiStart == kNoEnd || view.RoiEnd == kNoEnd || view.RoiStart == view.RoiEnd) return {};
  const auto [start, end] = std::minmax(view.RoiStart, view.RoiEnd);
  const AreaRegion range{start, end, true};
  view.RoiStart = kNoEnd;
  view.RoiEnd = kNoEnd;
  return range;
}

AreaRegion TakeRange(Program& program) {
  AreaRegion range;
  // While the area cursor is off its ends are those of the next fit.
  if (program.view.AreaOn != kFalse) range = TakeArea(program);
  return range.valid ? range : TakeBounds(program.view);
}

void SetBound(Program& program, std::int16_t& bound) {
  bound = program.view.CursorCh;
  if (program.view.AreaOn == kFalse) return;
  const AreaRegion range = TakeBounds(program.view);
  if (range.valid) SetArea(program, range.start, range.end);
}

void ScrollIntoView(Program& program, int start, int end) {
  const double span = program.view.SpanCh;
  const double first = program.view.StartCh;
  if (start < first || end - start + 1 > span) {
    SetStartCh(program, start);
  } else if (end > first + span - 1) {
    SetStartCh(program, end - span + 1);
  }
}

}  // namespace

void SetRoiStart(Program& program) {
  SetBound(program, program.view.RoiStart);
}

void SetRoiEnd(Program& program) {
  SetBound(program, program.view.RoiEnd);
}

void AddRoi(Program& program) {
  if (!HoldsGraph(program.workspace, program.view.GraphNo)) return;
  const GraphSlot& slot = program.workspace.Slots[program.view.GraphNo];
  const AreaRegion range = TakeRange(program);
  if (!range.valid) return;
  RoiAdd(program.List(), slot.WinNo, slot.DataNo, range.start, range.end, slot.Color);
  program.Listener().RedrawWanted(slot.WinNo);
}

void DeleteRoi(Program& program) {
  if (!HoldsGraph(program.workspace, program.view.GraphNo)) return;
  const GraphSlot& slot = program.workspace.Slots[program.view.GraphNo];
  const int index = RoiFind(program.workspace, slot.DataNo, program.view.CursorCh);
  if (index < 0) return;
  RoiDelete(program.List(), slot.WinNo, index);
  program.Listener().RedrawWanted(slot.WinNo);
}

void RoiJump(Program& program, int direction) {
  const int index = RoiJumpTarget(program.workspace, program.view.CursorCh, direction);
  if (index < 0) return;
  const RoiRec& roi = program.workspace.Regions.Rois[index];
  ScrollIntoView(program, roi.Start, roi.End);
  CsrX_Change(program, RoundToInt16(roi.PeakCh));
}

void RoiJumpLeft(Program& program) {
  RoiJump(program, 0);
}

void RoiJumpRight(Program& program) {
  RoiJump(program, 1);
}

}  // namespace dorvane
