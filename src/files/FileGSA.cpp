#include "files/FileGSA.h"

#include <algorithm>

#include "files/ReadAside.h"
#include "files/TextLines.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

constexpr std::string_view kReplaceGsa = "File already exist. Replace?(GSA)";
constexpr std::string_view kFailed = "File Write Error";
constexpr int kLineWidth = 80;
constexpr int kFileWidth = 27;   // " File: " and the name
constexpr int kTitleWidth = 65;  // what stands in front of the angle
constexpr int kCountsInLine = 10;
constexpr int kCountWidth = 8;
constexpr int kCoefficientWidth = 13;
constexpr std::int32_t kTooWide = 10'000'000;  // one digit more than a field takes with its blank

std::string Cut(std::string_view bytes, int width) {
  return CutCodePage(bytes, static_cast<std::size_t>(width));
}

// "yyyy-mm-dd hh:mm:ss"; the hours always show two digits.
std::string DateAndTime(const SpectrumRec& record) {
  const std::string_view date = record.OpDate.Bytes();
  const std::string_view time = record.OpTime.Bytes();
  const std::string_view hours = time.substr(0, 2);
  const auto number = ParseNumber(hours);
  std::string text(date.substr(0, 4));
  text.append("-").append(date.substr(4, 2)).append("-").append(date.substr(6, 2)).append(" ");
  text.append(number ? Picture(*number, "00") : std::string(hours)).append(":");
  text.append(time.substr(2, 2)).append(":").append(time.substr(4, 2));
  return text;
}

std::string Title(const SpectrumRec& record) {
  const std::string file = Cut(std::string(" File: ").append(record.MsuName.Bytes()), kFileWidth);
  const std::string head = Cut(file + "Date: " + DateAndTime(record), kTitleWidth);
  return Cut(head + "2theta = " + Picture(record.Prop.TwoTheta, "#0.0000"), kLineWidth);
}

std::string BankLine(int channels, int records, const EgcCoef& egc) {
  std::string line = "BANK 1 " + PadRight(std::to_string(channels), 6) +
                     PadRight(std::to_string(records), 4) + "EDS ";
  for (const double coefficient : egc) {
    line += PictureRight(coefficient, "0.00000E+00", kCoefficientWidth);
  }
  return Cut(line + "  0.00000E+00 STD", kLineWidth);
}

}  // namespace

ByteVector GsaImage(const ChannelBlock& block, const SpectrumRec& record) {
  CheckedCount(block.Count, kMaxChannels);
  auto left = block.Used();
  // KEPT: the number of lines counts a last, cut line also where the channels fill theirs whole.
  const int records = block.Count / kCountsInLine + 1;
  // KEPT: the file does not tell that its counts were divided.
  const bool wide = std::any_of(left.begin(), left.end(), [](auto n) { return n >= kTooWide; });
  LineWriter text;
  text.Line({Title(record)});
  text.Line({BankLine(block.Count, records, record.Prop.EGC)});
  while (!left.empty()) {
    const auto row = left.first(std::min<std::size_t>(kCountsInLine, left.size()));
    left = left.subspan(row.size());
    std::string line;
    for (const std::int32_t count : row) {
      line += PadLeft(std::to_string(wide ? count / 10 : count), kCountWidth);
    }
    for (auto i = row.size(); i < kCountsInLine; ++i) line += PadLeft("0", kCountWidth);
    text.Line({line});
  }
  return text.Take();
}

std::int16_t WriteGsaFile(FileContext& context, const std::string& path, const ChannelBlock& block,
                          const SpectrumRec& record) {
  return AskAndReplace(context, kReplaceGsa, kFailed, path,
                       [&] { return GsaImage(block, record); });
}

}  // namespace dorvane
