#include "program/DerivedGraphs.h"

#include <algorithm>

#include "processing/BackGraund.h"
#include "processing/Calc.h"
#include "support/Fault.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// A reused row 0 can be the source itself; then there is nothing to copy.
void CopyToDestination(Workspace& workspace, int source, int destination, std::int16_t flag) {
  if (source != destination) CopySpectrum(workspace, source, destination);
  std::int16_t& flags = workspace.Spectra[destination].Prop.Flags;
  flags = ToInt16(flags | flag);
}

// The channels of `to` behind the last stored one of `from` stay.
void SubtractBackground(const ChannelBlock& from, const ChannelBlock& background,
                        ChannelBlock& to) {
  to.Count = from.Count;
  for (int i = 0; i < from.Count; ++i) {
    const std::int64_t left = std::int64_t{from.Counts[i]} - background.Counts[i];
    to.Counts[i] = Narrow<std::int32_t>(std::max<std::int64_t>(left, 0));
  }
}

// A derived graph can only be made while a graph exists. An empty list says so itself.
bool HasSource(const Program& program) {
  return program.workspace.GrpCount <= 0 || HoldsGraph(program.workspace, program.view.GraphNo);
}

}  // namespace

bool RowHasFlags(const Workspace& workspace, int grp_no, std::int16_t set, std::int16_t clear) {
  const GraphSlot& slot = workspace.Slots[grp_no];
  if (!HoldsGraph(workspace, grp_no)) return false;
  const std::int16_t flags = workspace.Spectra[slot.DataNo].Prop.Flags;
  return (flags & set) == set && (flags & clear) == 0;
}

bool ScattersAsCounted(const Workspace& workspace, int data_no) {
  constexpr int kCalculated = FlagBackGraund | FlagBackRemv | FlagFit;
  return (workspace.Spectra[data_no].Prop.Flags & kCalculated) == 0;
}

Destination HeadDestination(const GraphList& list, bool reuse) {
  if (reuse) return {list.workspace.Slots[0].DataNo, 0};
  return {InsertGraph(list), 0};
}

void ShowRow(Program& program, int grp_no) {
  const GraphList list = program.List();
  Change_cboGrphSel(list, GetRealWinNo(list), grp_no);
  program.Listener().CursorMoved();
}

void SmoothGraph(Program& program) {
  if (!HasSource(program)) return;
  Workspace& workspace = program.workspace;
  const GraphList list = program.List();
  const std::int16_t source = program.view.DataNo;
  // KEPT: the source's own flag decides, and row 0 is what is replaced, whatever kind of graph that
  // is: a curve made of a smoothed one carries the flag too.
  const bool smoothed = RowHasFlags(workspace, program.view.GraphNo, FlagSmooth, 0);
  // A parameter file can hold any kind: it faults before a row is opened.
  const std::int16_t kind = workspace.FitParam.SmoothKind;
  if (kind < 0 || kind >= kSmoothKinds) throw Fault(FaultCode::Subscript);
  const Destination to = HeadDestination(list, smoothed && HoldsGraph(workspace, 0));
  if (to.data_no < 0) return;
  CopyToDestination(workspace, source, to.data_no, FlagSmooth);
  SmoothData(kind, workspace.Channels[to.data_no].Used());
  SetGraph(list, GetRealWinNo(list), to.row, to.data_no, kTitleSmooth);
  list.listener.CurveMade(to.data_no, source);
  ShowRow(program, to.row);
}

void BackGroundGraph(Program& program) {
  if (!HasSource(program)) return;
  Workspace& workspace = program.workspace;
  const GraphList list = program.List();
  const std::int16_t source = program.view.DataNo;

  Destination back{workspace.Slots[1].DataNo, 1};
  if (!RowHasFlags(workspace, 1, FlagBackGraund, FlagFit)) back = HeadDestination(list, false);
  if (back.data_no < 0) return;
  const bool reuse_difference = RowHasFlags(workspace, 0, FlagBackRemv, FlagFit);
  const Destination difference = HeadDestination(list, reuse_difference);
  if (difference.data_no < 0) return;
  if (!reuse_difference) ++back.row;

  // Worked out aside: a fault leaves the curves that are there as they were.
  ChannelBlock background = workspace.Channels[source];
  EstimateBackground(workspace.FitParam.BackInterval, workspace.FitParam.BackTimes,
                     background.Counts, background.Count, program.ports.dialogs);
  ChannelBlock removed = workspace.Channels[difference.data_no];
  const bool from_itself = source == back.data_no;
  SubtractBackground(from_itself ? background : workspace.Channels[source], background, removed);

  CopyToDestination(workspace, source, back.data_no, FlagBackGraund);
  workspace.Channels[back.data_no] = background;
  SetGraph(list, GetRealWinNo(list), back.row, back.data_no, kTitleBackGraund);
  list.listener.CurveMade(back.data_no, source);

  if (source != difference.data_no) {
    workspace.Spectra[difference.data_no] = workspace.Spectra[source];
    workspace.Peaks[difference.data_no] = workspace.Peaks[source];
  }
  CopyToDestination(workspace, difference.data_no, difference.data_no, FlagBackRemv);
  workspace.Channels[difference.data_no] = removed;
  SetGraph(list, GetRealWinNo(list), difference.row, difference.data_no, kTitleBackRemv);
  list.listener.CurveMade(difference.data_no, source);
  ShowRow(program, program.view.GraphNo);
}

}  // namespace dorvane
