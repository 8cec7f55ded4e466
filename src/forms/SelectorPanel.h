// The list of graphs on the main form: the selector box of each window and the show/hide check
// boxes.
#pragma once

#include <optional>
#include <string>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/PanelWork.h"

namespace dorvane {

// Text of a row in a selector box; the title stands from the third character on.
std::string SelectorText(int grp_no, const GraphSlot& slot);

class SelectorPanel {
 public:
  explicit SelectorPanel(PanelWork& work);
  void Refresh();
  // Colour of a check box's graph; nothing for an empty row.
  std::optional<Color> ColorOf_chkGrp(int index) const;

 private:
  PanelWork& work_;

 public:
  ControlArray<ComboBox> cboGrphSel;  // by WinNo: the rows by GrpNo
  ControlArray<CheckBox> chkGrp;      // WinNo*10 + GrpNo; seen for rows that hold a graph

 private:
  void cboGrphSel_Click(int win_no);
  void chkGrp_Click(int index);
};

}  // namespace dorvane
