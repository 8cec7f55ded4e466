// The calibration on the main form: which source converts the channels, its coefficients and its
// angle.
#pragma once

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/PanelWork.h"

namespace dorvane {

// Index 0 is the default calibration, 1 that of the current spectrum, which is off without one.
class CalibrationPanel {
 public:
  explicit CalibrationPanel(PanelWork& work);
  void Refresh();

 private:
  PanelWork& work_;

 public:
  OptionGroup optEGC;
  ControlArray<Label> lblEGC;
  ControlArray<TextBox> txt2Theta;  // index 0 takes an angle with Enter or on leaving

 private:
  void txt2Theta_Typed();
  std::string DefaultAngle() const;
  bool edited_ = false;
};

}  // namespace dorvane
