#include "forms/EnableRules.h"

#include <algorithm>
#include <array>

namespace dorvane {
namespace {

struct EnableRow {
  std::string_view place;
  std::string_view name;
  bool (*allows)(const Program&);
};

bool NotCalibrating(const Program& program) {
  return program.view.CalibrationOn == kFalse;
}
template <bool OperationButtons::*Button>
bool ButtonOn(const Program& program) {
  return program.view.Buttons.*Button;
}
bool OneGraphOpen(const Program& program) {
  return program.workspace.GrpCount == 1;
}
bool Expanded(const Program& program) {
  return program.view.ExpandOn != kFalse;
}
bool NotExpanded(const Program& program) {
  return !Expanded(program);
}

constexpr std::array kRules{
    EnableRow{"tlbrOperation", "AutoFit", ButtonOn<&OperationButtons::AutoFit>},
    EnableRow{"tlbrOperation", "AllFit", ButtonOn<&OperationButtons::AllFit>},
    EnableRow{"tlbrOperation", "ManFit", ButtonOn<&OperationButtons::ManFit>},
    EnableRow{"tlbrOperation", "MkDel", ButtonOn<&OperationButtons::MkDel>},
    EnableRow{"tlbrFile", "LoadData", NotCalibrating},
    EnableRow{"tlbrFile", "SaveData", NotCalibrating},
    EnableRow{"tlbrFile", "Printer", NotCalibrating},
    EnableRow{"tlbrEnergy", "Calib", NotCalibrating},
    EnableRow{"tlbrOperation", "hkl", NotCalibrating},
    EnableRow{"menu", "mnuLoad", NotCalibrating},
    EnableRow{"menu", "mnuSave", NotCalibrating},
    EnableRow{"menu", "mnuPrint", NotCalibrating},
    EnableRow{"menu", "mnuCons", NotCalibrating},
    EnableRow{"menu", "mnuLattice", NotCalibrating},
    EnableRow{"form", "cmdAutoFit", OneGraphOpen},
    EnableRow{"menu", "mnuAutoFit", ButtonOn<&OperationButtons::AutoFit>},
    EnableRow{"menu", "mnuExpandOn", NotExpanded},
    EnableRow{"menu", "mnuExpandOff", Expanded},
};

}  // namespace

bool Allowed(const Program& program, std::string_view place, std::string_view name) {
  return std::all_of(kRules.begin(), kRules.end(), [&](const EnableRow& rule) {
    return rule.place != place || rule.name != name || rule.allows(program);
  });
}

}  // namespace dorvane
