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
  // Makes the graph of a check box the current one of the window that it is in.
  void SelectRow(int index);
  // Where a row stands: whether its graph is in the window of a check box, is that window's current
  // one, and whether that window is the active one.
  struct RowState {
    bool here = false;
    bool current = false;
    bool active = false;
  };
  RowState StateOf_chkGrp(int index) const;
  // Title and sample name of a window's current graph; empty where it has none.
  std::string TitleOf(int win_no) const;
  std::string SampleOf(int win_no) const;

  Event<> Filled;  // the list, its colours or the current rows may have changed

 private:
  PanelWork& work_;

 public:
  ControlArray<ComboBox> cboGrphSel;  // by WinNo: the rows by GrpNo
  ControlArray<CheckBox> chkGrp;      // WinNo*10 + GrpNo; seen for rows that hold a graph

 private:
  const GraphSlot* CurrentOf(int win_no) const;
  void Select(int win_no, int row);
  void chkGrp_Click(int index);
};

}  // namespace dorvane
