#include "program/EditText.h"

#include <string_view>

#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr double kPercent = 100;

// The picture has a fixed number of places behind its point, so that its own length aligns it.
std::string Field(double value, std::string_view picture) {
  return PictureRight(value, picture, static_cast<int>(picture.size()));
}

std::string PeakLine(const Workspace& workspace, const PeakRec& peak, const MeasProp& source,
                     int unit) {
  const double fwhm = 2 * peak.HalfWidth;
  std::string line;
  for (const std::string& field :
       {Field(peak.Center + 1, "###0.0000"),
        Field(ChToUnit(unit, peak.Center, source, workspace.Dac), "###0.0000"),
        Field(peak.Height, "######0.00"), Field(fwhm, "###0.00"),
        // KEPT: 1 for d, Q and 2-theta, 0 for the wavelength: a width has no value in these units.
        Field(ChToWidth(unit, fwhm, source), "###0.000"),
        Field(WidthInD(workspace, peak, source), "###0.000"), Field(peak.Amplitude, "######0.00"),
        Field(peak.GaussRatio * kPercent, "###0.0")}) {
    line += field + ",";
  }
  return line + (peak.FitEngine != kEngineNax ? "E" : "N");
}

}  // namespace

std::string CellNumber(double value) {
  const auto rounded = ParseNumber(Picture(value, "0.000000E+000"));
  return PlainNumber(rounded.value_or(value));
}

double WidthInD(const Workspace& workspace, const PeakRec& peak, const MeasProp& source) {
  return ChToUnit(kUnitD, peak.Center - peak.HalfWidth, source, workspace.Dac) -
         ChToUnit(kUnitD, peak.Center + peak.HalfWidth, source, workspace.Dac);
}

PeakText BuildPeakLines(const Workspace& workspace, int data_no, int unit) {
  const std::string label = "(" + std::string(UnitLabel(unit)) + ")";
  PeakText lines;
  lines.header = "Peak(Ch),Peak" + label + ",Intensity,FWHM(Ch),FWHM" + label +
                 ",FWHM(d),Amplitude,Gauss(%),Type";
  const PeakTable& table = workspace.Peaks[data_no];
  const MeasProp& source = CalibrationOf(workspace, data_no);
  for (int i = 0; i < table.Count; ++i) {
    lines.peaks.push_back(PeakLine(workspace, table.Peaks[i], source, unit));
  }
  return lines;
}

}  // namespace dorvane
