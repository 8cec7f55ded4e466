#include "forms/MenuTable.h"

#include <algorithm>
#include <array>

#include "forms/KeyTable.h"
#include "processing/Units.h"

namespace dorvane {
namespace {

template <std::int16_t ViewState::*Flag>
bool IsOn(const Program& program) {
  return program.view.*Flag != kFalse;
}
template <std::int16_t ViewState::*Flag>
bool IsOff(const Program& program) {
  return program.view.*Flag == kFalse;
}
template <std::int16_t Mode>
bool DrawsIn(const Program& program) {
  return program.spect.Scale(0).DrawMode == Mode;
}
bool FitsExpress(const Program& program) {
  return program.workspace.ExpressFit != 0;
}
bool FitsNax(const Program& program) {
  return !FitsExpress(program);
}

template <std::int16_t Unit>
bool ShowsIn(const Program& program) {
  return program.view.DispUnit == Unit;
}
template <std::int16_t Unit>
MenuRow UnitRow(std::string_view name) {
  return {name, UnitComboTexts()[Unit], "mnuUnit", "", "", "", ShowsIn<Unit>};
}

const std::array kMenus{
    MenuRow{"mnuFile", "&File", "", "", "", "", nullptr},
    MenuRow{"mnuLoad", "&Open...", "mnuFile", "Ctrl+O", "LoadData", "Open spectra", nullptr},
    MenuRow{"mnuRecent", "Recen&t Files", "mnuFile", "", kSubmenu, "Files read or saved last",
            nullptr},
    MenuRow{"mnuSave", "&Save...", "mnuFile", "Ctrl+S", "SaveData", "Save the current graph",
            nullptr},
    MenuRow{"mnuCloseGraph", "&Close Graph()", "mnuFile", "Ctrl+W", "", "Close the current graph",
            nullptr, kSeparated},
    MenuRow{"mnuCloseWin_0", "Close Window&1", "mnuFile", "", "", kNoActionTip, nullptr},
    MenuRow{"mnuCloseWin_1", "Close Window&2", "mnuFile", "", "", kNoActionTip, nullptr},
    MenuRow{"mnuDelAll", "Clear &All and Reload...", "mnuFile", "", "DelAll",
            "Clear all data and read the first file again", nullptr},
    MenuRow{"mnuProperty", "P&roperty...", "mnuFile", "", "Property",
            "Measurement properties of the selected graph", nullptr, kSeparated},
    MenuRow{"mnuPrint", "&Print...", "mnuFile", "Ctrl+P", "Printer", "Print the current graph",
            nullptr},
    MenuRow{"mnuSavePicture", "Save P&icture...", "mnuFile", "Ctrl+Shift+S", "",
            "Save the graph window as PNG, SVG or PDF", nullptr},
    MenuRow{"mnuCopyPicture", "Cop&y Picture", "mnuFile", "Ctrl+Shift+C", "",
            "Copy the graph window to the clipboard", nullptr},
    MenuRow{"mnuEditCrystalFile", "&Edit Crystal File...", "mnuFile", "", "",
            "Crystal library in the text editor", nullptr},
    MenuRow{"mnuExit", "E&xit", "mnuFile", "Ctrl+Q", "Exit", "", nullptr, kSeparated},

    MenuRow{"mnuGraph", "&Graph", "", "", "", "", nullptr},
    MenuRow{"mnuGraphRaw", "&Raw Graph", "mnuGraph", "Ctrl+1", "", "Select the raw graph", nullptr},
    MenuRow{"mnuGraphSmt", "&Smoothing Graph", "mnuGraph", "Ctrl+2", "",
            "Select the smoothed graph", nullptr},
    MenuRow{"mnuGraphBack", "&Back Ground Graph", "mnuGraph", "Ctrl+3", "", "Select the background",
            nullptr},
    MenuRow{"mnuGraphBackRemoved", "Back Ground Re&moved Graph", "mnuGraph", "Ctrl+4", "",
            "Select the graph without background", nullptr},
    MenuRow{"mnuGraphFit", "&Fit Graph", "mnuGraph", "Ctrl+5", "", "Select the fitted curve",
            nullptr},

    MenuRow{"mnuCalc", "&Calculation", "", "", "", "", nullptr},
    MenuRow{"mnuSmooth", "&Smooth", "mnuCalc", "F5", "Smooth", "Smooth the current graph", nullptr},
    MenuRow{"mnuBackGround", "&Background", "mnuCalc", "F6", "BackGround",
            "Background, and the graph without it", nullptr},
    MenuRow{"mnuCalcSpect", "Graph &Arithmetic...", "mnuCalc", "", "CalcSpect", "", nullptr},
    MenuRow{"mnuCons", "&Calibration...", "mnuCalc", "", "Calib", "Energy calibration", nullptr,
            kSeparated},
    MenuRow{"mnuSetCons", "S&ettings...", "mnuCalc", "", "CalSet", "", nullptr, kSeparated},
    MenuRow{"mnuDispPara", "&Display Parameters...", "mnuCalc", "", "",
            "Default measurement properties and calibration", nullptr},
    MenuRow{"mnuColor", "C&olours...", "mnuCalc", "", "", "", nullptr},
    MenuRow{"mnuPeakColor", "&Peak Colours...", "mnuCalc", "", "",
            "The colour table, at the mark of the peaks", nullptr},
    MenuRow{"mnuResultDirectory", "&Result Directory...", "mnuCalc", "", "",
            "Where \"Data Save\" of the lattice form writes", nullptr},

    MenuRow{"mnuPeak", "&Peak", "", "", "", "", nullptr},
    MenuRow{"mnuPeakAllIns", "Insert &All Peaks", "mnuPeak", "F7", "All",
            "Peak search: insert all peaks of the spectrum", nullptr},
    MenuRow{"mnuPeakIns", "&Insert Peak", "mnuPeak", "Ins", "MkIns",
            "Insert the peaks of the area, or the one at the cursor", nullptr},
    MenuRow{"mnuInputFitParameter", "&Type a Peak...", "mnuPeak", "", "", "", nullptr},
    MenuRow{"mnuAutoFit", "A&uto Fit", "mnuPeak", "F4", "AutoFit",
            "Smoothing, background and fit of the whole spectrum", nullptr, kSeparated},
    MenuRow{"mnuFittingAll", "Fit A&ll", "mnuPeak", "F8", "", "Fit the peaks of the whole range",
            nullptr},
    MenuRow{"mnuFitting", "&Fit", "mnuPeak", "Ctrl+F", "Fit",
            "Fit the peaks of the area, or the one at the cursor", nullptr},
    MenuRow{"mnuPeakSep", "&Split", "mnuPeak", "", "Split",
            "Split the overlapping peaks of the area", nullptr},
    MenuRow{"mnuManFit", "&Manual Fit...", "mnuPeak", "", "ManFit", "", nullptr},
    MenuRow{"mnuExpressFit", "&ExpressFitting", "mnuPeak", "", "",
            "Choose the fit peak by peak, and fit as \"Fit\" does", FitsExpress, kSeparated},
    MenuRow{"mnuNaxFit", "NaxFittin&g", "mnuPeak", "", "",
            "Choose the fit without a peak list, and fit the whole spectrum", FitsNax},
    MenuRow{"mnuNaxManualFit", "Na&x Manual Fit...", "mnuPeak", "", "NaxManualFit", "", nullptr},
    MenuRow{"mnuPeakDelete", "&Delete Peaks...", "mnuPeak", "Del", "MkDel",
            "Delete the peaks of the area, or the one at the cursor", nullptr, kSeparated},
    MenuRow{"mnuPeakAllDelete", "Delete without as&king", "mnuPeak", "Shift+Del", "", "", nullptr},
    MenuRow{"mnuPeakJumpB", "&Previous Peak", "mnuPeak", "Alt+Left", "JmpLeft", "", nullptr,
            kSeparated},
    MenuRow{"mnuPeakJumpN", "&Next Peak", "mnuPeak", "Alt+Right", "JmpRight", "", nullptr},
    MenuRow{"mnuAreaCursor", "A&rea Cursor", "mnuPeak", "Ctrl+R", "AreaCursor",
            "Area cursor: drag over the graph to mark a range", IsOn<&ViewState::AreaOn>},
    MenuRow{"mnuPeakReport", "Rep&ort...", "mnuPeak", "", "Report", "", nullptr, kSeparated},
    MenuRow{"mnuLattice", "&hkl, Lattice and Pressure...", "mnuPeak", "", "hkl", "", nullptr},

    MenuRow{"mnuRoi", "&Regions", "", "", "", "", nullptr},
    MenuRow{"mnuRoiAdd", "&Add Region", "mnuRoi", "Ctrl+Ins", "RoiAdd",
            "Add a region from the area cursor, or between start and end", nullptr},
    MenuRow{"mnuRoiDelete", "&Delete Region", "mnuRoi", "Ctrl+Del", "RoiDel",
            "Delete the region at the cursor", nullptr},
    MenuRow{"mnuRoiStart", "&Start at Cursor", "mnuRoi", "Ctrl+[", "",
            "Start of a region, or of the area cursor", nullptr, kSeparated},
    MenuRow{"mnuRoiEnd", "&End at Cursor", "mnuRoi", "Ctrl+]", "",
            "End of a region, or of the area cursor", nullptr},
    MenuRow{"mnuRoiJumpB", "&Previous Region", "mnuRoi", "Ctrl+Left", "RoiJmpLeft", "", nullptr,
            kSeparated},
    MenuRow{"mnuRoiJumpN", "&Next Region", "mnuRoi", "Ctrl+Right", "RoiJmpRight", "", nullptr},

    MenuRow{"mnuView", "&View", "", "", "", "", nullptr},
    MenuRow{"mnuLogarithmic", "&Log Scale", "mnuView", "Ctrl+L", "", "Logarithmic count axis",
            IsOn<&ViewState::LogScale>},
    MenuRow{"mnuAutomatic", "&Auto Scale", "mnuView", "Ctrl+H", "", "The height follows the curve",
            IsOn<&ViewState::AutoScale>},
    MenuRow{"mnuNorScale", "N&ormal Scale", "mnuView", "", "", "The height stays as it is chosen",
            IsOn<&ViewState::NorScale>},
    MenuRow{"mnuTaller", "&Taller Scale", "mnuView", "", "", "Taller scale, smaller curves (Up)",
            nullptr},
    MenuRow{"mnuShoter", "&Shorter Scale", "mnuView", "", "", "Shorter scale, larger curves (Down)",
            nullptr},
    MenuRow{"mnuWider", "&Wider", "mnuView", "", "", "Half of the range (key pad +)", nullptr,
            kSeparated},
    MenuRow{"mnuNarrower", "&Narrower", "mnuView", "", "", "Twice the range (key pad -)", nullptr},
    MenuRow{"mnuWhole", "W&hole Spectrum", "mnuView", "Home", "", "Show the whole spectrum",
            nullptr},
    MenuRow{"mnuUnit", "&Unit", "mnuView", "", kSubmenu, "Unit of the axis", nullptr},
    UnitRow<kUnitCh>("mnuUnit_0"),
    UnitRow<kUnitKeV>("mnuUnit_1"),
    UnitRow<kUnitEv>("mnuUnit_2"),
    UnitRow<kUnitD>("mnuUnit_3"),
    UnitRow<kUnitWave>("mnuUnit_4"),
    UnitRow<kUnitQ>("mnuUnit_5"),
    UnitRow<kUnit2Theta>("mnuUnit_6"),
    MenuRow{"mnuLine", "L&ine", "mnuView", "", "", "Draw lines", DrawsIn<kDrawLine>, kSeparated},
    MenuRow{"mnuPaint", "&Paint", "mnuView", "", "", "Draw filled curves", DrawsIn<kDrawPaint>},
    MenuRow{"mnuDot", "&Dot", "mnuView", "", "", "Draw dots", DrawsIn<kDrawDot>},

    MenuRow{"mnuWindow", "&Window", "", "", "", "", nullptr},
    MenuRow{"mnuExpandOn", "&Expand On", "mnuWindow", "F9", "Expand",
            "The lower window shows a part of the upper one", IsOn<&ViewState::ExpandOn>},
    MenuRow{"mnuExpandOff", "Expand O&ff", "mnuWindow", "Shift+F9", "Expand",
            "The lower window shows its own curves", IsOff<&ViewState::ExpandOn>},
    MenuRow{"mnuWinType_0", "Line &Up Graaph", "mnuWindow", "", "", "", IsOff<&ViewState::PileUpOn>,
            kSeparated},
    MenuRow{"mnuWinType_1", "&Pile Up Graph", "mnuWindow", "", "", "", IsOn<&ViewState::PileUpOn>},
    MenuRow{"mnuSelGraph", "&Graph Select...", "mnuWindow", "", "", "", nullptr, kSeparated},
    MenuRow{"mnuRoiReport", "&ROI Report...", "mnuWindow", "", "", "", nullptr},
    MenuRow{"mnuLogText", "&Log...", "mnuWindow", "", "ShowLog", "Messages of the program",
            nullptr},
    MenuRow{"mnuAtom", "&Atom...", "mnuWindow", "", "Atom", "", nullptr},

    MenuRow{"mnuInfo", "&Help", "", "", "", "", nullptr},
    MenuRow{"mnuHelp", "&Help", "mnuInfo", "F1", "", "", nullptr},
    MenuRow{"mnuKeys", "&Keys...", "mnuInfo", "Shift+F1", "", "List of all keys", nullptr},
    MenuRow{"mnuVersion", "Dorvane &Ver 1.2004.01.05", "mnuInfo", "", "", "", nullptr, kSeparated},
};

// Without the mark of its mnemonic and without the points that announce a dialog.
std::string PlainCaption(std::string_view caption) {
  std::string plain(caption.substr(0, caption.find("...")));
  std::erase(plain, '&');
  return plain;
}

}  // namespace

std::span<const MenuRow> MenuTable() {
  return kMenus;
}

const MenuRow* EntryOf(std::string_view command) {
  const auto found = std::find_if(kMenus.begin(), kMenus.end(), [command](const MenuRow& row) {
    return !row.parent.empty() && CommandOf(row) == command;
  });
  return found == kMenus.end() ? nullptr : &*found;
}

std::string TipOf(const MenuRow& row) {
  return row.tip.empty() ? PlainCaption(row.caption) : std::string(row.tip);
}

std::string TipWithKey(const MenuRow& row) {
  return row.key.empty() ? TipOf(row) : TipOf(row) + " (" + std::string(row.key) + ")";
}

}  // namespace dorvane
