#include "forms/frmDispPara.h"

#include <limits>

#include "forms/RangeHint.h"
#include "program/Commands.h"
#include "program/View.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr int kStraightLine = 0;
constexpr int kParabola = 1;

constexpr const char* kNames[] = {"A", "B", "C"};
constexpr const char* kParabolaPicture = "0.00000E+000";  // keV/ch², small beside the others

constexpr MeantRange kConstants[] = {
    {.words = "any number"},
    {.words = "above 0", .least = 0, .above_least = true},
    {.words = "any number; 0 for a straight line"},
};

constexpr MeantRange kTimes{.words = "0 or more", .least = 0};
constexpr MeantRange kCounts{.words = "0 to 2147483647",
                             .least = 0,
                             .most = std::numeric_limits<std::int32_t>::max(),
                             .whole = true};
constexpr MeantRange kAngles{
    .words = "above 0, up to 180", .least = 0, .most = 180, .above_least = true};
constexpr MeantRange kPressures{.words = "0 or more; GPa in the other windows", .least = 0};
constexpr MeantRange kTemperatures{.words = "-273.15 or more, in °C", .least = -273.15};

}  // namespace

frmDispPara::frmDispPara(Program& program, FormHost& host)
    : Form(host, "frmDispPara", "Parameter Value"), program_(program) {
  chkCnst[kStraightLine].SetCaption("E=A+Bx");
  chkCnst[kParabola].SetCaption("E=A+Bx+Cx2");
  chkCnst[kStraightLine].SetChecked(true);
  for (int i = 0; i < kCoefficients; ++i) ImConst[i].SetCaption(kNames[i]);
  ImConst[2].SetPicture(kParabolaPicture);
  ConnectBoxes();
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCansel.Click.Connect([this] { cmdCansel_Click(); });
}

void frmDispPara::ConnectBoxes() {
  for (int i = 0; i < chkCnst.Size(); ++i) {
    chkCnst[i].Click.Connect([this, i] { chkCnst_Click(i); });
  }
  for (int i = 0; i < kCoefficients; ++i) ImConst[i].Change.Connect([this] { ShowHints(); });
  for (NumberBox* box : {&imnRealTime, &imnLiveTime, &imnRoiCnt, &imnAngle, &ImnPress, &ImnTemp}) {
    box->Change.Connect([this] { ShowHints(); });
  }
}

void frmDispPara::Open() {
  Form_Load();
  ShowModal();
}

void frmDispPara::Form_Load() {
  const MeasProp& prop = program_.workspace.DefaultProp;
  const int kind = prop.EGC[2] == 0 ? kStraightLine : kParabola;
  chkCnst[kind].SetChecked(true);
  chkCnst_Click(kind);
  for (int i = 0; i < kCoefficients; ++i) ImConst[i].SetValue(prop.EGC[i]);
  const bool known =
      prop.PropHead >= 0 && prop.PropHead < static_cast<int>(optMode.Captions().size());
  optMode.SetIndex(known ? prop.PropHead : -1);
  imnRealTime.SetValue(prop.RealTime);
  imnLiveTime.SetValue(prop.LiveTime);
  imnRoiCnt.SetValue(program_.workspace.PresetCount);
  imnAngle.SetValue(prop.TwoTheta);
  ImnPress.SetValue(prop.Press);
  ImnTemp.SetValue(prop.Temp);
  ShowHints();
}

void frmDispPara::chkCnst_Click(int index) {
  chkCnst[1 - index].SetChecked(!chkCnst[index].Checked());
  const bool linear = chkCnst[kStraightLine].Checked();
  ImConst[2].SetEnabled(!linear);
  lblConst[2].SetEnabled(!linear);
  if (linear) ImConst[2].SetValue(0);
}

void frmDispPara::ShowHints() {
  for (int i = 0; i < kCoefficients; ++i) ShowRange(lblConst[i], ImConst[i], kConstants[i]);
  ShowRange(lblRange[0], imnRealTime, kTimes);
  ShowRange(lblRange[1], imnLiveTime, kTimes);
  ShowRange(lblRange[2], imnRoiCnt, kCounts);
  ShowRange(lblRange[3], imnAngle, kAngles);
  ShowRange(lblRange[4], ImnPress, kPressures);
  ShowRange(lblRange[5], ImnTemp, kTemperatures);
}

void frmDispPara::cmdOk_Click() {
  const bool taken = RunGuarded(program_, [this](Program& program) {
    Take(program.workspace);
    SetEGCParam(program, 0);
    program.Listener().UnitAxisChanged();
    program.Listener().CursorMoved();
  });
  if (taken) Hide();
}

void frmDispPara::Take(Workspace& workspace) const {
  workspace.PresetCount = RoundToInt32(imnRoiCnt.Value());
  MeasProp& prop = workspace.DefaultProp;
  for (int i = 0; i < kCoefficients; ++i) prop.EGC[i] = ImConst[i].Value();
  if (optMode.Index() >= 0) prop.PropHead = ToInt16(optMode.Index());
  prop.RealTime = imnRealTime.Value();
  prop.LiveTime = imnLiveTime.Value();
  prop.TwoTheta = imnAngle.Value();
  prop.Press = ImnPress.Value();
  prop.Temp = ImnTemp.Value();
}

}  // namespace dorvane
