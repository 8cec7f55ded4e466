// Range and height of the graphs on the main form: scroll bars, span, unit, typed height and the
// switches of the scale.
#pragma once

#include "forms/Controls.h"
#include "forms/PanelWork.h"

namespace dorvane {

class ScalePanel {
 public:
  explicit ScalePanel(PanelWork& work);
  void Refresh();

 private:
  PanelWork& work_;

 public:
  ScrollBar hsbStartX;   // first channel shown
  NumberBox imnSpanCh;   // channels shown
  NumberBox inumScaleX;  // the same in the unit of the axis; typed in Ch, keV and eV alone
  ComboBox cboUnitX;
  ScrollBar hsbWidthY;  // 35 less the index of the height
  TextBox itxtScaleY;   // label of the height; a typed height counts with Enter or on leaving
  CheckBox ckbLogScale;
  CheckBox ckbVtAuto;
  CheckBox ckbNorScale;
  Button cmdWider;
  Button cmdNarrower;

 private:
  void ConnectRange();
  void ConnectHeight();
  void itxtScaleY_Typed();
};

}  // namespace dorvane
