#include "forms/frmPeakReport.h"

#include <string>

#include "files/SplitPath.h"
#include "processing/Units.h"
#include "program/Commands.h"
#include "program/Cursor.h"
#include "program/EditText.h"
#include "program/PeakErrorText.h"
#include "program/PeakReport.h"
#include "program/PeakSheet.h"
#include "support/NumberText.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr double kPercent = 100;
constexpr const char* kExpress = "E";
constexpr const char* kNax = "N";

const char* EngineText(const PeakRec& peak) {
  return peak.FitEngine != kEngineNax ? kExpress : kNax;
}

std::vector<std::string> ErrorHeadings() {
  const PeakErrorTexts headings = PeakErrorHeadings(kUnitCh);
  return {headings.begin(), headings.end()};
}

// The current rows of two grids with the same rows stay in step.
void KeepInStep(Grid& grid, Grid& other) {
  grid.Shown.Connect([&grid, &other] { other.SetActiveRow(grid.ActiveRow()); });
}

std::string UnitHeading(int unit) {
  return "Peak(" + std::string(UnitLabel(unit)) + ")";
}

}  // namespace

frmPeakReport::frmPeakReport(Program& program, FormHost& host, Printing& printing)
    : Form(host, "frmPeakReport", "Peak Report"),
      sprPeakInf(controls_, "sprPeakInf",
                 {"Peak(Ch)", UnitHeading(kUnitCh), "Intensity", "FWHM(Ch)", "FWHM(keV)",
                  "FWHM(dA)", "Amplitude", "Gauss%", "FitType"}),
      sprPeakErr(controls_, "sprPeakErr", ErrorHeadings()),
      program_(program),
      printing_(printing) {
  for (const Column column : {kPeakCh, kIntensity, kFwhmCh, kGaussPercent}) {
    sprPeakInf.SetEditableColumn(column, true);
  }
  sprPeakInf.Click.Connect([this](int row, int column) { sprPeakInf_Click(row, column); });
  sprPeakErr.Click.Connect([this](int row, int column) { sprPeakErr_Click(row, column); });
  KeepInStep(sprPeakInf, sprPeakErr);
  KeepInStep(sprPeakErr, sprPeakInf);
  cmdPkSet.Click.Connect([this] { cmdPkSet_Click(); });
  cmdSave.Click.Connect([this] { cmdSave_Click(); });
  cmdPrint.Click.Connect([this] { cmdPrint_Click(); });
  cmdClose.Click.Connect([this] { cmdClose_Click(); });
}

void frmPeakReport::Open(int grp_no) {
  // KEPT: the first row cannot be asked for; it is shown where it is the current one.
  const int row = grp_no == 0 ? program_.view.GraphNo : grp_no;
  if (!HoldsGraph(program_.workspace, row)) return;
  WinNo = GetRealWinNo(program_.List());
  GrpNo = ToInt16(row);
  DispUnit = program_.view.DispUnit;
  RefreshPeakReport();
  ShowModal();
}

void frmPeakReport::RefreshPeakReport() {
  const PeakTable& table = program_.workspace.Peaks[DataNo()];
  for (Grid* grid : {&sprPeakInf, &sprPeakErr}) {
    grid->SetMaxRows(0);
    grid->SetMaxRows(table.Count);
  }
  sprPeakInf.SetHeading(kPeakUnit, UnitHeading(DispUnit));
  sprPeakErr.SetHeading(kErrorPeakUnit + 1, UnitHeading(DispUnit));
  for (int i = 0; i < table.Count; ++i) {
    ShowPeak(i + 1, table.Peaks[i]);
    ShowErrors(i + 1, table.Peaks[i]);
  }
  ShowHint();
}

void frmPeakReport::ShowPeak(int row, const PeakRec& peak) {
  const Workspace& workspace = program_.workspace;
  const MeasProp& source = CalibrationOf(workspace, DataNo());
  const double fwhm = 2 * peak.HalfWidth;
  const auto show = [this, row](Column column, double value) {
    sprPeakInf.SetText(row, column, CellNumber(value));
  };
  show(kPeakCh, peak.Center + 1);
  show(kPeakUnit, ChToUnit(DispUnit, peak.Center, source, workspace.Dac));
  show(kIntensity, peak.Height);
  show(kFwhmCh, fwhm);
  show(kFwhmKeV, ChToWidth(kUnitKeV, fwhm, source));
  show(kFwhmD, WidthInD(workspace, peak, source));
  show(kAmplitude, peak.Amplitude);
  show(kGaussPercent, peak.GaussRatio * kPercent);
  sprPeakInf.SetText(row, kFitType, EngineText(peak));
}

void frmPeakReport::ShowErrors(int row, const PeakRec& peak) {
  const Workspace& workspace = program_.workspace;
  const MeasProp& source = CalibrationOf(workspace, DataNo());
  const PeakErrorTexts texts = PeakErrorsOf(workspace, peak, source, DispUnit);
  for (int i = 0; i < kPeakErrorColumns; ++i) {
    sprPeakErr.SetText(row, i + 1, texts[static_cast<std::size_t>(i)]);
  }
}

void frmPeakReport::ShowHint() {
  const int count = program_.workspace.Peaks[DataNo()].Count;
  std::string hint = program_.workspace.Slots[GrpNo].Title + ": ";
  hint += count == 0   ? "no peaks. \"AutoFit\" finds them, \"Insert Peak\" enters them."
          : count == 1 ? "1 peak. "
                       : std::to_string(count) + " peaks. ";
  if (count > 0) {
    hint += "Channel, intensity, FWHM(Ch) and Gauss% can be typed; \"SET\" takes them over.";
  }
  lblHint.SetCaption(hint);
}

void frmPeakReport::sprPeakInf_Click(int row, int /*column*/) {
  const PeakTable& table = program_.workspace.Peaks[DataNo()];
  const int index = row - 1;
  if (index < 0 || index >= table.Count) return;
  RunGuarded(program_, [&](Program& program) {
    CsrX_Change(program, RoundToInt16(table.Peaks[index].Center));
  });
}

PeakRec frmPeakReport::PeakOfRow(int row, const PeakRec& stored) const {
  const auto changed = [&](Column column, double shown) {
    return sprPeakInf.Text(row, column) != CellNumber(shown);
  };
  const auto number = [&](Column column) { return NumberOf(sprPeakInf.Text(row, column)); };
  PeakRec peak = stored;
  if (changed(kPeakCh, stored.Center + 1)) {
    peak.Center = number(kPeakCh) - 1;
    peak.Errors.Center = 0;
  }
  if (changed(kIntensity, stored.Height)) {
    peak.Height = number(kIntensity);
    peak.Errors.Height = 0;
  }
  if (changed(kFwhmCh, 2 * stored.HalfWidth)) {
    peak.HalfWidth = number(kFwhmCh) / 2;
    peak.Errors.HalfWidth = 0;
  }
  // KEPT: the area is that of its cell and does not follow from the other three.
  if (changed(kAmplitude, stored.Amplitude)) peak.Amplitude = number(kAmplitude);
  if (changed(kGaussPercent, stored.GaussRatio * kPercent)) {
    peak.GaussRatio = number(kGaussPercent) / kPercent;
    peak.Errors.GaussRatio = 0;
  }
  peak.FitEngine = sprPeakInf.Text(row, kFitType) == kExpress ? kEngineExpress : kEngineNax;
  return peak;
}

void frmPeakReport::cmdPkSet_Click() {
  RunGuarded(program_, [this](Program& program) {
    PeakTable table = program.workspace.Peaks[DataNo()];
    for (int i = 0; i < table.Count; ++i) table.Peaks[i] = PeakOfRow(i + 1, table.Peaks[i]);
    ReplacePeaks(program, WinNo, GrpNo, table);
    const int row = sprPeakInf.ActiveRow();
    RefreshPeakReport();
    sprPeakInf.SetActiveRow(row);
  });
}

void frmPeakReport::cmdSave_Click() {
  FileRequest request;
  request.file_name = ProposedReportName(program_.workspace, GrpNo);
  request.filter = "Result File (*.csv)|*.csv";
  request.overwrite_prompt = true;
  request.caption = "Save Peak Report";
  const auto choice = program_.ports.dialogs.ChooseFileToSave(request);
  if (!choice || choice->path.empty()) return;
  SavePeakReport(program_, choice->path, DataNo(), DispUnit);
}

void frmPeakReport::cmdPrint_Click() {
  RunGuarded(program_, [this](Program& program) {
    const PeakSheets report = PeakSheetsOf(program.workspace, DataNo(), DispUnit);
    printing_.Run({SplitPath(ProposedReportName(program.workspace, GrpNo)).Name,
                   [&report](const PictureSize& size) { return PeakSheetCount(report, size); },
                   [&report](Page& page, int page_no, std::int16_t) {
                     DrawPeakSheet(report, page, page_no);
                   }});
  });
}

}  // namespace dorvane
