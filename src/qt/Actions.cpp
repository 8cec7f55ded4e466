#include "qt/Actions.h"

#include <QActionGroup>
#include <QMenuBar>
#include <QToolBar>

#include "processing/Units.h"
#include "program/View.h"
#include "qt/ThemeIcon.h"
#include "qt/binding/Text.h"

namespace dorvane {
namespace {

enum class Does {
  Command,  // runs the row of its name in the table of commands
  Window,   // the main window sees to it
  Later,    // shown, but not there yet
};
using Mark = bool (*)(const Program&);

struct ActionRow {
  const char* name;
  const char* text;
  const char* icon;
  const char* keys;
  const char* tip;  // empty: the text
  Does does = Does::Command;
  Mark checked = nullptr;  // check mark; none for a plain entry
};

bool LogScaleOn(const Program& program) {
  return program.view.LogScale != kFalse;
}
bool AutoScaleOn(const Program& program) {
  return program.view.AutoScale != kFalse;
}
bool AreaOn(const Program& program) {
  return program.view.AreaOn != kFalse;
}
bool Expanded(const Program& program) {
  return program.view.ExpandOn != kFalse;
}
template <bool PileUp>
bool HasStyle(const Program& program) {
  return (program.view.PileUpOn != kFalse) == PileUp;
}
template <std::int16_t Mode>
bool DrawsIn(const Program& program) {
  return program.spect.Scale(0).DrawMode == Mode;
}
bool Open(const Program&) {
  return false;
}

constexpr const char* kLater = "Comes with a later version";

constexpr ActionRow kActions[] = {
    {"mnuLoad", "&Open...", "open", "Ctrl+O", "Open spectra", Does::Window},
    {"mnuSave", "&Save...", "save", "Ctrl+S", "Save the current graph", Does::Window},
    {"mnuCloseGraph", "&Close Graph", "close", "Ctrl+W", "Close the current graph"},
    {"mnuProperty", "P&roperty...", "properties", "", "", Does::Later},
    {"mnuPrint", "&Print...", "print", "", "", Does::Later},
    {"mnuExit", "E&xit", "exit", "Ctrl+Q", "", Does::Window},

    {"mnuGraphRaw", "&Raw Graph", "", "Ctrl+1", "Select the raw graph"},
    {"mnuGraphSmt", "&Smoothing Graph", "", "Ctrl+2", "Select the smoothed graph"},
    {"mnuGraphBack", "&Back Ground Graph", "", "Ctrl+3", "Select the background"},
    {"mnuGraphBackRemoved", "Back Ground Re&moved Graph", "", "Ctrl+4",
     "Select the graph without background"},
    {"mnuGraphFit", "&Fit Graph", "", "Ctrl+5", "Select the fitted curve"},

    {"mnuSmooth", "&Smooth", "smooth", "F5", "Smooth the current graph"},
    {"mnuBackGround", "&Background", "background", "F6", "Background, and the graph without it"},
    {"mnuCalcSpect", "Graph &Arithmetic...", "curves", "", "", Does::Later},
    {"mnuCons", "&Calibration...", "calibration", "", "", Does::Later},
    {"mnuSetCons", "S&ettings...", "settings", "", "", Does::Later},

    {"mnuPeakAllIns", "Insert &All Peaks", "peak-search", "F7",
     "Peak search: insert all peaks of the spectrum"},
    {"mnuPeakIns", "&Insert Peak", "peak-insert", "Ins",
     "Insert the peaks of the area, or the one at the cursor"},
    {"mnuFittingAll", "Fit A&ll", "auto-fit", "F8", "Fit the peaks of the whole range"},
    {"mnuFitting", "&Fit", "fit", "Ctrl+F", "Fit the peaks of the area, or the one at the cursor"},
    {"mnuPeakDelete", "&Delete Peaks...", "peak-delete", "Del",
     "Delete the peaks of the area, or the one at the cursor"},
    {"mnuPeakAllDelete", "Delete without as&king", "", "Shift+Del", ""},
    {"mnuPeakJumpB", "&Previous Peak", "jump-left", "Alt+Left", ""},
    {"mnuPeakJumpN", "&Next Peak", "jump-right", "Alt+Right", ""},
    {"chkArea", "A&rea Cursor", "area", "Ctrl+R",
     "Area cursor: drag over the graph to mark a range", Does::Window, AreaOn},

    {"RoiAdd", "&Add Region", "", "Ctrl+Shift+A",
     "Add a region: the area cursor, or the range between its start and end"},
    {"RoiDel", "&Delete Region", "", "Ctrl+Shift+D", "Delete the region at the cursor"},
    {"mnuRoiStart", "Region &Start", "", "Ctrl+[", "The region to add starts at the cursor"},
    {"mnuRoiEnd", "Region &End", "", "Ctrl+]", "The region to add ends at the cursor"},
    {"RoiJmpLeft", "&Previous Region", "", "Ctrl+Alt+Left", ""},
    {"RoiJmpRight", "&Next Region", "", "Ctrl+Alt+Right", ""},

    {"mnuPeakReport", "Rep&ort...", "report", "", "", Does::Later},
    {"mnuLattice", "&hkl, Lattice and Pressure...", "lattice", "", "", Does::Later},

    {"mnuLogarithmic", "&Log Scale", "log-scale", "Ctrl+L", "Logarithmic count axis", Does::Command,
     LogScaleOn},
    {"mnuAutomatic", "&Auto Scale", "fit-height", "Ctrl+H", "The height follows the curve",
     Does::Command, AutoScaleOn},
    {"mnuTaller", "&Taller Scale", "shorter", "", "Taller scale, smaller curves (Up)"},
    {"mnuShoter", "&Shorter Scale", "taller", "", "Shorter scale, larger curves (Down)"},
    {"mnuWider", "&Wider", "zoom-in", "", "Half of the range (key pad +)"},
    {"mnuNarrower", "&Narrower", "zoom-out", "", "Twice the range (key pad -)"},
    {"mnuWhole", "W&hole Spectrum", "fit-width", "Home", "Show the whole spectrum", Does::Window},
    {"mnuLine", "L&ine", "", "", "", Does::Command, DrawsIn<0>},
    {"mnuPaint", "&Paint", "", "", "", Does::Command, DrawsIn<1>},
    {"mnuDot", "&Dot", "", "", "", Does::Command, DrawsIn<2>},
    {"mnuLowerWindow", "Lower Wi&ndow", "", "F9", "", Does::Window, Open},
    {"Expand", "&Expand", "", "F10", "The lower window shows a part of the upper one",
     Does::Command, Expanded},
    {"mnuWinType_0", "Line &Up Graaph", "", "", "Each graph in its own window", Does::Command,
     HasStyle<false>},
    {"mnuWinType_1", "&Pile Up Graph", "", "", "All graphs in the upper window", Does::Command,
     HasStyle<true>},
    {"mnuSelGraph", "&Graph Select", "", "Ctrl+Shift+G", "The list of graphs as a table",
     Does::Window},
    {"mnuRoiReport", "&Regions", "", "Ctrl+Shift+R", "The table of regions", Does::Window},
    {"mnuLogText", "&Log", "log", "Ctrl+Shift+L", "What the fits have told", Does::Window},

    {"mnuHelp", "&Help", "help", "F1", "", Does::Window},
    {"mnuKeys", "&Keys...", "", "Shift+F1", "", Does::Window},
    {"mnuVersion", "&Version...", "info", "", "", Does::Window},
};

// Names parted by blanks; "-" is a separator, "*" the menu of units.
struct BarRow {
  const char* title;
  const char* names;
};

constexpr BarRow kMenus[] = {
    {"&File", "mnuLoad mnuSave mnuCloseGraph - mnuProperty mnuPrint - mnuExit"},
    {"&Graph", "mnuGraphRaw mnuGraphSmt mnuGraphBack mnuGraphBackRemoved mnuGraphFit"},
    {"&Calculation", "mnuSmooth mnuBackGround - mnuCalcSpect mnuCons - mnuSetCons"},
    {"&Peak",
     "mnuPeakAllIns mnuPeakIns - mnuFittingAll mnuFitting - mnuPeakDelete mnuPeakAllDelete - "
     "mnuPeakJumpB mnuPeakJumpN chkArea - mnuPeakReport mnuLattice"},
    {"&View",
     "mnuLogarithmic mnuAutomatic - mnuTaller mnuShoter - mnuWider mnuNarrower mnuWhole - * - "
     "mnuLine mnuPaint mnuDot"},
    {"Reg&ions", "RoiAdd RoiDel - mnuRoiStart mnuRoiEnd - RoiJmpLeft RoiJmpRight"},
    {"&Window",
     "mnuLowerWindow Expand - mnuWinType_0 mnuWinType_1 - mnuSelGraph mnuRoiReport mnuLogText"},
    {"&Help", "mnuHelp mnuKeys - mnuVersion"},
};

constexpr BarRow kToolBars[] = {
    {"tlbrFile", "mnuLoad mnuSave mnuCloseGraph"},
    {"tlbrCalc", "mnuSmooth mnuBackGround"},
    {"tlbrOperation", "mnuPeakAllIns mnuFittingAll"},
    {"tlbrRoiPeak", "mnuPeakIns mnuFitting mnuPeakDelete mnuPeakJumpB mnuPeakJumpN chkArea"},
    {"tlbrDisplay",
     "mnuLogarithmic mnuAutomatic mnuTaller mnuShoter mnuWider mnuNarrower mnuWhole"},
};
// The steps of the main job show their text as well.
constexpr const char* kWithText =
    "mnuLoad mnuSave mnuSmooth mnuBackGround mnuPeakAllIns "
    "mnuFittingAll";

QString ToolTipOf(const ActionRow& row) {
  if (row.does == Does::Later) return kLater;
  QString tip = *row.tip != '\0' ? QString(row.tip) : QString(row.text).remove('&').remove("...");
  if (*row.keys != '\0') {
    tip += " (" + QKeySequence(row.keys).toString(QKeySequence::NativeText) + ")";
  }
  return tip;
}

}  // namespace

Actions::Actions(Session& session, QMainWindow& window)
    : QObject(&window), session_(session), window_(window) {
  for (const ActionRow& row : kActions) {
    auto* action = new QAction(row.text, &window);
    action->setObjectName(row.name);
    action->setIcon(ThemeIcon(row.icon));
    action->setIconVisibleInMenu(*row.icon != '\0');
    action->setShortcut(QKeySequence(row.keys));
    action->setToolTip(ToolTipOf(row));
    action->setStatusTip(row.does == Does::Later ? kLater : row.tip);
    action->setEnabled(row.does != Does::Later);
    action->setCheckable(row.checked != nullptr);
    if (row.does == Does::Command) {
      connect(action, &QAction::triggered, this, [this, &row] { session_.Run(row.name); });
    }
    actions_ << action;
  }
  MakeUnitActions();
  auto* drawing = new QActionGroup(this);
  for (const char* name : {"mnuLine", "mnuPaint", "mnuDot"}) drawing->addAction(Of(name));
  connect(&session, &Session::Done, this, [this] { Refresh(); });
  connect(&session.notices, &Notices::CaptionsChanged, this, [this] { Refresh(); });
  Refresh();
}

void Actions::MakeUnitActions() {
  unit_menu_ = new QMenu("&Unit", &window_);
  auto* group = new QActionGroup(unit_menu_);
  for (std::int16_t unit = 0; unit < kUnits; ++unit) {
    const auto at = static_cast<std::size_t>(unit);
    QAction* action = unit_menu_->addAction(ToQString(UnitComboTexts()[at]));
    action->setObjectName(QString("mnuUnit_%1").arg(unit));
    action->setCheckable(true);
    group->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, unit] { session_.Do([=](Program& program) { SetDispUnit(program, unit); }); });
  }
}

void Actions::AddTo(QWidget& bar, const char* names) const {
  for (const QString& name : QString(names).split(' ')) {
    if (name == "-") {
      auto* line = new QAction(&bar);
      line->setSeparator(true);
      bar.addAction(line);
    } else if (name == "*") {
      bar.addAction(unit_menu_->menuAction());
    } else {
      bar.addAction(Of(name.toLatin1().constData()));
    }
  }
}

void Actions::FillMenuBar() {
  for (const BarRow& row : kMenus) {
    QMenu* menu = window_.menuBar()->addMenu(row.title);
    menu->setToolTipsVisible(true);
    AddTo(*menu, row.names);
  }
}

void Actions::AddToolBars() {
  for (const BarRow& row : kToolBars) {
    auto* bar = new QToolBar(row.title, &window_);
    bar->setObjectName(row.title);
    bar->setMovable(false);
    bar->setIconSize({20, 20});
    bar->setToolButtonStyle(Qt::ToolButtonIconOnly);
    AddTo(*bar, row.names);
    for (const QString& name : QString(kWithText).split(' ')) {
      QWidget* button = bar->widgetForAction(Of(name.toLatin1().constData()));
      if (button != nullptr) button->setProperty("toolButtonStyle", Qt::ToolButtonTextBesideIcon);
    }
    window_.addToolBar(bar);
  }
}

void Actions::Refresh() {
  const Program& program = session_.program;
  for (const ActionRow& row : kActions) {
    if (row.checked != nullptr && row.checked != Open) {
      Of(row.name)->setChecked(row.checked(program));
    }
  }
  unit_menu_->actions().at(program.view.DispUnit)->setChecked(true);
  const GraphSlot& slot = program.workspace.Slots[program.view.GraphNo];
  Of("mnuCloseGraph")->setText("&Close Graph(" + ToQString(slot.Title).replace('&', "&&") + ")");
}

QAction* Actions::Of(const char* name) const {
  for (QAction* action : actions_) {
    if (action->objectName() == name) return action;
  }
  return nullptr;
}

QList<QAction*> Actions::WithKeys() const {
  QList<QAction*> out;
  for (QAction* action : actions_) {
    if (!action->shortcut().isEmpty()) out << action;
  }
  return out;
}

}  // namespace dorvane
