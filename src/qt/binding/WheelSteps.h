// Whole steps of a wheel or a touchpad, which turn by parts of a step.
#pragma once

#include <QPoint>
#include <cstdlib>

namespace dorvane {

class WheelSteps {
 public:
  // `angle` in eighths of a degree, as an event has it. Answers the steps that are full with it,
  // away from the user or to the left. What is left over counts for the next turn of the same
  // direction.
  int Turn(QPoint angle) {
    const bool sideways = std::abs(angle.x()) > std::abs(angle.y());
    const int turn = sideways ? angle.x() : angle.y();
    if (sideways != sideways_ || (turn > 0) != (rest_ > 0)) rest_ = 0;
    sideways_ = sideways;
    rest_ += turn;
    const int steps = rest_ / kStep;
    rest_ -= steps * kStep;
    return steps;
  }
  // The last turn went to the side.
  bool Sideways() const { return sideways_; }

 private:
  static constexpr int kStep = 120;

  int rest_ = 0;
  bool sideways_ = false;
};

}  // namespace dorvane
