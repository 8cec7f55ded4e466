// The dialog before something is printed: direction of the paper, dot size, and printer or preview.
#pragma once

#include <cstdint>
#include <string>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "program/Program.h"
#include "support/SettingsStore.h"

namespace dorvane {

constexpr std::int16_t kLargestDotSize = 20;

// Modal. Whoever opens it looks at the fields afterwards.
class frmPrint : public Form {
 public:
  // Takes the dot size of the last run. All outlive the form.
  frmPrint(Program& program, FormHost& host, SettingsStore& settings);

  // Asks for what is to be printed by this name; the fields are those of a dialog that has been
  // left by "Cancel" until a button is pressed.
  void Open(const std::string& name);

  // Keeps the dot size as it is typed, 0 to 20; another one is limited to that.
  void ImnDrawWidth_Change();
  void optOrientation_Click(int index);
  void cmdOk_Click();
  void cmdPreview_Click();
  void cmdCan_Click() { Hide(); }

  std::int16_t GetDrawWidth = 0;    // width of the curve on paper
  std::int16_t GetOrientation = 0;  // -1 "Horizontal", 0 "Vertical"
  std::int16_t PreViewPb = kFalse;  // the preview is wanted
  std::int16_t GetPrintMode = 0;    // 2 to print, 1 for the preview, 0 for neither
  std::int16_t OkPb = kFalse;       // printing is wanted

  TextBox txtFileName{controls_, "txtFileName", "FileName"};
  OptionGroup optOrientation{controls_, "optOrientation", {"Vertical", "Horizontal"}};
  NumberBox ImnDrawWidth{controls_, "ImnDrawWidth", "#0", "Dot Size"};
  Button cmdOk{controls_, "cmdOk", "O K"};
  Button cmdPreview{controls_, "cmdPreview", "Preview"};
  Button cmdCan{controls_, "cmdCan", "Cancel"};

 private:
  void Leave(std::int16_t mode);

  Workspace& workspace_;
  SettingsStore& settings_;
};

}  // namespace dorvane
