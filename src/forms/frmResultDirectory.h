// The dialog that sets the directory into which the lattice form's "Data Save" writes.
#pragma once

#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"
#include "support/SettingsStore.h"

namespace dorvane {

// Modal. The directory has to exist; none is made.
class frmResultDirectory : public Form {
 public:
  // All outlive the form.
  frmResultDirectory(const Program& program, FormHost& host, SettingsStore& settings);

  // Shows the directory that is in use.
  void Open();

  // Keeps the directory and closes; an empty box and the program's own directory both stand for
  // the latter. What is no directory is told, and the dialog stays.
  void cmdOk_Click();
  void cmdBrowse_Click();

  Label lblPurpose{controls_, "lblPurpose", "\"Data Save\" writes LatticeFit.csv into"};
  TextBox txtDirectory{controls_, "txtDirectory", "Directory"};
  Button cmdBrowse{controls_, "cmdBrowse", "Browse..."};
  Button cmdOk{controls_, "cmdOk", "OK"};
  Button cmdCan{controls_, "cmdCan", "Cancel"};

 private:
  std::string Chosen() const;

  const Program& program_;
  SettingsStore& settings_;
};

}  // namespace dorvane
