// The crystal library in the system's text editor.
#pragma once

#include "program/Program.h"
#include "support/Launcher.h"

namespace dorvane {

// mnuEditCrystalFile: opens "crystal.dat" of the program's directory; a failure shows "crystal file
// open error".
void EditCrystalFile(Program& program, Launcher& launcher);

}  // namespace dorvane
