#include "forms/frmDorvane.h"

#include "files/FormatTable.h"
#include "files/SplitPath.h"
#include "forms/EnableRules.h"
#include "processing/Units.h"
#include "program/EditCrystalFile.h"
#include "program/OpenSave.h"
#include "program/StartEnd.h"
#include "program/View.h"
#include "program/WholeRange.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr const char* kNoGraph = "Open a spectrum first: Ctrl+O";
constexpr const char* kNotOpened =
    "Not opened: leave the calibration by \"Exit\" first, or use its \"File Open\"";

// A file that can't be looked at may still be there.
bool IsGone(FileLayer& files, const std::string& path) {
  try {
    return !files.Info(path).has_value();
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace

frmDorvane::frmDorvane(Program& program, FormHost& host, Launcher& launcher,
                       SettingsStore& settings)
    : Form(host, "frmDorvane", program.view.Caption),
      work_(program, controls_),
      commands(work_),
      selector(work_),
      cursor(work_),
      scale(work_),
      style(work_),
      calibration(work_),
      graphs(work_),
      tool_bars(work_, commands),
      menus(work_, commands),
      status(work_),
      recent(settings),
      recent_menu(controls_, menus.At("mnuRecent"), recent),
      program_(program) {
  BindOwnCommands(launcher);
  recent_menu.Chosen.Connect([this](const std::string& path) { OpenRecent(path); });
  work_.Done.Connect([this] { Refresh(); });
  Refresh();
}

void frmDorvane::BindOwnCommands(Launcher& launcher) {
  commands.Bind("LoadData", [this] { OpenBy([](Program& program) { LoadData(program); }); });
  commands.Bind("Exit", [this] { Exit(); });
  commands.Bind("mnuEditCrystalFile", [this, &launcher] { EditCrystalFile(program_, launcher); });
  for (std::int16_t unit = 0; unit < kUnits; ++unit) {
    commands.Bind("mnuUnit_" + std::to_string(unit), [this, unit] { SetDispUnit(program_, unit); });
  }
  commands.Bind("mnuWhole", [this] { ShowOpenSpectra(program_); });
}

bool frmDorvane::Form_Load(const std::string& start_directory) {
  bool read = false;
  work_.Do([&](Program& program) {
    read = dorvane::Form_Load(program, start_directory);
    ChangeActiveWin(program.List(), 0);
  });
  return read;
}

void frmDorvane::Attach(std::string_view command, Form& form, std::function<void()> open) {
  attached_.push_back(&form);
  commands.Bind(command, std::move(open));
}

bool frmDorvane::Form_KeyDown(FormKey key, KeyModifier modifier, Control* focused) {
  const KeyRow* row = FindKey(key, modifier);
  if (row == nullptr || UsesKeyItself(focused, key, modifier)) return false;
  work_.Do(row->run);
  return true;
}

void frmDorvane::Drop(const std::vector<std::string>& paths) {
  if (paths.empty() || !MayOpen()) return;
  work_.Do([&](Program&) { OpenBy([&](Program& program) { LoadData(program, paths); }); });
}

void frmDorvane::ForAGraph(const std::function<void()>& run) {
  if (program_.workspace.GrpCount == 0) return status.Refuse(kNoGraph);
  run();
}

bool frmDorvane::MayOpen() {
  const bool may = Allowed(program_, "menu", "mnuLoad");
  if (!may) status.Refuse(kNotOpened);
  return may;
}

void frmDorvane::OpenBy(const std::function<void(Program&)>& open) {
  const bool whole = ShowsWholeRange(program_);
  open(program_);
  if (whole) ShowOpenSpectra(program_);
}

// A file that is gone leaves the list, after the message of its failed read.
void frmDorvane::OpenRecent(const std::string& path) {
  if (!MayOpen()) return;
  Drop({path});
  if (IsGone(program_.ports.files, path)) recent.Remove(path);
}

void frmDorvane::QueryClose() {
  commands.Run("Exit");
}

void frmDorvane::Exit() {
  const bool ends = ExitProc(program_, [this] {
    for (Form* form : attached_) form->Hide();
  });
  if (ends) Ended.Fire();
}

void frmDorvane::Refresh() {
  RefreshList();
  scale.Refresh();
  style.Refresh();
  calibration.Refresh();
  tool_bars.Refresh();
  menus.Refresh();
  SetCaption(program_.view.Caption);
}

void frmDorvane::RefreshList() {
  selector.Refresh();
  cursor.Refresh();
  status.Refresh();
}

// A graph in the list can switch a window's pile on.
void frmDorvane::CheckBoxesFilled() {
  RefreshList();
  style.Refresh();
}

void frmDorvane::RedrawGraphs() {
  for (int win_no = 0; win_no < kWindows; ++win_no) graphs.RedrawGraph(win_no);
}

void frmDorvane::GraphRecolored(int, int, Color) {
  selector.Refresh();
  RedrawGraphs();
}

void frmDorvane::FileRead(std::string_view path) {
  status.FileRead(path);
  recent.Add(path);
}

// What can't be opened again is not recent.
void frmDorvane::FileWritten(std::string_view path) {
  status.FileWritten(path);
  if (CanRead(SplitPath(path).Ext)) recent.Add(path);
}

// The largest channel number may have grown.
void frmDorvane::SpectrumShown(int, int) {
  scale.Refresh();
  RedrawGraphs();
}

void frmDorvane::WindowStyleChanged() {
  style.Refresh();
  menus.Refresh();
  tool_bars.Refresh();
  cursor.Refresh();
  RedrawGraphs();
  graphs.RedrawAxes();
}

void frmDorvane::WindowActivated(int) {
  RefreshList();
  calibration.Refresh();
  graphs.RedrawOverlays();
}

void frmDorvane::UnitAxisChanged() {
  menus.Refresh();
  scale.Refresh();
  graphs.RedrawAxes();
}

void frmDorvane::CountScaleChanged(int) {
  scale.Refresh();
  menus.Refresh();
  graphs.RedrawAxes();
}

void frmDorvane::RangeChanged() {
  scale.Refresh();
  RedrawGraphs();
}

void frmDorvane::CursorMoved() {
  cursor.Refresh();
  tool_bars.Refresh();
  graphs.RedrawOverlays();
}

void frmDorvane::ButtonsChanged() {
  tool_bars.Refresh();
  menus.Refresh();
}

// It names the current graph, which is another one then.
void frmDorvane::CaptionChanged() {
  menus.Refresh();
  calibration.Refresh();
  SetCaption(program_.view.Caption);
}

}  // namespace dorvane
