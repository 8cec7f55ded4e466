// The marks that stand on a view beside its curves: peak lines, texts, symbols and named lines, in
// tables of fixed size.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "support/Fixed.h"
#include "support/Rounding.h"
#include "support/Surface.h"

namespace dorvane {

constexpr int kMaxPeakLines = 8192;
constexpr int kMaxTexts = 100;
constexpr int kMaxSymbols = 24576;
constexpr int kMaxNamedLines = 100;
constexpr std::size_t kMarkTextBytes = 32;

// A text at a place of the graph.
struct MarkRec {
  std::int32_t X = 0;     // channel
  std::int16_t Y = 0;     // counts
  std::int16_t Size = 0;  // of the font, in points; 0 stands for the axes' size
  dorvane::Color Color = 0;
  std::array<char, kMarkTextBytes> Text{};  // UTF-8, filled up with NULs

  friend bool operator==(const MarkRec&, const MarkRec&) = default;
};

// A mark of the text, cut to 32 bytes in front of the character that has no room.
MarkRec MakeMark(std::int32_t x, std::int16_t y, std::string_view text, Color color,
                 std::int16_t size);
// The text without its filling. It lives as long as the mark.
std::string_view TextOf(const MarkRec& mark);

template <int Limit>
class MarkList {
 public:
  // False, and nothing added, when the list is full.
  bool Add(const MarkRec& mark) {
    if (count_ >= Limit) return false;
    marks_[count_] = mark;
    count_ = ToInt16(count_ + 1);
    return true;
  }
  void Clear() { count_ = 0; }
  std::int16_t Count() const { return count_; }
  std::span<const MarkRec> Marks() const {
    return marks_.All().first(static_cast<std::size_t>(count_));
  }

 private:
  std::int16_t count_ = 0;
  Fixed<MarkRec, 0, Limit - 1> marks_;
};

// Channels in ascending order; entries behind the last are -1.
class PeakLines {
 public:
  PeakLines() { Clear(); }
  // Inserts behind equal channels and answers the index; -1, and nothing inserted, when the list is
  // full or the channel isn't in 0..8191.
  std::int16_t Add(std::int16_t channel);
  // Overwrites entry `index`, 0..Count(); ignored for another index or a channel above 8191.
  void Set(std::int16_t index, std::int16_t channel);
  // Takes the entry out; -1 empties the list, other indices outside of it are ignored.
  void Delete(std::int16_t index);
  void Clear();
  std::int16_t Count() const { return count_; }
  std::span<const std::int16_t> Channels() const {
    return channels_.All().first(static_cast<std::size_t>(count_));
  }
  // Any entry of the table, used or not. Throws Fault(Subscript) outside 0..8191.
  std::int16_t Entry(std::int16_t index) const { return channels_[index]; }

 private:
  std::int16_t count_ = 0;
  Fixed<std::int16_t, 0, kMaxPeakLines - 1> channels_;
};

}  // namespace dorvane
