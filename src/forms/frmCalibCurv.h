// The window that shows an energy calibration: its curve, its points, and how far each lies off.
#pragma once

#include <string>
#include <vector>

#include "display/CalibrationPlot.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/PictureBox.h"
#include "program/Program.h"
#include "support/Printer.h"

namespace dorvane {

// What the window is handed.
struct CalibrationResult {
  std::vector<Point> points;  // x: channel index, y: energy in keV
  EgcCoef coefficients{};     // A, B, C in the order of powers of the channel index
  std::string memo;           // the formula as text
  int form = 0;  // optCnst: 0 the straight line, where C is not looked at; 1 the parabola
};

// Modal.
class frmCalibCurv : public Form {
 public:
  // All outlive the form.
  frmCalibCurv(Program& program, FormHost& host, Printer& printer);

  // Shows the result until the window is closed. The curve runs over the channels of the longest
  // spectrum.
  void Open(CalibrationResult result);

  // The picture in the colours of the graphs.
  void DrawCurve(Surface& surface) const;

  // The same picture on a sheet of its own, black on white, with the formula below its title.
  void cmdPrint_Click();
  void cmdOk_Click() { Hide(); }

  PictureBox picCurve{controls_, "picCurve"};
  TextBox txtMemo{controls_, "txtMemo"};
  Button cmdPrint{controls_, "cmdPrint", "Print"};
  Button cmdOk{controls_, "cmdOk", "O K"};

 private:
  CalibrationCurve Curve() const;

  Program& program_;
  Printer& printer_;
  CalibrationResult result_;
};

}  // namespace dorvane
