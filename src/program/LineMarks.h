// Named lines at energies on the graphs, such as those of an element or of a crystal: they follow
// the calibration, the window and the end of their graph.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "program/Program.h"
#include "workspace/Colors.h"

namespace dorvane {

struct LineMark {
  double energy_kev = 0;
  std::string text;
  int color = kColorElementMark;  // entry of the colour table
  // Number of its channel, from 1 with a fraction, for a line that has no energy: it stays there
  // whatever the calibration is.
  std::optional<double> channel{};

  friend bool operator==(const LineMark&, const LineMark&) = default;
};

// Whether a notice of SpectrumRemoved tells the end of a graph. One that only changes its window
// already stands in the other.
bool EndsGraph(const Workspace& workspace, int win_no, int data_no);

// The one hand that registers named lines with the drawing engine, so that several owners share
// them. A listener of the program: whoever makes it adds it. A mark without a channel in 0..8191,
// of a hidden graph, or beyond the engine's 100 of a window is not drawn.
class LineMarks : public WorkspaceListener {
 public:
  explicit LineMarks(Program& program) : program_(program) {}  // outlives the marks

  // The lines that `owner` has on the graph of a spectrum (0..13), in place of those before. Empty
  // takes them away. Nothing where no row shows the spectrum. Where they are the first that have no
  // room in their window, a message tells how many.
  void Set(const std::string& owner, int data_no, std::vector<LineMark> lines);

  void SpectrumShown(int, int) override { Register(); }
  void SpectrumRemoved(int WinNo, int DataNo) override;
  void GraphShown(int, int, bool) override { Register(); }
  void WindowStyleChanged() override { Register(); }
  void UnitAxisChanged() override { Register(); }
  void CalibrationShown() override { Register(); }

 private:
  void Register();
  void RegisterLines(const GraphSlot& slot);

  Program& program_;
  int left_out_ = 0;  // lines beyond those that a window has room for
  std::map<int, std::map<std::string, std::vector<LineMark>>> lines_;  // by spectrum and owner
};

}  // namespace dorvane
