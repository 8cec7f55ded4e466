// What holds of the lattice form after every gesture of a user in it, and of the program when it
// has been closed.
#pragma once

#include <algorithm>
#include <array>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "forms/LatticeGesture.h"
#include "forms/MonkeyFiles.h"
#include "forms/MonkeyPorts.h"
#include "forms/ProgramDigest.h"
#include "forms/StoreInvariants.h"
#include "forms/frmPeakCal.h"
#include "lattice/LatticeLog.h"
#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {

constexpr const char* kLogName = "crystalfit.csv";
constexpr const char* kSummaryName = "LatticeFit.csv";
constexpr const char* kLogFailedBox = "LatticeFit Temp File Open Error";

class LatticeInvariants {
 public:
  explicit LatticeInvariants(const MonkeyFiles& files) : files_(files) {}

  bool IsOpen() const { return open_; }

  // The form has just been opened; whether its summary goes into the folder of the files.
  void Begin(const frmPeakCal& form, const Program& program, bool summary_here) {
    open_ = true;
    summary_here_ = summary_here;
    last_execute_.clear();
    settled_ = true;
    use_settled_ = true;
    const MeasProp& own = program.workspace.Spectra[form.Work().DataNo].Prop;
    data_no_ = form.Work().DataNo;
    two_theta_ = {form.Work().SavedTwoTheta, own.TwoTheta};
    digest_ = Digest(program);
    for (int view = 0; view < kWindows; ++view) marks_[View(view)] = MarksOf(program, view);
    names_ = files_.Names();
    log_failed_ = form.LogFailed() != kFalse;
    log_ = Log();
  }

  // Before a gesture.
  void Before(frmPeakCal& form, const Program& program, const Happened& happened) {
    shown_ = ShownBy(form);
    ordinary_ = IsOrdinary(form, program);
    boxes_ = happened.boxes.size();
    had_log_ = log_;
    carries_ = form.State().UseCarry != kFalse;
  }

  // After it. Boxes that the form may show are taken out of `happened`.
  void After(frmPeakCal& form, const Program& program, const LatticeGesture& gesture,
             Happened& happened, bool stores_agree, Wrong& wrong) {
    log_ = Log();
    CheckLog(form, wrong);
    const std::vector<std::string> boxes(
        happened.boxes.begin() + static_cast<std::ptrdiff_t>(boxes_), happened.boxes.end());
    happened.boxes.resize(boxes_);
    CheckBoxes(form, gesture, boxes, happened, wrong);
    if (gesture.kind == LatticeGesture::Kind::Execute) {
      settled_ = use_settled_ = boxes.empty() && log_.size() > had_log_.size();
      if (settled_ && last_execute_ == shown_) {
        Expect(ShownBy(form) == shown_, "a second Execute gives the same", wrong);
      }
      // A carried choice takes lines in again that were out when the peaks were indexed.
      last_execute_ = settled_ && !carries_ ? ShownBy(form) : "";
    }
    CheckUse(form, gesture, wrong);
    CheckGrids(form, program, wrong);
    CheckControls(form, program, wrong);
    if (stores_agree) CheckMarks(form, program, wrong);
  }

  // The form has been closed, the log, too.
  void End(const frmPeakCal& form, const Program& program, const Happened& happened,
           bool stores_agree, Wrong& wrong) {
    open_ = false;
    Expect(SameBits(program.workspace.DefaultProp.TwoTheta, two_theta_[0]) &&
               SameBits(program.workspace.Spectra[data_no_].Prop.TwoTheta, two_theta_[1]),
           "2-theta is as before the form", wrong);
    Expect(Digest(program) == digest_, "the form leaves the store as it was", wrong);
    for (int view = 0; view < kWindows && stores_agree; ++view) {
      Expect(MarksOf(program, view) == marks_[View(view)], "the form takes its marks away", wrong);
    }
    if (form.LogFailed() == kFalse) {
      const SpectrumRec& spectrum = program.workspace.Spectra[data_no_];
      const std::string log = Log();
      Expect(log.starts_with(CsvText(LogStart(spectrum))), "the log has its first block", wrong);
      Expect(log.ends_with(CsvText(LogEnd(spectrum))), "the log has its last block", wrong);
    }
    if (!happened.saved_to.empty() && !happened.Has("Open Error")) {
      Expect(files_.Get(happened.saved_to) == Log(), "the result is a copy of the log", wrong);
    }
    CheckNames(happened, wrong);
  }

 private:
  using Marks = std::multiset<std::string>;

  static std::size_t View(int view) { return static_cast<std::size_t>(view); }
  static bool SameBits(double a, double b) { return std::memcmp(&a, &b, sizeof a) == 0; }
  static Marks MarksOf(const Program& program, int view) {
    Marks marks;
    for (const MarkRec& mark : program.spect.NamedLines(view)) {
      marks.insert(std::to_string(mark.X) + " " + std::string(TextOf(mark)));
    }
    return marks;
  }
  std::string Log() const { return files_.Has(kLogName) ? files_.Get(kLogName) : ""; }

  // It grows, by whole lines, until it fails.
  void CheckLog(const frmPeakCal& form, Wrong& wrong) {
    const bool failed = form.LogFailed() != kFalse;
    Expect(log_.starts_with(had_log_), "the log grows at its end", wrong);
    Expect(!log_failed_ || (failed && log_ == had_log_), "a log that has failed is let be", wrong);
    Expect(failed || log_.ends_with("\r\n"), "the log ends with a whole line", wrong);
    log_failed_ = failed;
  }

  static bool IsRefusal(const std::string& box) {
    constexpr std::array kRefusals{"Seed Error",         "Temp Error",
                                   "Lattice Type Error", "LatticeConstance Error",
                                   "2θ Error",           "Initial Constans Error"};
    return std::find(kRefusals.begin(), kRefusals.end(), box) != kRefusals.end();
  }

  // A refusal changes nothing; a calculation faults only where something is out of the ordinary.
  void CheckBoxes(frmPeakCal& form, const LatticeGesture& gesture,
                  const std::vector<std::string>& boxes, const Happened& happened, Wrong& wrong) {
    using Kind = LatticeGesture::Kind;
    const bool calculates = gesture.kind == Kind::Execute || gesture.kind == Kind::Correct;
    for (const std::string& box : boxes) {
      if (IsRefusal(box)) {
        Expect(calculates, "only a calculation is refused: " + box, wrong);
        Expect(ShownBy(form) == shown_, "a refusal changes nothing: " + box, wrong);
      } else if (IsFault(box)) {
        Expect(calculates && !ordinary_, "a fault came up in the lattice form: " + box, wrong);
      } else if (box == kLogFailedBox || box == "Open Error") {
        Expect(happened.files_unsure || !summary_here_, "a file fails: " + box, wrong);
      }
    }
    if (gesture.kind != Kind::DataSave) return;
    const bool saved = std::find(boxes.begin(), boxes.end(), "Open Error") == boxes.end();
    Expect(!saved || (summary_here_ && files_.Has(kSummaryName)), "Data Save saves", wrong);
  }

  void CheckUse(const frmPeakCal& form, const LatticeGesture& gesture, Wrong& wrong) {
    if (gesture.grid == nullptr) return;
    use_settled_ = false;
    LineTable lines = form.State().Lines;
    const LineRec* line = MatchedLine(lines, gesture.row);
    if (line == nullptr) return;
    const bool used = gesture.grid->Cell(gesture.row, UseColumn(*gesture.grid)).checked;
    Expect(used == (line->Unused == kFalse), "a click takes its line in or out", wrong);
  }

  void CheckGrids(const frmPeakCal& form, const Program& program, Wrong& wrong) {
    const PeakTable& table = program.workspace.Peaks[data_no_];
    Expect(form.sprPeakInf.MaxRows() == table.Count, "a row for each peak", wrong);
    std::vector<const LineRec*> lines;
    for (const LineRec& line : form.State().Lines) {
      if (line.Matched != kFalse) lines.push_back(&line);
    }
    if (lines.empty() && form.sprPeakInf4.MaxRows() == 0) settled_ = use_settled_ = true;
    for (const Grid* grid : {&form.sprPeakInf2, &form.sprPeakInf3, &form.sprPeakInf4}) {
      Expect(grid->MaxRows() == form.sprPeakInf4.MaxRows(), "the grids have equal rows", wrong);
      if (!settled_) continue;
      if (grid->MaxRows() != static_cast<int>(lines.size())) {
        wrong.push_back("a row for each indexed line in " + grid->Name());
        continue;
      }
      for (int row = 1; row <= grid->MaxRows(); ++row)
        CheckRow(*grid, row, *lines[View(row - 1)], wrong);
    }
  }

  void CheckRow(const Grid& grid, int row, const LineRec& line, Wrong& wrong) const {
    const std::string which = " in row " + std::to_string(row) + " of " + grid.Name();
    const std::string indices = "(" + std::to_string(line.H) + " " + std::to_string(line.K) + " " +
                                std::to_string(line.L) + ")";
    const auto shows = [&](const std::string& text) {
      for (int column = 1; column <= grid.Columns(); ++column) {
        if (grid.Text(row, column) == text) return true;
      }
      return false;
    };
    Expect(shows(indices), "the indices of the line" + which, wrong);
    Expect(shows(Picture(line.DObs, "0.00000")), "d(obs) of the line" + which, wrong);
    if (!use_settled_) return;
    Expect(grid.Cell(row, UseColumn(grid)).checked == (line.Unused == kFalse),
           "the check of the line" + which, wrong);
    Expect(grid.Cell(row, 1).greyed == (line.Unused != kFalse), "grey of the line" + which, wrong);
  }

  void CheckControls(const frmPeakCal& form, const Program& program, Wrong& wrong) const {
    const LatticeWork& work = form.Work();
    const int system = form.cmbLatticeType.Index();
    const bool marker = form.optSelectMode.Index() != 0;
    Expect(work.Loading == 0, "the form has been loaded", wrong);
    Expect(work.SelectMode == (marker ? kSelectMarker : kSelectSample), "SelectMode", wrong);
    Expect(work.ElementIndex == form.cmbElement.Index(), "ElementIndex", wrong);
    Expect(work.LatticeIndex == system, "LatticeIndex", wrong);
    Expect(form.txtPressure.Enabled() == marker, "txtPressure is of the marker mode", wrong);
    for (int k = 0; k < kCellConstants && system >= 0; ++k) {
      const bool has = HasConstant(system, k);
      const std::string which = " " + std::to_string(k) + " of system " + std::to_string(system);
      const TextBox& seed = form.txtSeedConstant[k];
      Expect(form.txtLatticeLength[k].Enabled() == has, "result box" + which, wrong);
      Expect(seed.Enabled() == has || k == 1 || k == 2, "seed box" + which, wrong);
      Expect(!has || seed.Enabled(), "seed box" + which, wrong);
      const bool accepted = has && IsNumeric(seed.Text());
      Expect(!accepted || Picture(work.Seed[k], "#0.000000") == seed.Text(), "seed" + which, wrong);
    }
    CheckShown(form, wrong);
    const double two_theta = CalibrationOf(program.workspace, data_no_).TwoTheta;
    Expect(SameBits(work.TwoTheta, two_theta), "the angle calibrates", wrong);
  }

  // One grid of the tab's, and no text of what is no number.
  void CheckShown(const frmPeakCal& form, Wrong& wrong) const {
    const bool lines = form.tabLatticeFit.Index() != 0;
    const bool marker = form.optSelectMode.Index() != 0;
    Expect(form.sprPeakInf.Visible() == !lines && !form.sprPeakInf2.Visible() &&
               form.sprPeakInf3.Visible() == (lines && !marker) &&
               form.sprPeakInf4.Visible() == (lines && marker),
           "the grid of the tab", wrong);
    if (!ordinary_) return;
    for (const auto* boxes : {&form.txtLatticeLength, &form.txtSeedConstant}) {
      for (int k = 0; k < kCellConstants; ++k) CheckNumber((*boxes)[k], wrong);
    }
    for (const TextBox* box : {&form.txtVol, &form.txtVolPerVol0, &form.txtPressure}) {
      CheckNumber(*box, wrong);
    }
  }
  static void CheckNumber(const TextBox& box, Wrong& wrong) {
    const std::string& text = box.Text();
    const bool number =
        text.find("NaN") == std::string::npos && text.find("Inf") == std::string::npos;
    Expect(number, box.Name() + " shows " + text, wrong);
  }

  // Lines of the chosen crystal stand on the graph where it is shown.
  void CheckMarks(const frmPeakCal& form, const Program& program, Wrong& wrong) {
    const Workspace& workspace = program.workspace;
    const GraphSlot& slot = workspace.Slots[form.Work().GrpNo];
    const int view = program.view.PileUpOn != kFalse ? 0 : slot.WinNo;
    Marks expected = marks_[View(view)];
    if (slot.Disp != kFalse) {
      for (const LineMark& mark : CrystalMarks(form.State(), workspace, form.Work())) {
        const double number =
            UnitToCh(kUnitKeV, mark.energy_kev, CalibrationOf(workspace, data_no_));
        if (!(number >= 1 && number <= kMaxChannels)) continue;
        expected.insert(std::to_string(RoundToInt32(number) - 1) + " " + mark.text);
      }
    }
    if (expected.size() >= kMaxNamedLines) return;
    Expect(MarksOf(program, view) == expected, "lines of the crystal on the graph", wrong);
  }

  void CheckNames(const Happened& happened, Wrong& wrong) const {
    for (const std::string& name : files_.Names()) {
      const bool named = name == kLogName || name == kSummaryName || name == happened.saved_to;
      const bool before = std::find(names_.begin(), names_.end(), name) != names_.end();
      Expect(named || before, "no other file is left: " + name, wrong);
    }
  }

  const MonkeyFiles& files_;
  bool open_ = false;
  bool summary_here_ = true;
  bool settled_ = true;      // the grids show the indexed lines
  bool use_settled_ = true;  // and which of them are in use
  bool ordinary_ = true;
  bool log_failed_ = false;
  bool carries_ = false;  // "Correct" has been pressed since the last calculation
  std::size_t boxes_ = 0;
  int data_no_ = 0;
  std::array<double, 2> two_theta_{};
  std::uint64_t digest_ = 0;
  std::array<Marks, kWindows> marks_;
  std::vector<std::string> names_;
  std::string shown_;
  std::string last_execute_;  // what the last Execute has shown, where the next gives the same
  std::string log_;
  std::string had_log_;
};

}  // namespace dorvane
