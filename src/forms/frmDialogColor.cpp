#include "forms/frmDialogColor.h"

#include <array>
#include <string>

namespace dorvane {
namespace {

constexpr int kMostComponent = 255;

// Greys, then eight hues deep, full and pale.
constexpr std::array<Color, frmDialogColor::kPalette> kPaletteColors{
    Rgb(0, 0, 0),       Rgb(40, 42, 46),    Rgb(80, 84, 90),    Rgb(120, 124, 130),
    Rgb(160, 164, 170), Rgb(200, 203, 208), Rgb(230, 232, 235), Rgb(255, 255, 255),
    Rgb(128, 20, 24),   Rgb(150, 70, 0),    Rgb(120, 105, 0),   Rgb(0, 90, 40),
    Rgb(0, 95, 95),     Rgb(0, 60, 130),    Rgb(75, 45, 140),   Rgb(120, 30, 95),
    Rgb(215, 40, 45),   Rgb(235, 125, 20),  Rgb(225, 195, 20),  Rgb(30, 155, 70),
    Rgb(20, 160, 160),  Rgb(30, 115, 215),  Rgb(125, 85, 210),  Rgb(200, 65, 155),
    Rgb(255, 150, 145), Rgb(255, 190, 120), Rgb(250, 230, 120), Rgb(140, 215, 155),
    Rgb(130, 215, 215), Rgb(140, 190, 250), Rgb(190, 165, 250), Rgb(240, 155, 210),
};

}  // namespace

frmDialogColor::frmDialogColor(Dialogs& dialogs, FormHost& host)
    : Form(host, "frmDialogColor", "Color Selection"), dialogs_(dialogs) {
  for (int i = 0; i < kPalette; ++i) {
    picColor[i].SetFill(kPaletteColors[static_cast<std::size_t>(i)]);
    picColor[i].SetCaption("Colour " + std::to_string(i + 1));
    picColor[i].Click.Connect([this, i] { picColor_Click(i); });
  }
  for (int i = 0; i < kPlaces; ++i) {
    picRegist[i].SetCaption("Place " + std::to_string(i + 1));
    picRegist[i].Click.Connect([this, i] { picRegist_Click(i); });
  }
  picRegist[place_].SetSelected(true);
  cmdSet.SetTip("Store the colour in the place that is marked");
  for (Slider* slider : {&vsbRed, &vsbGreen, &vsbBlue}) {
    slider->SetRange(0, kMostComponent);
    slider->SetSteps(1, 16);
    slider->Change.Connect([this] { vsb_Change(); });
  }
  cmdSet.Click.Connect([this] { cmdSet_Click(); });
  cmdOther.Click.Connect([this] { cmdOther_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
  cmdCansel.Click.Connect([this] { cmdCansel_Click(); });
}

Color frmDialogColor::Open(Color entry) {
  entry_ = entry;
  result_ = entry;
  ShowColor(entry);
  vsb_Change();
  ShowModal();
  return result_;
}

Color frmDialogColor::Composed() const {
  return Rgb(vsbRed.Value(), vsbGreen.Value(), vsbBlue.Value());
}

void frmDialogColor::ShowColor(Color color) {
  vsbRed.SetValue(RedOf(color));
  vsbGreen.SetValue(GreenOf(color));
  vsbBlue.SetValue(BlueOf(color));
}

int frmDialogColor::shpSetColor() const {
  for (int i = 0; i < kPalette; ++i) {
    if (picColor[i].Selected()) return i;
  }
  return -1;
}

void frmDialogColor::picColor_Click(int index) {
  ShowColor(*picColor[index].Fill());
}

void frmDialogColor::picRegist_Click(int index) {
  picRegist[place_].SetSelected(false);
  place_ = index;
  picRegist[place_].SetSelected(true);
  if (const auto color = picRegist[place_].Fill()) ShowColor(*color);
}

void frmDialogColor::vsb_Change() {
  lblRed.SetCaption(std::to_string(vsbRed.Value()));
  lblGreen.SetCaption(std::to_string(vsbGreen.Value()));
  lblBlue.SetCaption(std::to_string(vsbBlue.Value()));
  picSampl.SetFill(Composed());
  for (int i = 0; i < kPalette; ++i) picColor[i].SetSelected(picColor[i].Fill() == Composed());
}

void frmDialogColor::cmdOther_Click() {
  if (const auto color = dialogs_.ChooseColor(Composed())) ShowColor(*color);
}

void frmDialogColor::cmdSet_Click() {
  picRegist[place_].SetFill(Composed());
}

void frmDialogColor::cmdOk_Click() {
  result_ = Composed();
  Hide();
}

void frmDialogColor::cmdCansel_Click() {
  ShowColor(entry_);
  Hide();
}

}  // namespace dorvane
