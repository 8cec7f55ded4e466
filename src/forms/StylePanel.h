// The window styles on the main form: "Expand", "PileUp", which windows pile up graphs, the divider
// between the windows; and the button that does the whole fit.
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
  // The upper window's share of the height at the start; 1 closes the lower one.
  static constexpr double kStartShare = 0.65;

  CheckBox ckbExpand;
  CheckBox chkWinStyle;
  Button cmdAutoFit;                   // while one graph alone is open
  ControlArray<CheckBox> chkFilePile;  // by WinNo; off in Expand mode
  Splitter fraWinHeight;               // double click: closes the lower window, and opens it again

 private:
  void OpenLowerWindow(bool open) { fraWinHeight.SetShare(open ? kStartShare : 1); }
  bool LowerWindowOpen() const { return fraWinHeight.Share() < 1; }
};

}  // namespace dorvane
