// The dialog that asks for one text.
#pragma once

#include <string>
#include <utility>

#include "forms/Controls.h"
#include "forms/Form.h"

namespace dorvane {

// Modal: set CapName and StrValue, show it, and take StrValue.
class frmInput : public Form {
 public:
  explicit frmInput(FormHost& host);

  // What the text is called.
  void CapName(std::string name) { lblInputName.SetCaption(std::move(name)); }
  // The text; empty after "Cancel" and after closing the dialog by its frame.
  const std::string& StrValue() const { return txtInput.Text(); }
  void SetStrValue(std::string value) { txtInput.SetText(std::move(value)); }

  void cmdOk_Click() { Hide(); }
  void cmdCan_Click();
  void QueryClose() override { cmdCan_Click(); }

  Label lblInputName{controls_, "lblInputName"};
  TextBox txtInput{controls_, "txtInput"};
  Button cmdOk{controls_, "cmdOk", "OK"};
  Button cmdCan{controls_, "cmdCan", "Cancel"};
};

}  // namespace dorvane
