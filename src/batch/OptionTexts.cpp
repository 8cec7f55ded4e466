#include "batch/OptionTexts.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "batch/BatchError.h"
#include "support/NumberText.h"
#include "support/Rounding.h"
#include "workspace/SpectrumRec.h"

namespace dorvane {
namespace {

[[noreturn]] void Refuse(std::string_view text, std::string_view expected) {
  throw UsageError("\"" + std::string(text) + "\" is not " + std::string(expected));
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const auto end = text.find(separator);
    pieces.push_back(Trim(text.substr(0, end)));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

// Nothing for what is no whole number within the bounds.
std::optional<int> WholeNumber(std::string_view text, int low, int high) {
  const auto number = ParseNumber(text);
  if (!number || *number != std::floor(*number) || *number < low || *number > high)
    return std::nullopt;
  return static_cast<int>(*number);
}

std::optional<Hkl> HklOfText(std::string_view text) {
  constexpr int kLargestIndex = 999;
  std::vector<std::string_view> indices;
  for (const std::string_view piece : Split(text, ' ')) {
    if (!piece.empty()) indices.push_back(piece);
  }
  if (indices.size() == 1 && text.size() == 3) {
    indices = {text.substr(0, 1), text.substr(1, 1), text.substr(2, 1)};
  }
  if (indices.size() != 3) return std::nullopt;
  std::array<std::int16_t, 3> hkl{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto index = WholeNumber(indices[i], -kLargestIndex, kLargestIndex);
    if (!index) return std::nullopt;
    hkl[i] = ToInt16(*index);
  }
  return Hkl{hkl[0], hkl[1], hkl[2]};
}

}  // namespace

ChannelSpan ParseChannelSpan(std::string_view text) {
  const auto ends = Split(text, ':');
  if (ends.size() == 2) {
    const auto first = WholeNumber(ends[0], 1, kMaxChannels);
    const auto last = WholeNumber(ends[1], 1, kMaxChannels);
    if (first && last && *first < *last) return {*first - 1, *last - 1};
  }
  Refuse(text, "a range of channels A:B with 1 <= A < B <= 8192");
}

std::vector<Hkl> ParseHklList(std::string_view text) {
  std::vector<Hkl> lines;
  for (const std::string_view piece : Split(text, ',')) {
    const auto hkl = HklOfText(piece);
    if (!hkl) Refuse(text, "a list of Miller indices such as \"2 0 0,2 2 0\"");
    lines.push_back(*hkl);
  }
  return lines;
}

std::vector<double> ParseNumbers(std::string_view text, std::size_t count, std::string_view what) {
  std::vector<double> numbers;
  for (const std::string_view piece : Split(text, ',')) {
    const auto number = ParseNumber(piece);
    if (!number) Refuse(text, what);
    numbers.push_back(*number);
  }
  if (numbers.size() != count) Refuse(text, what);
  return numbers;
}

std::pair<std::int16_t, std::int16_t> ParseBackground(std::string_view text) {
  const auto pieces = Split(text, ',');
  if (pieces.size() == 2) {
    const auto interval = WholeNumber(pieces[0], 1, kMaxChannels - 1);
    const auto times = WholeNumber(pieces[1], 1, kMaxChannels - 1);
    if (interval && times) return {ToInt16(*interval), ToInt16(*times)};
  }
  Refuse(text, "a background INTERVAL,TIMES of two whole numbers from 1 to 8191");
}

int ParseSmoothing(std::string_view text) {
  if (text == "none") return -1;
  const auto points = WholeNumber(text, 5, 11);
  if (!points || *points % 2 == 0) Refuse(text, "5, 7, 9, 11 or none");
  return (*points - 5) / 2;
}

}  // namespace dorvane
