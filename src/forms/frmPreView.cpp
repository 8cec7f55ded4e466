#include "forms/frmPreView.h"

#include <algorithm>
#include <string>
#include <utility>

namespace dorvane {

frmPreView::frmPreView(FormHost& host) : Form(host, "frmPreView", "Preview") {
  cmdBack.SetTip("Previous sheet");
  cmdNext.SetTip("Next sheet");
  cmdBack.Click.Connect([this] { cmdBack_Click(); });
  cmdNext.Click.Connect([this] { cmdNext_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
}

void frmPreView::Open(SheetStack sheets) {
  sheets_ = std::move(sheets);
  const bool several = sheets_.count > 1;
  cmdBack.SetVisible(several);
  lblSheet.SetVisible(several);
  cmdNext.SetVisible(several);
  GoTo(0);
  ShowModal();
  sheets_.paint = nullptr;
}

void frmPreView::GoTo(int sheet) {
  sheet_ = std::clamp(sheet, 0, std::max(sheets_.count - 1, 0));
  cmdBack.SetEnabled(sheet_ > 0);
  cmdNext.SetEnabled(sheet_ + 1 < sheets_.count);
  lblSheet.SetCaption(std::to_string(sheet_ + 1) + " of " + std::to_string(sheets_.count));
  picPreView.Redraw();
}

void frmPreView::DrawSheet(Page& page) const {
  if (sheets_.paint) sheets_.paint(page, sheet_);
}

}  // namespace dorvane
