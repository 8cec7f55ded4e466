#include "qt/ReadoutStrip.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QToolButton>

#include "display/DrawScale.h"
#include "processing/Units.h"
#include "program/Cursor.h"
#include "program/View.h"
#include "qt/ThemeIcon.h"
#include "qt/binding/Text.h"
#include "support/NumberText.h"
#include "support/Rounding.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

// Units of inumCursorDisp beside the channel itself.
constexpr std::array<std::int16_t, 5> kReadoutUnits = {kUnitKeV, kUnitD, kUnitWave, kUnitQ,
                                                       kUnit2Theta};
constexpr const char* kUnitTips[] = {"Energy, keV", "d value, \u212B", "Wavelength, \u212B",
                                     "Q, 1/\u212B", "2\u03B8, degrees"};
constexpr const char* kWidestValues[] = {"888.888", "8888.8888", "888.8888", "88.8888", "88.8888"};
constexpr const char* kSourceTexts[] = {"Default", "This File"};

QGridLayout* FieldGrid(QWidget* box) {
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  return grid;
}

QSpinBox* ChannelBox(const QString& name, const QString& tip, QWidget* parent) {
  auto* box = new QSpinBox(parent);
  box->setObjectName(name);
  box->setFont(TabularFont(box->font()));
  box->setAlignment(Qt::AlignRight);
  box->setKeyboardTracking(false);
  box->setFocusPolicy(Qt::ClickFocus);
  box->setToolTip(tip);
  box->setAccessibleName(tip);
  box->setFixedWidth(box->fontMetrics().horizontalAdvance("88888") + 36);
  return box;
}

}  // namespace

ReadoutStrip::ReadoutStrip(Session& session, QWidget* parent) : QWidget(parent), session_(session) {
  setObjectName("fraReadOut");
  grid_ = new QGridLayout(this);
  grid_->setContentsMargins(12, 4, 12, 4);
  grid_->setHorizontalSpacing(12);
  grid_->setVerticalSpacing(4);
  grid_->setSizeConstraint(QLayout::SetNoConstraint);
  grid_->setColumnStretch(4, 1);
  grid_->addWidget(CursorFields(), 0, 0);
  grid_->addWidget(VerticalRule(this), 0, 1);
  grid_->addWidget(ScaleFields(), 0, 2);
  rule_ = VerticalRule(this);
  grid_->addWidget(rule_, 0, 3);
  calibration_ = CalibrationFields();
  grid_->addWidget(calibration_, 0, 4);
  whole_width_ = grid_->minimumSize().width();
  Follow();
  RefreshScale();
  RefreshCalibration();
}

void ReadoutStrip::Arrange(bool one_row) {
  if (one_row == one_row_) return;
  one_row_ = one_row;
  grid_->removeWidget(calibration_);
  if (one_row) {
    grid_->addWidget(calibration_, 0, 4);
  } else {
    grid_->addWidget(calibration_, 1, 0, 1, 5);
  }
  rule_->setVisible(one_row);
  updateGeometry();
}

void ReadoutStrip::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  Arrange(width() >= whole_width_);
}

QSize ReadoutStrip::minimumSizeHint() const {
  return {whole_width_ - calibration_->minimumSizeHint().width(), grid_->minimumSize().height()};
}

QSize ReadoutStrip::sizeHint() const {
  return {grid_->sizeHint().width(), grid_->minimumSize().height()};
}

QWidget* ReadoutStrip::CursorFields() {
  auto* box = new QWidget(this);
  QGridLayout* grid = FieldGrid(box);
  inumCursorCh_ = ChannelBox("inumCursorCh", "Cursor: channel index from 0", box);
  grid->addWidget(FieldCaption("Cursor", Qt::AlignLeft, box), 0, 0);
  grid->addWidget(inumCursorCh_, 1, 0);
  inumCursorCnt_ = new ValueLabel("inumCursorCnt_0", "88888888", box);
  inumCursorCnt_->setToolTip("Count at the cursor");
  grid->addWidget(FieldCaption("Count", Qt::AlignRight, box), 0, 1);
  grid->addWidget(inumCursorCnt_, 1, 1);
  for (int i = 0; i < kCursorUnits; ++i) {
    const auto at = static_cast<std::size_t>(i);
    auto* value = new ValueLabel(QString("inumCursorDisp_%1").arg(i), kWidestValues[at], box);
    value->setToolTip(kUnitTips[at]);
    inumCursorDisp_[at] = value;
    const QString unit = ToQString(UnitLabel(kReadoutUnits[at]));
    grid->addWidget(FieldCaption(unit, Qt::AlignRight, box), 0, 2 + i);
    grid->addWidget(value, 1, 2 + i);
  }
  connect(inumCursorCh_, &QSpinBox::valueChanged, this, [this](int channel) {
    session_.Do([=](Program& program) { CsrX_Change(program, channel); });
  });
  connect(inumCursorCh_, &QSpinBox::editingFinished, this, &ReadoutStrip::EntryDone);
  return box;
}

QWidget* ReadoutStrip::StepButton(const char* name, const char* command, const char* icon,
                                  const char* tip) {
  auto* button = new QToolButton(this);
  button->setObjectName(name);
  button->setIcon(ThemeIcon(icon));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolTip(tip);
  button->setAccessibleName(tip);
  connect(button, &QToolButton::clicked, this, [this, command] { session_.Run(command); });
  return button;
}

QWidget* ReadoutStrip::ScaleFields() {
  auto* box = new QWidget(this);
  QGridLayout* grid = FieldGrid(box);
  cboUnitX_ = new QComboBox(box);
  cboUnitX_->setObjectName("cboUnitX");
  cboUnitX_->setToolTip("Unit of the axis");
  cboUnitX_->setAccessibleName("Unit of the axis");
  cboUnitX_->setFocusPolicy(Qt::TabFocus);
  for (const std::string_view text : UnitComboTexts()) cboUnitX_->addItem(ToQString(text));
  imnSpanCh_ = ChannelBox("imnSpanCh", "Channels shown", box);
  ckbLogScale_ = new QCheckBox("Log Scale", box);
  ckbLogScale_->setObjectName("ckbLogScale");
  ckbVtAuto_ = new QCheckBox("Auto Scale", box);
  ckbVtAuto_->setObjectName("ckbVtAuto");
  for (QCheckBox* check : {ckbLogScale_, ckbVtAuto_}) check->setFocusPolicy(Qt::TabFocus);
  itxtScaleY_ = new ValueLabel("itxtScaleY", "888.8K", box);
  itxtScaleY_->setToolTip("Height of the count axis");

  grid->addWidget(new QLabel("Height", box), 0, 0);
  grid->addWidget(itxtScaleY_, 0, 1);
  grid->addWidget(
      StepButton("cmdShoter", "mnuShoter", "taller", "Shorter scale, larger curves (Down)"), 0, 2);
  grid->addWidget(
      StepButton("cmdTaller", "mnuTaller", "shorter", "Taller scale, smaller curves (Up)"), 0, 3);
  grid->addWidget(new QLabel("Span", box), 1, 0);
  grid->addWidget(imnSpanCh_, 1, 1);
  grid->addWidget(StepButton("cmdWider", "mnuWider", "wider", "Wider (key pad +)"), 1, 2);
  grid->addWidget(StepButton("cmdNarrower", "mnuNarrower", "narrower", "Narrower (key pad -)"), 1,
                  3);
  grid->addWidget(new QLabel("Unit", box), 0, 4);
  grid->addWidget(cboUnitX_, 1, 4);
  grid->addWidget(ckbLogScale_, 0, 5);
  grid->addWidget(ckbVtAuto_, 1, 5);

  connect(cboUnitX_, &QComboBox::activated, this, [this](int unit) {
    session_.Do([=](Program& program) { SetDispUnit(program, ToInt16(unit)); });
  });
  connect(imnSpanCh_, &QSpinBox::valueChanged, this,
          [this](int span) { session_.Do([=](Program& program) { SetSpanCh(program, span); }); });
  connect(imnSpanCh_, &QSpinBox::editingFinished, this, &ReadoutStrip::EntryDone);
  connect(ckbLogScale_, &QCheckBox::clicked, this,
          [this](bool on) { session_.Do([=](Program& program) { SetLogScale(program, on); }); });
  connect(ckbVtAuto_, &QCheckBox::clicked, this,
          [this](bool on) { session_.Do([=](Program& program) { SetAutoScale(program, on); }); });
  return box;
}

QWidget* ReadoutStrip::CalibrationFields() {
  auto* box = new QWidget(this);
  QGridLayout* grid = FieldGrid(box);
  for (int i = 0; i < kSources; ++i) {
    const auto at = static_cast<std::size_t>(i);
    optEGC_[at] = new QRadioButton(kSourceTexts[at], box);
    optEGC_[at]->setObjectName(QString("optEGC_%1").arg(i));
    optEGC_[at]->setFocusPolicy(Qt::TabFocus);
    lblEGC_[at] = new ElidedLabel(QString("lblEGC_%1").arg(i), box);
    txt2Theta_[at] = new ValueLabel(QString("txt2Theta_%1").arg(i), "88.88888\u00B0", box);
    lblEGC_[at]->setFont(SmallFont(lblEGC_[at]->font()));
    grid->addWidget(optEGC_[at], i, 0);
    grid->addWidget(lblEGC_[at], i, 1);
    grid->addWidget(new QLabel("2\u03B8", box), i, 2);
    grid->addWidget(txt2Theta_[at], i, 3);
    connect(optEGC_[at], &QRadioButton::clicked, this,
            [this, i] { session_.Do([=](Program& program) { optEGC_Click(program, i); }); });
  }
  grid->setColumnStretch(4, 1);
  return box;
}

void ReadoutStrip::Follow() {
  const Notices& notices = session_.notices;
  connect(&notices, &Notices::CursorChanged, this, [this] { RefreshCursor(); });
  connect(&notices, &Notices::ListChanged, this, [this] { RefreshCursor(); });
  connect(&notices, &Notices::SpanChanged, this, [this] { RefreshScale(); });
  connect(&notices, &Notices::HeightChanged, this, [this] { RefreshScale(); });
  connect(&notices, &Notices::UnitChanged, this, [this] { RefreshScale(); });
  connect(&notices, &Notices::CalibrationChanged, this, [this] { RefreshCalibration(); });
  connect(&session_, &Session::Done, this, [this] { RefreshCalibration(); });
}

void ReadoutStrip::RefreshCursor() {
  const Program& program = session_.program;
  const ViewState& view = program.view;
  const Workspace& workspace = program.workspace;
  const QSignalBlocker quiet(inumCursorCh_);
  inumCursorCh_->setRange(0, workspace.MaxCh);
  inumCursorCh_->setValue(view.CursorCh);
  const bool graph = workspace.Slots[view.GraphNo].State != kRowEmpty;
  const ChannelBlock& block = workspace.Channels[view.DataNo];
  const bool counted = graph && view.CursorCh < block.Count;
  inumCursorCnt_->setText(counted ? QString::number(block.Counts[view.CursorCh]) : "");
  const MeasProp& source = CalibrationOf(workspace, view.DataNo);
  for (std::size_t i = 0; i < kReadoutUnits.size(); ++i) {
    const int unit = kReadoutUnits[i];
    const double value = ChToUnit(unit, view.CursorExact, source, workspace.Dac);
    inumCursorDisp_[i]->setText(graph ? ToQString(Picture(value, UnitPattern(unit))) : "");
  }
}

void ReadoutStrip::RefreshScale() {
  const ViewState& view = session_.program.view;
  const QSignalBlocker quiet_unit(cboUnitX_);
  const QSignalBlocker quiet_span(imnSpanCh_);
  cboUnitX_->setCurrentIndex(view.DispUnit);
  imnSpanCh_->setRange(static_cast<int>(kSmallestSpan), session_.program.workspace.MaxCh);
  imnSpanCh_->setValue(static_cast<int>(view.SpanCh));
  ckbLogScale_->setChecked(view.LogScale != kFalse);
  ckbVtAuto_->setChecked(view.AutoScale != kFalse);
  itxtScaleY_->setText(view.LogScale != kFalse ? "LOG" : ToQString(ScaleText(view.HeightY)));
  RefreshCursor();
}

void ReadoutStrip::RefreshCalibration() {
  const Workspace& workspace = session_.program.workspace;
  const ViewState& view = session_.program.view;
  const bool graph = workspace.Slots[view.GraphNo].State != kRowEmpty;
  const std::size_t used = workspace.UseFileEgc == 0 ? 0 : 1;
  const std::array<const MeasProp*, kSources> sources = {&workspace.DefaultProp,
                                                         &workspace.Spectra[view.DataNo].Prop};
  for (std::size_t i = 0; i < sources.size(); ++i) {
    const bool known = i == 0 || graph;
    lblEGC_[i]->SetWholeText(known ? ToQString(EgcLabel(sources[i]->EGC)) : "");
    txt2Theta_[i]->setText(known ? ToQString(Picture(sources[i]->TwoTheta, "0.00000")) + "\u00B0"
                                 : "");
    for (QWidget* field : {static_cast<QWidget*>(optEGC_[i]), static_cast<QWidget*>(lblEGC_[i]),
                           static_cast<QWidget*>(txt2Theta_[i])}) {
      field->setEnabled(known);
    }
    optEGC_[i]->setChecked(i == used);
    QPalette ink = palette();
    if (i == used) {
      const QColor red = ToQColor(workspace.ColorTbl[kColorCursor]);
      ink.setColor(QPalette::Active, QPalette::WindowText, red);
      ink.setColor(QPalette::Inactive, QPalette::WindowText, red);
    }
    optEGC_[i]->setPalette(ink);
  }
}

}  // namespace dorvane
