#include "forms/GraphPanel.h"

#include <algorithm>
#include <cmath>

#include "display/DrawScale.h"
#include "forms/CursorPanel.h"
#include "program/View.h"
#include "program/WholeRange.h"
#include "program/WindowContent.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr int kScrollEveryMs = 50;
constexpr double kReachShare = 0.006;  // of the width: how near an edge is taken
constexpr double kWheelZoom = 0.8;     // of the span, for one step
constexpr double kScrollShare = 0.1;   // of the span, for one step

void Scroll(Program& program, int steps) {
  SetStartCh(program, program.view.StartCh - steps * kScrollShare * program.view.SpanCh);
}

}  // namespace

GraphPanel::GraphPanel(PanelWork& work)
    : work_(work),
      fraGraph(work.controls, "fraGraph", kWindows),
      picGraph(work.controls, "picGraph", kWindows),
      picScaleY(work.controls, "picScaleY", kWindows),
      picSubScale(work.controls, "picSubScale", kWindows),
      timCursor(work.controls, "timCursor", kScrollEveryMs) {
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    picGraph[win_no].SetPointer(kPointerCursor);
    ConnectGraph(win_no);
    ConnectAxes(win_no);
  }
  timCursor.Ticked.Connect([this] { timCursor_Timer(); });
}

void GraphPanel::ConnectGraph(int win_no) {
  PictureBox& graph = picGraph[win_no];
  graph.MouseDown.Connect([this, win_no](const MouseAt& at) { picGraph_MouseDown(win_no, at); });
  graph.MouseMove.Connect([this, win_no](const MouseAt& at) { picGraph_MouseMove(win_no, at); });
  graph.MouseUp.Connect([this](const MouseAt& at) { picGraph_MouseUp(at); });
  graph.Wheel.Connect(
      [this, win_no](const MouseAt& at, int steps) { picGraph_Wheel(win_no, at, steps); });
}

void GraphPanel::ConnectAxes(int win_no) {
  picScaleY[win_no].Wheel.Connect([this](const MouseAt&, int steps) {
    work_.Do([steps](Program& program) {
      for (int i = 0; i < std::abs(steps); ++i) steps > 0 ? mnuShoter(program) : mnuTaller(program);
    });
  });
  picScaleY[win_no].DblClick.Connect([this](const MouseAt&) {
    work_.Do([](Program& program) {
      AutoScaleY(program, GetRealWinNo(program.List()), program.view.DataNo);
    });
  });
  picSubScale[win_no].Wheel.Connect([this](const MouseAt&, int steps) {
    work_.Do([steps](Program& program) { Scroll(program, steps); });
  });
  picSubScale[win_no].DblClick.Connect([this](const MouseAt&) { work_.Do(ShowOpenSpectra); });
}

double GraphPanel::ChannelAt(int win_no, double x) const {
  const ViewScale& scale = work_.program.spect.Scale(win_no);
  return scale.StartX + x * (scale.EndX - scale.StartX);
}

double GraphPanel::Reach(int win_no) const {
  return std::max(kReachShare * work_.program.spect.Scale(win_no).WidthX, 0.5);
}

void GraphPanel::picGraph_MouseDown(int win_no, const MouseAt& at) {
  if (at.button != MouseButton::Left) return;
  work_.Do([this, win_no, &at](Program& program) {
    const double channel = ChannelAt(win_no, std::clamp(at.x, 0.0, 1.0));
    drag_ = Drag{win_no, at.x, BeginDrag(program, win_no, channel, Reach(win_no))};
  });
}

// A release that came while a box was open has not been told.
void GraphPanel::picGraph_MouseMove(int win_no, const MouseAt& at) {
  if (drag_ && at.button != MouseButton::Left) EndDrag();
  const double channel = ChannelAt(win_no, at.x);
  if (!drag_) {
    switch (TargetAt(work_.program, win_no, channel, Reach(win_no))) {
      case MouseTarget::AreaEdge:
        picGraph[win_no].SetPointer(picWidthIcon);
        break;
      case MouseTarget::RangeMark:
        picGraph[win_no].SetPointer(picFingerIco);
        break;
      case MouseTarget::Cursor:
        picGraph[win_no].SetPointer(kPointerCursor);
        break;
    }
    return;
  }
  if (drag_->win_no != win_no) return;
  drag_->x = at.x;
  timCursor.SetEnabled(Scrolls(*drag_));
  work_.Do([this, channel](Program& program) { DragTo(program, drag_->what, channel); });
}

void GraphPanel::picGraph_MouseUp(const MouseAt& at) {
  if (at.button == MouseButton::Left && drag_) EndDrag();
}

void GraphPanel::EndDrag() {
  drag_.reset();
  timCursor.SetEnabled(false);
  work_.Done.Fire();
}

// Window 0 of an expansion shows all channels: there is nowhere to scroll.
bool GraphPanel::Scrolls(const Drag& drag) const {
  const bool whole = work_.program.view.ExpandOn != kFalse && drag.win_no == 0;
  return !whole && (drag.x < 0 || drag.x > 1);
}

void GraphPanel::timCursor_Timer() {
  if (!drag_) return;
  work_.Do([this](Program& program) {
    ScrollDrag(program, drag_->x < 0 ? -1 : 1);
    DragTo(program, drag_->what, ChannelAt(drag_->win_no, std::clamp(drag_->x, 0.0, 1.0)));
  });
}

void GraphPanel::picGraph_Wheel(int win_no, const MouseAt& at, int steps) {
  work_.Do([this, win_no, &at, steps](Program& program) {
    if (at.shift) {
      Scroll(program, steps);
    } else {
      ZoomAbout(program, ChannelAt(win_no, at.x), std::pow(kWheelZoom, steps));
    }
  });
}

void GraphPanel::RedrawGraph(int win_no) {
  picGraph[win_no].Redraw();
}

void GraphPanel::RedrawAxes() {
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    picScaleY[win_no].Redraw();
    picSubScale[win_no].Redraw();
  }
}

void GraphPanel::RedrawOverlays() {
  for (int win_no = 0; win_no < kWindows; ++win_no) picGraph[win_no].RedrawOverlay();
}

void GraphPanel::DrawGraph(int win_no, Surface& surface) const {
  DrawSpect& spect = work_.program.spect;
  spect.SetDivisions(win_no, CountTicksOf(AxisHeight(work_.program, win_no)).Divisions);
  spect.SetSurface(win_no, &surface);
  spect.Redraw(win_no);
  spect.SetSurface(win_no, nullptr);
}

void GraphPanel::DrawOverlay(int win_no, Surface& surface, CursorForm form) const {
  const std::vector<ChannelRange> regions = RegionsOf(work_.program, win_no);
  Overlay overlay = OverlayOf(win_no, form);
  overlay.Regions = regions;
  work_.program.spect.DrawOverlay(win_no, surface, overlay);
}

void GraphPanel::DrawCountAxis(int win_no, Surface& panel) const {
  dorvane::DrawCountAxis(panel, AxisHeight(work_.program, win_no), Ink());
  panel.SetScale(0, 0, 1, 1);
  panel.Box({1, 0}, {1, 1}, Ink(), 1);
}

void GraphPanel::DrawUnitAxis(int win_no, Surface& panel, int divisions) const {
  const Program& program = work_.program;
  const ViewScale& scale = program.spect.Scale(win_no);
  dorvane::DrawUnitAxis(panel, program.workspace, AxisDataNo(program, win_no),
                        program.view.DispUnit, divisions, scale.WidthX, scale.StartX, Ink());
  panel.SetScale(0, 0, 1, 1);
  panel.Box({0, 0}, {1, 0}, Ink(), 1);
}

Color GraphPanel::GroundOf(int win_no) const {
  return work_.program.workspace.ColorTbl[kColorWindowBack + win_no];
}

Color GraphPanel::Ink() const {
  return work_.program.workspace.ColorTbl[kColorAxis];
}

std::string_view GraphPanel::HintOf(int win_no) const {
  if (ShowsGraph(work_.program, win_no)) return {};
  return win_no == 0 ? "Open a spectrum: Ctrl+O, or drop files here"
                     : "Check a curve in the list at the right to show it here";
}

Overlay GraphPanel::OverlayOf(int win_no, CursorForm form) const {
  const Program& program = work_.program;
  const ViewState& view = program.view;
  const ColorTable& colors = program.workspace.ColorTbl;
  Overlay overlay;
  overlay.CursorOn = ShowsGraph(program, win_no) && view.FilePile[win_no] != kFalse;
  overlay.Form = form;
  overlay.CursorChannel = view.CursorExact;
  if (const GraphSlot* slot = CountedGraph(program, win_no)) {
    const auto& block = program.workspace.Channels[slot->DataNo];
    if (view.CursorCh < block.Count) overlay.CursorCount = block.Counts[view.CursorCh];
  }
  overlay.CursorColor = colors[kColorCursor];
  overlay.Area = {view.AreaOn != kFalse && view.CurWin == win_no, view.AreaStart, view.AreaEnd,
                  colors[kColorArea]};
  if (view.ExpandOn != kFalse && win_no == 0) {
    overlay.Range = {true, RoundToInt16(view.StartCh), RoundToInt16(view.StartCh + view.SpanCh - 1),
                     colors[kColorExpandArea]};
  }
  return overlay;
}

}  // namespace dorvane
