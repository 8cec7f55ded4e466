// The peaks and the indexed lines in the lattice form: its grids, their tabs, and the plot of the
// deviations.
#include "display/DeviationPlot.h"
#include "forms/PeakCalHint.h"
#include "forms/frmPeakCal.h"
#include "workspace/Colors.h"

namespace dorvane {

void frmPeakCal::CopyPeakInfo(int mode) {
  const std::vector<PeakRow> peaks = PeakRowsOf(program_.workspace, work_.DataNo);
  if (mode == 0) {
    FillPeakInf(sprPeakInf, peaks);
  } else {
    RefreshPeakD(sprPeakInf, peaks);
  }
  lblPeakHint.SetCaption(PeakHint(program_.workspace, work_.GrpNo));
  lblPeakHint.SetVisible(peaks.empty());
}

void frmPeakCal::FillPeakGrids() {
  ShowRows();
}

void frmPeakCal::ShowRows() {
  rows_ = MatchedRowsOf(*state_, program_.workspace, work_.DataNo, work_.LatticeIndex,
                        direct_ ? &*direct_ : nullptr);
  ShowUse(sprPeakInf, rows_);
  FillPeakInf2(sprPeakInf2, rows_);
  FillPeakInf3(sprPeakInf3, rows_);
  FillPeakInf4(sprPeakInf4, rows_);
  picDeviation.Redraw();
}

// KEPT: in every grid the row counts the indexed lines, in the grid of all peaks too, where a peak
// without a line shifts the rows behind it.
void frmPeakCal::sprPeakInf_Checked(Grid& grid, int row) {
  LineRec* line = MatchedLine(state_->Lines, row);
  if (line == nullptr) return;
  line->Unused = grid.Cell(row, UseColumn(grid)).checked ? kFalse : kTrue;
  log_.Put(LogUseFlagChanged());
}

void frmPeakCal::tabLatticeFit_Click() {
  ShowTab();
}

// KEPT: sprPeakInf2 is filled and never seen.
void frmPeakCal::ShowTab() {
  const bool lines = tabLatticeFit.Index() != 0;
  const bool marker = work_.SelectMode != kSelectSample;
  sprPeakInf.SetVisible(!lines);
  sprPeakInf2.SetVisible(false);
  sprPeakInf3.SetVisible(lines && !marker);
  sprPeakInf4.SetVisible(lines && marker);
}

void frmPeakCal::DrawDeviation(Surface& surface) const {
  const ColorTable& colors = program_.workspace.ColorTbl;
  std::vector<DeviationPoint> from_seed, from_cell;
  for (const MatchedRow& row : rows_) {
    from_seed.push_back({row.d_obs, row.d_obs - row.d_cal, !row.use});
    if (row.d_r != 0) from_cell.push_back({row.d_obs, row.d_obs - row.d_r, !row.use});
  }
  const DeviationSeries series[] = {{"d(obs) - d(cal)", colors[0], from_seed},
                                    {"d(obs) - d(R)", colors[1], from_cell}};
  const DeviationColors plot{colors[kColorWindowBack], colors[kColorAxis], colors[kColorGrid],
                             colors[kColorPeakMark]};
  DrawDeviationPlot(surface, series, plot, "Deviations show here after \"Execute\"");
}

}  // namespace dorvane
