#include "forms/CalibrationPanel.h"

#include "processing/Units.h"
#include "program/Calibration.h"
#include "program/View.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr int kSources = 2;
constexpr const char* kAnglePicture = "0.00000";
constexpr const char* kFirstAnglePicture = "0.000000";  // until the first edit

}  // namespace

CalibrationPanel::CalibrationPanel(PanelWork& work)
    : work_(work),
      optEGC(work.controls, "optEGC", {"Default", "This File"}),
      lblEGC(work.controls, "lblEGC", kSources),
      txt2Theta(work.controls, "txt2Theta", kSources) {
  optEGC.SetTip("The calibration in use");
  txt2Theta[0].SetTip("Default scattering angle 2-theta, degrees");
  txt2Theta[1].SetTip("Scattering angle 2-theta of this file, degrees");
  txt2Theta[1].SetReadOnly(true);
  optEGC.Click.Connect(
      [this](int index) { work_.Do([index](Program& program) { optEGC_Click(program, index); }); });
  txt2Theta[0].EnterPressed.Connect([this] { txt2Theta_Typed(); });
  txt2Theta[0].Left.Connect([this] { txt2Theta_Typed(); });
}

std::string CalibrationPanel::DefaultAngle() const {
  return Picture(work_.program.workspace.DefaultProp.TwoTheta,
                 edited_ ? kAnglePicture : kFirstAnglePicture);
}

// A text that has not been touched is no edit: it has fewer digits than the angle.
void CalibrationPanel::txt2Theta_Typed() {
  work_.Do([this](Program& program) {
    if (txt2Theta[0].Text() == DefaultAngle()) return;
    if (TypeDefaultTwoTheta(program, txt2Theta[0].Text())) edited_ = true;
  });
}

void CalibrationPanel::Refresh() {
  const Workspace& workspace = work_.program.workspace;
  const ViewState& view = work_.program.view;
  const bool graph = workspace.Slots[view.GraphNo].State != kRowEmpty;
  const MeasProp& own = workspace.Spectra[view.DataNo].Prop;
  work_.Fill([&] {
    optEGC.SetIndex(workspace.UseFileEgc == 0 ? 0 : 1);
    lblEGC[0].SetCaption(EgcLabel(workspace.DefaultProp.EGC));
    txt2Theta[0].SetText(DefaultAngle());
    lblEGC[1].SetCaption(graph ? EgcLabel(own.EGC) : "");
    txt2Theta[1].SetText(graph ? Picture(own.TwoTheta, kAnglePicture) : "");
    optEGC.SetOptionEnabled(1, graph);
    lblEGC[1].SetEnabled(graph);
    txt2Theta[1].SetEnabled(graph);
  });
}

}  // namespace dorvane
