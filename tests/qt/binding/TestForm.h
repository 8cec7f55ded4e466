// A form with every kind of control, and its layout.
#pragma once

#include <gtest/gtest.h>

#include <QPainter>
#include <QSplitter>

#include "forms/ColorPatch.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/Menus.h"
#include "forms/PictureBox.h"
#include "qt/binding/GridView.h"
#include "qt/binding/Layouts.h"
#include "qt/binding/PictureView.h"

namespace dorvane {

class TestForm : public Form {
 public:
  explicit TestForm(FormHost& host) : Form(host, "frmTest", "Every kind") {
    txtNote.SetSeveralLines(true);
    cboSmooth.SetItems({"Savitzky", "Moving", "平滑化"});
    cboSmooth.SetIndex(0);
    lstFiles.SetItems({"a.npd", "b.npd", "c.npd"});
    grdPeaks.SetMaxRows(3);
    for (int row = 1; row <= 3; ++row) {
      GridCell check;
      check.is_check = true;
      grdPeaks.SetCell(row, 1, check);
      grdPeaks.SetText(row, 3, row == 2 ? "1204.50" : "98.25");
      grdPeaks.SetText(row, 4, "111");
      grdPeaks.SetRowTitle(row, std::to_string(row));
    }
    GridCell colour;
    colour.back = RgbColor(0x00, 0x72, 0xB2);
    colour.mark = true;
    grdPeaks.SetCell(1, 2, colour);
    grdPeaks.SetEditableColumn(4, true);
    timScroll.Ticked.Connect([this] { ++ticks; });
  }

  static Color RgbColor(int red, int green, int blue) {
    return static_cast<Color>(red | green << 8 | blue << 16);
  }

  MenuItem mnuFile{controls_, "mnuFile", "&File"};
  MenuItem mnuOpen{controls_, "mnuOpen", "&Open...", &mnuFile, "Ctrl+O"};
  MenuItem mnuPile{controls_, "mnuPile", "&Pile up", &mnuFile};
  MenuItem mnuExit{controls_, "mnuExit", "E&xit", &mnuFile, "", true};
  ToolBar tlbMain{
      controls_, "tlbMain", {{"Load", "Load", "Load a spectrum"}, {"Fit", "Fit"}, {"Log", "Log"}}};
  Label lblName{controls_, "lblName", "corundum_ambient.npd"};
  Frame fraFields{controls_, "fraFields", "Fields"};
  TextBox txtName{controls_, "txtName", "&Name"};
  TextBox txtNote{controls_, "txtNote", "Notes"};
  NumberBox imnAngle{controls_, "imnAngle", "##0.000", "Angle"};
  CheckBox chkFix{controls_, "chkFix", "Fi&x"};
  ToggleButton tglAtom{controls_, "tglAtom_26", "Fe"};
  OptionGroup optEGC{controls_, "optEGC", {"Default", "This File"}};
  ColorPatch cmdColor{controls_, "cmdColor", "Graph1"};
  ComboBox cboSmooth{controls_, "cboSmooth", "Smoothing"};
  ListBox lstFiles{controls_, "lstFiles", "Files"};
  Slider sldWidth{controls_, "sldWidth", "Width"};
  ScrollBar hsbStartX{controls_, "hsbStartX", "Start"};
  UpDown spnCursor{controls_, "spnCursor", "Cursor"};
  Tabs tabPages{controls_, "tabPages", {"PeakData", "UsePeak"}};
  Grid grdPeaks{controls_, "grdPeaks", {"Use", "Colour", "Intensity", "hkl"}};
  Splitter fraWinHeight{controls_, "fraWinHeight"};
  PictureBox picGraph{controls_, "picGraph", "Graph"};
  PictureBox picAxis{controls_, "picAxis", "Axis"};
  Timer timScroll{controls_, "timScroll", 5};
  Button cmdOk{controls_, "cmdOk", "&OK"};
  Button cmdCan{controls_, "cmdCan", "Cancel"};
  int ticks = 0;
};

inline void LayOut(TestForm& form, FormWindow& window) {
  window.addToolBar(window.As<QToolBar>(form.tlbMain));
  QVBoxLayout* column = WindowColumn(window);
  column->addWidget(window.Of(form.lblName));

  FieldColumns fields(window);
  fields.Add(form.txtName);
  fields.Add(form.imnAngle, "-000.000", "deg");
  fields.Add(form.cboSmooth);
  fields.Add(form.sldWidth);
  fields.Add(form.hsbStartX);
  fields.Add(form.spnCursor);
  QVBoxLayout* left = InnerColumn(window.Of(form.fraFields));
  left->addLayout(fields.Layout());
  left->addWidget(window.Of(form.chkFix));
  left->addWidget(window.Of(form.tglAtom));
  left->addWidget(window.Of(form.cmdColor));
  left->addWidget(window.Of(form.optEGC));
  left->addStretch();

  auto* grid = window.As<GridView>(form.grdPeaks);
  grid->SetColumnWidths({"", "", "00000000", "000"});
  grid->SetLeastRows(4);
  InnerColumn(window.Page(form.tabPages, 0))->addWidget(grid);
  InnerColumn(window.Page(form.tabPages, 1))->addWidget(window.Of(form.lstFiles));

  auto* divider = window.As<QSplitter>(form.fraWinHeight);
  divider->addWidget(window.Of(form.picGraph));
  divider->addWidget(window.Of(form.picAxis));
  for (const PictureBox* picture : {&form.picGraph, &form.picAxis}) {
    auto* view = window.As<PictureView>(*picture);
    view->setMinimumHeight(40);
    view->SetPicture([view](QPainter& painter, const QRectF& rect) {
      painter.fillRect(rect, view->palette().base());
    });
  }
  divider->setMinimumHeight(160);

  QHBoxLayout* halves = RowOf({window.Of(form.fraFields), window.Of(form.tabPages)});
  halves->setStretch(1, 1);
  column->addLayout(halves);
  column->addWidget(divider, 1);
  column->addWidget(window.CaptionOf(form.txtNote));
  column->addWidget(window.Of(form.txtNote));
  column->addLayout(ButtonRow(window, {&form.cmdOk, &form.cmdCan}));
  window.SetDefaultButton(form.cmdOk);
  window.SetCancelButton(form.cmdCan);
}

}  // namespace dorvane
