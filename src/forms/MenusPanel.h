// The menus of the main form as controls.
#pragma once

#include <deque>

#include "forms/FormCommands.h"
#include "forms/Menus.h"
#include "forms/PanelWork.h"

namespace dorvane {

class MenusPanel {
 public:
  // Both outlive the panel.
  MenusPanel(PanelWork& work, FormCommands& commands);
  // Captions, check marks, and what can be chosen.
  void Refresh();
  // Throws std::out_of_range for a name that the table does not have.
  MenuItem& At(std::string_view name);

 private:
  void ShowTips();
  MenuItem* Find(std::string_view name);

  PanelWork& work_;
  FormCommands& commands_;
  std::deque<MenuItem> items_;  // in the order of the table
};

}  // namespace dorvane
