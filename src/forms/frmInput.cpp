#include "forms/frmInput.h"

namespace dorvane {

frmInput::frmInput(FormHost& host) : Form(host, "frmInput", "Input") {
  txtInput.EnterPressed.Connect([this] { cmdOk_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCan.Click.Connect([this] { cmdCan_Click(); });
}

void frmInput::cmdCan_Click() {
  txtInput.SetText("");
  Hide();
}

}  // namespace dorvane
