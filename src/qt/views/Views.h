// How each form is laid out in its window: where its widgets stand, nothing of what they do.
#pragma once

#include "qt/binding/FormWindow.h"

namespace dorvane {

class frmAtom;
class frmCalibCurv;
class frmDialogCalibC;
class frmDialogColor;
class frmDialogLoad;
class frmDialogMessage;
class frmDispPara;
class frmDorvane;
class frmElement;
class frmGrpCalc;
class frmInput;
class frmInputFitParameter;
class frmKeys;
class frmLog;
class frmManualFit;
class frmPeakCal;
class frmPeakReport;
class frmPicture;
class frmPreView;
class frmPrint;
class frmProperty;
class frmResultDirectory;
class frmRoiReport;
class frmSelGraph;
class frmSetColor;
class frmSetting;

void LayOut(frmAtom& form, FormWindow& window);
void LayOut(frmCalibCurv& form, FormWindow& window);
void LayOut(frmDialogCalibC& form, FormWindow& window);
void LayOut(frmDialogColor& form, FormWindow& window);
void LayOut(frmDialogLoad& form, FormWindow& window);
void LayOut(frmDialogMessage& form, FormWindow& window);
void LayOut(frmDispPara& form, FormWindow& window);
// The main form: tool bars, the two graph windows, the read-outs below them, and a status line with
// a hidden progress bar of this name.
inline constexpr const char* kProgressBarName = "prgOperation";
void LayOut(frmDorvane& form, FormWindow& window);
void LayOut(frmElement& form, FormWindow& window);
void LayOut(frmGrpCalc& form, FormWindow& window);
void LayOut(frmInput& form, FormWindow& window);
void LayOut(frmInputFitParameter& form, FormWindow& window);
void LayOut(frmKeys& form, FormWindow& window);
void LayOut(frmLog& form, FormWindow& window);
void LayOut(frmManualFit& form, FormWindow& window);
void LayOut(frmPeakCal& form, FormWindow& window);
void LayOut(frmPeakReport& form, FormWindow& window);
void LayOut(frmPicture& form, FormWindow& window);
void LayOut(frmPreView& form, FormWindow& window);
void LayOut(frmPrint& form, FormWindow& window);
void LayOut(frmProperty& form, FormWindow& window);
void LayOut(frmResultDirectory& form, FormWindow& window);
void LayOut(frmRoiReport& form, FormWindow& window);
void LayOut(frmSelGraph& form, FormWindow& window);
void LayOut(frmSetColor& form, FormWindow& window);
void LayOut(frmSetting& form, FormWindow& window);

}  // namespace dorvane
