// What the panels of the main form share: the program behind the boundary at which faults stop, and
// the mark that keeps a panel that fills its controls from acting on them.
#pragma once

#include <functional>

#include "forms/Control.h"
#include "program/Program.h"

namespace dorvane {

class PanelWork {
 public:
  // Both outlive the panels.
  PanelWork(Program& of_program, ControlList& of_controls)
      : program(of_program), controls(of_controls) {}

  // What the user does with a control; a fault shows in a plain box. Nothing while controls are
  // being filled.
  void Do(const std::function<void(Program&)>& operation);
  // Sets controls from the state; their events run no operation meanwhile.
  void Fill(const std::function<void()>& fill);

  Program& program;
  ControlList& controls;
  Event<> Done;  // an operation has ended: all panels show the state as it is now

 private:
  int filling_ = 0;
};

}  // namespace dorvane
