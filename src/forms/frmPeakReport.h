// The window with the peak table of a graph: peaks are read, changed by hand, saved as CSV and
// printed.
#pragma once

#include <cstdint>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/Printing.h"
#include "program/Program.h"

namespace dorvane {

// Modal. Centre, height, width in channels and Gaussian share can be typed; the other columns
// follow from the table. The standard errors stand beside it, row by row.
class frmPeakReport : public Form {
 public:
  enum Column {
    kPeakCh = 1,
    kPeakUnit,
    kIntensity,
    kFwhmCh,
    kFwhmKeV,
    kFwhmD,
    kAmplitude,
    kGaussPercent,
    kFitType
  };

  // All outlive the form.
  frmPeakReport(Program& program, FormHost& host, Printing& printing);

  // Shows the report of a row until it is closed, in the display unit of the main form. Row 0
  // stands for the current row. A row without a graph: nothing.
  void Open(int grp_no);

  // One row for each peak of the spectrum of GrpNo.
  void RefreshPeakReport();

  // Moves the cursor of the main window to the row's peak, rounded. A row without a peak: nothing.
  // The errors do the same.
  void sprPeakInf_Click(int row, int column);
  void sprPeakErr_Click(int row, int column) { sprPeakInf_Click(row, column); }
  // Takes the cells over; a value that was typed has no error any more. A cell that still shows its
  // stored value leaves it as it is, to the last bit; one that is no number shows the fault's box,
  // and no peak is changed then.
  void cmdPkSet_Click();
  // Asks for a file and saves the table as it is stored, with the errors in a file beside it
  // (SavePeakReport): cells that "SET" has not taken over yet are not in it.
  void cmdSave_Click();
  // Prints the table as it is stored, or shows it on its sheets (Printing, PeakSheet).
  void cmdPrint_Click();
  void cmdClose_Click() { Hide(); }

  std::int16_t WinNo = 0;
  std::int16_t GrpNo = 0;
  std::int16_t DispUnit = 0;  // unit code of column 2

  Label lblHint{controls_, "lblHint"};
  Grid sprPeakInf;
  Label lblPeakErr{controls_, "lblPeakErr", "Standard error"};
  Grid sprPeakErr;  // columns of PeakErrorColumn + 1
  Button cmdPkSet{controls_, "cmdPkSet", "SET"};
  Button cmdSave{controls_, "cmdSave", "Save as.."};
  Button cmdPrint{controls_, "cmdPrint", "Print"};
  Button cmdClose{controls_, "cmdClose", "Close"};

 private:
  int DataNo() const { return program_.workspace.Slots[GrpNo].DataNo; }
  void ShowPeak(int row, const PeakRec& peak);
  void ShowErrors(int row, const PeakRec& peak);
  void ShowHint();
  PeakRec PeakOfRow(int row, const PeakRec& stored) const;

  Program& program_;
  Printing& printing_;
};

}  // namespace dorvane
