#include "forms/ToolBarsPanel.h"

#include "forms/EnableRules.h"
#include "forms/MenuTable.h"

namespace dorvane {
namespace {

struct ButtonRow {
  std::string_view bar;
  std::string_view key;
  std::string_view caption;
  std::string_view tip = "";  // where no menu entry has the same key
};

constexpr std::array kButtons{
    ButtonRow{"tlbrFile", "LoadData", "Open"},
    ButtonRow{"tlbrFile", "SaveData", "Save"},
    ButtonRow{"tlbrFile", "Exit", "Exit"},
    ButtonRow{"tlbrFile", "Printer", "Print"},
    ButtonRow{"tlbrFile", "Property", "Property"},
    ButtonRow{"tlbrFile", "Atom", "Atom"},
    ButtonRow{"tlbrEnergy", "Calib", "Calibration"},
    ButtonRow{"tlbrEnergy", "Atom", "Atom"},
    ButtonRow{"tlbrCalc", "Calib", "Calibration"},
    ButtonRow{"tlbrCalc", "Smooth", "Smooth"},
    ButtonRow{"tlbrCalc", "BackGround", "Background"},
    ButtonRow{"tlbrCalc", "CalcSpect", "Arithmetic"},
    ButtonRow{"tlbrCalc", "CalSet", "Settings"},
    ButtonRow{"tlbrCalc", "ShowLog", "Log"},
    ButtonRow{"tlbrOperation", "Smooth", "Smooth"},
    ButtonRow{"tlbrOperation", "BackGround", "Background"},
    ButtonRow{"tlbrOperation", "CalcSpect", "Arithmetic"},
    ButtonRow{"tlbrOperation", "AllFit", "Fit All",
              "Fit the peaks of the whole range, and take the background off"},
    ButtonRow{"tlbrOperation", "ManFit", "Manual Fit"},
    ButtonRow{"tlbrOperation", "MkDel", "Delete Peaks"},
    ButtonRow{"tlbrOperation", "DelAll", "Clear All"},
    ButtonRow{"tlbrOperation", "AutoFit", "Auto Fit"},
    ButtonRow{"tlbrOperation", "JmpLeft", "Previous Peak"},
    ButtonRow{"tlbrOperation", "JmpRight", "Next Peak"},
    ButtonRow{"tlbrOperation", "Report", "Report"},
    ButtonRow{"tlbrOperation", "AreaCursor", "Area"},
    ButtonRow{"tlbrOperation", "hkl", "hkl"},
    ButtonRow{"tlbrOperation", "CursorLeft", "Cursor Left", "Cursor Left (Left)"},
    ButtonRow{"tlbrOperation", "CursorRight", "Cursor Right", "Cursor Right (Right)"},
    ButtonRow{"tlbrRoiPeak", "All", "All Peaks"},
    ButtonRow{"tlbrRoiPeak", "MkIns", "Insert Peak"},
    ButtonRow{"tlbrRoiPeak", "Fit", "Fit"},
    ButtonRow{"tlbrRoiPeak", "Split", "Split"},
    ButtonRow{"tlbrRoiPeak", "MkDel", "Delete Peaks"},
    ButtonRow{"tlbrRoiPeak", "JmpLeft", "Previous Peak"},
    ButtonRow{"tlbrRoiPeak", "JmpRight", "Next Peak"},
    ButtonRow{"tlbrRoiPeak", "Report", "Report"},
    ButtonRow{"tlbrRoi", "RoiAdd", "Add Region"},
    ButtonRow{"tlbrRoi", "RoiDel", "Delete Region"},
    ButtonRow{"tlbrRoi", "RoiJmpLeft", "Previous Region"},
    ButtonRow{"tlbrRoi", "RoiJmpRight", "Next Region"},
    ButtonRow{"tlbrDisplay", "Expand", "Expand"},
    ButtonRow{"tlbrNax", "NaxAllFit", "Nax Fit", "Fit the whole spectrum without a peak list"},
    ButtonRow{"tlbrNax", "NaxManualFit", "Nax Manual Fit"},
};

std::vector<ToolButton> ButtonsOf(std::string_view bar) {
  std::vector<ToolButton> buttons;
  for (const ButtonRow& row : kButtons) {
    if (row.bar != bar) continue;
    buttons.push_back({.key = std::string(row.key), .caption = std::string(row.caption)});
  }
  return buttons;
}

std::string TipOfButton(const ButtonRow& row) {
  if (const MenuRow* entry = EntryOf(row.key)) return TipWithKey(*entry);
  return std::string(row.tip.empty() ? row.caption : row.tip);
}

}  // namespace

ToolBarsPanel::ToolBarsPanel(PanelWork& work, FormCommands& commands)
    : work_(work),
      commands_(commands),
      tlbrFile(work.controls, "tlbrFile", ButtonsOf("tlbrFile")),
      tlbrEnergy(work.controls, "tlbrEnergy", ButtonsOf("tlbrEnergy")),
      tlbrCalc(work.controls, "tlbrCalc", ButtonsOf("tlbrCalc")),
      tlbrOperation(work.controls, "tlbrOperation", ButtonsOf("tlbrOperation")),
      tlbrRoiPeak(work.controls, "tlbrRoiPeak", ButtonsOf("tlbrRoiPeak")),
      tlbrRoi(work.controls, "tlbrRoi", ButtonsOf("tlbrRoi")),
      tlbrDisplay(work.controls, "tlbrDisplay", ButtonsOf("tlbrDisplay")),
      tlbrNax(work.controls, "tlbrNax", ButtonsOf("tlbrNax")) {
  tlbrFile.SetCaption("File");
  tlbrEnergy.SetCaption("Energy");
  tlbrCalc.SetCaption("Calculation");
  tlbrOperation.SetCaption("Operation");
  tlbrRoiPeak.SetCaption("Peak");
  tlbrRoi.SetCaption("Regions");
  tlbrDisplay.SetCaption("Display");
  tlbrNax.SetCaption("Nax");
  for (ToolBar* bar : All()) {
    bar->ButtonClick.Connect([this, bar](std::string_view key) { ButtonClick(*bar, key); });
  }
  commands.Changed.Connect([this] { Refresh(); });
  ShowTips();
}

std::array<ToolBar*, 8> ToolBarsPanel::All() {
  return {&tlbrFile,    &tlbrEnergy, &tlbrCalc,    &tlbrOperation,
          &tlbrRoiPeak, &tlbrRoi,    &tlbrDisplay, &tlbrNax};
}

void ToolBarsPanel::ButtonClick(ToolBar& bar, std::string_view key) {
  if (bar.ButtonEnabled(key)) commands_.Run(key);
}

void ToolBarsPanel::ShowTips() {
  for (ToolBar* bar : All()) {
    for (const ButtonRow& row : kButtons) {
      if (row.bar != bar->Name()) continue;
      bar->SetButtonTip(row.key, TipOfButton(row));
    }
  }
}

void ToolBarsPanel::Refresh() {
  const Program& program = work_.program;
  for (ToolBar* bar : All()) {
    for (const ButtonRow& row : kButtons) {
      if (row.bar != bar->Name()) continue;
      const bool on = commands_.Bound(row.key) && Allowed(program, row.bar, row.key);
      bar->SetButtonEnabled(row.key, on);
    }
  }
  tlbrOperation.SetButtonPressed("AreaCursor", program.view.AreaOn != kFalse);
  tlbrDisplay.SetButtonPressed("Expand", program.view.ExpandOn != kFalse);
}

}  // namespace dorvane
