#include "program/WholeRange.h"

#include <algorithm>

#include "program/View.h"

namespace dorvane {

int LongestSpectrum(const Workspace& workspace) {
  int longest = 0;
  for (const GraphSlot& slot : workspace.Slots) {
    if (slot.State == kRowEmpty) continue;
    longest = std::max<int>(longest, workspace.Channels[slot.DataNo].Count);
  }
  return longest > 0 ? longest : workspace.MaxCh;
}

void ShowOpenSpectra(Program& program) {
  SetSpanCh(program, LongestSpectrum(program.workspace));
  SetStartCh(program, 0);
}

bool ShowsWholeRange(const Program& program) {
  const double span = program.view.SpanCh;
  return program.view.StartCh == 0 &&
         (span == program.workspace.MaxCh || span == LongestSpectrum(program.workspace));
}

}  // namespace dorvane
