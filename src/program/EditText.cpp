#include "program/EditText.h"

#include <string_view>

#include "processing/Units.h"
#include "program/PropertySheet.h"
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

// A date that isn't whole stays as it is.
std::string PrintedDate(const FixedText<8>& date) {
  const std::string text = date.Text();
  return text.size() == date.Bytes().size() ? DateText(date) : text;
}

// "093015" as "09:30:15"; the same for a time.
std::string PrintedTime(const FixedText<6>& time) {
  const std::string text = time.Text();
  if (text.size() != 6) return text;
  return text.substr(0, 2) + ":" + text.substr(2, 2) + ":" + text.substr(4);
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

std::array<PropLine, kPropLines> BuildPropLines(const Workspace& workspace, int data_no) {
  const SpectrumRec& record = workspace.Spectra[data_no];
  const MeasProp& prop = record.Prop;
  return {{{"Measurement Name ", record.MsuName.Text()},
           {"Sample Name      ", record.SampName.Text()},
           {"Operation Date   ", PrintedDate(record.OpDate)},
           {"Start Time       ", PrintedTime(record.OpTime)},
           {"Operater Name    ", record.OpName.Text()},
           {"Comment          ", record.Memo.Text()},
           {"Real Time (Sec)  ", Picture(prop.RealTime, "#####0.00")},
           {"Live Time (Sec)  ", Picture(prop.LiveTime, "#####0.00")},
           {"2θ (Deg)        ", Picture(prop.TwoTheta, "#0.00000")},
           {"Pressure(GPa) ", Picture(prop.Press, "####0.000")},
           {"Temperature(℃)  ", Picture(prop.Temp, "####0.000")},
           {"Ion Chamber (mV) ", Picture(prop.MiriVolt, "####0.000")},
           {"Ring Current (mA)     ", Picture(prop.Current, "####0.000")},
           {"Count Rate (cps) ", Picture(prop.CntRate, "####0.000")}}};
}

}  // namespace dorvane
