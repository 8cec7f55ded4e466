#include "forms/StylePanel.h"

#include "forms/EnableRules.h"
#include "program/AutoFit.h"
#include "program/WindowStyle.h"

namespace dorvane {

StylePanel::StylePanel(PanelWork& work)
    : work_(work),
      ckbExpand(work.controls, "ckbExpand", "Expand"),
      chkWinStyle(work.controls, "chkWinStyle", "PileUp"),
      cmdAutoFit(work.controls, "cmdAutoFit", "AutoFitting"),
      chkFilePile(work.controls, "chkFilePile", kWindows, "Pile"),
      fraWinHeight(work.controls, "fraWinHeight") {
  ckbExpand.SetTip("The lower window shows a part of the upper one");
  chkWinStyle.SetTip("All graphs in the upper window");
  cmdAutoFit.SetTip("Smoothing, background and fit of the one spectrum that is open");
  fraWinHeight.SetTip("Heights of the windows; double click closes or opens the lower one");
  OpenLowerWindow(true);
  fraWinHeight.DblClick.Connect([this] { OpenLowerWindow(!LowerWindowOpen()); });
  ckbExpand.Click.Connect([this] {
    work_.Do([this](Program& program) { ckbExpand_Click(program, ckbExpand.Checked()); });
  });
  chkWinStyle.Click.Connect([this] {
    work_.Do([this](Program& program) { chkWinStyle_Click(program, chkWinStyle.Checked()); });
  });
  cmdAutoFit.Click.Connect([this] { work_.Do(cmdAutoFit_Click); });
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    chkFilePile[win_no].SetTip("Cursor and height follow in window " + std::to_string(win_no + 1));
    chkFilePile[win_no].Click.Connect([this, win_no] {
      work_.Do([this, win_no](Program& program) {
        chkFilePile_Click(program, win_no, chkFilePile[win_no].Checked());
      });
    });
  }
}

void StylePanel::Refresh() {
  const ViewState& view = work_.program.view;
  // An expansion that begins is to be seen.
  const bool begins = view.ExpandOn != kFalse && !ckbExpand.Checked();
  if (begins && !LowerWindowOpen()) OpenLowerWindow(true);
  work_.Fill([&] {
    ckbExpand.SetChecked(view.ExpandOn != kFalse);
    chkWinStyle.SetChecked(view.PileUpOn != kFalse);
    cmdAutoFit.SetEnabled(Allowed(work_.program, "form", cmdAutoFit.Name()));
    for (int win_no = 0; win_no < kWindows; ++win_no) {
      chkFilePile[win_no].SetChecked(view.FilePile[win_no] != kFalse);
      chkFilePile[win_no].SetEnabled(view.ExpandOn == kFalse);
    }
  });
}

}  // namespace dorvane
