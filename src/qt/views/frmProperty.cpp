#include "forms/frmProperty.h"

#include <QLineEdit>
#include <initializer_list>

#include "qt/binding/Layouts.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr int kColumnGap = 16;
constexpr int kHalf = 3;  // columns of the grid: caption, field, gap
constexpr const char* kWidestNumber = "-0000.000";
constexpr const char* kWidestCoefficient = "-0.00000E-000";

// Which columns of a group take the width that is left.
using Columns = std::initializer_list<int>;
constexpr Columns kCaptions{0, kHalf};  // both halves are as wide, so that groups line up
constexpr Columns kFields{1, kHalf + 1};
constexpr Columns kBehind{2 * kHalf};  // the fields stand together

// A group of the form: captions and fields in two halves.
class Group {
 public:
  Group(FormWindow& window, const Frame& frame, Columns stretched)
      : window_(window), grid_(new QGridLayout) {
    grid_->setHorizontalSpacing(kGap);
    grid_->setVerticalSpacing(kGap);
    grid_->setColumnMinimumWidth(kHalf - 1, kGap);
    for (const int column : stretched) grid_->setColumnStretch(column, 1);
    QVBoxLayout* column = InnerColumn(window.Of(frame));
    column->addLayout(grid_);
    column->addStretch();
  }

  // A heading above the fields of a half.
  void Head(int row, int half, const Label& label) {
    grid_->addWidget(window_.Of(label), row, half * kHalf, 1, 2);
  }
  // `ending` stands directly behind the caption.
  void Number(int row, int half, NumberBox& box, const char* ending = "") {
    grid_->addLayout(CaptionWith(box, ending), row, half * kHalf);
    const auto field = box.ReadOnly() ? ReadOut : Entry;
    grid_->addWidget(field(window_, box, kWidestNumber), row, half * kHalf + 1,
                     box.ReadOnly() ? Qt::AlignRight : Qt::AlignLeft);
  }
  void Numbers(int row, int half, std::initializer_list<NumberBox*> boxes) {
    for (NumberBox* box : boxes) Number(row++, half, *box);
  }
  void Text(int row, int half, TextBox& box, int columns) {
    grid_->addWidget(window_.CaptionOf(box), row, half * kHalf);
    grid_->addWidget(window_.Of(box), row, half * kHalf + 1, 1, columns);
  }
  QGridLayout* Grid() const { return grid_; }

 private:
  QHBoxLayout* CaptionWith(NumberBox& box, const char* ending) {
    QHBoxLayout* row = RowOf({window_.CaptionOf(box), new QLabel(ending, window_.centralWidget())});
    row->setSpacing(0);
    row->addStretch();
    return row;
  }

  FormWindow& window_;
  QGridLayout* grid_;
};

void LayOutSample(frmProperty& form, FormWindow& window) {
  Group group(window, form.fraSample, kFields);
  group.Text(0, 0, form.txtMsuName, 3);
  group.Grid()->addWidget(window.Of(form.cmdIndent), 0, kHalf + 1);
  group.Text(1, 0, form.txtSampName, 4);
  group.Text(2, 0, form.txtOpDate, 1);
  group.Text(2, 1, form.txtOpTime, 1);
  group.Text(3, 0, form.txtOpName, 4);
  group.Text(4, 0, form.txtMemo, 4);
  group.Number(5, 0, form.imnCurrent);
}

void LayOutSlits(frmProperty& form, FormWindow& window) {
  Group group(window, form.fraSlit, kCaptions);
  group.Head(0, 0, form.lblInSlit);
  group.Head(0, 1, form.lblReSlit);
  group.Numbers(1, 0, {&form.imnInV, &form.imnInH, &form.imnInX, &form.imnInZ, &form.imnInTY});
  group.Numbers(1, 1, {&form.imnReV, &form.imnReH, &form.imnReX, &form.imnReZ, &form.imnReTY});
}

void LayOutGoniometer(frmProperty& form, FormWindow& window) {
  Group group(window, form.fraGonio, kCaptions);
  group.Head(0, 0, form.lblHGonio);
  group.Head(0, 1, form.lblVGonio);
  group.Numbers(1, 0, {&form.imnHGonioX, &form.imnHGonioY, &form.imnHGonioZ});
  group.Number(4, 0, form.imnHGonioDAngle, "θ");
  group.Numbers(1, 1, {&form.imnVGonioX, &form.imnVGonioY, &form.imnVGonioZ});
  group.Number(4, 1, form.imnVGonioDAngle, "θ");
}

void LayOutPress(frmProperty& form, FormWindow& window) {
  Group group(window, form.fraPress, kCaptions);
  group.Head(0, 0, form.lblPosition);
  group.Numbers(1, 0, {&form.imnPressX, &form.imnPressY, &form.imnPressZ, &form.imnPressTZ});
  group.Numbers(1, 1, {&form.imnLoad, &form.imnRamStroke, &form.ImnPress});
}

void LayOutMeasurement(frmProperty& form, FormWindow& window) {
  Group group(window, form.fraMeasure, kBehind);
  group.Number(0, 0, form.ImnTemp, "°C)");
  group.Numbers(1, 0, {&form.imnTempK, &form.imnCurrent2, &form.imnVolt, &form.imnPower});
  group.Number(5, 0, form.imnRegistance, "Ω)");
  group.Numbers(0, 1,
                {&form.imnMiriVolt, &form.imnCollimeterSize, &form.imnCntRate, &form.imnRealTime,
                 &form.imnLiveTime, &form.imnDeadTime});
}

void LayOutCalibration(frmProperty& form, FormWindow& window) {
  Group group(window, form.fraEneCal, kBehind);
  group.Grid()->addWidget(window.Of(form.lblEneCal), 0, 0, 1, 2 * kHalf);
  int row = 1;
  for (NumberBox* box : {&form.imnEneCalA, &form.imnEneCalB, &form.imnEneCalC}) {
    group.Grid()->addWidget(window.CaptionOf(*box), row, 0);
    group.Grid()->addWidget(Entry(window, *box, kWidestCoefficient), row++, 1);
  }
}

QVBoxLayout* Column(FormWindow& window, std::initializer_list<const Frame*> frames) {
  auto* column = new QVBoxLayout;
  column->setSpacing(kGap);
  for (const Frame* frame : frames) column->addWidget(window.Of(*frame));
  column->addStretch();
  return column;
}

}  // namespace

void LayOut(frmProperty& form, FormWindow& window) {
  LayOutSample(form, window);
  LayOutSlits(form, window);
  LayOutGoniometer(form, window);
  LayOutPress(form, window);
  LayOutMeasurement(form, window);
  LayOutCalibration(form, window);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(kColumnGap);
  columns->addLayout(Column(window, {&form.fraSample, &form.fraSlit}));
  columns->addLayout(Column(window, {&form.fraGonio, &form.fraPress}));
  columns->addLayout(Column(window, {&form.fraMeasure, &form.fraEneCal}));
  QHBoxLayout* foot = ButtonRow(window, {&form.cmdOk, &form.cmdCan});
  foot->insertWidget(0, window.Of(form.cmdLabelPrint));
  QVBoxLayout* column = WindowColumn(window);
  column->addLayout(columns, 1);
  column->addLayout(foot);
  std::vector<QWidget*> order;
  for (const Control* control : form.Controls().All()) {
    const bool frame = dynamic_cast<const Frame*>(control) != nullptr;
    if (!frame) order.push_back(window.Of(*control));
  }
  window.SetTabOrder(order);
  window.SetCancelButton(form.cmdCan);
  window.SetFirstFocus(form.txtMsuName);
}

}  // namespace dorvane
