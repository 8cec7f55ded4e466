// Random records and channels for round trips, by a seed.
#pragma once

#include <cmath>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "files/Samples.h"

namespace dorvane {

// Text of the code page character by character, each of one or two bytes.
using Characters = std::vector<std::string>;

// As many of them as fit in `size` bytes.
inline std::string Head(const Characters& text, std::size_t size) {
  std::string head;
  for (const std::string& character : text) {
    if (head.size() + character.size() > size) break;
    head += character;
  }
  return head;
}

class RandomRecords {
 public:
  explicit RandomRecords(std::uint32_t seed) : random_(seed) {}

  int Below(int end) { return static_cast<int>(random_() % static_cast<std::uint32_t>(end)); }

  // 0, or of any sign and of a size from 1e-6 to `largest`.
  double Real(double largest) {
    if (Below(8) == 0) return 0;
    const double size = std::pow(10.0, -6 + (std::log10(largest) + 6) * Unit());
    return Below(2) == 0 ? size : -size;
  }

  // Blanks, signs, letters, half-width and double-byte characters; `most` characters at most.
  Characters Text(int most) {
    static const std::vector<std::string> kSigns = {
        " ",    "  ",   ",",    "=",    "-",        "0",        "9",        "A",       "z",
        "\xB1", "\xDF", "\xA6", "\xC4", "\x8E\x8E", "\x97\xBF", "\x83\x5C", "\x95\x5C"};
    Characters text;
    for (int left = Below(most + 1); left > 0; --left) {
      text.push_back(kSigns[static_cast<std::size_t>(Below(static_cast<int>(kSigns.size())))]);
    }
    return text;
  }
  template <std::size_t Size>
  void Fill(FixedText<Size>& field) {
    field.SetBytes(Head(Text(static_cast<int>(Size)), Size));
  }

  // Dates from 1930 to 2029, and times; one in ten is absent.
  void FillDate(SpectrumRec& record) {
    if (Below(10) > 0) {
      record.OpDate.Set(std::to_string(1930 + Below(100)) + Two(1 + Below(12)) +
                        Two(1 + Below(28)));
    }
    if (Below(10) > 0) record.OpTime.Set(Two(Below(24)) + Two(Below(60)) + Two(Below(60)));
  }

  SpectrumRec Record() {
    SpectrumRec record;
    record.SaveFlag = static_cast<std::int16_t>(Below(3));
    Fill(record.MsuName);
    Fill(record.SampName);
    FillDate(record);
    Fill(record.OpTime2);
    Fill(record.OpName);
    Fill(record.Memo);
    record.DataType = static_cast<std::int16_t>(Below(6));
    for (std::int16_t& number : record.ExtInt) number = static_cast<std::int16_t>(random_());
    for (auto& text : record.ExtText) Fill(text);
    MeasProp& prop = record.Prop;
    prop.PropHead = static_cast<std::int16_t>(Below(6));
    for (const auto field : kMeasReals) prop.*field = Real(1e5);
    for (double& coefficient : prop.EGC) coefficient = Real(1);
    prop.PropRes2 = static_cast<std::int16_t>(random_());
    prop.Flags = static_cast<std::int16_t>(Below(32));
    for (char& byte : prop.PropRes1) byte = static_cast<char>(random_());
    for (char& byte : prop.PropRes3) byte = static_cast<char>(random_());
    return record;
  }

  // Counts from `least` to `most`, many of them at the ends of their digits.
  ChannelBlock Block(int channels, std::int32_t least, std::int32_t most) {
    ChannelBlock block;
    block.Count = static_cast<std::int16_t>(channels);
    std::uniform_int_distribution<std::int32_t> any(least, most);
    for (std::int32_t& count : block.Used()) {
      const int kind = Below(4);
      count = kind == 0 ? most : kind == 1 ? least : kind == 2 ? Below(100) : any(random_);
    }
    return block;
  }

  PeakTable Peaks(int count) {
    PeakTable table = SamplePeaks(count);
    for (int i = 0; i < count; ++i) {
      PeakRec& peak = table.Peaks[i];
      peak.Center = Real(4000);
      peak.Height = Real(1e6);
      peak.FitDone = static_cast<std::int16_t>(-Below(2));
      peak.Reserved = static_cast<std::int32_t>(random_());
    }
    return table;
  }

 private:
  double Unit() { return std::uniform_real_distribution<double>(0, 1)(random_); }
  static std::string Two(int number) { return (number < 10 ? "0" : "") + std::to_string(number); }

  std::mt19937 random_;
};

}  // namespace dorvane
