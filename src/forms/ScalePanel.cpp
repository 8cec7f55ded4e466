#include "forms/ScalePanel.h"

#include "display/DrawScale.h"
#include "processing/Units.h"
#include "program/View.h"

namespace dorvane {
namespace {

constexpr std::int32_t kStartHeight = 10000000;

// The label of the height. The height at start shows as the logarithmic axis does.
std::string HeightLabel(const ViewState& view) {
  return view.LogScale != kFalse || view.HeightY == kStartHeight ? "LOG" : ScaleText(view.HeightY);
}

}  // namespace

ScalePanel::ScalePanel(PanelWork& work)
    : work_(work),
      hsbStartX(work.controls, "hsbStartX"),
      imnSpanCh(work.controls, "imnSpanCh", "####0"),
      inumScaleX(work.controls, "inumScaleX", "0.000"),
      cboUnitX(work.controls, "cboUnitX"),
      hsbWidthY(work.controls, "hsbWidthY"),
      itxtScaleY(work.controls, "itxtScaleY"),
      ckbLogScale(work.controls, "ckbLogScale", "Log Scale"),
      ckbVtAuto(work.controls, "ckbVtAuto", "Auto Scale"),
      ckbNorScale(work.controls, "ckbNorScale", "Normal Scale"),
      cmdWider(work.controls, "cmdWider", "Wider"),
      cmdNarrower(work.controls, "cmdNarrower", "Narrower") {
  std::vector<std::string> units;
  for (const std::string_view text : UnitComboTexts()) units.emplace_back(text);
  cboUnitX.SetItems(units);
  hsbStartX.SetShowsPage(true);
  hsbWidthY.SetRange(0, kScaleSteps);
  hsbStartX.SetTip("First channel shown");
  imnSpanCh.SetTip("Channels shown");
  inumScaleX.SetTip("Width shown, in the unit of the axis");
  cboUnitX.SetTip("Unit of the axis");
  hsbWidthY.SetTip("Height of the count axis (Up, Down)");
  itxtScaleY.SetTip("Height of the count axis in counts");
  ckbLogScale.SetTip("Logarithmic count axis (Ctrl+L, key pad .)");
  ckbVtAuto.SetTip("The height follows the curve (Ctrl+H)");
  ckbNorScale.SetTip("The height stays as it is chosen");
  cmdWider.SetTip("Half of the range (key pad +)");
  cmdNarrower.SetTip("Twice the range (key pad -)");
  ConnectRange();
  ConnectHeight();
}

void ScalePanel::ConnectRange() {
  hsbStartX.Change.Connect(
      [this] { work_.Do([this](Program& program) { SetStartCh(program, hsbStartX.Value()); }); });
  imnSpanCh.Change.Connect(
      [this] { work_.Do([this](Program& program) { SetSpanCh(program, imnSpanCh.Value()); }); });
  inumScaleX.Change.Connect(
      [this] { work_.Do([this](Program& program) { TypeSpan(program, inumScaleX.Value()); }); });
  cboUnitX.Click.Connect([this] {
    work_.Do([this](Program& program) {
      if (cboUnitX.Index() >= 0) SetDispUnit(program, ToInt16(cboUnitX.Index()));
    });
  });
  cmdWider.Click.Connect([this] { work_.Do(dorvane::cmdWider); });
  cmdNarrower.Click.Connect([this] { work_.Do(dorvane::cmdNarrower); });
}

void ScalePanel::ConnectHeight() {
  hsbWidthY.Change.Connect(
      [this] { work_.Do([this](Program& program) { SetWidthY(program, hsbWidthY.Value()); }); });
  itxtScaleY.EnterPressed.Connect([this] { itxtScaleY_Typed(); });
  itxtScaleY.Left.Connect([this] { itxtScaleY_Typed(); });
  ckbLogScale.Click.Connect([this] {
    work_.Do([this](Program& program) { SetLogScale(program, ckbLogScale.Checked()); });
  });
  ckbVtAuto.Click.Connect([this] {
    work_.Do([this](Program& program) { SetAutoScale(program, ckbVtAuto.Checked()); });
  });
  ckbNorScale.Click.Connect([this] {
    work_.Do([this](Program& program) { SetNorScale(program, ckbNorScale.Checked()); });
  });
}

// The label that stands there, such as "500", is no typed height.
void ScalePanel::itxtScaleY_Typed() {
  work_.Do([this](Program& program) {
    if (itxtScaleY.Text() != HeightLabel(program.view)) TypeHeight(program, itxtScaleY.Text());
  });
}

void ScalePanel::Refresh() {
  const Program& program = work_.program;
  const ViewState& view = program.view;
  work_.Fill([&] {
    hsbStartX.SetRange(0, program.workspace.MaxCh);
    const int span = static_cast<int>(view.SpanCh);
    if (hsbStartX.LargeChange() != span) {
      hsbStartX.SetSteps(static_cast<int>(ScrollStep(program)), span);
    }
    hsbStartX.SetValue(static_cast<int>(view.StartCh));
    imnSpanCh.SetValue(view.SpanCh);
    inumScaleX.SetPicture(view.DispUnit == kUnitCh ? "####0" : "0.000");
    inumScaleX.SetValue(SpanInUnit(program));
    cboUnitX.SetIndex(view.DispUnit);
    hsbWidthY.SetValue(view.WidthY);
    itxtScaleY.SetText(HeightLabel(view));
    ckbLogScale.SetChecked(view.LogScale != kFalse);
    ckbVtAuto.SetChecked(view.AutoScale != kFalse);
    ckbNorScale.SetChecked(view.NorScale != kFalse);
  });
}

}  // namespace dorvane
