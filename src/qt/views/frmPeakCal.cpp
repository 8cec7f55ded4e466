#include "forms/frmPeakCal.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include "qt/binding/GridView.h"
#include "qt/binding/LabelView.h"
#include "qt/binding/Layouts.h"
#include "qt/binding/PictureView.h"
#include "qt/surface/PainterSurface.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr const char* kWidestConstant = "000.000000";
constexpr const char* kWidestResult = "0000.000000+-00.000000";
constexpr const char* kWidestAngle = "000.00000";
constexpr const char* kLengthUnit = "Å";
constexpr const char* kAngleUnit = "°";
constexpr int kLengths = 3;
constexpr int kSectionGap = 16;
constexpr int kLeastPlotHeight = 150;
constexpr int kLeastRows = 6;
constexpr int kUnitWidth = 28;
constexpr QSize kStartSize(1220, 760);

QGridLayout* NarrowGrid() {
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(kGap);
  grid->setVerticalSpacing(kGap / 2);
  return grid;
}

// All of one width, so that the values before them end at one line.
QLabel* Unit(FormWindow& window, const QString& text) {
  auto* unit = new QLabel(text, window.centralWidget());
  unit->setFixedWidth(kUnitWidth);
  return unit;
}

QLabel* Head(FormWindow& window, const Control& control) {
  return SmallCaption(QString::fromStdString(control.Caption()), Qt::AlignRight,
                      window.centralWidget());
}

// What is worked on: mode, sample, crystal system.
QGridLayout* Choice(frmPeakCal& form, FormWindow& window) {
  QGridLayout* grid = NarrowGrid();
  grid->setVerticalSpacing(kGap);
  grid->addWidget(window.Of(form.optSelectMode), 0, 0, 2, 1, Qt::AlignVCenter);
  grid->setColumnMinimumWidth(1, kSectionGap);
  int row = 0;
  for (ComboBox* box : {&form.cmbElement, &form.cmbLatticeType}) {
    grid->addWidget(window.CaptionOf(*box), row, 2);
    grid->addWidget(window.Of(*box), row++, 3);
  }
  grid->setColumnStretch(3, 1);
  return grid;
}

// One row for each constant of the cell: from the library, as the fit starts, as it ends.
QGridLayout* Constants(frmPeakCal& form, FormWindow& window) {
  QGridLayout* grid = NarrowGrid();
  grid->addWidget(Head(window, form.txtLatticeConstans[0]), 0, 1);
  grid->addWidget(Head(window, form.txtSeedConstant[0]), 0, 2);
  grid->addWidget(Head(window, form.txtLatticeLength[0]), 0, 3);
  for (int k = 0; k < kCellConstants; ++k) {
    const int row = k + 1;
    grid->addWidget(window.Of(form.lblSeed[k]), row, 0);
    grid->addWidget(ReadOut(window, form.txtLatticeConstans[k], kWidestConstant), row, 1);
    grid->addWidget(Entry(window, form.txtSeedConstant[k], kWidestConstant), row, 2);
    grid->addWidget(ReadOut(window, form.txtLatticeLength[k], kWidestResult), row, 3);
    grid->addWidget(Unit(window, k < kLengths ? kLengthUnit : kAngleUnit), row, 4);
  }
  grid->setColumnStretch(0, 1);
  return grid;
}

// Temperature and angle.
QGridLayout* Conditions(frmPeakCal& form, FormWindow& window) {
  QGridLayout* grid = NarrowGrid();
  grid->setVerticalSpacing(kGap);
  grid->addWidget(window.CaptionOf(form.txtTemp), 0, 0);
  grid->addWidget(Entry(window, form.txtTemp, kWidestAngle), 0, 1);
  grid->addWidget(window.Of(form.cmbUnit), 0, 2);
  grid->addWidget(window.CaptionOf(form.txt2Theta), 0, 4);
  grid->addWidget(Entry(window, form.txt2Theta, kWidestAngle), 0, 5);
  grid->addWidget(Unit(window, kAngleUnit), 0, 6);
  grid->setColumnStretch(3, 1);
  return grid;
}

QWidget* Correction(frmPeakCal& form, FormWindow& window) {
  QWidget* frame = window.Of(form.fra2ThetaCalib);
  auto* row = new QHBoxLayout(frame);
  row->setSpacing(kGap);
  row->addWidget(window.Of(form.cmd2ThetaCalib));
  row->addStretch();
  row->addWidget(window.CaptionOf(form.txtExpected2theta));
  row->addWidget(ReadOut(window, form.txtExpected2theta, kWidestAngle));
  row->addWidget(Unit(window, kAngleUnit));
  return frame;
}

QGridLayout* Results(frmPeakCal& form, FormWindow& window) {
  QGridLayout* grid = NarrowGrid();
  struct {
    TextBox& box;
    const char* unit;
  } const rows[] = {{form.txtVol, "Å³"}, {form.txtVolPerVol0, ""}, {form.txtPressure, "GPa"}};
  int row = 0;
  for (const auto& each : rows) {
    grid->addWidget(window.CaptionOf(each.box), row, 0);
    grid->addWidget(ReadOut(window, each.box, kWidestResult), row, 1, Qt::AlignRight);
    grid->addWidget(Unit(window, each.unit), row++, 2);
  }
  grid->setColumnStretch(0, 1);
  return grid;
}

void ShowGrid(FormWindow& window, const Grid& grid, const QStringList& widest, int text_column) {
  auto* view = window.As<GridView>(grid);
  view->SetSortable();
  view->SetColumnWidths(widest);
  if (text_column > 0) view->SetTextColumn(text_column);
}

void ShowGrids(frmPeakCal& form, FormWindow& window) {
  const QString channel = "0000.000", value = "00.00000", count = "000000.000";
  const QString use = "Use", type = "UNK", planes = "(-10 -10 -10)";
  ShowGrid(window, form.sprPeakInf,
           {channel, value, value, count, channel, value, count, use, type}, 0);
  ShowGrid(window, form.sprPeakInf2, {channel, value, value, value, value, planes, use, type}, 6);
  ShowGrid(window, form.sprPeakInf3, {value, value, value, planes, use, type}, 4);
  ShowGrid(window, form.sprPeakInf4,
           {channel, value, value, value, value, value, planes, use, type, value}, 7);
}

// The four grids stand on their tabs; the form tells which of them is seen.
QWidget* Lines(frmPeakCal& form, FormWindow& window) {
  ShowGrids(form, window);
  const std::pair<const Grid*, int> places[] = {{&form.sprPeakInf, 0},
                                                {&form.sprPeakInf2, 0},
                                                {&form.sprPeakInf3, 1},
                                                {&form.sprPeakInf4, 1}};
  for (const auto& [grid, page] : places) {
    QWidget* tab = window.Page(form.tabLatticeFit, page);
    if (tab->layout() == nullptr) InnerColumn(tab);
    tab->layout()->addWidget(window.Of(*grid));
    window.As<GridView>(*grid)->setMinimumHeight(kLeastRows * 24);
  }
  return window.Of(form.tabLatticeFit);
}

QWidget* PeakHintLine(frmPeakCal& form, FormWindow& window) {
  auto* hint = window.As<QLabel>(form.lblPeakHint);
  hint->setWordWrap(true);
  return hint;
}

QWidget* Plot(frmPeakCal& form, FormWindow& window) {
  auto* view = window.As<PictureView>(form.picDeviation);
  view->setMinimumHeight(kLeastPlotHeight);
  view->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  view->setFocusPolicy(Qt::NoFocus);
  view->setAccessibleName("Deviation of each line");
  view->SetOpaque();
  view->SetPicture([&form](QPainter& painter, const QRectF& rect) {
    PainterSurface surface(painter, rect);
    form.DrawDeviation(surface);
  });
  return view;
}

}  // namespace

void LayOut(frmPeakCal& form, FormWindow& window) {
  auto* left = new QVBoxLayout;
  left->setSpacing(kGap);
  left->addLayout(Choice(form, window));
  left->addSpacing(kGap);
  left->addLayout(Constants(form, window));
  left->addSpacing(kGap);
  left->addLayout(Conditions(form, window));
  left->addWidget(Correction(form, window));
  left->addSpacing(kGap);
  left->addLayout(Results(form, window));
  left->addStretch();

  auto* right = new QVBoxLayout;
  right->setSpacing(kGap);
  right->addWidget(Lines(form, window), 3);
  right->addWidget(Plot(form, window), 2);

  auto* body = new QHBoxLayout;
  body->setSpacing(kSectionGap);
  body->addLayout(left);
  body->addLayout(right, 1);

  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(PeakHintLine(form, window));
  column->addLayout(body, 1);
  auto* saved = window.As<LabelView>(form.lblOutcome);
  saved->SetElided();
  QHBoxLayout* buttons = ButtonRow(window, {&form.cmdCal, &form.cmdDataSave, &form.cmdExit});
  buttons->insertWidget(0, saved, 1);
  column->addLayout(buttons);
  window.SetDefaultButton(form.cmdCal);
  window.SetCancelButton(form.cmdExit);
  window.SetFirstFocus(form.cmbElement);
  window.resize(kStartSize);
}

}  // namespace dorvane
