#include "program/NaxFitting.h"

namespace dorvane {

void NaxFitting(Program& program, int, int) {
  program.ports.dialogs.Message("NO PEAKS ARE FOUND");
}

}  // namespace dorvane
