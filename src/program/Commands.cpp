#include "program/Commands.h"

#include <array>
#include <exception>

#include "program/AutoFit.h"
#include "program/ClearAndReload.h"
#include "program/Cursor.h"
#include "program/DerivedGraphs.h"
#include "program/OpenSave.h"
#include "program/PeakFit.h"
#include "program/RoiCommands.h"
#include "program/View.h"
#include "program/WindowStyle.h"

namespace dorvane {
namespace {

void Open(Program& program) {
  LoadData(program);
}
void CloseGraph(Program& program) {
  if (!HoldsGraph(program.workspace, program.view.GraphNo)) return;
  DeleteGraph(program.List(), program.view.GraphNo);
}
void JumpLeft(Program& program) {
  PeakJump(program, 0);
}
void JumpRight(Program& program) {
  PeakJump(program, 1);
}
void CursorLeft(Program& program) {
  spnCursor_SpinUpDown(program, "-");
}
void CursorRight(Program& program) {
  spnCursor_SpinUpDown(program, "+");
}

void SelectKind(Program& program, GraphKind kind) {
  const int row = LastRowOfKind(program.workspace, kind);
  if (row >= 0) Change_cboGrphSel(program.List(), program.view.CurWin, row);
}
void SelectRaw(Program& program) {
  SelectKind(program, GraphKind::Raw);
}
void SelectSmooth(Program& program) {
  SelectKind(program, GraphKind::Smooth);
}
void SelectBackGraund(Program& program) {
  SelectKind(program, GraphKind::BackGraund);
}
void SelectBackRemv(Program& program) {
  SelectKind(program, GraphKind::BackRemv);
}
void SelectFit(Program& program) {
  SelectKind(program, GraphKind::Fit);
}

void SetDrawModes(Program& program, std::int16_t mode) {
  for (std::int16_t view = 0; view < kWindows; ++view) {
    program.spect.SetDrawMode(view, mode);
    program.Listener().RedrawWanted(view);
  }
}
void DrawLines(Program& program) {
  SetDrawModes(program, 0);
}
void DrawPaint(Program& program) {
  SetDrawModes(program, 1);
}
void DrawDots(Program& program) {
  SetDrawModes(program, 2);
}

void ToggleLogScale(Program& program) {
  SetLogScale(program, program.view.LogScale == kFalse);
}
void ToggleAutoScale(Program& program) {
  SetAutoScale(program, program.view.AutoScale == kFalse);
}

void ToggleNorScale(Program& program) {
  SetNorScale(program, program.view.NorScale == kFalse);
}

void Help(Program& program) {
  program.ports.dialogs.Message(kReadMeText);
}
void Version(Program& program) {
  program.ports.dialogs.CaptionedMessage("Dorvane Ver 1.2004.01.05",
                                         "Dorvane\nEnergy-dispersive X-ray diffraction: from a "
                                         "spectrum to lattice and pressure");
}

// Tells the progress port of begin and end.
class Bracket {
 public:
  explicit Bracket(Progress& progress) : progress_(progress) { progress_.Begin(); }
  ~Bracket() { progress_.End(); }
  Bracket(const Bracket&) = delete;
  Bracket& operator=(const Bracket&) = delete;

 private:
  Progress& progress_;
};

constexpr std::array kCommands{
    Command{"LoadData", "mnuLoad", Open},
    Command{"SaveData", "mnuSave", FileSave},
    Command{"mnuCloseGraph", "", CloseGraph},
    Command{"Smooth", "mnuSmooth", SmoothGraph},
    Command{"BackGround", "mnuBackGround", BackGroundGraph},
    Command{"AutoFit", "mnuAutoFit", AutoFit},
    Command{"AllFit", "", AllFit},
    Command{"mnuFittingAll", "", FitAllPeaks},
    Command{"Fit", "mnuFitting", Fit},
    Command{"Split", "mnuPeakSep", Split},
    Command{"mnuExpressFit", "", mnuExpressFit_Click},
    Command{"mnuNaxFit", "", mnuNaxFit_Click},
    Command{"NaxAllFit", "", NaxAllFit},
    Command{"MkIns", "mnuPeakIns", InsertPeaksAtCursor},
    Command{"All", "mnuPeakAllIns", InsertAllPeaks},
    Command{"MkDel", "mnuPeakDelete", AskAndDeletePeaks},
    Command{"mnuPeakAllDelete", "", DeletePeaks},
    Command{"DelAll", "", AskAndClear},
    Command{"JmpLeft", "mnuPeakJumpB", JumpLeft},
    Command{"JmpRight", "mnuPeakJumpN", JumpRight},
    Command{"mnuRoiStart", "", SetRoiStart},
    Command{"mnuRoiEnd", "", SetRoiEnd},
    Command{"RoiAdd", "mnuRoiAdd", AddRoi},
    Command{"RoiDel", "mnuRoiDelete", DeleteRoi},
    Command{"RoiJmpLeft", "mnuRoiJumpB", RoiJumpLeft},
    Command{"RoiJmpRight", "mnuRoiJumpN", RoiJumpRight},
    Command{"AreaCursor", "", ToggleAreaCursor},
    Command{"CursorLeft", "", CursorLeft},
    Command{"CursorRight", "", CursorRight},
    Command{"mnuTaller", "", mnuTaller},
    Command{"mnuShoter", "", mnuShoter},
    Command{"mnuNarrower", "", cmdNarrower},
    Command{"mnuWider", "", cmdWider},
    Command{"Expand", "mnuExpandOn", ToggleExpand},
    Command{"mnuExpandOff", "", ToggleExpand},
    Command{"mnuWinType_0", "", LineUpGraphs},
    Command{"mnuWinType_1", "", PileUpGraphs},
    Command{"mnuLogarithmic", "", ToggleLogScale},
    Command{"mnuAutomatic", "", ToggleAutoScale},
    Command{"mnuNorScale", "", ToggleNorScale},
    Command{"mnuLine", "", DrawLines},
    Command{"mnuPaint", "", DrawPaint},
    Command{"mnuDot", "", DrawDots},
    Command{"mnuGraphRaw", "", SelectRaw},
    Command{"mnuGraphSmt", "", SelectSmooth},
    Command{"mnuGraphBack", "", SelectBackGraund},
    Command{"mnuGraphBackRemoved", "", SelectBackRemv},
    Command{"mnuGraphFit", "", SelectFit},
    Command{"mnuHelp", "", Help},
    Command{"mnuVersion", "", Version},
};

}  // namespace

std::span<const Command> Commands() {
  return kCommands;
}

const Command* FindCommand(std::string_view name) {
  for (const Command& command : kCommands) {
    if (command.key == name || (!command.menu.empty() && command.menu == name)) return &command;
  }
  return nullptr;
}

bool RunCommand(Program& program, std::string_view name) {
  const Command* command = FindCommand(name);
  return command == nullptr || RunGuarded(program, command->run);
}

bool RunGuarded(Program& program, const std::function<void(Program&)>& run) {
  const Bracket bracket(program.ports.progress);
  try {
    run(program);
    return true;
  } catch (const std::exception& fault) {
    program.ports.dialogs.Message(fault.what());
    return false;
  }
}

}  // namespace dorvane
