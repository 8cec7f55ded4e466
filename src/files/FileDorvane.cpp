#include "files/FileDorvane.h"

#include <algorithm>
#include <array>
#include <utility>

#include "files/FieldImage.h"
#include "files/PropImage.h"
#include "files/SplitPath.h"
#include "files/TextLines.h"
#include "processing/Units.h"
#include "support/CodePage.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::string_view kMark = "00";
constexpr std::string_view kScratchName = "temp00.xbm";
constexpr std::string_view kReplaceXbm = "File already exist. Replace?(xbm)";
// KEPT: the misspelling is the question's text.
constexpr std::string_view kReplaceXba = "File alrady exist. Replace?";

// Offsets in the image of a spectrum.
constexpr std::size_t kSaveFlagAt = 2;
constexpr std::size_t kMsuNameAt = 4;
constexpr std::size_t kSampNameAt = 68;
constexpr std::size_t kOpDateAt = 132;
constexpr std::size_t kOpTimeAt = 140;
constexpr std::size_t kOpTime2At = 146;
constexpr std::size_t kOpNameAt = 152;
constexpr std::size_t kMemoAt = 182;
constexpr std::size_t kDataTypeAt = 282;
constexpr std::size_t kExtIntAt = 284;
constexpr std::size_t kExtTextAt = 304;
constexpr std::size_t kExtTextSize = 100;
constexpr std::size_t kPropAt = 1404;
constexpr std::size_t kHeaderSize = 2068;
static_assert(kPropAt + kPropImageSize == kHeaderSize);

// Offsets in the image of a PeakRec.
constexpr std::size_t kFitDoneAt = 0;
constexpr std::size_t kFuncTypeAt = 2;
constexpr std::size_t kHeightAt = 4;
constexpr std::size_t kGaussRatioAt = 12;
constexpr std::size_t kHalfWidthAt = 20;
constexpr std::size_t kCenterAt = 28;
constexpr std::size_t kBackConstAt = 36;
constexpr std::size_t kBackSlopeAt = 44;
constexpr std::size_t kRegionStartAt = 52;
constexpr std::size_t kRegionEndAt = 54;
constexpr std::size_t kAmplitudeAt = 56;
constexpr std::size_t kReservedAt = 64;
constexpr std::size_t kFitEngineAt = 68;

// Everything of the header but the mark and the MeasProp.
template <typename Visit, typename Record>
void VisitRecord(Visit visit, Record& record) {
  visit(kSaveFlagAt, record.SaveFlag);
  visit(kMsuNameAt, record.MsuName);
  visit(kSampNameAt, record.SampName);
  visit(kOpDateAt, record.OpDate);
  visit(kOpTimeAt, record.OpTime);
  visit(kOpTime2At, record.OpTime2);
  visit(kOpNameAt, record.OpName);
  visit(kMemoAt, record.Memo);
  visit(kDataTypeAt, record.DataType);
  std::size_t at = kExtIntAt;
  for (auto& number : record.ExtInt) visit(std::exchange(at, at + sizeof number), number);
  at = kExtTextAt;
  for (auto& text : record.ExtText) visit(std::exchange(at, at + kExtTextSize), text);
}

template <typename Visit, typename Peak>
void VisitPeak(Visit visit, Peak& peak) {
  visit(kFitDoneAt, peak.FitDone);
  visit(kFuncTypeAt, peak.FuncType);
  visit(kHeightAt, peak.Height);
  visit(kGaussRatioAt, peak.GaussRatio);
  visit(kHalfWidthAt, peak.HalfWidth);
  visit(kCenterAt, peak.Center);
  visit(kBackConstAt, peak.BackConst);
  visit(kBackSlopeAt, peak.BackSlope);
  visit(kRegionStartAt, peak.RegionStart);
  visit(kRegionEndAt, peak.RegionEnd);
  visit(kAmplitudeAt, peak.Amplitude);
  visit(kReservedAt, peak.Reserved);
  visit(kFitEngineAt, peak.FitEngine);
}

void ClearTexts(SpectrumRec& record) {
  record.MsuName.Clear();
  record.SampName.Clear();
  record.OpDate.Clear();
  record.OpTime.Clear();
  record.OpTime2.Clear();
  record.OpName.Clear();
  record.Memo.Clear();
  for (auto& text : record.ExtText) text.Clear();
}

void ReadChannels(ByteReader& image, ChannelBlock& block) {
  const std::int16_t count = CheckedCount(image.Int16(), kMaxChannels);
  const auto whole = std::min<std::size_t>(static_cast<std::size_t>(count), image.Left() / 4);
  image.Int32s(block.Counts.All().first(whole));
  block.Count = Narrow<std::int16_t>(whole);
  if (block.Count < count) throw Fault(FaultCode::EndOfFile);
}

void ReadSpectrum(ByteReader& image, ChannelBlock& block, SpectrumRec& record) {
  ClearTexts(record);
  VisitRecord(FieldReader(image), record);
  image.Seek(kPropAt);
  ReadPropImage(image, record.Prop);
  ReadChannels(image, block);
}

void ReadPeaks(ByteReader& image, PeakTable& peaks) {
  const std::int16_t count = CheckedCount(image.Int16(), kMaxPeaks);
  for (peaks.Count = 0; peaks.Count < count; ++peaks.Count) {
    PeakRec peak;
    VisitPeak(FieldReader(image), peak);
    peaks.Peaks[peaks.Count] = peak;
  }
}

ByteWriter SpectrumImage(const ChannelBlock& block, const SpectrumRec& record) {
  CheckedCount(block.Count, kMaxChannels);
  ByteWriter image;
  FieldWriter fields(image);
  image.Text(kMark);
  VisitRecord(fields, record);
  image.PadTo(kPropAt);
  WritePropImage(image, record.Prop);
  image.Int16(block.Count);
  image.Int32s(block.Used());
  return image;
}

// KEPT: the files are written over, not cut: the bytes of a longer old file stay behind the new
// image.
ByteVector WithOldTail(ByteVector image, const ByteVector& old) {
  if (old.size() > image.size()) {
    image.insert(image.end(), old.begin() + static_cast<std::ptrdiff_t>(image.size()), old.end());
  }
  return image;
}

ByteVector OldBytes(FileLayer& files, const std::string& path) {
  return files.Info(path) ? ReadFile(files, path) : ByteVector();
}

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// Numbered series and the scratch file are replaced without a word.
bool ReplacedSilently(const std::string& path) {
  const PathParts parts = SplitPath(path);
  if (parts.Name + "." + parts.Ext == kScratchName) return true;
  return !parts.Ext.empty() && IsDigit(parts.Ext.back());
}

// "yy/mm/dd" of the eight digits of a date; empty where the year is none. Years count from 1900,
// from 2000 on from there.
std::string ShortDate(std::string_view yyyymmdd) {
  const std::string_view year_text = yyyymmdd.substr(0, 4);
  if (!std::all_of(year_text.begin(), year_text.end(), IsDigit)) return {};
  const int year = Int16Of(year_text);
  const std::string padded = "0" + std::to_string(year < 2000 ? year - 1900 : year - 2000);
  std::string date = padded.substr(padded.size() - 2);
  date.append("/").append(yyyymmdd.substr(4, 2)).append("/").append(yyyymmdd.substr(6, 2));
  return date;
}

constexpr std::string_view kCsvFailed = "CSV File Write Error";

// A line of the ".csv" export.
struct Condition {
  std::string_view label;
  std::string_view picture;
  double MeasProp::*field;
};
constexpr std::array<Condition, 7> kConditions = {{
    {"Press X", "##0.000", &MeasProp::PressX},
    {"Press Y", "##0.000", &MeasProp::PressY},
    {"Press Z", "##0.000", &MeasProp::PressZ},
    {"Press Load", "###0.000", &MeasProp::Load},
    {"Pressure", "###0.000", &MeasProp::Press},
    {"Temperature", "####0.000", &MeasProp::Temp},
    {"Live Time", "#####0.00", &MeasProp::LiveTime},
}};

}  // namespace

void ParseXbm(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record) {
  ByteReader reader(image);
  ReadSpectrum(reader, block, record);
  record.DataType = kNativeData;
}

void ParseXba(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record,
              PeakTable& peaks) {
  ByteReader reader(image);
  ReadSpectrum(reader, block, record);
  if (record.SaveFlag == 1) ReadPeaks(reader, peaks);
  record.DataType = kNativeData;
}

ByteVector XbmImage(const ChannelBlock& block, const SpectrumRec& record) {
  return SpectrumImage(block, record).Take();
}

ByteVector XbaImage(const ChannelBlock& block, const SpectrumRec& record, const PeakTable& peaks) {
  ByteWriter image = SpectrumImage(block, record);
  if (record.SaveFlag == 1) {
    image.Int16(CheckedCount(peaks.Count, kMaxPeaks));
    for (int i = 0; i < peaks.Count; ++i) VisitPeak(FieldWriter(image), peaks.Peaks[i]);
  }
  return image.Take();
}

ByteVector XtaImage(const ChannelBlock& block, const SpectrumRec& record) {
  constexpr std::size_t kCountsInLine = 8;
  CheckedCount(block.Count, kMaxChannels);
  LineWriter text;
  text.Line({" ", std::to_string(block.Count), " "});
  for (auto left = block.Used(); !left.empty();) {
    const auto row = left.first(std::min(kCountsInLine, left.size()));
    left = left.subspan(row.size());
    std::string line;
    for (const std::int32_t count : row) line += PictureRight(count, "######0", 7);
    text.Line({line});
  }
  const std::string_view time = record.OpTime.Bytes();
  text.Line({CutCodePage(record.SampName.Bytes(), 20), CutCodePage(record.MsuName.Bytes(), 40),
             ShortDate(record.OpDate.Bytes()), " ", time.substr(0, 2), ":", time.substr(2, 2), ":",
             time.substr(4, 2), "   "});
  const MeasProp& prop = record.Prop;
  text.Line({Picture(prop.Press, "#0.0"), ",", Picture(prop.Temp, "#0.0")});
  text.Line({Picture(prop.TwoTheta, "##0.0"), ",0,0,0,0,0"});
  text.Line({"0,0,0"});
  text.Line({"0,0,0"});
  text.Line({Picture(prop.EGC[0], "###0.000"), ",", Picture(prop.EGC[1], "##0.00000")});
  return text.Take();
}

ByteVector CsvImage(const ChannelBlock& block, const SpectrumRec& record) {
  constexpr std::string_view kEgcPicture = "#####0.000000";
  CheckedCount(block.Count, kMaxChannels);
  const MeasProp& prop = record.Prop;
  LineWriter text;
  const auto put = [&](std::string_view label, double value, std::string_view picture) {
    text.Line({label, ",", Picture(value, picture), ", "});
  };
  for (const Condition& condition : kConditions) {
    put(condition.label, prop.*condition.field, condition.picture);
  }
  // KEPT: EGC(2) has no line, though the energies below take it into account.
  put("EGC(0)", prop.EGC[0], kEgcPicture);
  put("EGC(1)", prop.EGC[1], kEgcPicture);
  put(ToCodePage("2θ"), prop.TwoTheta, "#####0.00000");
  text.Line({});
  text.Line({});
  text.Line({Picture(block.Count, "###0"), ", , "});
  text.Line({"Channel,Energy,Count"});
  for (int i = 0; i < block.Count; ++i) {
    text.Line({std::to_string(i + 1), ",", Picture(ChToEnergy(i + 1, prop.EGC), "###0.000"), ",",
               std::to_string(block.Counts[i])});
  }
  return text.Take();
}

std::int16_t ReadXbm(FileContext& context, const std::string& path, ChannelBlock& block,
                     SpectrumRec& record) {
  return Guarded(context, kOpenError, [&] {
    ParseXbm(ReadFile(context.files, path), block, record);
    context.last_data_type = kNativeData;
    return kTrue;
  });
}

std::int16_t ReadXba(FileContext& context, const std::string& path, ChannelBlock& block,
                     SpectrumRec& record, PeakTable& peaks) {
  return Guarded(context, kOpenError, [&] {
    ParseXba(ReadFile(context.files, path), block, record, peaks);
    context.last_data_type = kNativeData;
    return kTrue;
  });
}

std::int16_t WriteXbm(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record) {
  if (!ReplacedSilently(path) && context.files.Info(path) && !AskReplace(context, kReplaceXbm)) {
    return kFalse;
  }
  // KEPT: a failed opening is not told here but by the save command, with the fault's own text.
  const ByteVector old = OldBytes(context.files, path);
  FileReplacement file(context.files, path);
  return Guarded(context, kOpenError, [&] {
    file.Commit(WithOldTail(XbmImage(block, record), old));
    return kTrue;
  });
}

std::int16_t WriteXba(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record, const PeakTable& peaks) {
  return Guarded(context, kOpenError, [&] {
    if (context.files.Info(path) && !AskReplace(context, kReplaceXba)) return kFalse;
    const ByteVector old = OldBytes(context.files, path);
    ReplaceFile(context.files, path, WithOldTail(XbaImage(block, record, peaks), old));
    return kTrue;
  });
}

std::int16_t WriteXta(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record) {
  return Guarded(context, kOpenError, [&] {
    ReplaceFile(context.files, path, XtaImage(block, record));
    return kTrue;
  });
}

std::int16_t WriteCsv(FileContext& context, const std::string& path, const ChannelBlock& block,
                      const SpectrumRec& record) {
  return Guarded(context, kCsvFailed, [&] {
    ReplaceFile(context.files, path, CsvImage(block, record));
    return kTrue;
  });
}

}  // namespace dorvane
