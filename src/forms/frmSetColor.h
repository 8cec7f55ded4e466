// The colour table: a button for each entry that has a name.
#pragma once

#include "forms/ColorPatch.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/frmDialogColor.h"
#include "workspace/Workspace.h"

namespace dorvane {

// Modal. It works on a table of its own: whoever opens it hands one in and takes it back.
class frmSetColor : public Form {
 public:
  static constexpr int kNamed = 21;  // entries shown; those past them keep their values

  // Both outlive the form.
  frmSetColor(Dialogs& dialogs, FormHost& host);

  void SetTbl(const ColorTable& table);
  // The table as "OK" has left it; after "Cancel" that of SetTbl.
  void GetTbl(ColorTable& table) const { table = table_; }
  // Shows the form with the focus on an entry, 0..20. True after "OK".
  bool Open(int entry);
  const ColorPatch& FirstEntry() const { return cmdColor[first_]; }

  void cmdColor_Click(int index);
  void cmdOk_Click();
  void cmdCansel_Click();
  void QueryClose() override { cmdCansel_Click(); }

  frmDialogColor dialog;

  ControlArray<Label> lblColor{controls_, "lblColor", kNamed};
  ControlArray<ColorPatch> cmdColor{controls_, "cmdColor", kNamed};
  Button cmdOk{controls_, "cmdOk", "OK"};
  Button cmdCansel{controls_, "cmdCansel", "Cancel"};

 private:
  ColorTable table_;
  ColorTable given_;
  int first_ = 0;
  bool taken_ = false;
};

}  // namespace dorvane
