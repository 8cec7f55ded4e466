// The periodic table: choose elements and kinds of lines, and see them marked on a graph.
#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "forms/ControlArray.h"
#include "forms/Controls.h"
#include "forms/Form.h"
#include "forms/frmElement.h"
#include "program/LineMarks.h"
#include "program/Program.h"

namespace dorvane {

// Floats beside the main form. In "Mark" mode the toggles are those of the graph that the form was
// opened for, or of the current one when that has gone: the lines of the pressed elements and kinds
// that the table of selections allows stand on it, also when the form is hidden. In "Edit" mode the
// toggles change the table: an element, one at a time, shows its row and the kinds write it. The
// graphs take the new table when the mode goes back. In "Take" mode, which another form asks for,
// an element is chosen and its lines hand their energies over. A listener of the program, added
// behind the line marks.
//
// `settings` keeps the table of selections between two runs.
class frmAtom : public Form, public WorkspaceListener {
 public:
  enum class Mode { Edit, Mark, Take };
  using TakeLine = std::function<void(const ElementEnergy&)>;

  // All of them outlive the form.
  frmAtom(Program& program, FormHost& host, ElementStore& store, SettingsStore& settings,
          LineMarks& line_marks);

  // Shows the form for the graph of a row; a row without a graph leaves nothing to mark.
  void Open(int grp_no, Mode mode);
  // The same in "Take" mode, which stays on offer until EndTaking: each line that is pressed goes
  // to `take`.
  void OpenToTake(int grp_no, TakeLine take);
  // Hides the form where it still is in that mode.
  void EndTaking();
  Mode CurrentMode() const { return mode_; }

  void tglAtom_Click(int num);
  void tglPkDisp_Click(int kind);
  void SetMode(Mode mode);
  void cmdElement_Click();

  void SpectrumRemoved(int WinNo, int DataNo) override;
  void SelectorFilled() override { ShowHint(); }
  void CalibrationShown() override { ShowHint(); }

  AtomSelTable AtomSel;
  frmElement element;

  Frame frmPkDisp{controls_, "frmPkDisp", "Lines"};
  Frame frmMode{controls_, "frmMode", "Mode"};
  ToggleButton optEdit{controls_, "optEdit", "Edit"};
  ToggleButton optMark{controls_, "optMark", "Mark"};
  ToggleButton optTake{controls_, "optTake", "Take"};  // visible while a form takes lines
  ControlArray<ToggleButton> tglPkDisp{controls_, "tglPkDisp", kLineKinds};
  ControlArray<ToggleButton, kFirstElement> tglAtom{controls_, "tglAtom", kLastElement};
  Label lblHint{controls_, "lblHint"};
  Button cmdElement{controls_, "cmdElement", "Element..."};
  Button cmdCancel{controls_, "cmdCancel", "Cancel"};

 private:
  struct Mark {
    int num;
    ElementEnergy line;
  };
  // What is chosen for a graph, and the marks that it has got.
  struct GraphMarks {
    std::set<int> elements;
    std::set<int> kinds;
    std::vector<Mark> marks;
  };

  void ConnectToggles();
  void ShowTips();
  void ShowToggles();
  void ShowHint();
  // The graph whose marks the toggles show; nullptr when there is none.
  GraphMarks* Target();
  bool MarkElement(GraphMarks& graph, int num);
  void MarkKind(GraphMarks& graph, int kind);
  void MarkAll();
  void Draw(int data_no, const GraphMarks& graph);
  bool HasLine(int num, int kind);
  void HandOver(int num, int kind);

  Program& program_;
  ElementStore& store_;
  SettingsStore& settings_;
  LineMarks& line_marks_;
  Mode mode_ = Mode::Mark;
  int data_no_ = -1;                  // of the target; -1 none
  TakeLine take_;                     // empty: no form takes lines
  int edited_ = 0;                    // element of "Edit" and "Take" mode; 0 none
  int last_ = 0;                      // element that was pressed last; 0 none
  std::map<int, GraphMarks> graphs_;  // by spectrum
  bool Filling_ = false;  // toggles are being set: what they then tell is no user's doing
};

}  // namespace dorvane
