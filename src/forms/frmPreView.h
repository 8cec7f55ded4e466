// The window that shows what a printer would print, sheet by sheet.
#pragma once

#include <functional>

#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/PictureBox.h"
#include "support/Page.h"

namespace dorvane {

// Sheets that are painted by their number, from 0.
struct SheetStack {
  PictureSize size;  // the printable part of each
  int count = 1;
  std::function<void(Page&, int page_no)> paint;
};

// Modal.
class frmPreView : public Form {
 public:
  explicit frmPreView(FormHost& host);

  // Shows the first of the sheets; `sheets` is asked to paint until the window is closed.
  void Open(SheetStack sheets);

  PictureSize SheetSize() const { return sheets_.size; }
  // The sheet in sight on a page of SheetSize.
  void DrawSheet(Page& page) const;

  void cmdBack_Click() { GoTo(sheet_ - 1); }
  void cmdNext_Click() { GoTo(sheet_ + 1); }
  void cmdOk_Click() { Hide(); }

  PictureBox picPreView{controls_, "picPreView"};
  Button cmdBack{controls_, "cmdBack", "<"};
  Label lblSheet{controls_, "lblSheet"};
  Button cmdNext{controls_, "cmdNext", ">"};
  Button cmdOk{controls_, "cmdOk", "O K"};

 private:
  void GoTo(int sheet);

  SheetStack sheets_;
  int sheet_ = 0;
};

}  // namespace dorvane
