#include "program/ClearAndReload.h"

#include "processing/RoiOpe.h"
#include "program/OpenSave.h"

namespace dorvane {

void ClearAndReload(Program& program) {
  std::vector<std::string> first = program.last_selection;
  // KEPT: of a selection of several files only the first comes back; the others are opened again
  // by hand, as the users are used to.
  if (first.size() > 1) first.resize(1);
  RoiClear(program.List());
  LoadData(program, first);
  tlbOperationInit(program.view);
  program.Listener().ButtonsChanged();
}

void AskAndClear(Program& program) {
  Question question;
  question.text = "Clear All Data";
  question.caption = "Dorvane";
  if (program.ports.dialogs.AskYesNo(question)) ClearAndReload(program);
}

}  // namespace dorvane
