#include "program/AutoFit.h"

#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/FitGraphs.h"
#include "program/NaxFitting.h"
#include "program/PeakFit.h"
#include "program/PeakSep.h"
#include "program/WaitPointer.h"

namespace dorvane {
namespace {

constexpr const char* kRetryText =
    "Fitting was failed. Please change fit parameters(Change BG Coefficient to 5.0) and retry";

// After the first fit of an open the peaks are worked on by hand.
constexpr OperationButtons kButtonsAfterScan{
    .AutoFit = false, .AllFit = false, .ManFit = true, .MkDel = true};

int RealWindow(Program& program) {
  return GetRealWinNo(program.List());
}

void Scan(Program& program) {
  NaxFitting(program, RealWindow(program), program.view.DataNo);
}

void BuildGraphsOfFit(Program& program) {
  if (program.ports.progress.Cancelled()) return;
  BuildFitGraphs(program, RealWindow(program), program.view.GraphNo);
}

void ScanAndBuild(Program& program) {
  const WaitPointer pointer(program, kPointerArrowHourglass, kPointerArrow);
  program.view.Buttons = kButtonsAfterScan;
  program.Listener().ButtonsChanged();
  Scan(program);
  BuildGraphsOfFit(program);
}

bool FitIsThere(const Program& program) {
  return program.workspace.Peaks[program.view.DataNo].Count > 0 &&
         FindRow(program.workspace, kTitleFit) >= 0;
}

}  // namespace

void AutoFit(Program& program) {
  SmoothGraph(program);
  if (!HoldsGraph(program.workspace, program.view.GraphNo)) return;
  BackGroundGraph(program);
  if (program.workspace.ExpressFit != 0) {
    AllFit(program);
  } else {
    ScanAndBuild(program);
  }
  if (program.ports.progress.Cancelled() || FitIsThere(program)) return;
  program.ports.dialogs.Message(kRetryText);
}

void cmdAutoFit_Click(Program& program) {
  if (program.workspace.GrpCount == 1) AutoFit(program);
}

void AllFit(Program& program) {
  FitAllPeaks(program);
  BuildGraphsOfFit(program);
}

void FitAllPeaks(Program& program) {
  SetFullRange(program);
  Fit(program);
}

void Fit(Program& program) {
  FitPeak(program, RealWindow(program));
}

void Split(Program& program) {
  PeakSep(program, RealWindow(program));
}

void NaxAllFit(Program& program) {
  const WaitPointer pointer(program, kPointerArrowHourglass, kPointerArrow);
  Scan(program);
}

void mnuExpressFit_Click(Program& program) {
  program.workspace.ExpressFit = 1;
  Fit(program);
}

void mnuNaxFit_Click(Program& program) {
  program.workspace.ExpressFit = 0;
  NaxAllFit(program);
}

}  // namespace dorvane
