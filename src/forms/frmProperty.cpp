#include "forms/frmProperty.h"

#include <array>
#include <cmath>
#include <utility>

#include "program/Commands.h"
#include "program/OpenSave.h"
#include "program/PropertySheet.h"

namespace dorvane {
namespace {

constexpr double kKelvinOfZeroCelsius = 273.15;
constexpr double kMilliohmPerOhm = 1000;

struct NumberRow {
  NumberBox frmProperty::*box;
  double MeasProp::*field;
};

// What is filled later stands behind what it would else follow from: the resistance of the spectrum
// is the one that shows, not that of voltage and current.
constexpr std::array kNumbers{
    NumberRow{&frmProperty::imnCurrent, &MeasProp::Current},
    NumberRow{&frmProperty::imnInV, &MeasProp::InV},
    NumberRow{&frmProperty::imnInH, &MeasProp::InH},
    NumberRow{&frmProperty::imnInX, &MeasProp::InX},
    NumberRow{&frmProperty::imnInZ, &MeasProp::InZ},
    NumberRow{&frmProperty::imnInTY, &MeasProp::InTY},
    NumberRow{&frmProperty::imnReV, &MeasProp::ReV},
    NumberRow{&frmProperty::imnReH, &MeasProp::ReH},
    NumberRow{&frmProperty::imnReX, &MeasProp::ReX},
    NumberRow{&frmProperty::imnReZ, &MeasProp::ReZ},
    NumberRow{&frmProperty::imnReTY, &MeasProp::ReTY},
    NumberRow{&frmProperty::imnHGonioX, &MeasProp::HGonioX},
    NumberRow{&frmProperty::imnHGonioY, &MeasProp::HGonioY},
    NumberRow{&frmProperty::imnHGonioZ, &MeasProp::HGonioZ},
    NumberRow{&frmProperty::imnHGonioDAngle, &MeasProp::TwoTheta},
    NumberRow{&frmProperty::imnVGonioX, &MeasProp::VGonioX},
    NumberRow{&frmProperty::imnVGonioY, &MeasProp::VGonioY},
    NumberRow{&frmProperty::imnVGonioZ, &MeasProp::VGonioZ},
    NumberRow{&frmProperty::imnVGonioDAngle, &MeasProp::VGonioDAngle},
    NumberRow{&frmProperty::imnPressX, &MeasProp::PressX},
    NumberRow{&frmProperty::imnPressY, &MeasProp::PressY},
    NumberRow{&frmProperty::imnPressZ, &MeasProp::PressZ},
    NumberRow{&frmProperty::imnPressTZ, &MeasProp::PressTZ},
    NumberRow{&frmProperty::imnLoad, &MeasProp::Load},
    NumberRow{&frmProperty::imnRamStroke, &MeasProp::RamStroke},
    NumberRow{&frmProperty::ImnPress, &MeasProp::Press},
    NumberRow{&frmProperty::ImnTemp, &MeasProp::Temp},
    NumberRow{&frmProperty::imnCurrent2, &MeasProp::Current2},
    NumberRow{&frmProperty::imnVolt, &MeasProp::Volt},
    NumberRow{&frmProperty::imnPower, &MeasProp::Power},
    NumberRow{&frmProperty::imnRegistance, &MeasProp::Registance},
    NumberRow{&frmProperty::imnMiriVolt, &MeasProp::MiriVolt},
    NumberRow{&frmProperty::imnCollimeterSize, &MeasProp::CollimeterSize},
    NumberRow{&frmProperty::imnCntRate, &MeasProp::CntRate},
    NumberRow{&frmProperty::imnRealTime, &MeasProp::RealTime},
    NumberRow{&frmProperty::imnLiveTime, &MeasProp::LiveTime},
};

constexpr std::array kCoefficients{&frmProperty::imnEneCalA, &frmProperty::imnEneCalB,
                                   &frmProperty::imnEneCalC};

}  // namespace

frmProperty::frmProperty(Program& program, FormHost& host, Launcher& launcher,
                         std::string tool_directory)
    : Form(host, "frmProperty", "Property"),
      program_(program),
      launcher_(launcher),
      tool_directory_(std::move(tool_directory)) {
  imnDeadTime.SetReadOnly(true);
  ConnectBoxes();
  cmdIndent.Click.Connect([this] { cmdIndent_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCan.Click.Connect([this] { cmdCan_Click(); });
  cmdLabelPrint.Click.Connect([this] { cmdLabelPrint_Click(); });
}

void frmProperty::ConnectBoxes() {
  for (Control* control : controls_.All()) {
    const auto changed = [this] { PropChanged = kTrue; };
    if (auto* text = dynamic_cast<TextBox*>(control)) text->Change.Connect(changed);
    if (auto* number = dynamic_cast<NumberBox*>(control)) number->Change.Connect(changed);
  }
  ImnTemp.Change.Connect([this] { ImnTemp_Change(); });
  imnVolt.Change.Connect([this] { imnVolt_Change(); });
  imnCurrent2.Change.Connect([this] { imnCurrent2_Change(); });
  imnRealTime.Change.Connect([this] { imnRealTime_Change(); });
  imnLiveTime.Change.Connect([this] { imnLiveTime_Change(); });
}

void frmProperty::Open() {
  const int row = GetGrpNo(program_.List());
  if (!HoldsGraph(program_.workspace, row)) return;
  SetDataNo(program_.workspace.Slots[row].DataNo);
  SetValue();
  ShowModal();
}

void frmProperty::SetValue() {
  const SpectrumRec& record = Record();
  txtMsuName.SetText(record.MsuName.Text());
  txtSampName.SetText(record.SampName.Text());
  txtOpDate.SetText(DateText(record.OpDate));
  txtOpTime.SetText(TimeText(record.OpTime));
  txtOpName.SetText(record.OpName.Text());
  txtMemo.SetText(record.Memo.Text());
  for (const auto& [box, field] : kNumbers) (this->*box).SetValue(record.Prop.*field);
  for (std::size_t j = 0; j < kCoefficients.size(); ++j) {
    (this->*kCoefficients[j]).SetValue(record.Prop.EGC[static_cast<int>(j)]);
  }
  ImnTemp_Change();
  ShowDeadTime();
  PropChanged = kFalse;
}

void frmProperty::ImnTemp_Change() {
  imnTempK.SetValue(ImnTemp.Value() + kKelvinOfZeroCelsius);
}

void frmProperty::ShowRegistance() {
  if (imnCurrent2.Value() == 0) return;
  const double milliohm = imnVolt.Value() / imnCurrent2.Value() * kMilliohmPerOhm;
  if (std::isfinite(milliohm)) imnRegistance.SetValue(milliohm);
}

void frmProperty::ShowDeadTime() {
  MeasProp shown;
  shown.RealTime = imnRealTime.Value();
  shown.LiveTime = imnLiveTime.Value();
  imnDeadTime.SetValue(DeadTimePercent(shown));
}

void frmProperty::cmdIndent_Click() {
  txtMsuName.SetText(CountUp(txtMsuName.Text()));
}

void frmProperty::cmdOk_Click() {
  RunGuarded(program_, [this](Program& program) {
    TakeOver();
    if (PropChanged == kFalse) return;
    Question question;
    question.text = "Property is changed. Do you want to save this file?";
    question.icon = BoxIcon::Question;
    question.no_is_default = false;
    if (program.ports.dialogs.AskYesNo(question)) FileSave(program);
  });
  Hide();
}

void frmProperty::cmdLabelPrint_Click() {
  RunGuarded(program_, [this](Program& program) {
    TakeOver();
    LabelPrint(program, launcher_, tool_directory_, data_no_);
  });
}

void frmProperty::TakeOver() {
  SpectrumRec& record = Record();
  const bool texts = TakeTexts(record);
  const bool numbers = TakeNumbers(record.Prop);
  program_.workspace.LastProp = record.Prop;
  if (texts || numbers) ShowProperties(program_, data_no_);
}

bool frmProperty::TakeTexts(SpectrumRec& record) const {
  bool changed = false;
  changed |= TakeText(record.MsuName, txtMsuName.Text());
  changed |= TakeText(record.SampName, txtSampName.Text());
  changed |= TakeDate(record.OpDate, txtOpDate.Text());
  changed |= TakeTime(record.OpTime, txtOpTime.Text());
  changed |= TakeText(record.OpName, txtOpName.Text());
  changed |= TakeText(record.Memo, txtMemo.Text());
  return changed;
}

bool frmProperty::TakeNumbers(MeasProp& prop) const {
  bool changed = false;
  for (const auto& [box, field] : kNumbers) {
    changed |= TakeNumber(prop.*field, (this->*box).Value());
  }
  for (std::size_t j = 0; j < kCoefficients.size(); ++j) {
    changed |= TakeNumber(prop.EGC[static_cast<int>(j)], (this->*kCoefficients[j]).Value());
  }
  return changed;
}

}  // namespace dorvane
