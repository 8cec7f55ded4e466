#include "forms/frmDialogMessage.h"

namespace dorvane {

frmDialogMessage::frmDialogMessage(FormHost& host) : Form(host, "frmDialogMessage", "Message") {
  itxtMessage.SetReadOnly(true);
  itxtMessage.SetSeveralLines(true);
  Kind(0);
  cmdYes.Click.Connect([this] { cmdYes_Click(); });
  cmdNo.Click.Connect([this] { cmdNo_Click(); });
}

void frmDialogMessage::cmdYes_Click() {
  button_ = 0;
  Hide();
}

void frmDialogMessage::cmdNo_Click() {
  button_ = 1;
  Hide();
}

void frmDialogMessage::QueryClose() {
  if (cmdNo.Visible()) {
    cmdNo_Click();
  } else {
    cmdYes_Click();
  }
}

}  // namespace dorvane
