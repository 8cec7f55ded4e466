// A monkey at the program: works every control, key, mouse and box by a seed, and starts the
// program again when it has ended.
#pragma once

#include <array>
#include <cstring>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "display/RecordingSurface.h"
#include "forms/AttachForms.h"
#include "forms/FakeElementStore.h"
#include "forms/FormInvariants.h"
#include "forms/MonkeyHand.h"
#include "forms/MonkeyPorts.h"
#include "forms/frmDialogMessage.h"
#include "forms/frmInput.h"
#include "program/Program.h"
#include "support/MemorySettings.h"
#include "workspace/ListenerFan.h"

namespace dorvane {

// One run of the program, from its start to its end, with its forms joined as on the desktop.
class MonkeyRun {
 public:
  struct Outside {
    Dialogs& dialogs;
    FileLayer& files;
    Progress& progress;
    FormHost& host;
    Launcher& launcher;
    SettingsStore& settings;
    WorkspaceListener& ears;
  };

  MonkeyRun(const Outside& outside, const std::string& directory)
      : views(outside.ears),
        log(outside.host),
        program(std::make_unique<Program>(
            Ports{outside.dialogs, outside.files, log, outside.progress, views}, directory)),
        line_marks(*program),
        main(*program, outside.host, outside.launcher, outside.settings),
        graphs(*program, outside.host),
        regions(*program, outside.host),
        keys(outside.host),
        manual_fit(*program, outside.host),
        fit_input(*program, outside.host),
        atom(*program, outside.host, elements, outside.settings, line_marks),
        message(outside.host),
        input(outside.host) {
    views.Add(line_marks);
    views.Add(main);
    views.Add(graphs);
    views.Add(regions);
    views.Add(atom);
    AttachForms(main, graphs, regions, log, keys);
    AttachFitForms(main, *program, manual_fit, fit_input);
    AttachAtom(main, *program, atom);
    main.Ended.Connect([this] { ended = true; });
  }

  ListenerFan views;
  frmLog log;
  std::unique_ptr<Program> program;
  FakeElementStore elements;
  LineMarks line_marks;
  frmDorvane main;
  frmSelGraph graphs;
  frmRoiReport regions;
  frmKeys keys;
  frmManualFit manual_fit;
  frmInputFitParameter fit_input;
  frmAtom atom;
  frmDialogMessage message;
  frmInput input;
  bool ended = false;
};

// A number that tells two states of the store apart.
inline std::uint64_t Digest(const Program& program) {
  std::uint64_t digest = 14695981039346656037u;  // FNV-1a
  const auto add = [&digest](const auto& value) {
    unsigned char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    for (const unsigned char byte : bytes) digest = (digest ^ byte) * 1099511628211u;
  };
  const Workspace& workspace = program.workspace;
  for (const GraphSlot& slot : workspace.Slots) {
    for (const char c : slot.Title) add(c);
    for (const int each : {slot.State, slot.WinNo, slot.DataNo, slot.Disp}) add(each);
    add(slot.Color);
  }
  for (int data_no = 0; data_no < kSpectra; ++data_no) {
    for (const std::int32_t count : workspace.Channels[data_no].Used()) add(count);
    for (int i = 0; i < workspace.Peaks[data_no].Count; ++i) {
      add(workspace.Peaks[data_no].Peaks[i].Center);
      add(workspace.Peaks[data_no].Peaks[i].Height);
    }
  }
  for (int i = 0; i < workspace.Regions.RoiCount; ++i) add(workspace.Regions.Rois[i].Total);
  const ViewState& view = program.view;
  for (const double each : {view.StartCh, view.SpanCh, view.CursorExact}) add(each);
  for (const int each : {view.CurWin, view.GraphNo, view.DataNo, view.CursorCh}) add(each);
  add(view.HeightY);
  return digest;
}

class Monkey {
 public:
  // `trace` tells each action before it is done, so that a crash leaves the last one.
  explicit Monkey(std::uint64_t seed, bool trace = false) : dice_(seed), trace_(trace) {
    hand_.telling = [this](const std::string& what) { Tell(what); };
    host_.work = [this](Form& form) { Work(form); };
    dialogs_.show_captioned = [this](std::string_view caption, std::string_view text) {
      run_->message.SetCaption(std::string(caption));
      run_->message.Message(std::string(text));
      run_->message.ShowModal();
    };
    Start();
  }

  // One action; answers what is wrong afterwards, empty when all is well.
  std::vector<std::string> Act() {
    happened_ = {};
    actions_.emplace_back();
    layer_.FailAt(dice_.OneIn(25) ? 1 + dice_.Below(12) : 0);
    if (run_->ended) {
      Tell("start");
      Start();
    } else {
      Choose();
    }
    layer_.FailAt(0);
    std::vector<std::string> wrong = store_.Check(*run_->program, happened_);
    CheckForms(run_->main, *run_->program, wrong);
    if (!store_.OpenedInVain()) CheckGraphList(run_->graphs, *run_->program, wrong);
    CheckRegions(run_->regions, *run_->program, wrong);
    for (const std::string& note : happened_.notes) Tell("[" + note + "]");
    return wrong;
  }

  const std::vector<std::string>& Actions() const { return actions_; }
  const Program& TheProgram() const { return *run_->program; }

 private:
  // What users press most.
  static constexpr std::array kCommon{"LoadData", "LoadData", "SaveData",  "Smooth",  "BackGround",
                                      "MkIns",    "All",      "Fit",       "AllFit",  "MkDel",
                                      "RoiAdd",   "RoiDel",   "JmpRight",  "JmpLeft", "AreaCursor",
                                      "AutoFit",  "Split",    "NaxAllFit", "Atom"};

  void Start() {
    if (dice_.OneIn(4)) files_.HarmParameters();
    run_.reset();
    run_ = std::make_unique<MonkeyRun>(
        MonkeyRun::Outside{dialogs_, layer_, progress_, host_, launcher_, settings_, ears_},
        files_.Path(""));
    store_ = {};
    run_->main.Show();
    run_->main.Form_Load(files_.Path(""));
  }

  void Choose() {
    const int turn = dice_.Below(100);
    if (turn < 48) {
      Work(FrontForm());
    } else if (turn < 58) {
      Key();
    } else if (turn < 73) {
      Mouse();
    } else if (turn < 76) {
      Tell("drop");
      run_->main.Drop(dialogs_.Offer(files_.SeveralToOpen()));
    } else if (turn < 78) {
      Form& form = FrontForm();
      Tell("close " + form.Name());
      if (&form != &run_->main || dice_.OneIn(4)) form.QueryClose();
    } else if (turn < 79) {
      Tell("frmInput");
      run_->input.ShowModal();
    } else if (turn < 81) {
      Paint();
    } else if (turn < 84) {
      MarkRegion();
    } else {
      Press(dice_.OneOf(kCommon));
    }
  }

  Form& FrontForm() {
    std::vector<Form*> open;
    for (Form* form : std::initializer_list<Form*>{&run_->graphs, &run_->regions, &run_->log,
                                                   &run_->keys, &run_->atom, &run_->atom.element}) {
      if (form->Visible()) open.push_back(form);
    }
    if (open.empty() || dice_.OneIn(2)) return run_->main;
    return *dice_.OneOf(open);
  }

  void Work(Form& form) {
    std::vector<Control*> usable;
    for (Control* control : form.Controls().All()) {
      if (control->Enabled() && control->Visible()) usable.push_back(control);
    }
    if (usable.empty()) return;
    Control* control = dice_.OneOf(usable);
    Tell(form.Name() + "." + control->Name());
    control->Accept(hand_);
    if (dice_.OneIn(4)) focused_ = control->Name();
  }

  // A command by its key, as a hand that knows where the button is.
  void Press(const std::string& key) {
    ToolBarsPanel& bars = run_->main.tool_bars;
    for (ToolBar* bar : {&bars.tlbrFile, &bars.tlbrOperation, &bars.tlbrRoiPeak, &bars.tlbrRoi}) {
      if (!bar->ButtonEnabled(key)) continue;
      Tell("button " + key);
      return bar->Press(key);
    }
  }

  void Key() {
    const KeyRow& row = dice_.OneOf(KeyTable());
    Control* focused = dice_.OneIn(3) ? run_->main.Controls().Find(focused_) : nullptr;
    Tell("key " + std::string(row.shown) + (focused == nullptr ? "" : " in " + focused_));
    run_->main.Form_KeyDown(row.key, row.modifier, focused);
  }

  // A press, moves and a release can lie actions apart.
  void Mouse() {
    GraphPanel& graphs = run_->main.graphs;
    if (graphs.timCursor.Enabled() && dice_.OneIn(2)) {
      Tell("timer");
      return graphs.timCursor.Tick();
    }
    const int win_no = dice_.Below(kWindows);
    PictureBox& graph = graphs.picGraph[win_no];
    MouseAt at = hand_.Place();
    Tell("mouse " + std::to_string(win_no) + " at " + std::to_string(at.x));
    switch (dice_.Below(6)) {
      case 0:
        graph.MouseDown.Fire(at);
        at.x = dice_.Share();
        graph.MouseMove.Fire(at);
        return graph.MouseUp.Fire(at);
      case 5:
        return graph.MouseUp.Fire(at);
      case 1:
        return graph.Wheel.Fire(at, dice_.Below(9) - 4);
      case 2:
        return graph.MouseDown.Fire(at);
      default:
        return graph.MouseMove.Fire(at);
    }
  }

  // The area cursor is dragged over the active window; what it holds becomes a region, mostly.
  void MarkRegion() {
    run_->main.cursor.chkArea.SetChecked(true);
    PictureBox& graph = run_->main.graphs.picGraph[run_->main.graphs.ActiveWindow()];
    MouseAt at{dice_.Share(), 0.5, MouseButton::Left, false};
    Tell("area from " + std::to_string(at.x));
    graph.MouseDown.Fire(at);
    at.x = dice_.Share();
    graph.MouseMove.Fire(at);
    graph.MouseUp.Fire(at);
    if (!dice_.OneIn(4)) Press("RoiAdd");
  }

  void Paint() {
    Tell("paint");
    for (int win_no = 0; win_no < kWindows; ++win_no) {
      RecordingSurface surface;
      run_->main.graphs.DrawGraph(win_no, surface);
      run_->main.graphs.DrawOverlay(win_no, surface, run_->main.cursor.Form());
      run_->main.graphs.DrawUnitAxis(win_no, surface, 10);
      run_->main.graphs.DrawCountAxis(win_no, surface);
    }
  }

  void Tell(const std::string& what) {
    std::string& action = actions_.back();
    action += action.empty() ? what : " " + what;
    if (trace_) std::cerr << actions_.size() << ": " << what << std::endl;
  }

  Dice dice_;
  bool trace_;
  std::vector<std::string> actions_{""};
  Happened happened_;
  MonkeyFiles files_{dice_};
  UnsureFiles layer_;
  MonkeyDialogs dialogs_{dice_, files_, happened_};
  MonkeyEars ears_{happened_};
  MonkeyHost host_;
  MonkeyLauncher launcher_{dice_};
  MonkeyProgress progress_{dice_};
  MemorySettings settings_;
  MonkeyHand hand_{dice_};
  std::string focused_;
  StoreInvariants store_;
  std::unique_ptr<MonkeyRun> run_;
};

}  // namespace dorvane
