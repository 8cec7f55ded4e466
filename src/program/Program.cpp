#include "program/Program.h"

#include "program/EngineBinding.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"

namespace dorvane {

Program::Program(const Ports& given_ports, std::string program_directory)
    : ports(given_ports),
      directory(std::move(program_directory)),
      spect(given_ports.dialogs),
      listener_(std::make_unique<EngineBinding>(workspace, view, spect, given_ports.listener)) {
  SetStartValues(*this);
}

Program::~Program() = default;

void SetStartValues(Program& program) {
  program.workspace.ColorTbl = LightColors();
  program.view.FilePile.fill(kTrue);
  program.view.Caption = "Dorvane (Data Analyze)";
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    program.spect.OpenView(win_no, nullptr, program.workspace.ColorTbl[kColorWindowBack + win_no]);
  }
  UseColors(program, program.workspace.ColorTbl);
  program.Listener().RangeChanged();
  for (int win_no = 0; win_no < kWindows; ++win_no) program.Listener().CountScaleChanged(win_no);
}

void UseColors(Program& program, const ColorTable& colors) {
  Workspace& workspace = program.workspace;
  const ColorTable before = workspace.ColorTbl;
  workspace.ColorTbl = colors;
  program.spect.SetMarkColors(colors[kColorPeakMark], colors[kColorGrid]);
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    program.spect.SetBackColor(win_no, colors[kColorWindowBack + win_no]);
  }
  for (GraphSlot& slot : workspace.Slots) {
    if (slot.State == kRowEmpty) continue;
    if (colors[slot.DataNo] != before[slot.DataNo]) slot.Color = colors[slot.DataNo];
  }
  program.Listener().WindowStyleChanged();  // registers curves and marks anew, in the new colours
  for (const GraphSlot& slot : workspace.Slots) {
    if (slot.State == kRowEmpty) continue;
    program.Listener().GraphRecolored(slot.WinNo, slot.DataNo, slot.Color);
  }
  program.Listener().CheckBoxesFilled();
  for (int win_no = 0; win_no < kWindows; ++win_no) program.Listener().RedrawWanted(win_no);
}

}  // namespace dorvane
