// The window styles on the main form: "Expand", "PileUp", which windows pile up graphs, and the
// divider between the windows.
#pragma once

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/PanelWork.h"

namespace dorvane {

class StylePanel {
 public:
  explicit StylePanel(PanelWork& work);
  void Refresh();

 private:
  PanelWork& work_;

 public:
  CheckBox ckbExpand;
  CheckBox chkWinStyle;
  ControlArray<CheckBox> chkFilePile;  // by WinNo; off in Expand mode
  Splitter fraWinHeight;
};

}  // namespace dorvane
