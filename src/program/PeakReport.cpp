#include "program/PeakReport.h"

#include <algorithm>

#include "files/SplitPath.h"
#include "program/DerivedGraphs.h"
#include "program/EditText.h"
#include "program/PeakErrorText.h"
#include "program/PeakFit.h"
#include "support/Bytes.h"
#include "support/CodePage.h"
#include "support/Fault.h"

namespace dorvane {
namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kReportName = "FitParam.csv";

void Mark(Program& program, int win_no, int data_no, bool marked) {
  const PeakTable& table = program.workspace.Peaks[data_no];
  for (int i = 0; i < table.Count; ++i) {
    if (marked) {
      program.Listener().PeakMarked(win_no, data_no, table.Peaks[i]);
    } else {
      program.Listener().PeakUnmarked(win_no, data_no, table.Peaks[i]);
    }
  }
}

// Counts that were measured are not calculated anew from their own peaks.
bool TakesCurve(const Workspace& workspace, int grp_no) {
  return HoldsGraph(workspace, 0) &&
         (grp_no != 0 || KindOf(workspace.Slots[0].Title) == GraphKind::Fit);
}

std::int16_t WriteLines(Program& program, const std::string& path, const PeakText& lines) {
  std::string text = lines.header + kLineEnd;
  for (const std::string& line : lines.peaks) text += line + kLineEnd;
  try {
    ReplaceFile(program.ports.files, path, AsBytes(ToCodePage(text)));
    return kTrue;
  } catch (const Fault&) {
    program.ports.dialogs.Message("File Write Error");
    return kFalse;
  }
}

// A place that cannot be looked at counts as empty: the write there tells.
bool IsThere(Program& program, const std::string& path) {
  try {
    return program.ports.files.Info(path).has_value();
  } catch (const Fault&) {
    return false;
  }
}

bool MayReplace(Program& program, const std::string& path) {
  Question question;
  question.text = "The file of the standard errors exists. Replace it?";
  question.text += "\n" + path;
  return program.ports.dialogs.AskYesNo(question);
}

}  // namespace

void ReplacePeaks(Program& program, int win_no, int grp_no, PeakTable table) {
  Workspace& workspace = program.workspace;
  const std::int16_t data_no = workspace.Slots[grp_no].DataNo;
  std::stable_sort(table.Peaks.begin(), table.Peaks.begin() + table.Count,
                   [](const PeakRec& a, const PeakRec& b) { return a.Center < b.Center; });
  const bool changed = table != workspace.Peaks[data_no];
  if (changed) {
    Mark(program, win_no, data_no, false);
    workspace.Peaks[data_no] = table;
    Mark(program, win_no, data_no, true);
  }
  if (TakesCurve(workspace, grp_no)) {
    // KEPT: the curve to calculate anew is the first of the list, whatever it shows.
    const std::int16_t fit = workspace.Slots[0].DataNo;
    CalcFitSpectrum(workspace, data_no, fit, -1, -1);
    workspace.Peaks[fit] = workspace.Peaks[data_no];
    SetGraph(program.List(), workspace.Slots[0].WinNo, 0, fit, kTitleFit);
    program.Listener().CurveMade(fit, data_no);
  }
  if (changed) workspace.Slots[grp_no].State = kRowUnsaved;
  ShowRow(program, program.view.GraphNo);
}

std::string ProposedReportName(const Workspace& workspace, int grp_no) {
  const GraphSlot* raw = RawGraphOf(workspace, grp_no);
  if (raw == nullptr) return kReportName;
  return raw->Title.substr(0, raw->Title.find('.')) + "_" + std::to_string(grp_no + 1) +
         kReportName;
}

std::int16_t SavePeakCsv(Program& program, const std::string& path, int data_no, int unit) {
  return WriteLines(program, path, BuildPeakLines(program.workspace, data_no, unit));
}

std::string ErrorsFileOf(const std::string& path) {
  const PathParts parts = SplitPath(path);
  return parts.Drive + parts.Dir + parts.Name + "_errors.csv";
}

std::int16_t SavePeakReport(Program& program, const std::string& path, int data_no, int unit) {
  const std::string errors_path = ErrorsFileOf(path);
  const bool replaced = IsThere(program, path);
  const bool errors_there = IsThere(program, errors_path);
  if (SavePeakCsv(program, path, data_no, unit) == kFalse) return kFalse;
  const bool known = AnyErrorKnown(program.workspace.Peaks[data_no]);
  if (!known && !(errors_there && replaced)) return kTrue;
  if (errors_there && !replaced && !MayReplace(program, errors_path)) return kTrue;
  return WriteLines(program, errors_path, BuildPeakErrorLines(program.workspace, data_no, unit));
}

}  // namespace dorvane
