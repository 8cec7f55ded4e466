#include "forms/frmSetting.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <limits>
#include <string>

#include "forms/RangeHint.h"
#include "program/Commands.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kLeastThreshold = 1;
constexpr int kMostThreshold = 20;
constexpr int kThresholdOfNoNumber = 10;

constexpr MeantRange kThresholds{.words = "1 to 20; Enter takes what is typed",
                                 .least = kLeastThreshold,
                                 .most = kMostThreshold,
                                 .whole = true};
constexpr MeantRange kIntervals{
    .words = "1 to 4096 channels", .least = 1, .most = 4096, .whole = true};
constexpr MeantRange kTimes{.words = "1 to 32767 passes",
                            .least = 1,
                            .most = std::numeric_limits<std::int16_t>::max(),
                            .whole = true};

// A text leaves the value as it was where it is no number.
void TakeInt16(const TextBox& box, std::int16_t& value) {
  if (IsNumeric(box.Text())) value = Int16Of(box.Text());
}

}  // namespace

// One of the four values of "Dorvane.ini", its box and the line under it.
struct frmSetting::NumberText {
  TextBox frmSetting::*box;
  Label frmSetting::*hint;
  double AnalysisSettings::*value;
  std::string_view picture;
  MeantRange range;

  // A text that has not been touched has fewer digits than the value behind it.
  void Take(const frmSetting& form, AnalysisSettings& settings) const {
    const std::string& text = (form.*box).Text();
    const auto number = ParseNumber(text);
    if (number && text != Picture(settings.*value, picture)) settings.*value = *number;
  }
};

const frmSetting::NumberText frmSetting::kNumbers[] = {
    {&frmSetting::txtEACPS,
     &frmSetting::lblEACPS,
     &AnalysisSettings::BgCoef,
     "#0.00",
     {.words = "0 or more, in counts", .least = 0}},
    {&frmSetting::txtISPPK,
     &frmSetting::lblISPPK,
     &AnalysisSettings::PeakWidthCh,
     "#0.00",
     {.words = "1 to 500 channels", .least = 1, .most = 500}},
    {&frmSetting::txtLambda,
     &frmSetting::lblLambda,
     &AnalysisSettings::DacWavelength,
     "#0.000000",
     {.words = "above 0, in Å", .least = 0, .above_least = true}},
    {&frmSetting::txtJudgeRange,
     &frmSetting::lblJudgeRange,
     &AnalysisSettings::JudgeRange,
     "#0.0000",
     {.words = "0 or more, in Å of d", .least = 0}},
};

frmSetting::frmSetting(Program& program, FormHost& host)
    : Form(host, "frmSetting", "Settings"), program_(program) {
  cboSmooth.SetItems({"5 Point", "7 Point", "9 Point", "11 Point"});
  cboFuncType.SetItems({"Gauss", "Lorentz", "Mix"});
  sldrThres.SetRange(kLeastThreshold, kMostThreshold);
  sldrThres.SetSteps(1, 5);
  ConnectBoxes();
  cmdDefault.Click.Connect([this] { cmdDefault_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCansel.Click.Connect([this] { cmdCansel_Click(); });
}

void frmSetting::ConnectBoxes() {
  sldrThres.Change.Connect([this] { sldrThres_Change(); });
  txtThres.EnterPressed.Connect([this] { txtThres_Enter(); });
  for (TextBox* box : {&txtThres, &txtBackInterval, &txtBackTimes}) {
    box->Change.Connect([this] { ShowHints(); });
  }
  for (const NumberText& number : kNumbers) {
    (this->*number.box).Change.Connect([this] { ShowHints(); });
  }
}

void frmSetting::Open() {
  const FitParamSet& fit = program_.workspace.FitParam;
  ShowFamily();
  for (ComboBox* list : {&cboSmooth, &cboFuncType}) list->SetIndex(-1);
  cboSmooth.SetIndex(fit.SmoothKind);
  cboFuncType.SetIndex(fit.FuncType - 1);
  sldrThres.SetValue(fit.PeakThres);
  sldrThres_Change();
  txtBackInterval.SetText(std::to_string(fit.BackInterval));
  txtBackTimes.SetText(std::to_string(fit.BackTimes));
  ShowNumbers();
  ShowHints();
  ShowModal();
}

void frmSetting::ShowFamily() {
  const bool express = program_.workspace.ExpressFit != 0;
  for (Control* control : std::initializer_list<Control*>{&txtThres, &sldrThres, &lblThres,
                                                          &cboFuncType, &chkFitFunc}) {
    control->SetVisible(express);
  }
  for (Control* control :
       std::initializer_list<Control*>{&txtEACPS, &lblEACPS, &txtISPPK, &lblISPPK}) {
    control->SetVisible(!express);
  }
}

void frmSetting::ShowNumbers() {
  for (const NumberText& number : kNumbers) {
    (this->*number.box).SetText(Picture(program_.workspace.Settings.*number.value, number.picture));
  }
}

void frmSetting::ShowHints() {
  ShowRange(lblThres, txtThres, kThresholds);
  if (txtThres.Text() != std::to_string(sldrThres.Value())) lblThres.SetWarning(true);
  ShowRange(lblBackInterval, txtBackInterval, kIntervals);
  ShowRange(lblBackTimes, txtBackTimes, kTimes);
  for (const NumberText& number : kNumbers) {
    ShowRange(this->*number.hint, this->*number.box, number.range);
  }
}

void frmSetting::sldrThres_Change() {
  txtThres.SetText(std::to_string(sldrThres.Value()));
  ShowHints();  // the text may be that already
}

void frmSetting::txtThres_Enter() {
  const double typed = ParseNumber(txtThres.Text()).value_or(kThresholdOfNoNumber);
  const double limited = std::clamp<double>(typed, kLeastThreshold, kMostThreshold);
  sldrThres.SetValue(RoundToInt16(limited));
  sldrThres_Change();
}

// KEPT: the defaults are stored at once; "Cancel" doesn't bring back what was there.
void frmSetting::cmdDefault_Click() {
  SetDefaultParams(program_.workspace.Settings);
  ShowNumbers();
}

void frmSetting::cmdOk_Click() {
  if (RunGuarded(program_, [this](Program& program) { Take(program.workspace); })) Hide();
}

void frmSetting::Take(Workspace& workspace) const {
  FitParamSet fit = workspace.FitParam;
  // KEPT: the slider counts; a threshold that is typed without Enter is lost.
  fit.PeakThres = ToInt16(sldrThres.Value());
  if (cboFuncType.Index() >= 0) fit.FuncType = ToInt16(cboFuncType.Index() + 1);
  if (cboSmooth.Index() >= 0) fit.SmoothKind = ToInt16(cboSmooth.Index());
  TakeInt16(txtBackInterval, fit.BackInterval);
  TakeInt16(txtBackTimes, fit.BackTimes);
  workspace.Settings = TypedSettings(workspace);
  workspace.FitParam = fit;
}

AnalysisSettings frmSetting::TypedSettings(const Workspace& workspace) const {
  AnalysisSettings settings = workspace.Settings;
  for (const NumberText& number : kNumbers) number.Take(*this, settings);
  // The values of a Nax fit are taken both or neither.
  if (workspace.ExpressFit != 0 || !IsNumeric(txtEACPS.Text()) || !IsNumeric(txtISPPK.Text())) {
    settings.BgCoef = workspace.Settings.BgCoef;
    settings.PeakWidthCh = workspace.Settings.PeakWidthCh;
  }
  return settings;
}

}  // namespace dorvane
