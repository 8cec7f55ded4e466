// What a user does in the lattice form, chosen by the seed.
#pragma once

#include <array>
#include <string>

#include "display/RecordingSurface.h"
#include "forms/LatticeInvariants.h"
#include "forms/MonkeyFiles.h"
#include "forms/MonkeyHand.h"
#include "forms/frmPeakCal.h"

namespace dorvane {

class MonkeyLattice {
 public:
  // `title` is that of the graph.
  MonkeyLattice(frmPeakCal& form, const std::string& title, Dice& dice, MonkeyHand& hand)
      : form_(form), title_(title), dice_(dice), hand_(hand) {}

  LatticeGesture Gesture() {
    using Kind = LatticeGesture::Kind;
    const bool begins = form_.cmbElement.Index() < 0;
    const int turn = begins && dice_.OneIn(2) ? 0 : dice_.Below(44);
    if (turn < 8) {
      ChooseElement();
    } else if (turn < 18) {
      return Press(form_.cmdCal, Kind::Execute);
    } else if (turn < 20) {
      return Press(form_.cmd2ThetaCalib, Kind::Correct);
    } else if (turn < 21) {
      Choose(form_.cmbLatticeType, "system ");
    } else if (turn < 25) {
      TypeSeed(dice_.Below(kCellConstants));
    } else if (turn < 26) {
      Type(form_.txt2Theta, Near(6));
    } else if (turn < 27) {
      Type(form_.txtTemp, Near(300));
    } else if (turn < 28) {
      Choose(form_.cmbUnit, "unit ");
    } else if (turn < 30) {
      ChooseMode();
    } else if (turn < 36) {
      return UseLine();
    } else if (turn < 38) {
      ChooseTab();
    } else if (turn < 39) {
      return Press(form_.cmdDataSave, Kind::DataSave);
    } else if (turn < 40) {
      Leave();
    } else {
      return WorkAny();
    }
    return {};
  }

 private:
  // Whatever can be done with some control. A list of the form has nothing to take a choice back.
  LatticeGesture WorkAny() {
    using Kind = LatticeGesture::Kind;
    Control* control = dice_.OneOf(form_.Controls().All());
    if (!control->Enabled() || !control->Visible()) return {};
    if (dynamic_cast<ComboBox*>(control) != nullptr) return {};
    hand_.telling(control->Name());
    control->Accept(hand_);
    LatticeGesture gesture;
    gesture.grid = dynamic_cast<Grid*>(control);
    if (control == &form_.cmdCal) gesture.kind = Kind::Execute;
    if (control == &form_.cmd2ThetaCalib) gesture.kind = Kind::Correct;
    if (control == &form_.cmdDataSave) gesture.kind = Kind::DataSave;
    return gesture;
  }

  LatticeGesture Press(Button& button, LatticeGesture::Kind kind) {
    if (!button.Enabled()) return {};
    hand_.telling(button.Caption());
    button.Press();
    return {kind};
  }

  void Choose(ComboBox& box, const std::string& what) {
    if (box.Items().empty() || !box.Enabled()) return;
    const int index = dice_.Below(static_cast<int>(box.Items().size()));
    hand_.telling(what + std::to_string(index));
    box.SetIndex(index);
  }

  // That of the spectrum, mostly, where it is one of the library's.
  void ChooseElement() {
    const bool known = title_.starts_with(kWithLines) && title_.size() > kWithLines.size();
    const int index = known ? title_[kWithLines.size()] - '0' : 0;
    if (!known || dice_.OneIn(3)) return Choose(form_.cmbElement, "element ");
    hand_.telling("its element " + std::to_string(index));
    form_.cmbElement.SetIndex(index);
  }

  void Type(TextBox& box, const std::string& text) {
    if (!box.Enabled()) return;
    hand_.telling(box.Name() + " " + text);
    box.SetText(text);
    box.Leave();
  }
  // A number a little off another, or what else may be typed.
  std::string Near(double value) {
    if (dice_.OneIn(8)) return dice_.OneOf(kTypedTexts);
    return Picture(value * (0.999 + 0.002 * dice_.Share()), "0.0000");
  }
  void TypeSeed(int k) {
    const auto initial = ParseNumber(form_.txtLatticeConstans[k].Text());
    Type(form_.txtSeedConstant[k], Near(initial.value_or(5)));
  }

  void ChooseMode() {
    const int index = dice_.Below(2);
    hand_.telling("mode " + std::to_string(index));
    form_.optSelectMode.SetIndex(index);
  }

  LatticeGesture UseLine() {
    Grid* grid = dice_.OneOf(std::array{&form_.sprPeakInf, &form_.sprPeakInf3, &form_.sprPeakInf4});
    if (grid->MaxRows() == 0) return {};
    const int row = 1 + dice_.Below(grid->MaxRows());
    const bool use = !grid->Cell(row, UseColumn(*grid)).checked;
    hand_.telling(grid->Name() + (use ? " with " : " without ") + std::to_string(row));
    grid->CheckCell(row, UseColumn(*grid), use);
    return {LatticeGesture::Kind::Other, grid, row};
  }

  void ChooseTab() {
    const int index = dice_.Below(2);
    hand_.telling("tab " + std::to_string(index));
    form_.tabLatticeFit.SetIndex(index);
    RecordingSurface surface;
    form_.DrawDeviation(surface);
  }

  void Leave() {
    const bool exit = dice_.OneIn(2);
    hand_.telling(exit ? "Exit" : "close");
    if (exit) {
      form_.cmdExit.Press();
    } else {
      form_.QueryClose();
    }
  }

  frmPeakCal& form_;
  std::string title_;
  Dice& dice_;
  MonkeyHand& hand_;
};

}  // namespace dorvane
