#include "forms/frmDorvane.h"

#include <QComboBox>
#include <QGridLayout>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "qt/binding/LabelView.h"
#include "qt/binding/Layouts.h"
#include "qt/binding/TabularFont.h"
#include "qt/views/GraphSheet.h"
#include "qt/views/MainInput.h"
#include "qt/views/Parts.h"
#include "qt/views/Views.h"

namespace dorvane {
namespace {

constexpr QSize kFirstSize(1280, 800);
constexpr QSize kIconSize(20, 20);
constexpr int kHeightBarWidth = 96;
constexpr const char* kWidestValues[] = {"888.888", "8888.8888", "888.8888", "88.8888", "88.8888"};
// The steps of the main job show their names as well.
constexpr const char* kWithText[] = {"tlbrFile_LoadData", "tlbrFile_SaveData",
                                     "tlbrOperation_Smooth", "tlbrOperation_BackGround",
                                     "tlbrOperation_AllFit"};

void AddToolBar(FormWindow& window, const Control& control) {
  auto* bar = window.As<QToolBar>(control);
  bar->setMovable(false);
  bar->setIconSize(kIconSize);
  bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
  window.addToolBar(bar);
  bar->show();
}

void LayOutToolBars(const frmDorvane& form, FormWindow& window) {
  const ToolBarsPanel& bars = form.tool_bars;
  for (const ToolBar* bar :
       {&bars.tlbrFile, &bars.tlbrEnergy, &bars.tlbrCalc, &bars.tlbrDisplay, &bars.tlbrNax}) {
    AddToolBar(window, *bar);
  }
  window.addToolBarBreak();
  for (const ToolBar* bar : {&bars.tlbrOperation, &bars.tlbrRoiPeak, &bars.tlbrRoi}) {
    AddToolBar(window, *bar);
  }
  for (const char* name : kWithText) {
    auto* action = window.findChild<QAction*>(name);
    for (QObject* owner : action->associatedObjects()) {
      auto* bar = qobject_cast<QToolBar*>(owner);
      if (bar == nullptr) continue;
      auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
      button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    }
  }
}

QGridLayout* FieldGrid(QWidget* box) {
  auto* grid = new QGridLayout(box);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(6);
  grid->setVerticalSpacing(4);
  return grid;
}

QWidget* CursorSection(const frmDorvane& form, FormWindow& window) {
  const CursorPanel& cursor = form.cursor;
  auto* box = new QWidget(&window);
  QGridLayout* grid = FieldGrid(box);
  grid->setRowStretch(3, 1);
  grid->addWidget(SmallCaption("Cursor", Qt::AlignLeft | Qt::AlignBottom, box), 0, 0);
  QHBoxLayout* channel =
      RowOf({Entry(window, cursor.inumCursorCh, "88888"), window.Of(cursor.updCursorX)});
  channel->setSpacing(2);
  grid->addLayout(channel, 1, 0);
  for (int i = 0; i < cursor.inumCursorDisp.Size(); ++i) {
    auto* unit = window.As<LabelView>(cursor.lblDispUnit[i]);
    unit->setFont(SmallFont(unit->font()));
    unit->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    unit->setForegroundRole(QPalette::PlaceholderText);
    grid->addWidget(unit, 0, 1 + i);
    grid->addWidget(ReadOut(window, cursor.inumCursorDisp[i], kWidestValues[i]), 1, 1 + i);
  }
  QHBoxLayout* switches = RowOf({window.Of(cursor.chkArea), window.Of(cursor.chkCsrType)});
  switches->addStretch();
  grid->addLayout(switches, 2, 0, 1, 6);
  grid->setColumnStretch(6, 1);
  return box;
}

QWidget* ScaleSection(const frmDorvane& form, FormWindow& window) {
  const ScalePanel& scale = form.scale;
  auto* box = new QWidget(&window);
  QGridLayout* grid = FieldGrid(box);
  window.Of(scale.hsbWidthY)->setMinimumWidth(kHeightBarWidth);
  for (const Button* button : {&scale.cmdWider, &scale.cmdNarrower}) {
    QWidget* widget = window.Of(*button);
    widget->setFixedWidth(widget->fontMetrics().horizontalAdvance("Narrower") + 20);
  }
  grid->addWidget(new QLabel("Height", box), 0, 0);
  grid->addWidget(Entry(window, scale.itxtScaleY, "88888888"), 0, 1);
  grid->addWidget(window.Of(scale.hsbWidthY), 0, 2, 1, 2);
  grid->addWidget(new QLabel("Channels", box), 1, 0);
  grid->addWidget(Entry(window, scale.imnSpanCh, "88888888"), 1, 1);
  grid->addWidget(window.Of(scale.cmdWider), 1, 2);
  grid->addWidget(window.Of(scale.cmdNarrower), 1, 3);
  grid->addWidget(new QLabel("Width", box), 2, 0);
  grid->addWidget(Entry(window, scale.inumScaleX, "88888888"), 2, 1);
  grid->addWidget(window.Of(scale.cboUnitX), 2, 2);
  grid->setColumnStretch(4, 1);
  return box;
}

// Controls below one another.
QWidget* ColumnSection(FormWindow& window, std::initializer_list<const Control*> controls) {
  auto* box = new QWidget(&window);
  QGridLayout* grid = FieldGrid(box);
  int row = 0;
  for (const Control* control : controls) grid->addWidget(window.Of(*control), row++, 0);
  grid->setRowStretch(row, 1);
  grid->setColumnStretch(1, 1);
  return box;
}

QWidget* CalibrationSection(const frmDorvane& form, FormWindow& window) {
  const CalibrationPanel& calibration = form.calibration;
  auto* box = new QWidget(&window);
  QGridLayout* grid = FieldGrid(box);
  grid->addWidget(window.Of(calibration.optEGC), 0, 0, 2, 1);
  for (int i = 0; i < calibration.lblEGC.Size(); ++i) {
    auto* coefficients = window.As<LabelView>(calibration.lblEGC[i]);
    coefficients->setFont(SmallFont(coefficients->font()));
    coefficients->SetElided();
    grid->addWidget(coefficients, i, 1);
    grid->addWidget(new QLabel("2\u03B8", box), i, 2);
    QWidget* angle = i == 0 ? Entry(window, calibration.txt2Theta[i], "88.888888")
                            : ReadOut(window, calibration.txt2Theta[i], "88.888888");
    grid->addWidget(angle, i, 3);
    grid->addWidget(new QLabel("\u00B0", box), i, 4);
  }
  grid->setColumnStretch(5, 1);
  grid->setRowStretch(2, 1);
  return box;
}

QWidget* Strip(const frmDorvane& form, FormWindow& window) {
  const ScalePanel& scale = form.scale;
  const StylePanel& style = form.style;
  return new SectionRow(
      {CursorSection(form, window), ScaleSection(form, window),
       ColumnSection(window, {&scale.ckbLogScale, &scale.ckbVtAuto, &scale.ckbNorScale}),
       ColumnSection(window, {&style.ckbExpand, &style.chkWinStyle, &style.cmdAutoFit}),
       CalibrationSection(form, window)},
      window.centralWidget());
}

void LayOutCentre(frmDorvane& form, FormWindow& window) {
  auto* splitter = window.As<QSplitter>(form.style.fraWinHeight);
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    splitter->addWidget(LayOutGraph(form, window, win_no));
  }
  QVBoxLayout* column = WindowColumn(window);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(splitter, 1);
  column->addWidget(window.Of(form.scale.hsbStartX));
  column->addWidget(Strip(form, window));
}

void LayOutStatusLine(const frmDorvane& form, FormWindow& window) {
  QStatusBar* line = window.statusBar();
  line->setSizeGripEnabled(false);
  line->setContentsMargins(8, 0, 8, 0);
  for (const Label* label : {&form.status.lblFile, &form.status.lblHint}) {
    window.As<LabelView>(*label)->SetElided();
  }
  auto* progress = new QProgressBar(&window);
  progress->setObjectName(kProgressBarName);
  progress->setFixedSize(160, 16);
  progress->hide();
  line->addWidget(window.Of(form.status.lblFile));
  line->addWidget(window.Of(form.status.lblHint), 1);
  line->addPermanentWidget(progress);
  line->addPermanentWidget(window.Of(form.status.lblPeaks));
}

// From the upper window to the lower one and through the strip, column by column.
void OrderTabs(const frmDorvane& form, FormWindow& window) {
  std::vector<QWidget*> order;
  const auto add = [&](std::initializer_list<const Control*> controls) {
    for (const Control* control : controls) order.push_back(window.Of(*control));
  };
  for (int win_no = 0; win_no < kWindows; ++win_no) {
    if (win_no == 1) order.push_back(window.As<QSplitter>(form.style.fraWinHeight)->handle(1));
    add({&form.graphs.picGraph[win_no], &form.selector.cboGrphSel[win_no]});
    for (int row = 0; row < kRows; ++row) add({&form.selector.chkGrp[win_no * kRows + row]});
    add({&form.style.chkFilePile[win_no]});
  }
  const CursorPanel& cursor = form.cursor;
  const ScalePanel& scale = form.scale;
  add({&scale.hsbStartX,         &cursor.inumCursorCh,
       &cursor.updCursorX,       &cursor.chkArea,
       &cursor.chkCsrType,       &scale.itxtScaleY,
       &scale.hsbWidthY,         &scale.imnSpanCh,
       &scale.cmdWider,          &scale.cmdNarrower,
       &scale.inumScaleX,        &scale.cboUnitX,
       &scale.ckbLogScale,       &scale.ckbVtAuto,
       &scale.ckbNorScale,       &form.style.ckbExpand,
       &form.style.chkWinStyle,  &form.style.cmdAutoFit,
       &form.calibration.optEGC, &form.calibration.txt2Theta[0]});
  window.SetTabOrder(order);
}

}  // namespace

void LayOut(frmDorvane& form, FormWindow& window) {
  window.setContextMenuPolicy(Qt::NoContextMenu);
  LayOutToolBars(form, window);
  LayOutCentre(form, window);
  LayOutStatusLine(form, window);
  OrderTabs(form, window);
  window.resize(kFirstSize);
  window.SetFirstFocus(form.graphs.picGraph[0]);
  new MainInput(form, window);
}

}  // namespace dorvane
