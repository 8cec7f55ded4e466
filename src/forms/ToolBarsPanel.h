// The tool bars of the main form.
#pragma once

#include <array>

#include "forms/FormCommands.h"
#include "forms/Menus.h"
#include "forms/PanelWork.h"

namespace dorvane {

class ToolBarsPanel {
 public:
  // Both outlive the panel.
  ToolBarsPanel(PanelWork& work, FormCommands& commands);
  // Which buttons can be pressed, and which are down.
  void Refresh();

 private:
  PanelWork& work_;
  FormCommands& commands_;

 public:
  ToolBar tlbrFile;
  ToolBar tlbrEnergy;
  ToolBar tlbrCalc;
  ToolBar tlbrOperation;
  ToolBar tlbrRoiPeak;
  ToolBar tlbrRoi;  // the regions of interest
  ToolBar tlbrDisplay;
  ToolBar tlbrNax;

 private:
  std::array<ToolBar*, 8> All();
  void ShowTips();
  void ButtonClick(ToolBar& bar, std::string_view key);
};

}  // namespace dorvane
