// The cursor on the main form: its channel, its value in the five units, the count of each window,
// and the switches of cursor form and area cursor.
#pragma once

#include "display/Overlay.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/PanelWork.h"

namespace dorvane {

// The graph of which a window shows the cursor's count: its current row, in Expand mode row 0;
// nullptr where there is none.
const GraphSlot* CountedGraph(const Program& program, int win_no);

class CursorPanel {
 public:
  explicit CursorPanel(PanelWork& work);
  void Refresh();
  CursorForm Form() const { return chkCsrType.Checked() ? CursorForm::Cross : CursorForm::Line; }

 private:
  PanelWork& work_;

 public:
  NumberBox inumCursorCh;
  UpDown updCursorX;
  ControlArray<Label> lblDispUnit;       // names of the five units
  ControlArray<TextBox> inumCursorDisp;  // empty without a graph
  ControlArray<TextBox> inumCursorCnt;   // by WinNo; empty where the window shows no count
  CheckBox chkArea;
  CheckBox chkCsrType;  // on: a small cross at the count in place of the line

 private:
  void inumCursorCh_Change();
  void chkArea_Click();
  void FillCounts();
};

}  // namespace dorvane
