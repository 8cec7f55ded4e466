// The two graph windows of the main form: pictures and axes with what the mouse does there, and the
// timer that scrolls while a drag is held past an edge.
#pragma once

#include <optional>

#include "display/Overlay.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/PanelWork.h"
#include "forms/PictureBox.h"
#include "program/GraphMouse.h"

namespace dorvane {

// Pointers of a graph, by their numbers in the system.
constexpr int kPointerCursor = 2;  // a cross: sets the cursor
constexpr int picWidthIcon = 9;    // near an edge of the area
constexpr int picFingerIco = 5;    // on the range mark

class GraphPanel {
 public:
  explicit GraphPanel(PanelWork& work);

  // What a window shows, drawn on the surface of its control. Axes draw over the window's ground
  // (GroundOf), the graph clears its own.
  void DrawGraph(int win_no, Surface& surface) const;
  void DrawOverlay(int win_no, Surface& surface, CursorForm form) const;
  void DrawCountAxis(int win_no, Surface& panel) const;
  // `divisions` of the range, as many as the panel has room for.
  void DrawUnitAxis(int win_no, Surface& panel, int divisions) const;
  Color GroundOf(int win_no) const;
  Color Ink() const;
  // What a window without a graph says in place of one; empty for one with a graph.
  std::string_view HintOf(int win_no) const;
  // The cursors of a window, without its regions.
  Overlay OverlayOf(int win_no, CursorForm form) const;
  // A window's picture, its axes, or what moves over the pictures, is out of date.
  void RedrawGraph(int win_no);
  void RedrawAxes();
  void RedrawOverlays();
  // The window whose frame is in front.
  int ActiveWindow() const { return work_.program.view.CurWin; }

 private:
  PanelWork& work_;

 public:
  ControlArray<Frame> fraGraph;  // by WinNo, as all of them
  ControlArray<PictureBox> picGraph;
  ControlArray<PictureBox> picScaleY;    // wheel: height; double click: the height that fits
  ControlArray<PictureBox> picSubScale;  // wheel: scrolls; double click: all channels
  Timer timCursor;                       // on while a drag is held past an edge

 private:
  struct Drag {
    int win_no;
    double x;
    GraphDrag what;
  };
  void ConnectGraph(int win_no);
  void ConnectAxes(int win_no);
  void picGraph_MouseDown(int win_no, const MouseAt& at);
  void picGraph_MouseMove(int win_no, const MouseAt& at);
  void picGraph_MouseUp(const MouseAt& at);
  void EndDrag();
  void picGraph_Wheel(int win_no, const MouseAt& at, int steps);
  void timCursor_Timer();
  double ChannelAt(int win_no, double x) const;
  double Reach(int win_no) const;
  bool Scrolls(const Drag& drag) const;

  std::optional<Drag> drag_;
};

}  // namespace dorvane
