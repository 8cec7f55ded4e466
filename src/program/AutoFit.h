// The fits of a whole spectrum in one command, and the choice between the two families of fit.
//
// The Express family finds peaks and fits them one by one on their own backgrounds; the Nax family
// scans the channels and fits each group of neighbours together.
#pragma once

#include "program/Program.h"

namespace dorvane {

// "AutoFit": smoothing, background, fit by the family that ExpressFit chooses, and the graphs that
// end a fit. A Nax fit switches the four buttons over. A fit that leaves no peak or no graph "Fit"
// is told with what to change; one that the user stops ends there. Without a graph it ends with the
// message of the smoothing.
void AutoFit(Program& program);
// cmdAutoFit: the same while one graph alone is open, else nothing.
void cmdAutoFit_Click(Program& program);

// "AllFit": fits all peaks by the Express family, then the graphs that end a fit.
void AllFit(Program& program);
// mnuFittingAll: fits all peaks by the Express family.
void FitAllPeaks(Program& program);
// "Fit", mnuFitting: fits the peaks of the area cursor, or the one at the cursor.
void Fit(Program& program);
// "Split", mnuPeakSep: splits the peaks of the area cursor.
void Split(Program& program);
// "NaxAllFit": scans and fits the whole spectrum by the Nax family.
void NaxAllFit(Program& program);

// The entries "ExpressFitting" and "NaxFitting": each chooses its family and runs its fit.
void mnuExpressFit_Click(Program& program);
void mnuNaxFit_Click(Program& program);

}  // namespace dorvane
