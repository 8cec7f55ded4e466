// A monkey at the program: works every control, key, mouse and box by a seed, and starts the
// program again when it has ended.
#pragma once

#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "display/RecordingSurface.h"
#include "forms/AtomInvariants.h"
#include "forms/CalibInvariants.h"
#include "forms/FormInvariants.h"
#include "forms/LatticeInvariants.h"
#include "forms/MonkeyHand.h"
#include "forms/MonkeyLattice.h"
#include "forms/MonkeyPorts.h"
#include "forms/MonkeyRun.h"
#include "support/MemorySettings.h"

namespace dorvane {

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
  Wrong Act() {
    happened_ = {};
    wrong_.clear();
    actions_.emplace_back();
    happened_.library_whole = files_.LibraryWhole();
    happened_.files_unsure = dice_.OneIn(25);
    layer_.FailAt(happened_.files_unsure ? 1 + dice_.Below(12) : 0);
    if (run_->ended) {
      Tell("start");
      Start();
    } else {
      Choose();
    }
    layer_.FailAt(0);
    Wrong wrong = std::move(wrong_);
    EndLattice(wrong);
    for (std::string& rule : store_.Check(*run_->program, happened_))
      wrong.push_back(std::move(rule));
    CheckForms(run_->main, *run_->program, wrong);
    if (!store_.OpenedInVain()) CheckGraphList(run_->graphs, *run_->program, wrong);
    CheckRegions(run_->regions, *run_->program, wrong);
    CheckAtom(run_->atom, *run_->program, run_->elements, wrong);
    CheckCalibration(run_->calibration, run_->main, *run_->program, run_->ended, wrong);
    GiveResultDirectoryBack(wrong);
    for (const std::string& note : happened_.notes) Tell("[" + note + "]");
    return wrong;
  }

  const std::vector<std::string>& Actions() const { return actions_; }
  const Program& TheProgram() const { return *run_->program; }

 private:
  static constexpr const char* kNoFolder = "no_such_folder";
  // What users press most.
  static constexpr std::array kCommon{"LoadData",  "LoadData", "SaveData",  "Smooth",  "BackGround",
                                      "MkIns",     "All",      "Fit",       "AllFit",  "MkDel",
                                      "RoiAdd",    "RoiDel",   "JmpRight",  "JmpLeft", "AreaCursor",
                                      "AutoFit",   "Split",    "NaxAllFit", "Atom",    "hkl",
                                      "CalcSpect", "Calib",    "Property"};

  void Start() {
    if (dice_.OneIn(4)) files_.HarmParameters();
    run_.reset();
    run_ = std::make_unique<MonkeyRun>(
        MonkeyRun::Outside{dialogs_, layer_, progress_, host_, launcher_, settings_, ears_,
                           [this] { return ReferenceFiles(); }},
        files_.Path(""));
    run_->elements.Harm(dice_.Below(6));
    store_ = {};
    run_->main.Show();
    run_->main.Form_Load(files_.Path(""));
  }

  // The program's own file dialog gives no empty name.
  std::vector<std::string> ReferenceFiles() {
    std::vector<std::string> paths = files_.SeveralToOpen();
    std::erase(paths, files_.Path(""));
    return dialogs_.Offer(paths);
  }

  void Choose() {
    if (run_->calibration.Visible() && dice_.OneIn(4)) return Work(run_->calibration);
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
      if (dice_.OneIn(2)) {
        Tell("frmInput");
        return run_->input.ShowModal();
      }
      Tell("mnuResultDirectory");
      run_->main.menus.At("mnuResultDirectory").Choose();
    } else if (turn < 81) {
      Paint();
    } else if (turn < 84) {
      MarkRegion();
    } else if (turn < 87) {
      OpenLattice();
    } else if (turn < 89 && run_->atom.Visible()) {
      PressAtom();
    } else {
      Press(dice_.OneOf(kCommon));
    }
  }

  Form& FrontForm() {
    std::vector<Form*> open;
    for (Form* form :
         std::initializer_list<Form*>{&run_->graphs, &run_->regions, &run_->log, &run_->keys,
                                      &run_->atom, &run_->atom.element, &run_->calibration}) {
      if (form->Visible()) open.push_back(form);
    }
    if (open.empty() || dice_.OneIn(2)) return run_->main;
    return *dice_.OneOf(open);
  }

  void Work(Form& form) {
    if (&form == &run_->lattice) return WorkLattice();
    if (&form == &run_->arithmetic) happened_.calculating = true;
    if (&form == &run_->calibration) happened_.calibrating = true;
    if (&form == &run_->preview) {
      RecordingPage page(run_->preview.SheetSize());
      run_->preview.DrawSheet(page);
    }
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

  // A spectrum with the lines of a crystal, mostly, and the form on it.
  void OpenLattice() {
    files_.PutLibrary();
    Tell(files_.LibraryWhole() ? "library" : "harmed library");
    happened_.library_whole = files_.LibraryWhole();
    const std::string directory = dice_.OneIn(8) ? files_.Path(kNoFolder) : "";
    SetResultDirectory(settings_, directory);
    if (!dice_.OneIn(4)) {
      const std::string path = files_.WithLines();
      Tell("drop " + files_.WithoutFolder(path));
      run_->main.Drop({path});
    }
    Press("hkl");
  }

  // A few gestures, each judged by itself.
  void WorkLattice() {
    frmPeakCal& form = run_->lattice;
    if (!lattice_.IsOpen()) {
      const bool here = ResultDirectory(settings_, files_.Path("")) == files_.Path("");
      lattice_.Begin(form, *run_->program, here);
    }
    const std::string& title = run_->program->workspace.Slots[form.GetGrpNo()].Title;
    MonkeyLattice hand(form, title, dice_, hand_);
    for (int i = 0; i < 3 && form.Visible(); ++i) {
      if (dice_.OneIn(20)) {
        happened_.files_unsure = true;
        layer_.FailAt(1 + dice_.Below(3));
      }
      lattice_.Before(form, *run_->program, happened_);
      const LatticeGesture gesture = hand.Gesture();
      lattice_.After(form, *run_->program, gesture, happened_, !store_.OpenedInVain(), wrong_);
    }
  }

  void EndLattice(Wrong& wrong) {
    if (!lattice_.IsOpen()) return;
    lattice_.End(run_->lattice, *run_->program, happened_, !store_.OpenedInVain(), wrong);
  }

  // A directory that the dialog has taken is there. It is given back: the lattice form has those
  // that it is judged by, and none outside of the folder.
  void GiveResultDirectoryBack(Wrong& wrong) {
    const std::string directory = ResultDirectory(settings_, files_.Path(""));
    Expect(directory == files_.Path(kNoFolder) + "/" || std::filesystem::is_directory(directory),
           "a result directory is there", wrong);
    SetResultDirectory(settings_, "");
  }

  // The elements of the table rather than any.
  void PressAtom() {
    frmAtom& atom = run_->atom;
    const int turn = dice_.Below(10);
    ToggleButton& toggle = turn == 0  ? atom.optEdit
                           : turn < 3 ? atom.optMark
                           : turn < 6
                               ? atom.tglPkDisp[dice_.Below(kLineKinds)]
                               : atom.tglAtom[dice_.OneOf(std::array{1, 26, 82, 26, 82, 103})];
    if (!toggle.Enabled()) return;
    Tell("frmAtom." + toggle.Name());
    toggle.Accept(hand_);
  }

  // A command by its key, as a hand that knows where the button is.
  void Press(const std::string& key) {
    ToolBarsPanel& bars = run_->main.tool_bars;
    for (ToolBar* bar : {&bars.tlbrFile, &bars.tlbrEnergy, &bars.tlbrOperation, &bars.tlbrRoiPeak,
                         &bars.tlbrRoi}) {
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
  LatticeInvariants lattice_{files_};
  Wrong wrong_;  // within the action
  std::unique_ptr<MonkeyRun> run_;
};

}  // namespace dorvane
