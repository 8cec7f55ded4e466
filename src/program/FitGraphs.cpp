#include "program/FitGraphs.h"

#include <algorithm>

#include "program/DerivedGraphs.h"
#include "program/NaxRecords.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

// Where "BackRemv" stands when the fit of the current graph has gone to row 0.
constexpr int kRowOfBackRemv = 1;

int CoveredChannels(const ChannelBlock& block) {
  return std::min<int>(block.Count, kFitBackChannels);
}

// A graph keeps its row, so that no other one loses its place in the list.
int RowToShowIn(const Workspace& workspace, int data_no) {
  const int own = RowOfSpectrum(workspace, data_no);
  return own < 0 ? kRowOfBackRemv : own;
}

void ShowAs(Program& program, int row, int data_no, std::string_view title) {
  SetGraph(program.List(), program.workspace.Slots[row].WinNo, row, data_no, title);
}

void FitFailed(Program& program) {
  program.ports.dialogs.Message("Fit Failed");
}

}  // namespace

void NaxBackToGraph(Program& program, int row) {
  Workspace& workspace = program.workspace;
  const std::int16_t data_no = workspace.Slots[row].DataNo;
  ChannelBlock& block = workspace.Channels[data_no];
  for (int i = 0; i < CoveredChannels(block); ++i) {
    if (workspace.FitBack[i] != 0) block.Counts[i] = workspace.FitBack[i];
  }
  ShowAs(program, row, data_no, kTitleBackGraund);
}

void NaxRemvToGraph(Program& program, int source, int background, int destination) {
  Workspace& workspace = program.workspace;
  const ChannelBlock& from = workspace.Channels[source];
  const ChannelBlock& back = workspace.Channels[background];
  ChannelBlock to = workspace.Channels[destination];  // aside: a fault leaves the curve as it was
  for (int i = 0; i < CoveredChannels(to); ++i) {
    // KEPT: a difference below 0 stays; only the background command cuts it.
    to.Counts[i] = back.Counts[i] > 0
                       ? Narrow<std::int32_t>(std::int64_t{from.Counts[i]} - back.Counts[i])
                       : 0;
  }
  workspace.Channels[destination] = to;
  ShowAs(program, RowToShowIn(workspace, destination), destination, kTitleBackRemv);
}

void NaxAreaFitBackGroundDataSet(Program& program, int win_no, int grp_no) {
  Workspace& workspace = program.workspace;
  const int background = FindRow(workspace, kTitleBackGraund);
  if (background >= 0) NaxBackToGraph(program, background);
  const int removed = FindRow(workspace, kTitleBackRemv);
  const bool fitted = HoldsGraph(workspace, grp_no) && FindRow(workspace, kTitleFit) >= 0;
  if (!fitted || background < 0 || removed < 0) {
    FitFailed(program);
    return;
  }
  const auto data_no = [&](int row) { return workspace.Slots[row].DataNo; };
  NaxRemvToGraph(program, data_no(grp_no), data_no(background), data_no(removed));
  program.view.FitMade = kTrue;
  Change_cboGrphSel(program.List(), win_no, grp_no);
  program.Listener().CursorMoved();
}

void BuildFitGraphs(Program& program, int win_no, int grp_no) {
  const Workspace& workspace = program.workspace;
  if (HoldsGraph(workspace, grp_no) && FindRow(workspace, kTitleBackGraund) < 0) {
    BackGroundGraph(program);
    grp_no = program.view.GraphNo;  // new rows have moved the fitted one
  }
  if (!HoldsGraph(workspace, grp_no) || FindRow(workspace, kTitleFit) < 0) {
    FitFailed(program);
    return;
  }
  NaxAreaFitBackGroundDataSet(program, win_no, grp_no);
}

}  // namespace dorvane
