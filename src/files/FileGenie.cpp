#include "files/FileGenie.h"

#include <algorithm>
#include <array>

#include "files/ReadAside.h"
#include "files/SplitNumbers.h"
#include "files/TextLines.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::string_view kFileError = "File Error";
constexpr std::string_view kReplaceRpt = "File already exist. Replace?(RPT)";
// KEPT: the misspelling is the box's text.
constexpr std::string_view kNotFound = "Fine NotFound";

// Columns of a report, counted from 0.
constexpr std::size_t kCountWidth = 7;
constexpr std::size_t kCountsInLine = 8;
constexpr int kSampNameWidth = 20;
constexpr int kMsuNameWidth = 40;
// KEPT: a report is written with forty characters of MsuName, of which eight are read.
constexpr std::size_t kMsuNameRead = 8;
constexpr std::size_t kDateAt = 60;
constexpr std::size_t kTimeAt = 69;
constexpr std::size_t kDateWidth = 8;
constexpr int kPressWidth = 30;
constexpr int kLineWidth = 65;
constexpr int kUnusedLines = 2;

// Layout of the binary file: offsets behind the base.
constexpr std::size_t kLayoutAt = 11;
constexpr std::byte kLayoutPlain{164};
constexpr std::byte kLayoutShifted{182};
constexpr std::size_t kShift = 4608;
constexpr std::size_t kCnfMsuNameAt = 16944;
constexpr std::size_t kCnfSampNameAt = 17008;
constexpr std::size_t kCnfLoadAt = 17622;
constexpr std::size_t kCnfAngleAt = 17774;
constexpr std::size_t kCnfNumbersWidth = 24;
constexpr std::size_t kCnfEgcAt = 17966;
constexpr std::size_t kCnfEgcWidth = 64;
constexpr std::size_t kCnfCountsAt = 25600;
constexpr int kCnfChannels = 4096;

// The counts of one line of a report, which follow each other without separators where they fill
// their seven columns.
class CountLine {
 public:
  // `most` is the number of counts that are still to come.
  CountLine(std::string_view line, std::size_t most) : rest_(line) {
    if (HasLongItem(line) && FitsColumns(line, most)) in_columns_ = true;
  }

  // The next item; empty when none is left.
  std::string_view Next() {
    if (in_columns_) {
      const std::string_view item = rest_.substr(0, kCountWidth);
      rest_.remove_prefix(item.size());
      return item;
    }
    const auto first = std::find_if_not(rest_.begin(), rest_.end(), IsSeparator);
    const auto last = std::find_if(first, rest_.end(), IsSeparator);
    rest_ = std::string_view(last, rest_.end());
    return std::string_view(first, last);
  }

 private:
  static bool IsSeparator(char c) { return c == ' ' || c == ',' || c == '\t'; }

  static bool HasLongItem(std::string_view line) {
    std::size_t length = 0;
    for (const char c : line) {
      length = IsSeparator(c) ? 0 : length + 1;
      if (length > kCountWidth) return true;
    }
    return false;
  }

  static bool FitsColumns(std::string_view line, std::size_t most) {
    if (line.size() % kCountWidth != 0) return false;
    if (line.size() / kCountWidth > std::min(kCountsInLine, most)) return false;
    for (; !line.empty(); line.remove_prefix(kCountWidth)) {
      if (!IsOneItemAtTheRight(line.substr(0, kCountWidth))) return false;
    }
    return true;
  }

  static bool IsOneItemAtTheRight(std::string_view field) {
    const auto item = std::find_if(field.begin(), field.end(), [](char c) { return c != ' '; });
    return item != field.end() && std::none_of(item, field.end(), IsSeparator);
  }

  std::string_view rest_;
  bool in_columns_ = false;
};

// Reads the channel count and the counts; the reader is left at the first text line.
void TakeCounts(LineReader& lines, ChannelBlock& block) {
  CountLine line("", 0);
  std::size_t left = 1;
  const auto next = [&] {
    for (;;) {
      const std::string_view item = line.Next();
      if (!item.empty()) return item;
      line = CountLine(lines.Next(), left);
    }
  };
  block.Count = CheckedCount(Int16Of(next()), kMaxChannels);
  left = static_cast<std::size_t>(block.Count);
  for (std::int32_t& count : block.Used()) {
    count = Int32Of(next());
    --left;
  }
  // A count of eight digits and more runs into its neighbour; the counts are then too few or too
  // many.
  if (!line.Next().empty()) throw Fault(FaultCode::BadArgument);
}

void TakeNames(std::string_view line, SpectrumRec& record) {
  const std::string_view name = line.substr(std::min<std::size_t>(kSampNameWidth, line.size()));
  record.SampName.SetBytes(Trim(CutCodePage(line, kSampNameWidth)));
  record.MsuName.SetBytes(Trim(CutCodePage(name, kMsuNameRead)));
  record.Memo.Clear();
  record.OpName.Clear();
  record.OpDate.SetBytes(DateFromYmd(Piece(line, kDateAt, kDateWidth)));
  record.OpTime.SetBytes(TimeFromHms(Piece(line, kTimeAt, kDateWidth)));
}

std::string Filled(std::string_view text) {
  return PadRight(text, kLineWidth);
}

// `size` bytes of the image as text.
std::string_view TextAt(std::span<const std::byte> image, std::size_t at, std::size_t size) {
  if (at + size > image.size()) throw Fault(FaultCode::EndOfFile);
  return AsText(image.subspan(at, size));
}

// Blocks of text may end in zero bytes.
std::string_view NumbersAt(std::span<const std::byte> image, std::size_t at, std::size_t size) {
  const std::string_view text = TextAt(image, at, size);
  return text.substr(0, text.find('\0'));
}

}  // namespace

void ParseRpt(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record) {
  record.DataType = kGenieData;
  LineReader lines(image);
  TakeCounts(lines, block);
  TakeNames(lines.Next(), record);
  MeasProp& prop = record.Prop;
  std::array<double, kMostNumbers> numbers{};
  SplitNumbers(lines.Next(), numbers);
  prop.Press = numbers[0];
  prop.Temp = numbers[1];
  // KEPT: the writer puts RealTime there.
  prop.LiveTime = numbers[2];
  SplitNumbers(lines.Next(), numbers);
  prop.TwoTheta = numbers[0];
  prop.PressX = numbers[2];
  prop.PressY = numbers[3];
  prop.PressZ = numbers[4];
  prop.PressTZ = numbers[5];
  lines.Skip(kUnusedLines);
  SplitNumbers(lines.Next(), numbers);
  prop.EGC[0] = numbers[0];
  prop.EGC[1] = numbers[1];
  prop.EGC[2] = 0;
  prop.PropHead = 1;
}

ByteVector RptImage(const ChannelBlock& block, const SpectrumRec& record) {
  CheckedCount(block.Count, kMaxChannels);
  LineWriter text;
  text.Line({PictureRight(block.Count, "####0", 5)});
  for (auto left = block.Used(); !left.empty();) {
    const auto row = left.first(std::min(kCountsInLine, left.size()));
    left = left.subspan(row.size());
    std::string line;
    for (const std::int32_t count : row) {
      line += PictureRight(count, "######0", static_cast<int>(kCountWidth));
    }
    text.Line({line});
  }
  text.Line({CutCodePage(record.SampName.Bytes(), kSampNameWidth),
             CutCodePage(record.MsuName.Bytes(), kMsuNameWidth),
             PadRight(DateToYmd(record.OpDate.Bytes()), static_cast<int>(kDateWidth)), " ",
             TimeToHms(record.OpTime.Bytes()), "   "});
  const MeasProp& prop = record.Prop;
  const std::string press = Picture(prop.Press, "###0.0") + "," + Picture(prop.Temp, "#0.0");
  text.Line({PadRight(press, kPressWidth), PictureRight(prop.RealTime, "##0.0", 7)});
  std::string place = Picture(prop.TwoTheta, "##0.00000") + ",0";
  for (const double value : {prop.PressX, prop.PressY, prop.PressZ, prop.PressTZ}) {
    place += "," + Picture(value, "##0.000");
  }
  text.Line({Filled(place)});
  for (int i = 0; i < kUnusedLines; ++i) text.Line({Filled("0,0,0")});
  text.Line({Filled(Picture(prop.EGC[0], "###0.000") + "," + Picture(prop.EGC[1], "##0.000000"))});
  return text.Take();
}

bool ParseCnf(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record) {
  if (image.size() <= kLayoutAt) throw Fault(FaultCode::EndOfFile);
  const std::byte layout = image[kLayoutAt];
  if (layout != kLayoutPlain && layout != kLayoutShifted) return false;
  const auto part = image.subspan(std::min(layout == kLayoutShifted ? kShift : 0, image.size()));

  ByteReader reader(part);
  reader.Seek(kCnfCountsAt);
  reader.Skip(sizeof(std::int32_t));
  auto counts = block.Counts.All().first<kCnfChannels>();
  // The files end in front of the last word. KEPT: it is dropped in any case, since the counts move
  // up by one channel, which brings their numbers in line with those of the report; channel 0 keeps
  // its count twice.
  reader.Int32s(counts.subspan<1>());
  counts[0] = counts[1];
  block.Count = kCnfChannels;

  record.DataType = kGenieData;
  record.MsuName.SetBytes(TextAt(part, kCnfMsuNameAt, 64));
  record.SampName.SetBytes(TextAt(part, kCnfSampNameAt, 16));
  record.OpName.Clear();
  MeasProp& prop = record.Prop;
  std::array<double, kMostNumbers> numbers{};
  SplitNumbers(NumbersAt(part, kCnfLoadAt, kCnfNumbersWidth), numbers);
  prop.Load = numbers[0];
  prop.Temp = numbers[1];
  SplitNumbers(NumbersAt(part, kCnfAngleAt, kCnfNumbersWidth), numbers);
  prop.TwoTheta = numbers[0];
  SplitNumbers(NumbersAt(part, kCnfEgcAt, kCnfEgcWidth), numbers);
  prop.EGC[0] = numbers[0];
  prop.EGC[1] = numbers[1];
  prop.EGC[2] = 0;
  return true;
}

std::int16_t ReadRptFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record) {
  return ReadAside(context, kFileError, path, block, record,
                   [&](auto image, ChannelBlock& block_read, SpectrumRec& record_read) {
                     ParseRpt(image, block_read, record_read);
                     context.last_data_type = kGenieData;
                     return kTrue;
                   });
}

std::int16_t WriteRptFile(FileContext& context, const std::string& path, const ChannelBlock& block,
                          const SpectrumRec& record) {
  return AskAndReplace(context, kReplaceRpt, kFileError, path,
                       [&] { return RptImage(block, record); });
}

std::int16_t ReadCnfFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record) {
  const auto not_found = [&] {
    context.dialogs.Message(kNotFound);
    return kFalse;
  };
  const auto exists = [&] { return context.files.Info(path) ? kTrue : not_found(); };
  if (Guarded(context, kOpenError, exists) != kTrue) return kFalse;
  return ReadAside(context, kFileError, path, block, record,
                   [&](auto image, ChannelBlock& block_read, SpectrumRec& record_read) {
                     if (!ParseCnf(image, block_read, record_read)) return not_found();
                     context.last_data_type = kGenieData;
                     return kTrue;
                   });
}

}  // namespace dorvane
