#include "files/FileDAC.h"

#include <algorithm>
#include <optional>

#include "files/ReadAside.h"
#include "files/TextLines.h"
#include "support/NumberText.h"

namespace dorvane {
namespace {

// KEPT: the box tells of writing though the file is only read.
constexpr std::string_view kFailed = "File Write Error";
constexpr std::int16_t kFewestChannels = 4096;

struct DacRecord {
  std::string_view angle;
  std::string_view count;
};

// The line at its first comma; nothing where no text stands in front of one.
std::optional<DacRecord> Cut(std::string_view line) {
  const auto comma = line.find(',');
  if (comma == std::string_view::npos || comma == 0) return std::nullopt;
  return DacRecord{line.substr(0, comma), line.substr(comma + 1)};
}

// The lines from the first on that hold an angle and a count. The scale of angles comes from the
// first two, whatever the angles of the others are. Answers the index of the last line.
int TakeRecords(LineReader& lines, ChannelBlock& block, DacAngles& angles) {
  const std::string_view first_line = lines.Next();
  const std::string_view second_line = lines.Next();
  int last = 1;
  const auto first = Cut(first_line);
  if (!first) return last;
  angles.DacAngleOffset = NumberOf(first->angle);
  block.Counts[0] = Int32Of(first->count);
  const auto second = Cut(second_line);
  if (!second) return last;
  angles.DacAngleSlope = Finite(NumberOf(second->angle) - angles.DacAngleOffset);
  block.Counts[1] = Int32Of(second->count);
  while (!lines.AtEnd()) {
    const auto record = Cut(lines.Next());
    if (!record) break;
    block.Counts[++last] = Int32Of(record->count);  // faults behind the last channel
  }
  return last;
}

}  // namespace

void ParseDac(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record,
              DacAngles& angles) {
  block.Counts.fill(0);
  LineReader lines(image);
  const int last = TakeRecords(lines, block, angles);
  // KEPT: above 4096 lines the channel count is the index of the last line, one less than the
  // lines.
  block.Count = std::max(kFewestChannels, ToInt16(last));
  record.Prop.PropHead = 0;
  record.DataType = kDacData;
}

std::int16_t ReadDacFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record, DacAngles& angles) {
  return ReadAside(context, kFailed, path, block, record,
                   [&](auto image, ChannelBlock& block_read, SpectrumRec& record_read) {
                     DacAngles angles_read = angles;
                     ParseDac(image, block_read, record_read, angles_read);
                     angles = angles_read;
                     context.last_data_type = kDacData;
                     return kTrue;
                   });
}

}  // namespace dorvane
