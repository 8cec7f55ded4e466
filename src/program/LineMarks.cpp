#include "program/LineMarks.h"

#include <algorithm>

#include "processing/Units.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::int16_t kAxisFont = 0;

bool Shows(const GraphSlot& slot, int data_no) {
  return slot.State != kRowEmpty && slot.DataNo == data_no;
}

std::vector<MarkRec> LinesOf(const DrawSpect& spect, int view) {
  const auto lines = spect.NamedLines(view);
  return {lines.begin(), lines.end()};
}

}  // namespace

bool EndsGraph(const Workspace& workspace, int win_no, int data_no) {
  return std::none_of(workspace.Slots.begin(), workspace.Slots.end(), [&](const GraphSlot& slot) {
    return Shows(slot, data_no) && slot.WinNo != win_no;
  });
}

void LineMarks::Set(const std::string& owner, int data_no, std::vector<LineMark> lines) {
  const auto& slots = program_.workspace.Slots;
  const bool shown = std::any_of(slots.begin(), slots.end(),
                                 [&](const GraphSlot& slot) { return Shows(slot, data_no); });
  if (!shown) return;
  lines_[data_no][owner] = std::move(lines);
  const bool told = left_out_ > 0;
  Register();
  if (left_out_ == 0 || told) return;
  program_.ports.dialogs.Message("A window shows " + std::to_string(kMaxNamedLines) +
                                 " named lines at most: " + std::to_string(left_out_) +
                                 " left out.");
}

void LineMarks::SpectrumRemoved(int WinNo, int DataNo) {
  if (EndsGraph(program_.workspace, WinNo, DataNo)) lines_.erase(DataNo);
  Register();
}

// All anew: the engine knows no owners, and an expansion shares the lines of its window.
void LineMarks::Register() {
  DrawSpect& spect = program_.spect;
  std::vector<MarkRec> before[kWindows];
  for (int view = 0; view < kWindows; ++view) before[view] = LinesOf(spect, view);
  for (int view = 0; view < kWindows; ++view) spect.ClearNamedLines(view);
  left_out_ = 0;
  for (const GraphSlot& slot : program_.workspace.Slots) {
    if (slot.State != kRowEmpty && slot.Disp != kFalse) RegisterLines(slot);
  }
  for (int view = 0; view < kWindows; ++view) {
    if (LinesOf(spect, view) != before[view]) program_.Listener().RedrawWanted(view);
  }
}

// Channel numbers count from 1, the engine's channels from 0.
void LineMarks::RegisterLines(const GraphSlot& slot) {
  const auto found = lines_.find(slot.DataNo);
  if (found == lines_.end()) return;
  const Workspace& workspace = program_.workspace;
  const MeasProp& calibration = CalibrationOf(workspace, slot.DataNo);
  const int view = program_.view.PileUpOn != kFalse ? 0 : slot.WinNo;
  for (const auto& [owner, lines] : found->second) {
    for (const LineMark& line : lines) {
      const double number =
          line.channel ? *line.channel : UnitToCh(kUnitKeV, line.energy_kev, calibration);
      if (!(number >= 1 && number <= kMaxChannels)) continue;
      if (program_.spect.NamedLines(view).size() == kMaxNamedLines) {
        ++left_out_;
        continue;
      }
      program_.spect.AddNamedLine(view, RoundToInt32(number) - 1, line.text,
                                  workspace.ColorTbl[line.color], kAxisFont, kFalse);
    }
  }
}

}  // namespace dorvane
