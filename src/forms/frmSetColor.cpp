#include "forms/frmSetColor.h"

namespace dorvane {
namespace {

constexpr const char* kNames[frmSetColor::kNamed] = {
    "Graph1",       "Graph2",       "Graph3",     "Graph4",    "Graph5",      "Graph6",
    "Graph7",       "Graph8",       "Graph9",     "Graph10",   "ROI No Text", "ROI Line ",
    "Element Mark", "Peak Mark",    "Peak Curve", "Fit Curve", "Zansa",       "Base Form",
    "Window1 Back", "Window2 Back", "Expand Area"};

}  // namespace

frmSetColor::frmSetColor(Dialogs& dialogs, FormHost& host)
    : Form(host, "frmSetColor", "Color Stetting"), dialog(dialogs, host) {
  for (int i = 0; i < kNamed; ++i) {
    lblColor[i].SetCaption(kNames[i]);
    cmdColor[i].SetCaption(kNames[i]);
    cmdColor[i].Click.Connect([this, i] { cmdColor_Click(i); });
  }
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCansel.Click.Connect([this] { cmdCansel_Click(); });
}

void frmSetColor::SetTbl(const ColorTable& table) {
  given_ = table;
  table_ = table;
  for (int i = 0; i < kNamed; ++i) cmdColor[i].SetFill(table_[i]);
}

bool frmSetColor::Open(int entry) {
  first_ = entry;
  taken_ = false;
  ShowModal();
  return taken_;
}

void frmSetColor::cmdColor_Click(int index) {
  table_[index] = dialog.Open(table_[index]);
  cmdColor[index].SetFill(table_[index]);
}

void frmSetColor::cmdOk_Click() {
  taken_ = true;
  Hide();
}

void frmSetColor::cmdCansel_Click() {
  SetTbl(given_);
  Hide();
}

}  // namespace dorvane
