#include "program/PeakErrorText.h"

#include <cmath>

#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kPercent = 100;
constexpr const char* kErrorDigits = "0.00E+000";

std::string PeakHeading(int unit) {
  return "Peak(" + std::string(UnitLabel(unit)) + ")";
}

// Without an exponent, so that the numbers of a column compare.
std::string ErrorText(double error) {
  return DecimalNumber(ParseNumber(Picture(error, kErrorDigits)).value_or(error));
}

// 0 where either end has no value in the unit.
double CenterErrorIn(int unit, const Workspace& workspace, const PeakRec& peak,
                     const MeasProp& source) {
  if (unit == kUnitCh) return peak.Errors.Center;
  const double low = ChToUnit(unit, peak.Center - peak.Errors.Center, source, workspace.Dac);
  const double high = ChToUnit(unit, peak.Center + peak.Errors.Center, source, workspace.Dac);
  return low == 0 || high == 0 ? 0 : std::abs(high - low) / 2;
}

double WidthErrorInKeV(const PeakRec& peak, const MeasProp& source) {
  const double low = 2 * (peak.HalfWidth - peak.Errors.HalfWidth);
  const double high = 2 * (peak.HalfWidth + peak.Errors.HalfWidth);
  return std::abs(ChToWidth(kUnitKeV, high, source) - ChToWidth(kUnitKeV, low, source)) / 2;
}

std::string PeakErrorLine(const Workspace& workspace, const PeakRec& peak, const MeasProp& source,
                          int unit) {
  std::string line = Picture(peak.Center + 1, "#0.0000") + ",";
  for (const std::string& error : PeakErrorsOf(workspace, peak, source, unit)) line += error + ",";
  return line + (peak.FitEngine != kEngineNax ? "E" : "N");
}

}  // namespace

PeakErrorTexts PeakErrorHeadings(int unit) {
  return {"Peak(Ch)", PeakHeading(unit), "Intensity", "FWHM(Ch)", "FWHM(keV)", "Gauss%"};
}

PeakErrorTexts PeakErrorsOf(const Workspace& workspace, const PeakRec& peak, const MeasProp& source,
                            int unit) {
  PeakErrorTexts texts;
  const auto put = [&texts](PeakErrorColumn column, double error) {
    if (error != 0) texts[column] = ErrorText(error);
  };
  put(kErrorPeakCh, peak.Errors.Center);
  put(kErrorPeakUnit, CenterErrorIn(unit, workspace, peak, source));
  put(kErrorIntensity, peak.Errors.Height);
  put(kErrorFwhmCh, 2 * peak.Errors.HalfWidth);
  put(kErrorFwhmKeV, WidthErrorInKeV(peak, source));
  put(kErrorGaussPercent, peak.Errors.GaussRatio * kPercent);
  return texts;
}

bool AnyErrorKnown(const PeakTable& table) {
  for (int i = 0; i < table.Count; ++i) {
    if (table.Peaks[i].Errors != PeakErrors{}) return true;
  }
  return false;
}

PeakText BuildPeakErrorLines(const Workspace& workspace, int data_no, int unit) {
  PeakText lines;
  lines.header = "Peak(Ch),Error of Peak(Ch),Error of " + PeakHeading(unit) +
                 ",Error of Intensity,Error of FWHM(Ch),Error of FWHM(keV),Error of Gauss(%),Type";
  const PeakTable& table = workspace.Peaks[data_no];
  const MeasProp& source = CalibrationOf(workspace, data_no);
  for (int i = 0; i < table.Count; ++i) {
    lines.peaks.push_back(PeakErrorLine(workspace, table.Peaks[i], source, unit));
  }
  return lines;
}

}  // namespace dorvane
