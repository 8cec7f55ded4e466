// The waiting pointer of a long command, put back on every way out.
#pragma once

#include "program/Program.h"

namespace dorvane {

class WaitPointer {
 public:
  // Shows `waiting` now and `after` at the end.
  explicit WaitPointer(Program& program, std::int16_t waiting = kPointerHourglass,
                       std::int16_t after = kPointerNormal)
      : program_(program), after_(after) {
    Show(waiting);
  }
  WaitPointer(const WaitPointer&) = delete;
  WaitPointer& operator=(const WaitPointer&) = delete;
  ~WaitPointer() { Show(after_); }

 private:
  void Show(std::int16_t pointer) {
    program_.view.Pointer = pointer;
    program_.Listener().PointerChanged();
  }

  Program& program_;
  std::int16_t after_;
};

}  // namespace dorvane
