#include "files/FileNPD.h"

#include <algorithm>
#include <array>

#include "files/TextLines.h"
#include "processing/Units.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::string_view kReplaceNpd = "File already exist. Replace?(NPD)";
constexpr int kRecordLength = 27;
constexpr int kHeaderLines = 22;  // those that are read; the rest up to RecordLength is skipped
constexpr double kKelvinAtZeroCelsius = 273.15;
constexpr std::string_view kRingLabel = "current(mA)=";
constexpr std::string_view kEgcPicture = "0.00000E+000";
constexpr std::string_view kTwoPlaces = "#0.00";
constexpr std::string_view kThreePlaces = "#0.000";

using Float = double MeasProp::*;

// Values of PropHead, and their words.
constexpr std::int16_t kModeLive = 1;
constexpr std::int16_t kModeReal = 2;
constexpr std::int16_t kModeLiveToo = 3;
constexpr std::int16_t kModeSeparate = 4;
constexpr std::string_view kReal = "Real";
constexpr std::string_view kLive = "Live";
constexpr std::string_view kSeparate = "Separate";

// A line of a label and one value.
struct ValueLine {
  std::string_view label;
  std::string_view picture;
  Float field;
};
constexpr std::array<std::string_view, 3> kEgcLabels = {"EGC0,", "EGC1,", "EGC2,"};
constexpr std::array<ValueLine, 4> kAngleAndTimes = {{
    {"2Theta(deg),", "#0.0000", &MeasProp::TwoTheta},
    {"Live time(sec),", kTwoPlaces, &MeasProp::LiveTime},
    {"Real time(sec),", kTwoPlaces, &MeasProp::RealTime},
    {"Dead time(%),", "#0.00000", &MeasProp::NpdVal2},
}};
constexpr ValueLine kPressLoad = {"Press load(ton),", kTwoPlaces, &MeasProp::Load};
constexpr std::array<ValueLine, 2> kBeam = {{
    {"Beam intensity,", kTwoPlaces, &MeasProp::MiriVolt},
    {"Counting rate,", kTwoPlaces, &MeasProp::CntRate},
}};

// A line of a label and up to four values behind labels of their own.
struct ConditionLine {
  std::string_view label;
  std::array<ValueLine, 4> values;
  std::size_t count;
};
constexpr std::array<ConditionLine, 4> kConditions = {{
    {"Press conditions,",
     {{{" X(mm)=", kThreePlaces, &MeasProp::PressX},
       {" Y(mm)=", kThreePlaces, &MeasProp::PressY},
       {" Z(mm)=", kThreePlaces, &MeasProp::PressZ},
       {" PHI(deg)=", kThreePlaces, &MeasProp::PressTZ}}},
     4},
    {"Incident slit conditions,",
     {{{" V(mm)=", kThreePlaces, &MeasProp::InV}, {" H(mm)=", kThreePlaces, &MeasProp::InH}}},
     2},
    {"Receiving slit conditions,",
     {{{" V(mm)=", kThreePlaces, &MeasProp::ReV},
       {" H(mm)=", kThreePlaces, &MeasProp::ReH},
       {" Collimator(mm)=", kThreePlaces, &MeasProp::CollimeterSize}}},
     3},
    {"Heating conditions,",
     {{{" V(V)=", kTwoPlaces, &MeasProp::Volt},
       {" C(A)=", kTwoPlaces, &MeasProp::Current2},
       {" P(W)=", kTwoPlaces, &MeasProp::Power},
       {" R(OHM)=", kThreePlaces, &MeasProp::Registance}}},
     4},
}};

std::span<const ValueLine> ValuesOf(const ConditionLine& line) {
  return std::span(line.values).first(line.count);
}

std::string_view ModeWord(std::int16_t mode) {
  if (mode == kModeLive || mode == kModeLiveToo) return kLive;
  return mode == kModeSeparate ? kSeparate : kReal;
}

// KEPT: the words do not give back every number they were written for: 0 comes back as 2, 3 as 1.
// Other words leave the mode as it is.
void TakeMode(std::string_view word, std::int16_t& mode) {
  if (word == kReal) mode = kModeReal;
  if (word == kLive) mode = kModeLive;
  if (word == kSeparate) mode = kModeSeparate;
}

std::string DateAndTime(const SpectrumRec& record) {
  const std::string_view date = record.OpDate.Bytes();
  const std::string_view time = record.OpTime.Bytes();
  std::string text;
  text.append(date.substr(0, 4)).append("-").append(date.substr(4, 2)).append("-");
  text.append(date.substr(6, 2)).append(" ").append(time.substr(0, 2)).append(":");
  text.append(time.substr(2, 2)).append(":").append(time.substr(4, 2));
  return text;
}

// Times such as "9:05:03" come from other writers: a part of one digit gets a leading zero. A part
// left blank keeps its two columns.
std::string TimeDigits(std::string_view text) {
  std::string digits;
  for (int part = 0; part < 3; ++part) {
    const std::size_t length = std::min(text.find(':'), text.size());
    const std::string_view piece = Trim(text.substr(0, length));
    text.remove_prefix(std::min(length + 1, text.size()));
    if (piece.size() < 2) digits += piece.empty() ? ' ' : '0';
    digits += piece.empty() ? std::string_view(" ") : piece;
  }
  return digits;
}

// `text` is all that stands behind the comma, "yyyy-mm-dd hh:mm:ss". A date without a year, as a
// blank one is written, keeps its columns.
void TakeDateAndTime(std::string_view text, SpectrumRec& record) {
  const std::string_view trimmed = Trim(text);
  if (!trimmed.empty() && trimmed.front() >= '0' && trimmed.front() <= '9') text = trimmed;
  std::string date(Piece(text, 0, 4));
  date.append(Piece(text, 5, 2)).append(Piece(text, 8, 2));
  record.OpDate.SetBytes(date);
  const auto blank = text.find(' ', std::min<std::size_t>(text.size(), 8));
  record.OpTime.SetBytes(blank == std::string_view::npos ? std::string()
                                                         : TimeDigits(text.substr(blank)));
}

// The values behind one "=" after the other, each up to the next blank.
void TakeConditions(std::string_view text, const ConditionLine& line, MeasProp& prop) {
  for (const ValueLine& value : ValuesOf(line)) {
    const auto equals = text.find('=');
    if (equals == std::string_view::npos) throw Fault(FaultCode::NotANumber);
    text = text.substr(equals + 1);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    prop.*value.field = NumberOf(text.substr(0, text.find(' ')));
  }
}

double NextNumber(LineReader& lines) {
  return NumberOf(BehindComma(lines.Next()));
}

void TakeRing(std::string_view text, MeasProp& prop) {
  if (text.starts_with(kRingLabel)) text.remove_prefix(kRingLabel.size());
  prop.Current = NumberOf(text);
  prop.NpdVal1 = prop.Current;
}

void ReadHeader(LineReader& lines, SpectrumRec& record) {
  record.MsuName.SetBytes(BehindComma(lines.Next()));
  record.OpName.SetBytes(BehindComma(lines.Next()));
  record.SampName.SetBytes(BehindComma(lines.Next()));
  const std::string_view time = lines.Next();
  TakeDateAndTime(Piece(time, std::min(time.find(','), time.size()) + 1, time.size()), record);
  MeasProp& prop = record.Prop;
  TakeMode(BehindComma(lines.Next()), prop.PropHead);
  for (double& coefficient : prop.EGC) coefficient = NextNumber(lines);
  for (const ValueLine& line : kAngleAndTimes) prop.*line.field = NextNumber(lines);
  prop.Temp = NextNumber(lines) - kKelvinAtZeroCelsius;
  prop.*kPressLoad.field = NextNumber(lines);
  TakeRing(BehindComma(lines.Next()), prop);
  for (const ValueLine& line : kBeam) prop.*line.field = NextNumber(lines);
  for (const ConditionLine& line : kConditions) {
    TakeConditions(BehindComma(lines.Next()), line, prop);
  }
}

void WriteHeader(LineWriter& text, const SpectrumRec& record) {
  text.Line({"Record length,", std::to_string(kRecordLength)});
  text.Line({"Sample name,", record.MsuName.TrimmedBytes()});
  text.Line({"Operator name,", record.OpName.TrimmedBytes()});
  text.Line({"Profile number,", record.SampName.TrimmedBytes()});
  text.Line({"Time,", DateAndTime(record)});
  const MeasProp& prop = record.Prop;
  const auto put = [&](const ValueLine& line) {
    text.Line({line.label, Picture(prop.*line.field, line.picture)});
  };
  text.Line({"Measurement mode,", ModeWord(prop.PropHead)});
  for (std::size_t i = 0; i < kEgcLabels.size(); ++i) {
    text.Line({kEgcLabels[i], Picture(prop.EGC.All()[i], kEgcPicture)});
  }
  for (const ValueLine& line : kAngleAndTimes) put(line);
  text.Line({"Temperature(K),", Picture(prop.Temp + kKelvinAtZeroCelsius, kTwoPlaces)});
  put(kPressLoad);
  text.Line({"Ring status,", kRingLabel, Picture(prop.Current, kTwoPlaces)});
  for (const ValueLine& line : kBeam) put(line);
  for (const ConditionLine& line : kConditions) {
    std::string values;
    for (const ValueLine& value : ValuesOf(line)) {
      values.append(value.label).append(Picture(prop.*value.field, value.picture));
    }
    text.Line({line.label, values});
  }
  for (int i = kHeaderLines; i < kRecordLength; ++i) text.Line({","});
}

}  // namespace

void ParseNpd(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record) {
  block.Counts.fill(0);
  record.DataType = kNpdData;
  LineReader lines(image);
  const std::int16_t record_length = Int16Of(BehindComma(lines.Next()));
  ReadHeader(lines, record);
  lines.Skip(record_length - kHeaderLines);
  const std::int16_t count = Int16Of(BehindComma(lines.Next()));
  if (count < 0) throw Fault(FaultCode::BadArgument);
  lines.Skip(1);
  for (int i = 0; i < count; ++i) {
    std::int32_t& channel = block.Counts[i];  // faults behind the last one
    const auto value = ParseNumber(BehindComma(lines.Next(), 2));
    if (value) channel = RoundToInt32(*value);
  }
  block.Count = count;
}

ByteVector NpdImage(const ChannelBlock& block, const SpectrumRec& record) {
  CheckedCount(block.Count, kMaxChannels);
  LineWriter text;
  WriteHeader(text, record);
  const MeasProp& prop = record.Prop;
  text.Line({"Data length, ", std::to_string(block.Count)});
  const double seconds = ModeWord(prop.PropHead) == kLive ? prop.LiveTime : prop.RealTime;
  text.Line({"Counting sec, ", Picture(seconds, kThreePlaces)});
  for (int i = 0; i < block.Count; ++i) {
    text.Line({std::to_string(i + 1), ",", Picture(ChToEnergy(i + 1, prop.EGC), "0.0000"), ",",
               std::to_string(block.Counts[i])});
  }
  return text.Take();
}

std::int16_t ReadNpdFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record) {
  return Guarded(context, kOpenError, [&] {
    const ByteVector image = ReadFile(context.files, path);
    context.last_data_type = kNpdData;
    ParseNpd(image, block, record);
    return kTrue;
  });
}

std::int16_t WriteNpdFile(FileContext& context, const std::string& path, const ChannelBlock& block,
                          SpectrumRec& record) {
  return Guarded(context, kOpenError, [&] {
    if (context.files.Info(path) && !AskReplace(context, kReplaceNpd)) return kFalse;
    record.MsuName.SetBytes(record.MsuName.TrimmedBytes());
    record.OpName.SetBytes(record.OpName.TrimmedBytes());
    record.SampName.SetBytes(record.SampName.TrimmedBytes());
    ReplaceFile(context.files, path, NpdImage(block, record));
    return kTrue;
  });
}

}  // namespace dorvane
