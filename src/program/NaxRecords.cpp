#include "program/NaxRecords.h"

#include "program/DerivedGraphs.h"
#include "support/Rounding.h"
#include "workspace/GraphList.h"

namespace dorvane {

int RowOfSpectrum(const Workspace& workspace, int data_no) {
  for (int row = 0; row < kRows; ++row) {
    if (HoldsGraph(workspace, row) && workspace.Slots[row].DataNo == data_no) return row;
  }
  return -1;
}

PeakRec NaxRecord(const Workspace& workspace, int data_no, const NaxPeak& peak,
                  std::int16_t engine) {
  PeakRec record;
  record.FitDone = kTrue;
  record.FuncType = workspace.FitParam.FuncType;
  record.Height = peak.height;
  record.Center = peak.position - 1;
  record.HalfWidth = peak.fwhm / 2;
  record.GaussRatio = 1;
  record.FitEngine = engine;
  if (ScattersAsCounted(workspace, data_no)) record.Errors = peak.errors;
  return record;
}

}  // namespace dorvane
