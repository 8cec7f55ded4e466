// The dialog that saves a graph window as a picture or copies it, in a size for print.
#pragma once

#include <optional>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"
#include "support/Pictures.h"
#include "support/SettingsStore.h"

namespace dorvane {

// Modal. Shows the window of the current graph, or the other one where that is empty. The size is
// kept from one run to the next.
class frmPicture : public Form {
 public:
  // All outlive the form.
  frmPicture(Program& program, FormHost& host, Pictures& pictures, SettingsStore& settings);

  // Shows the size used last. Nothing where no graph is open.
  void Open();
  // Copies without asking, in the size used last; nothing where no graph is open.
  void Copy();

  // Asks for a file: PNG, SVG or PDF. "File Write Error" where it can't be written; the dialog
  // stays then, and also where no file is chosen.
  void cmdSave_Click();
  void cmdCopy_Click();
  void cmdCan_Click() { Hide(); }

  NumberBox imnWidth{controls_, "imnWidth", "##0.0", "Width (mm)"};
  NumberBox imnHeight{controls_, "imnHeight", "##0.0", "Height (mm)"};
  NumberBox imnResolution{controls_, "imnResolution", "###0", "Dots per inch"};
  Label lblHint{controls_, "lblHint"};
  Button cmdSave{controls_, "cmdSave", "Save as.."};
  Button cmdCopy{controls_, "cmdCopy", "Copy"};
  Button cmdCan{controls_, "cmdCan", "Cancel"};

 private:
  std::optional<PictureSize> Size() const;
  // In the boxes; the standard size where none is kept.
  void ShowKeptSize();
  void ShowHint();
  void KeepSize();
  PaintPage PaintWindow();
  void CopyWindow();

  Program& program_;
  Pictures& pictures_;
  SettingsStore& settings_;
};

}  // namespace dorvane
