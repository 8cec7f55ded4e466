#include "program/Cursor.h"

#include <algorithm>
#include <cmath>

#include "processing/PeakOpe.h"
#include "program/View.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

std::int16_t Limited(double channel, int top) {
  return RoundToInt16(std::clamp(channel, 0.0, static_cast<double>(top)));
}

void ShowCursor(Program& program, std::int16_t channel, double exact) {
  program.view.CursorCh = channel;
  program.view.CursorExact = exact;
  FollowCursor(program);
  program.Listener().CursorMoved();
}

}  // namespace

void spnCursor_SpinUpDown(Program& program, std::string_view text) {
  const int max_ch = program.workspace.MaxCh;
  const int old = program.view.CursorCh;
  double target = old;
  // KEPT: the buttons reach the channel behind the last one, from which a step by a number comes
  // back: one counts channels, the other goes to them.
  if (text == "+") {
    target = old >= max_ch ? old : old + 1;
    ShowCursor(program, Limited(target, max_ch), target);
    return;
  }
  if (text == "-") {
    target = old - 1;
  } else if (const auto number = ParseNumber(text)) {
    const bool relative = text.front() == '+' || text.front() == '-';
    target = relative ? old + *number : *number;
  } else {
    return;
  }
  const std::int16_t channel = Limited(target, max_ch - 1);
  ShowCursor(program, channel, channel);
}

void CsrX_Change(Program& program, int channel) {
  const std::int16_t limited = Limited(channel, program.workspace.MaxCh - 1);
  ShowCursor(program, limited, limited);
}

void SetFullRange(Program& program) {
  program.view.AreaStart = 0;
  program.view.AreaEnd = program.workspace.MaxCh;
  program.Listener().CursorMoved();
}

void ToggleAreaCursor(Program& program) {
  program.view.AreaOn = program.view.AreaOn == kFalse ? kTrue : kFalse;
  if (program.view.AreaOn == kFalse) SetFullRange(program);
  program.Listener().CursorMoved();
}

void SetArea(Program& program, int start, int end) {
  program.view.AreaStart = ToInt16(std::min(start, end));
  program.view.AreaEnd = ToInt16(std::max(start, end));
  program.Listener().CursorMoved();
}

AreaRegion TakeArea(Program& program) {
  const AreaRegion area = GetRegions(program.view);
  program.Listener().CursorMoved();
  return area;
}

void PeakJump(Program& program, int direction) {
  const std::int16_t data_no = program.view.DataNo;
  const PeakTable& table = program.workspace.Peaks[data_no];
  const int index = PeakJumpTarget(program.workspace, data_no, program.view.CursorCh,
                                   direction == 0 ? JumpDirection::Left : JumpDirection::Right);
  if (index >= 0) {
    const double center = table.Peaks[index].Center;
    ShowCursor(program, Limited(RoundHalfEven(center), program.workspace.MaxCh - 1), center);
  }
  if (program.view.AreaOn == kFalse) return;
  const int at = PeakFindAt(program.workspace, data_no, program.view.CursorCh);
  if (at < 0) return;
  const PeakRec& peak = table.Peaks[at];
  const double last = program.workspace.MaxCh;
  SetArea(program, RoundToInt16(std::max(peak.Center - 2 * peak.HalfWidth, 0.0)),
          RoundToInt16(std::min(2 * peak.HalfWidth + peak.Center, last)));
}

double CsrChannel(Program& program) {
  const PeakTable& table = program.workspace.Peaks[program.view.DataNo];
  const double cursor = program.view.CursorCh;
  const PeakRec* nearest = nullptr;
  for (int i = 0; i < table.Count; ++i) {
    const PeakRec& peak = table.Peaks[i];
    if (nearest == nullptr ||
        std::fabs(peak.Center - cursor) < std::fabs(nearest->Center - cursor)) {
      nearest = &peak;
    }
  }
  if (nearest == nullptr) return -1;
  const double center = nearest->Center;
  ShowCursor(program, Limited(RoundHalfEven(center), program.workspace.MaxCh - 1), center);
  return center;
}

}  // namespace dorvane
