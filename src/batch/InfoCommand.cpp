#include "batch/InfoCommand.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <numeric>
#include <ostream>

#include "batch/SpectrumFile.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr int kLabelWidth = 16;

void Put(std::ostream& out, std::string_view label, std::string_view value) {
  out << "  " << (value.empty() ? std::string(label) : PadRight(label, kLabelWidth)) << value
      << '\n';
}

// Nine significant digits: files hold no more, and a difference of angles none that are right.
void Put(std::ostream& out, std::string_view label, double value, std::string_view unit) {
  const auto shown = ParseNumber(Picture(value, "0.00000000E+00"));
  Put(out, label, PlainNumber(shown.value_or(value)) + " " + std::string(unit));
}

std::string_view FormatName(std::int16_t data_type) {
  switch (data_type) {
    case kNativeData:
      return "native";
    case kGenieData:
      return "analyser report";
    case kNpdData:
      return "NPD";
    case kDacData:
      return "angle-dispersive";
    default:
      return "none";
  }
}

bool IsDigits(std::string_view text, std::size_t count) {
  return text.size() == count &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// "2016-11-04 04:52:52"; a date or time that is not all digits stands as it is.
std::string DateAndTime(const SpectrumRec& record) {
  std::string date = record.OpDate.Text();
  std::string time = record.OpTime.Text();
  if (IsDigits(date, 8)) date.insert(6, "-").insert(4, "-");
  if (IsDigits(time, 6)) time.insert(4, ":").insert(2, ":");
  return date + (date.empty() || time.empty() ? "" : " ") + time;
}

// What has been made of the counts.
std::string Processing(std::int16_t flags) {
  constexpr std::array<std::pair<std::int16_t, std::string_view>, 4> kKinds = {{
      {FlagSmooth, "smoothed"},
      {FlagBackGraund, "background"},
      {FlagBackRemv, "background removed"},
      {FlagFit, "fit"},
  }};
  std::string text;
  for (const auto& [flag, kind] : kKinds) {
    if ((flags & flag) != 0) text.append(text.empty() ? "" : ", ").append(kind);
  }
  return text.empty() ? "none" : text;
}

void PutTexts(std::ostream& out, const SpectrumRec& record) {
  Put(out, "Name", record.MsuName.Text());
  Put(out, "Sample", record.SampName.Text());
  Put(out, "Operator", record.OpName.Text());
  Put(out, "Date and time", DateAndTime(record));
  Put(out, "Memo", record.Memo.Text());
  Put(out, "Data type", FormatName(record.DataType));
  Put(out, "Processing", Processing(record.Prop.Flags));
}

struct Condition {
  std::string_view label;
  double MeasProp::*field;
  std::string_view unit;
};
constexpr std::array kConditions{
    Condition{"Live time", &MeasProp::LiveTime, "s"},
    Condition{"Real time", &MeasProp::RealTime, "s"},
    Condition{"Pressure", &MeasProp::Press, "GPa"},
    Condition{"Press load", &MeasProp::Load, "ton"},
    Condition{"Temperature", &MeasProp::Temp, "°C"},
    Condition{"Press X", &MeasProp::PressX, "mm"},
    Condition{"Press Y", &MeasProp::PressY, "mm"},
    Condition{"Press Z", &MeasProp::PressZ, "mm"},
    Condition{"Press PHI", &MeasProp::PressTZ, "deg"},
    Condition{"Ring current", &MeasProp::Current, "mA"},
    Condition{"Counting rate", &MeasProp::CntRate, "1/s"},
};

void PutConditions(std::ostream& out, const SpectrumFile& file) {
  const MeasProp& prop = file.record.Prop;
  if (file.record.DataType == kDacData) {
    Put(out, "First angle", file.angles.DacAngleOffset, "deg");
    Put(out, "Angle step", file.angles.DacAngleSlope, "deg");
  } else {
    Put(out, "2-theta", prop.TwoTheta, "deg");
    Put(out, "EGC(0)", prop.EGC[0], "keV");
    Put(out, "EGC(1)", prop.EGC[1], "keV/channel");
    Put(out, "EGC(2)", prop.EGC[2], "keV/channel^2");
  }
  for (const Condition& condition : kConditions) {
    Put(out, condition.label, prop.*condition.field, condition.unit);
  }
}

void PutCounts(std::ostream& out, const SpectrumFile& file) {
  const auto counts = file.block.Used();
  Put(out, "Channels", std::to_string(counts.size()));
  Put(out, "Sum of counts",
      std::to_string(std::accumulate(counts.begin(), counts.end(), std::int64_t{0})));
  if (!counts.empty()) {
    const auto largest = std::max_element(counts.begin(), counts.end());
    Put(out, "Largest count",
        std::to_string(*largest) + " in channel " + std::to_string(largest - counts.begin() + 1));
  }
  const std::span peaks(file.peaks.Peaks.data(), static_cast<std::size_t>(file.peaks.Count));
  const auto fitted = std::count_if(peaks.begin(), peaks.end(),
                                    [](const PeakRec& peak) { return peak.FitDone == kTrue; });
  Put(out, "Peaks",
      std::to_string(peaks.size()) + (peaks.empty() ? "" : ", fitted " + std::to_string(fitted)));
}

}  // namespace

void AddInfo(CLI::App& app, InfoOptions& options) {
  CLI::App* info = app.add_subcommand("info", "Header and sums of spectrum files");
  info->add_option("FILE", options.files, "Spectrum files (" + ReadableKinds() + ")")->required();
}

int RunInfo(const InfoOptions& options, std::ostream& out, std::ostream& err) {
  SystemFileLayer files;
  int status = 0;
  for (const std::string& path : options.files) {
    try {
      const auto file = ReadSpectrumFile(files, path);
      out << path << '\n';
      PutTexts(out, file->record);
      PutConditions(out, *file);
      PutCounts(out, *file);
    } catch (const std::exception& failure) {
      err << "dorvane-batch: " << path << ": " << failure.what() << '\n';
      status = 1;
    }
  }
  return status;
}

}  // namespace dorvane
