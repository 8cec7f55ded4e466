// The choice of a colour: a palette, three sliders, and places for colours of one's own.
#pragma once

#include "forms/ColorPatch.h"
#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "support/Dialogs.h"

namespace dorvane {

// Modal. The registered colours live as long as the form.
class frmDialogColor : public Form {
 public:
  static constexpr int kPalette = 32;
  static constexpr int kPlaces = 16;

  // Both outlive the form.
  frmDialogColor(Dialogs& dialogs, FormHost& host);

  // Answers the colour that "OK" takes; after "Cancel" `entry` as it is, all of its bits.
  Color Open(Color entry);

  // Index of the palette's colour that the sliders show; -1 where they show another.
  int shpSetColor() const;
  // The sliders go to the colour.
  void picColor_Click(int index);
  // "Set" stores there from now on; the sliders go to the colour, if one is stored.
  void picRegist_Click(int index);
  void vsb_Change();
  void cmdOther_Click();
  void cmdSet_Click();
  void cmdOk_Click();
  void cmdCansel_Click();
  void QueryClose() override { cmdCansel_Click(); }

  ControlArray<ColorPatch> picColor{controls_, "picColor", kPalette};
  Frame fraRegist{controls_, "fraRegist", "Registration Color"};
  ControlArray<ColorPatch> picRegist{controls_, "picRegist", kPlaces};
  Button cmdSet{controls_, "cmdSet", "Set"};
  Slider vsbRed{controls_, "vsbRed", "Red"};
  Slider vsbGreen{controls_, "vsbGreen", "Green"};
  Slider vsbBlue{controls_, "vsbBlue", "Blue"};
  Label lblRed{controls_, "lblRed"};  // the values, 0..255
  Label lblGreen{controls_, "lblGreen"};
  Label lblBlue{controls_, "lblBlue"};
  ColorPatch picSampl{controls_, "picSampl", "Sample"};
  Button cmdOther{controls_, "cmdOther", "Others..."};
  Button cmdOk{controls_, "cmdOk", "OK"};
  Button cmdCansel{controls_, "cmdCansel", "Cancel"};

 private:
  Color Composed() const;
  void ShowColor(Color color);

  Dialogs& dialogs_;
  Color entry_ = 0;
  Color result_ = 0;
  int place_ = 0;  // where "Set" stores
};

}  // namespace dorvane
