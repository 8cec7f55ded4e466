// A picture that takes mouse events: a graph, an axis, a pin. What it shows is drawn by whoever
// shows the form.
#pragma once

#include "forms/Control.h"

namespace dorvane {

enum class MouseButton { None, Left, Right };

// Where the pointer is, as fractions of the picture from its upper left corner; outside of 0..1
// while a drag has left it.
struct MouseAt {
  double x = 0;
  double y = 0;
  MouseButton button = MouseButton::None;
  bool shift = false;
};

class PictureBox : public Control {
 public:
  using Control::Control;
  void Accept(ControlVisitor& visitor) override;
  // The picture is out of date; whoever shows it draws it anew before the next frame.
  void Redraw() { RedrawWanted.Fire(); }
  // What moves over the picture has moved.
  void RedrawOverlay() { OverlayWanted.Fire(); }
  int Pointer() const { return pointer_; }
  void SetPointer(int pointer) { Store(pointer_, pointer); }

  Event<> RedrawWanted;
  Event<> OverlayWanted;
  Event<const MouseAt&> MouseDown;
  Event<const MouseAt&> MouseMove;
  Event<const MouseAt&> MouseUp;
  Event<const MouseAt&> DblClick;
  Event<const MouseAt&, int> Wheel;  // steps, positive away from the user

 private:
  int pointer_ = 0;
};

}  // namespace dorvane
