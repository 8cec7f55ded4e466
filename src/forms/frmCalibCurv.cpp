#include "forms/frmCalibCurv.h"

#include "program/WholeRange.h"
#include "workspace/Colors.h"

namespace dorvane {
namespace {

constexpr CalibrationColors kOnPaper{Rgb(255, 255, 255), Rgb(0, 0, 0), Rgb(210, 210, 210),
                                     Rgb(0, 0, 0), Rgb(0, 0, 0)};

}  // namespace

frmCalibCurv::frmCalibCurv(Program& program, FormHost& host, Printer& printer)
    : Form(host, "frmCalibCurv", "Calibration Curve"), program_(program), printer_(printer) {
  txtMemo.SetReadOnly(true);
  cmdPrint.Click.Connect([this] { cmdPrint_Click(); });
  cmdOk.Click.Connect([this] { cmdOk_Click(); });
}

void frmCalibCurv::Open(CalibrationResult result) {
  result_ = std::move(result);
  txtMemo.SetText(result_.memo);
  picCurve.Redraw();
  ShowModal();
}

CalibrationCurve frmCalibCurv::Curve() const {
  CalibrationCurve curve{result_.points, result_.coefficients,
                         LongestSpectrum(program_.workspace) - 1};
  if (result_.form == 0) curve.coefficients[2] = 0;
  return curve;
}

void frmCalibCurv::DrawCurve(Surface& surface) const {
  const ColorTable& colors = program_.workspace.ColorTbl;
  DrawCalibrationPlot(
      surface, Curve(),
      {colors[kColorWindowBack], colors[kColorAxis], colors[kColorGrid], colors[0], colors[1]});
}

void frmCalibCurv::cmdPrint_Click() {
  const bool printed = printer_.Print(Caption(), Orientation::Landscape, [this](Page& page, int) {
    CalibrationCurve curve = Curve();
    curve.memo = result_.memo;
    DrawCalibrationPlot(*page.Whole(), curve, kOnPaper);
    return false;
  });
  if (!printed) program_.ports.dialogs.Message("Printer not ready");
}

}  // namespace dorvane
