// Hangs the floating forms below the commands of the main form that open them.
#pragma once

#include "forms/frmDorvane.h"
#include "forms/frmKeys.h"
#include "forms/frmLog.h"
#include "forms/frmRoiReport.h"
#include "forms/frmSelGraph.h"

namespace dorvane {

// From now on the commands open these forms, and the end of the program hides them. They outlive
// the main form's last command.
void AttachForms(frmDorvane& main, frmSelGraph& graphs, frmRoiReport& regions, frmLog& log,
                 frmKeys& keys);

}  // namespace dorvane
