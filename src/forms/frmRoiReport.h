// The window with the table of regions: where each lies, its sum and its highest channel.
#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "program/Program.h"

namespace dorvane {

// While it is open it follows the regions, the counts and the list of graphs, as a listener of the
// program.
class frmRoiReport : public Form, public WorkspaceListener {
 public:
  // Both outlive the form.
  frmRoiReport(Program& program, FormHost& host);

  // Calculates every region anew and shows it in its row: graph number in the list from 1 (empty
  // where the graph is gone), ends, sum, highest channel and its count. Channels are numbered from
  // 1.
  void RefreshRoiReport();
  // Refreshes, then shows.
  void Open();

  // Moves the cursor of the main window to the start of the row's region (column 2), to its end
  // (column 3), otherwise to its highest channel. A row without a region: nothing.
  void sprRoiInf_Click(int row, int column);
  void cmdOk_Click() { Hide(); }

  void RegionsChanged() override { Follow(); }
  void SpectrumShown(int /*WinNo*/, int /*DataNo*/) override { Follow(); }
  void SelectionListFilled() override { Follow(); }

  Grid sprRoiInf;
  Label lblMaxRoi;
  Button cmdOk;

 private:
  void Follow() {
    if (Visible()) RefreshRoiReport();
  }

  Program& program_;
};

}  // namespace dorvane
