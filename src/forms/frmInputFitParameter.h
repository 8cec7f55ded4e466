// The dialog that types one peak straight into the peak table of the current graph, without a fit.
#pragma once

#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"

namespace dorvane {

// Modal. It stays open after a peak, so that several can be typed.
class frmInputFitParameter : public Form {
 public:
  // Both outlive the form.
  frmInputFitParameter(Program& program, FormHost& host);

  // Proposes the cursor's channel and its count, if the cursor is inside the spectrum, and shows
  // the form. Nothing where the current row holds no graph.
  void Open();

  // Enters the typed peak, settles areas and borders of the whole table and makes the graph "Fit".
  // Nothing while one of the texts is no number, or when the table takes no further peak.
  void cmdOK_Click();
  void cmdCancel_Click() { Hide(); }

  TextBox txtCenterCh{controls_, "txtCenterCh", "CENTER CH"};  // channel index from 0
  TextBox txtMaxCount{controls_, "txtMaxCount", "MAX COUNT"};
  TextBox txtWidth{controls_, "txtWidth", "WIDTH"};  // half width at half maximum, channels
  Button cmdOK{controls_, "cmdOK", "Add to List"};
  Button cmdCancel{controls_, "cmdCancel", "Cancel"};

 private:
  void Form_Load();

  Program& program_;
};

}  // namespace dorvane
