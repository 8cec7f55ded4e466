// What the main form does about the energy calibration: the brackets around its dialog, and the
// default scattering angle.
#pragma once

#include <string_view>

#include "program/Program.h"

namespace dorvane {

// Around the calibration dialog: buttons that open, save, print, calibrate or index go off, with
// their menu entries, and on again; all others stay as they are.
void EneCalStart(Program& program);
void EneCalEnd(Program& program);

// txt2Theta(0): a typed scattering angle of DefaultProp, in degrees. A text that is no number
// changes nothing: false.
bool TypeDefaultTwoTheta(Program& program, std::string_view text);

}  // namespace dorvane
