#include "program/LatticeNarration.h"

#include "lattice/LatticeRows.h"
#include "lattice/PressureLog.h"

namespace dorvane {
namespace {

void Append(LogRecords& to, const LogRecords& records) {
  to.insert(to.end(), records.begin(), records.end());
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
  Append(records, WritePressureLog(story.sample.name, story.pressure_text, story.temp_text,
                                   story.unit_index));
  return records;
}

}  // namespace dorvane
