#include "program/EditCrystalFile.h"

namespace dorvane {

void EditCrystalFile(Program& program, Launcher& launcher) {
  if (!launcher.EditText(program.directory + "crystal.dat")) {
    program.ports.dialogs.Message("crystal file open error");
  }
}

}  // namespace dorvane
