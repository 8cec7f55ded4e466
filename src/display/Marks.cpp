#include "display/Marks.h"

#include <algorithm>

#include "workspace/SpectrumRec.h"

namespace dorvane {
namespace {

constexpr std::int16_t kUnused = -1;

constexpr bool IsContinuation(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0u) == 0x80u;
}

}  // namespace

MarkRec MakeMark(std::int32_t x, std::int16_t y, std::string_view text, Color color,
                 std::int16_t size) {
  std::size_t length = std::min(text.size(), kMarkTextBytes);
  while (length > 0 && length < text.size() && IsContinuation(text[length])) --length;
  MarkRec mark{x, y, size, color, {}};
  std::copy_n(text.begin(), length, mark.Text.begin());
  return mark;
}

std::string_view TextOf(const MarkRec& mark) {
  const auto end = std::find(mark.Text.begin(), mark.Text.end(), '\0');
  return {mark.Text.data(), static_cast<std::size_t>(end - mark.Text.begin())};
}

std::int16_t PeakLines::Add(std::int16_t channel) {
  if (count_ >= kMaxPeakLines || channel < 0 || channel >= kMaxChannels) return kUnused;
  const auto begin = channels_.begin();
  const auto place = std::upper_bound(begin, begin + count_, channel);
  std::copy_backward(place, begin + count_, begin + count_ + 1);
  *place = channel;
  count_ = ToInt16(count_ + 1);
  return ToInt16(place - begin);
}

// KEPT: the entry behind the last is written too but stays uncounted, and the order is the caller's
// business: a line that is dragged passes its neighbours.
void PeakLines::Set(std::int16_t index, std::int16_t channel) {
  if (index < 0 || index > count_ || index >= kMaxPeakLines || channel >= kMaxChannels) return;
  channels_[index] = channel;
}

void PeakLines::Delete(std::int16_t index) {
  if (index == -1) Clear();
  if (index < 0 || index >= count_) return;
  const auto begin = channels_.begin();
  std::copy(begin + index + 1, begin + count_, begin + index);
  count_ = ToInt16(count_ - 1);
  channels_[count_] = kUnused;
}

void PeakLines::Clear() {
  count_ = 0;
  channels_.fill(kUnused);
}

}  // namespace dorvane
