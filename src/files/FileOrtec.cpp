#include "files/FileOrtec.h"

#include <algorithm>
#include <bit>

#include "files/ReadAside.h"
#include "support/Rounding.h"

namespace dorvane {
namespace {

constexpr std::string_view kFileError = "File Error";

// Offsets. The header in front holds the numbers of the measurement and its date; the program has
// no use for them.
constexpr std::size_t kCountAt = 30;
constexpr std::size_t kCountsAt = 32;
constexpr std::size_t kTrailerHead = 4;  // two 16-bit words in front of the coefficients

}  // namespace

void ParseChn(std::span<const std::byte> image, ChannelBlock& block, SpectrumRec& record) {
  ByteReader reader(image);
  reader.Seek(kCountAt);
  const std::size_t count = std::bit_cast<std::uint16_t>(reader.Int16());
  const std::size_t used = std::min<std::size_t>(count, kMaxChannels);
  reader.Int32s(block.Counts.All().first(used));
  block.Count = Narrow<std::int16_t>(used);
  // The trailer stands behind all counts, also those past the last channel kept.
  reader.Seek(kCountsAt + sizeof(std::int32_t) * count + kTrailerHead);
  EgcCoef& egc = record.Prop.EGC;
  egc[0] = Finite(reader.Float32());
  egc[1] = Finite(reader.Float32());
  egc[2] = 0;
}

std::int16_t ReadChnFile(FileContext& context, const std::string& path, ChannelBlock& block,
                         SpectrumRec& record) {
  return ReadAside(context, kFileError, path, block, record,
                   [](auto image, ChannelBlock& block_read, SpectrumRec& record_read) {
                     ParseChn(image, block_read, record_read);
                     return kTrue;
                   });
}

}  // namespace dorvane
