#include "program/Calibration.h"

#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {

void EneCalStart(Program& program) {
  program.view.CalibrationOn = kTrue;
  program.Listener().ButtonsChanged();
}

void EneCalEnd(Program& program) {
  program.view.CalibrationOn = kFalse;
  program.Listener().ButtonsChanged();
}

bool TypeDefaultTwoTheta(Program& program, std::string_view text) {
  const auto angle = ParseNumber(text);
  if (!angle) return false;
  program.workspace.DefaultProp.TwoTheta = *angle;
  program.Listener().CalibrationShown();
  program.Listener().UnitAxisChanged();
  program.Listener().CursorMoved();
  return true;
}

}  // namespace dorvane
