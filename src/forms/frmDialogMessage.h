// The program's own message dialog, with one button or two.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "forms/Controls.h"
#include "forms/Form.h"

namespace dorvane {

// Modal: set Kind and Message (and the caption), show it, and take BtnValue.
class frmDialogMessage : public Form {
 public:
  explicit frmDialogMessage(FormHost& host);

  // 0: "O K" alone; any other value: "O K" and "Cancel".
  void Kind(std::int16_t kind) { cmdNo.SetVisible(kind != 0); }
  void Message(std::string text) { itxtMessage.SetText(std::move(text)); }
  // 0 after "O K", 1 after "Cancel". Closing by the frame is "Cancel" where there is that button.
  std::int16_t BtnValue() const { return button_; }

  void cmdYes_Click();
  void cmdNo_Click();
  void QueryClose() override;

  TextBox itxtMessage{controls_, "itxtMessage"};
  Button cmdYes{controls_, "cmdYes", "O K"};
  Button cmdNo{controls_, "cmdNo", "Cancel"};

 private:
  std::int16_t button_ = 0;
};

}  // namespace dorvane
