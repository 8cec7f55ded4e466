#include "program/LatticeNarration.h"

#include "lattice/LatticeRows.h"
#include "lattice/PressureLog.h"
#include "program/LatticeBoxes.h"

namespace dorvane {
namespace {

void Append(LogRecords& to, const LogRecords& records) {
  to.insert(to.end(), records.begin(), records.end());
}

// What the boxes of the form show; without a volume all are empty.
ResultBoxes BoxesOf(LatticeMode mode, const LatticeReport& report) {
  if (!report.volume || !report.ratio) return {};
  const CellVolume cell{*report.volume, *report.ratio, report.V0};
  const auto boxes_of = mode == LatticeMode::Sample ? SampleBoxes : MarkerBoxes;
  return boxes_of(report.lattice_type, *report.cell, cell);
}

// The form starts in sample mode.
LogRecords ChoiceRecords(const CrystalRec& crystal, const LatticeRequest& request) {
  LogRecords records = LogFitModeChanged();
  if (request.mode == LatticeMode::Marker) Append(records, LogFitModeChanged());
  Append(records, LogLatticeTypeChanged());
  Append(records, LogElementChange(crystal));
  const SeedCell own = SeedOf(crystal), seed = request.seed.value_or(own);
  for (int k = 0; k < kCellConstants; ++k) {
    if (seed[k] != own[k]) Append(records, LogSeedInput());
  }
  return records;
}

}  // namespace

LogRecords PeakRecords(const Workspace& workspace, int data_no) {
  LogRecords records = LogProperty(workspace.Spectra[data_no].Prop);
  Append(records, LogPeakList(PeakRowsOf(workspace, data_no)));
  return records;
}

LogRecords OpeningRecords(const Workspace& workspace, int data_no) {
  LogRecords records = LogStart(workspace.Spectra[data_no]);
  Append(records, PeakRecords(workspace, data_no));
  return records;
}

LogRecords CalculationRecords(const CalculationStory& story) {
  LogRecords records = LogSeedCompare(story.sample, story.rows);
  Append(records, story.mode == LatticeMode::Sample
                      ? LogCompare(story.rows)
                      : LogCompareDetail(story.rows, story.data_type));
  Append(records, LogResult(story.sample.lattice_type, story.boxes, story.two_theta));
  if (story.mode == LatticeMode::Marker) {
    Append(records, WritePressureLog(story.sample.name, story.pressure_text, story.temp_text,
                                     story.unit_index));
  }
  return records;
}

LogRecords WorkRecords(const LatticeState& state, const Workspace& workspace, int data_no,
                       const LatticeRequest& request, const LatticeReport& report) {
  const SpectrumRec& spectrum = workspace.Spectra[data_no];
  const CrystalRec& crystal = state.Library.CrystalTable[request.crystal_index];
  LogRecords records = OpeningRecords(workspace, data_no);
  Append(records, ChoiceRecords(crystal, request));
  for (const LatticeLine& line : report.lines) {
    if (line.excluded) Append(records, LogUseFlagChanged());
  }
  if (report.cell) {
    const std::vector<MatchedRow> rows =
        MatchedRowsOf(state, workspace, data_no, report.lattice_type, &report.cell->Direct);
    CalculationStory story;
    story.mode = request.mode;
    story.sample = {crystal.Name, report.lattice_type, request.seed.value_or(SeedOf(crystal))};
    story.data_type = spectrum.DataType;
    story.rows = rows;
    story.boxes = BoxesOf(request.mode, report);
    story.two_theta = CalibrationOf(workspace, data_no).TwoTheta;
    if (report.pressure) story.pressure_text = report.pressure->Text;
    story.temp_text = request.temperature;
    story.unit_index = request.temperature_unit;
    Append(records, CalculationRecords(story));
  }
  Append(records, LogEnd(spectrum));
  return records;
}

}  // namespace dorvane
