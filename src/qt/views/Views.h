// How each form is laid out in its window: where its widgets stand, nothing of what they do.
#pragma once

#include "qt/binding/FormWindow.h"

namespace dorvane {

class frmDialogMessage;
class frmInput;
class frmLog;
class frmRoiReport;
class frmSelGraph;

void LayOut(frmDialogMessage& form, FormWindow& window);
void LayOut(frmInput& form, FormWindow& window);
void LayOut(frmLog& form, FormWindow& window);
void LayOut(frmRoiReport& form, FormWindow& window);
void LayOut(frmSelGraph& form, FormWindow& window);

}  // namespace dorvane
