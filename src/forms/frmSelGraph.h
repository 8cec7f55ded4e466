// The small window with the list of graphs as a table: choose, show, hide, recolour, move, close.
#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/PictureBox.h"
#include "program/Program.h"

namespace dorvane {

// A view of the list, whose row GrpNo is grid row GrpNo + 1. As a listener of the program it stays
// in step with the list, also while it is hidden.
class frmSelGraph : public Form, public WorkspaceListener {
 public:
  // Columns of sprGraphSel.
  static constexpr int kDisp = 1;
  static constexpr int kWin = 2;
  static constexpr int kActiv = 3;
  static constexpr int kFileName = 4;
  static constexpr int kSampleName = 5;

  // Both outlive the form.
  frmSelGraph(Program& program, FormHost& host);

  // Fills all rows from the list and marks the current one; shows the form unless show_it is 0.
  void GraphSel_Repl(int show_it);
  // Writes one row. GrpNo 0..9, here and below; outside of it a fault (Subscript).
  void GraphSel_Insert(int win_no, int grp_no);
  void GraphSel_Delete(int grp_no);
  // The check mark of a row that holds a graph.
  void GraphSel_Check(int grp_no, bool value);
  // Marks the current row, if it holds a graph, and no other.
  void ChangeCurChek(int grp_no);

  // Removes the graph of the active grid row.
  void cmdCut_Click();
  // Reads chosen files into the rows from 0 on, without removing the old graphs first.
  void cmdOpen_Click();
  void cmdOk_Click() { Hide(); }
  void chkFix_Click();
  // The pin is pressed: as chkFix.
  void picPin_Click() { chkFix.SetChecked(!chkFix.Checked()); }
  void sprGraphSel_Click(int row, int column);
  void sprGraphSel_DblClick(int row, int column);
  void sprGraphSel_Checked(int row, int column);

  void SelectionListFilled() override { GraphSel_Repl(0); }
  void SelectionRowCleared(int GrpNo) override { GraphSel_Delete(GrpNo); }
  void SpectrumShown(int WinNo, int DataNo) override;
  void GraphShown(int WinNo, int DataNo, bool shown) override;
  void GraphRecolored(int WinNo, int DataNo, Color color) override;
  void SelectorRowSelected(int WinNo, int GrpNo) override;
  void WindowActivated(int WinNo) override;

  Grid sprGraphSel{controls_, "sprGraphSel", {"Disp", "Win", "Activ", "FileName", "Sample Name"}};
  Button cmdOpen{controls_, "cmdOpen", "Open"};
  Button cmdCut{controls_, "cmdCut", "Close"};
  CheckBox chkFix{controls_, "chkFix", "Fix"};
  PictureBox picPin{controls_, "picPin"};
  // Of the two pictures of the pin the one that holds is visible; picAllow and picNothing are what
  // the mark of a row looks like and are never visible themselves.
  PictureBox picPinOn{controls_, "picPinOn"};
  PictureBox picPinOff{controls_, "picPinOff"};
  PictureBox picAllow{controls_, "picAllow"};
  PictureBox picNothing{controls_, "picNothing"};
  Button cmdOk{controls_, "cmdOk", "OK"};

 private:
  class FillingRows;

  void MoveToOtherWindow(int grp_no);
  void ChooseColorOf(int grp_no);

  Program& program_;
  bool Filling_ = false;  // rows are being written: what the grid then tells is no user's doing
};

}  // namespace dorvane
