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
  out << "  " << PadRight(label, kLabelWidth) << value << '\n';
}

void Put(std::ostream& out, std::string_view label, double value, std::string_view unit) {
  Put(out, label, PlainNumber(value) + (unit.empty() ? "" : " ") + std::string(unit));
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
      return "analyser, without a type of its own";
  }
}

// Dates and times as they stand, blanks between their parts.
std::string DateAndTime(const SpectrumRec& record) {
  const std::string date = record.OpDate.Text();
  const std::string time = record.OpTime.Text();
  return date + (date.empty() || time.empty() ? "" : " ") + time;
}

void PutTexts(std::ostream& out, const SpectrumRec& record) {
  Put(out, "Name", record.MsuName.Text());
  Put(out, "Sample", record.SampName.Text());
  Put(out, "Operator", record.OpName.Text());
  Put(out, "Date and time", DateAndTime(record));
  Put(out, "Memo", record.Memo.Text());
  Put(out, "Data type", FormatName(record.DataType));
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
    for (int i = 0; i <= 2; ++i) {
      Put(out, "EGC(" + std::to_string(i) + ")", prop.EGC[i], i == 0 ? "keV" : "");
    }
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
  Put(out, "Fitted peaks", std::to_string(file.peaks.Count));
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
