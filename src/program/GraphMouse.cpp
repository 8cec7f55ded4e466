#include "program/GraphMouse.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "program/Cursor.h"
#include "program/View.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kScrollChannels = 10;

bool HasArea(const ViewState& view) {
  return view.AreaOn != kFalse && view.AreaStart != kNoEnd && view.AreaEnd != kNoEnd;
}

bool Near(double channel, std::int16_t edge, double reach) {
  return std::fabs(channel - edge) <= reach;
}

std::int16_t ChannelOf(const Program& program, double channel) {
  return RoundToInt16(std::clamp(channel, 0.0, program.workspace.MaxCh - 1.0));
}

}  // namespace

MouseTarget TargetAt(const Program& program, int win_no, double channel, double reach) {
  const ViewState& view = program.view;
  if (HasArea(view) && view.CurWin == win_no &&
      (Near(channel, view.AreaStart, reach) || Near(channel, view.AreaEnd, reach))) {
    return MouseTarget::AreaEdge;
  }
  const bool on_mark = channel >= view.StartCh && channel <= view.StartCh + view.SpanCh - 1;
  if (view.ExpandOn != kFalse && win_no == 0 && view.AreaOn == kFalse && on_mark) {
    return MouseTarget::RangeMark;
  }
  return MouseTarget::Cursor;
}

GraphDrag BeginDrag(Program& program, int win_no, double channel, double reach) {
  const ViewState& view = program.view;
  if (view.CurWin != win_no) ChangeActiveWin(program.List(), win_no);
  GraphDrag drag{TargetAt(program, win_no, channel, reach), 0, channel - view.StartCh};
  const std::int16_t at = ChannelOf(program, channel);
  spnCursor_SpinUpDown(program, std::to_string(at));
  if (drag.target == MouseTarget::AreaEdge) {
    drag.anchor = Near(channel, view.AreaEnd, reach) ? view.AreaStart : view.AreaEnd;
  } else if (view.AreaOn != kFalse) {
    drag.target = MouseTarget::AreaEdge;
    drag.anchor = at;
  }
  return drag;
}

void DragTo(Program& program, const GraphDrag& drag, double channel) {
  switch (drag.target) {
    case MouseTarget::AreaEdge:
      SetArea(program, drag.anchor, ChannelOf(program, channel));
      break;
    case MouseTarget::RangeMark:
      SetStartCh(program, channel - drag.grip);
      break;
    case MouseTarget::Cursor:
      spnCursor_SpinUpDown(program, std::to_string(ChannelOf(program, channel)));
      break;
  }
}

void ScrollDrag(Program& program, int direction) {
  SetStartCh(program, program.view.StartCh + direction * kScrollChannels);
}

}  // namespace dorvane
